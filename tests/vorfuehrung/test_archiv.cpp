#include "archiv.h"
#include "beispielprofil.h"
#include "fehlschlag.h"
#include "regeln.h"
#include "vorlagen.h"

#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace vorfuehrung;

namespace
{

QByteArray bytes(const QString &pfad)
{
    QFile datei(pfad);
    return datei.open(QIODevice::ReadOnly) ? datei.readAll() : QByteArray("missing: " + pfad.toUtf8());
}

QMap<QString, QByteArray> inhalt(const QString &ordner)
{
    QMap<QString, QByteArray> dateien;
    QDirIterator lauf(ordner, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (lauf.hasNext()) {
        const QString pfad = lauf.next();
        dateien.insert(pfad.mid(ordner.size()), lauf.fileInfo().isDir() ? "folder" : bytes(pfad));
    }
    return dateien;
}

struct Ausgabe {
    int status;
    QByteArray text;
};

Ausgabe gestartet(const QString &programm, const QStringList &argumente)
{
    QProcess prozess;
    prozess.start(programm, argumente);
    if (!prozess.waitForFinished(60'000))
        return {-1, {}};
    return {prozess.exitCode(), prozess.readAllStandardOutput()};
}

qsizetype sichtbare(const QByteArray &text)
{
    return QString::fromUtf8(text).remove(QRegularExpression(u"\\s"_s)).size();
}

/** Has the parts that the server reads; the words between them do not matter to it. */
QString prompt(const QString &text)
{
    return u"Das Gegenüber ist NIEMALS der Eigentuemer selbst, also nicht Anna Muster, Muster "
           u"Lichtbilder.\n\nRubriken:\n"
           "Firma / Jahresablage: Ausgangsrechnungen, Eingangsrechnungen, Kontoauszüge, Steuerbescheide\n"
           "Firma / Stammdaten: Versicherungen, Verträge, Zulassungen\n"
           "Privat / Jahresablage: Eingangsrechnungen, Kontoauszüge, Steuerbescheide\n"
           "Privat / Stammdaten: Schriftverkehr, Urkunden, Versicherungen, Versicherungen/Auto, "
           "Versicherungen/Hausrat, "
           "Verträge, Wohnung\n"
           "Verein / Unterlagen: Einladungen, Protokolle\n"
           "\nAntworte ausschliesslich mit einem JSON-Objekt.\n\nBisheriger Dateiname: x.pdf\n\nDokumenttext:\n\"\"\"\n"_s +
           text.left(1400) + u"\n\"\"\""_s;
}

} // namespace

class TestArchiv : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void zweiLaeufeGleicheBytes();
    void dokumentOeffnetSichWieGemeint_data();
    void dokumentOeffnetSichWieGemeint();
    void regelnFindenDasErwartete_data();
    void regelnFindenDasErwartete();
    void dublettenSindWasSieHeissen();
    void fastGleicheUnterscheidenSichInEinemWort();
    void profilNenntModellUndOrdner();
    void unbekannteAngabeWirdGemeldet();

private:
    [[nodiscard]] QString datei(const Vorlage &vorlage) const;
    [[nodiscard]] QByteArray text(const Vorlage &vorlage) const;

    QTemporaryDir m_ordner;
    QList<Vorlage> m_vorlagen;
};

void TestArchiv::initTestCase()
{
    archivSchreiben(m_ordner.path());
    m_vorlagen = vorlagen();
    QVERIFY(m_vorlagen.size() >= 40);
}

QString TestArchiv::datei(const Vorlage &vorlage) const
{
    const QString pfad = vorlage.zerlegt ? vorlage.pfad.normalized(QString::NormalizationForm_D) : vorlage.pfad;
    return quelleVon(m_ordner.path()) + u'/' + pfad;
}

QByteArray TestArchiv::text(const Vorlage &vorlage) const
{
    return gestartet(u"pdftotext"_s, {u"-l"_s, u"2"_s, u"-enc"_s, u"UTF-8"_s, datei(vorlage), u"-"_s}).text;
}

void TestArchiv::zweiLaeufeGleicheBytes()
{
    const QTemporaryDir zweiter;
    archivSchreiben(zweiter.path());
    const auto erste = inhalt(m_ordner.path());
    const auto zweite = inhalt(zweiter.path());
    QCOMPARE(zweite.keys(), erste.keys());
    for (const QString &pfad : erste.keys())
        QVERIFY2(zweite.value(pfad) == erste.value(pfad), qUtf8Printable(pfad));
}

void TestArchiv::dokumentOeffnetSichWieGemeint_data()
{
    QTest::addColumn<qsizetype>("zeile");
    for (qsizetype i = 0; i < m_vorlagen.size(); ++i)
        QTest::newRow(qUtf8Printable(m_vorlagen.at(i).pfad)) << i;
}

void TestArchiv::dokumentOeffnetSichWieGemeint()
{
    QFETCH(qsizetype, zeile);
    const Vorlage &vorlage = m_vorlagen.at(zeile);
    const bool kaputt = vorlage.machart == Machart::beschaedigt || vorlage.machart == Machart::verschluesselt;
    const QTemporaryDir bilder;
    const Ausgabe bild =
        gestartet(u"pdftoppm"_s, {u"-r"_s, u"20"_s, u"-png"_s, datei(vorlage), bilder.filePath(u"s"_s)});
    QCOMPARE(bild.status == 0, !kaputt);
    const qsizetype seiten = vorlage.von.isEmpty() ? qMax<qsizetype>(1, vorlage.seiten.size()) : 1;
    QCOMPARE(QDir(bilder.path()).entryList({u"*.png"_s}).size(), kaputt ? 0 : seiten);
    const bool ohneText =
        kaputt || vorlage.machart == Machart::leer || (vorlage.machart == Machart::bild && !vorlage.ebeneVerschoben);
    const qsizetype zeichen = sichtbare(text(vorlage));
    QVERIFY2(ohneText ? zeichen == 0 : zeichen >= 120, qPrintable(QString::number(zeichen)));
}

void TestArchiv::regelnFindenDasErwartete_data()
{
    QTest::addColumn<qsizetype>("zeile");
    for (qsizetype i = 0; i < m_vorlagen.size(); ++i)
        if (m_vorlagen.at(i).machart == Machart::text)
            QTest::newRow(qUtf8Printable(m_vorlagen.at(i).pfad)) << i;
}

void TestArchiv::regelnFindenDasErwartete()
{
    QFETCH(qsizetype, zeile);
    const Vorlage &vorlage = m_vorlagen.at(zeile);
    const QString gelesen = QString::fromUtf8(text(vorlage));
    const QJsonObject antwort = antwortAuf(prompt(gelesen));
    const QString ausName = vorlage.pfad.contains(u"2023_05_17"_s) ? vorlage.datum : QString();
    QCOMPARE(antwort["datum"_L1].toString() + ausName, vorlage.datum);
    QCOMPARE(antwort["titel"_L1].toString(), vorlage.titel);
    QCOMPARE(antwort["zweig"_L1].toString(), vorlage.zweig);
    QCOMPARE(antwort["ablage"_L1].toString(), vorlage.ablage);
    const bool ausgang = vorlage.rubrik == u"Ausgangsrechnungen"; // the direction is the program's to find
    QCOMPARE(antwort["rubrik"_L1].toString(), ausgang ? u"Eingangsrechnungen"_s : vorlage.rubrik);

    const QString nachfrage =
        u"Der Eigentuemer dieser Ablage ist: Anna Muster, Muster Lichtbilder.\n\nNenne die ANDERE "
        "Partei.\n\nDokumenttext:\n\"\"\"\n"_s +
        gelesen.left(1400) + u"\"\"\""_s;
    QCOMPARE(antwortAuf(nachfrage), (QJsonObject{{u"gegenueber"_s, vorlage.gegenueber}}));
    const QString erster = antwort["gegenueber"_L1].toString();
    QVERIFY2(erster == vorlage.gegenueber || erster.contains(u"Anna Muster"_s), qUtf8Printable(erster));
}

void TestArchiv::dublettenSindWasSieHeissen()
{
    int kopien = 0;
    for (const Vorlage &vorlage : m_vorlagen) {
        if (vorlage.von.isEmpty())
            continue;
        ++kopien;
        const auto urbild = std::ranges::find(m_vorlagen, vorlage.von, &Vorlage::pfad);
        QVERIFY(urbild != m_vorlagen.end());
        QCOMPARE(bytes(datei(vorlage)) == bytes(datei(*urbild)), vorlage.machart == Machart::kopie);
        QCOMPARE(text(vorlage), text(*urbild));
    }
    QCOMPARE(kopien, 3);
}

void TestArchiv::fastGleicheUnterscheidenSichInEinemWort()
{
    const auto zweiter = std::ranges::find_if(m_vorlagen, [](const Vorlage &v) { return !v.aehnlichZu.isEmpty(); });
    QVERIFY(zweiter != m_vorlagen.end());
    const auto erster = std::ranges::find(m_vorlagen, zweiter->aehnlichZu, &Vorlage::pfad);
    QVERIFY(erster < zweiter);
    const QList<QByteArray> a = text(*erster).simplified().split(' ');
    const QList<QByteArray> b = text(*zweiter).simplified().split(' ');
    QCOMPARE(a.size(), b.size());
    int verschieden = 0;
    for (qsizetype i = 0; i < a.size(); ++i)
        verschieden += a.at(i) != b.at(i);
    QCOMPARE(verschieden, 1);
}

void TestArchiv::profilNenntModellUndOrdner()
{
    const QString pfad = m_ordner.filePath(u"daten/profile.json"_s);
    profilSchreiben(pfad, m_ordner.path());
    const QJsonObject eigenes = QJsonDocument::fromJson(bytes(pfad))[0].toObject();
    QCOMPARE(eigenes["quelle"_L1].toString(), m_ordner.filePath(u"Scans"_s));
    QVERIFY(QDir(eigenes["zielWurzel"_L1].toString() + u"/Verein/Unterlagen/Protokolle"_s).exists());
    QCOMPARE(eigenes["modell"_L1].toString(), modellDerVorfuehrung());
    profilSchreiben(pfad, m_ordner.path(), u"qwen3:4b"_s);
    const QJsonObject fremdes = QJsonDocument::fromJson(bytes(pfad))[0].toObject();
    QCOMPARE(fremdes["modell"_L1].toString(), u"qwen3:4b"_s);
    QCOMPARE(fremdes["zweitmeinung"_L1].toBool(true), false);
}

void TestArchiv::unbekannteAngabeWirdGemeldet()
{
    QVERIFY_EXCEPTION_THROWN((void)vorlagenLesen(u"=== a.pdf\nfarbe: rot\n---\nText"_s), Fehlschlag);
    QVERIFY_EXCEPTION_THROWN((void)vorlagenLesen(u"=== a.pdf\nzustand: neu\n---\nText"_s), Fehlschlag);
}

QTEST_GUILESS_MAIN(TestArchiv)
#include "test_archiv.moc"
