#include "klaerung.h"
#include "werkbank.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quillmar::ablage;

namespace
{
const QByteArray inhalt = "the announced bytes";
constexpr struct timespec dateizeit = {.tv_sec = 1700000000, .tv_nsec = 0};

/** One disk as a crash may have left it, laid out anew for each combination. */
class Tatort
{
public:
    Tatort(const QString &weg, const QByteArray &bytes) : m_weg(weg), m_bytes(bytes)
    {
        m_absicht = absichtFuer(1, von(), nach());
        m_absicht.groesse = bytes.size();
        m_absicht.dateizeit = qint64(dateizeit.tv_sec) * 1000000000;
        const bool inDenKorb = weg == u"in den Korb"_s || weg == u"an Ort im Korb"_s;
        m_absicht.zeile.kopiert = weg == u"kopieren"_s || inDenKorb;
        if (weg == u"zurück"_s || inDenKorb) {
            m_absicht.art = Absicht::Art::Ruecknahme;
            std::swap(m_absicht.zeile.von, m_absicht.zeile.nach);
        }
        if (weg == u"an Ort im Korb"_s) // an older intent does not tell the place
            m_absicht.imKorb = nach();
        if (inDenKorb)
            vermerken("[Trash Info]\nPath=" + von().toUtf8().toPercentEncoding("/") + "\nDeletionDate=2026\n");
        if (weg == u"am Ort"_s)
            m_absicht.zeile.nach = von();
        if (weg == u"unvollendet"_s)
            m_absicht.zeile.nach = zwischen();
    }

    /** False for what cannot be. */
    bool aufbauen(const QString &anfang, const QString &ende, const QString &dazwischen)
    {
        return stelle(von(), anfang) && endeAufbauen(ende) && zwischenAufbauen(ende, dazwischen);
    }

    /** Writes @p text as the note of what is to lie at the end. */
    void vermerken(const QByteArray &text) const
    {
        QDir().mkpath(QFileInfo(vermerk()).path());
        dateiSchreiben(vermerk(), text);
    }

    /** The first letter of the answer, and of each place whose file is gone afterwards: Anfang, Ende, temporär,
     * Vermerk. */
    [[nodiscard]] QString urteil() const
    {
        const auto da = [](const QString &pfad) { return QFile::exists(pfad); };
        const bool anfang = da(von());
        const bool ende = da(nach());
        const bool temporaer = da(zwischen());
        const bool vermerkt = da(vermerk());
        const Klaerung::Lage lage = Klaerung::lage(m_absicht);
        QString zeichen(lage == Klaerung::Lage::Geschehen ? u'G' : lage == Klaerung::Lage::Unklar ? u'U' : u'N');
        zeichen += QString(anfang && !da(von()) ? u"a"_s : QString()) + (ende && !da(nach()) ? u"e"_s : QString());
        zeichen += temporaer && !da(zwischen()) ? u"t"_s : QString();
        return zeichen + (vermerkt && !da(vermerk()) ? u"v"_s : QString());
    }

private:
    [[nodiscard]] QString von() const { return m_ordner.filePath(u"anfang/Brief.pdf"_s); }
    [[nodiscard]] QString nach() const { return m_ordner.filePath(u"ende/Brief neu.pdf"_s); }
    [[nodiscard]] QString vermerk() const { return m_ordner.filePath(u"info/Brief neu.pdf.trashinfo"_s); }
    [[nodiscard]] QString zwischen() const
    {
        return m_ordner.filePath(u"ende/.quillmar-6f1c0d2a-93b4-4e1f-8c55-1a2b3c4d5e6f"_s);
    }

    static void datei(const QString &pfad, const QByteArray &bytes)
    {
        dateiSchreiben(pfad, bytes);
        const std::array<struct timespec, 2> zeiten = {dateizeit, dateizeit};
        QCOMPARE(::utimensat(AT_FDCWD, pfad.toUtf8().constData(), zeiten.data(), 0), 0);
    }

    [[nodiscard]] static bool verbinden(const QString &da, const QString &neu)
    {
        return ::link(da.toUtf8().constData(), neu.toUtf8().constData()) == 0;
    }

    [[nodiscard]] bool stelle(const QString &pfad, const QString &was) const
    {
        if (was != u"Ordner fehlt"_s)
            QDir().mkpath(QFileInfo(pfad).path());
        if (was == u"die Datei"_s)
            datei(pfad, m_bytes);
        if (was == u"andere Bytes"_s)
            datei(pfad, QByteArray(m_bytes.size(), 'x'));
        if (was == u"eine andere"_s)
            dateiSchreiben(pfad, "somebody else's");
        if (was == u"leer"_s)
            dateiSchreiben(pfad, {});
        return true;
    }

    [[nodiscard]] bool endeAufbauen(const QString &was) const
    {
        if (was != u"zweiter Name"_s)
            return stelle(nach(), was);
        QDir().mkpath(QFileInfo(nach()).path());
        return verbinden(von(), nach());
    }

    bool zwischenAufbauen(const QString &ende, const QString &was)
    {
        if (was == u"keine"_s)
            return m_weg != u"unvollendet"_s;
        m_absicht.temporaer = zwischen();
        if (was == u"veröffentlicht"_s)
            return m_weg != u"unvollendet"_s && verbinden(nach(), zwischen());
        if (was == u"liegt"_s && ende != u"Ordner fehlt"_s)
            datei(zwischen(), m_bytes);
        return was == u"fort"_s || ende != u"Ordner fehlt"_s;
    }

    QTemporaryDir m_ordner;
    QString m_weg;
    QByteArray m_bytes;
    Absicht m_absicht;
};
} // namespace

/** The decision after a crash, for everything that may lie at the two ends and in between. */
class TestKlaerung : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void lage_data()
    {
        QTest::addColumn<QString>("weg");
        QTest::addColumn<QString>("anfang");
        QTest::addColumn<QString>("ende");
        QTest::addColumn<QString>("erwartet");
        // What was to be | lies where it was | lies where it was to go | with the temporary file: none announced, gone
        // again, still there, a second name of the target. "-": cannot be.
        const QString tafel = uR"(
verschieben | nichts       | nichts       | N   N   U   -
verschieben | nichts       | Ordner fehlt | U   U   -   -
verschieben | nichts       | leer         | G   G   U   U
verschieben | nichts       | eine andere  | G   G   U   U
verschieben | nichts       | andere Bytes | G   G   Gt  Gt
verschieben | nichts       | die Datei    | G   G   Gt  Gt
verschieben | Ordner fehlt | nichts       | U   U   U   -
verschieben | Ordner fehlt | Ordner fehlt | U   U   -   -
verschieben | Ordner fehlt | leer         | U   U   U   U
verschieben | Ordner fehlt | eine andere  | U   U   U   U
verschieben | Ordner fehlt | andere Bytes | G   G   Gt  Gt
verschieben | Ordner fehlt | die Datei    | G   G   Gt  Gt
verschieben | eine andere  | nichts       | N   N   U   -
verschieben | eine andere  | Ordner fehlt | U   U   -   -
verschieben | eine andere  | leer         | U   U   U   U
verschieben | eine andere  | eine andere  | U   U   U   U
verschieben | eine andere  | andere Bytes | G   G   Gt  Gt
verschieben | eine andere  | die Datei    | G   G   Gt  Gt
verschieben | eine andere  | zweiter Name | U   U   U   U
verschieben | die Datei    | nichts       | N   N   Nt  -
verschieben | die Datei    | Ordner fehlt | N   N   -   -
verschieben | die Datei    | leer         | Ne  Ne  Net Net
verschieben | die Datei    | eine andere  | N   U   Nt  Ut
verschieben | die Datei    | andere Bytes | N   N   Nt  Nt
verschieben | die Datei    | die Datei    | N   Ga  Nt  Gat
verschieben | die Datei    | zweiter Name | Ga  Ga  Gat Gat
kopieren    | nichts       | nichts       | N   N   U   -
kopieren    | nichts       | Ordner fehlt | U   U   -   -
kopieren    | nichts       | leer         | G   G   U   U
kopieren    | nichts       | eine andere  | G   G   U   U
kopieren    | nichts       | andere Bytes | G   G   Gt  Gt
kopieren    | nichts       | die Datei    | G   G   Gt  Gt
kopieren    | Ordner fehlt | nichts       | U   U   U   -
kopieren    | Ordner fehlt | Ordner fehlt | U   U   -   -
kopieren    | Ordner fehlt | leer         | U   U   U   U
kopieren    | Ordner fehlt | eine andere  | U   U   U   U
kopieren    | Ordner fehlt | andere Bytes | G   G   Gt  Gt
kopieren    | Ordner fehlt | die Datei    | G   G   Gt  Gt
kopieren    | eine andere  | nichts       | N   N   U   -
kopieren    | eine andere  | Ordner fehlt | U   U   -   -
kopieren    | eine andere  | leer         | U   U   U   U
kopieren    | eine andere  | eine andere  | U   U   U   U
kopieren    | eine andere  | andere Bytes | G   G   Gt  Gt
kopieren    | eine andere  | die Datei    | G   G   Gt  Gt
kopieren    | eine andere  | zweiter Name | U   U   U   U
kopieren    | die Datei    | nichts       | N   N   Nt  -
kopieren    | die Datei    | Ordner fehlt | N   N   -   -
kopieren    | die Datei    | leer         | Ne  Ne  Net Net
kopieren    | die Datei    | eine andere  | N   G   Nt  Gt
kopieren    | die Datei    | andere Bytes | N   N   Nt  Nt
kopieren    | die Datei    | die Datei    | N   G   Nt  Gt
kopieren    | die Datei    | zweiter Name | N   G   Nt  Gt
zurück      | nichts       | nichts       | N   N   U   -
zurück      | nichts       | Ordner fehlt | U   U   -   -
zurück      | nichts       | leer         | G   G   U   U
zurück      | nichts       | eine andere  | G   G   U   U
zurück      | nichts       | andere Bytes | G   G   Gt  Gt
zurück      | nichts       | die Datei    | G   G   Gt  Gt
zurück      | Ordner fehlt | nichts       | U   U   U   -
zurück      | Ordner fehlt | Ordner fehlt | U   U   -   -
zurück      | Ordner fehlt | leer         | U   U   U   U
zurück      | Ordner fehlt | eine andere  | U   U   U   U
zurück      | Ordner fehlt | andere Bytes | G   G   Gt  Gt
zurück      | Ordner fehlt | die Datei    | G   G   Gt  Gt
zurück      | eine andere  | nichts       | N   N   U   -
zurück      | eine andere  | Ordner fehlt | U   U   -   -
zurück      | eine andere  | leer         | U   U   U   U
zurück      | eine andere  | eine andere  | U   U   U   U
zurück      | eine andere  | andere Bytes | G   G   Gt  Gt
zurück      | eine andere  | die Datei    | G   G   Gt  Gt
zurück      | eine andere  | zweiter Name | U   U   U   U
zurück      | die Datei    | nichts       | N   N   Nt  -
zurück      | die Datei    | Ordner fehlt | N   N   -   -
zurück      | die Datei    | leer         | Ne  Ne  Net Net
zurück      | die Datei    | eine andere  | N   N   Nt  Nt
zurück      | die Datei    | andere Bytes | N   N   Nt  Nt
zurück      | die Datei    | die Datei    | N   Ga  Nt  Gat
zurück      | die Datei    | zweiter Name | Ga  Ga  Gat Gat
unvollendet | nichts       | nichts       | -   N   U   -
unvollendet | Ordner fehlt | nichts       | -   U   U   -
unvollendet | eine andere  | nichts       | -   N   U   -
unvollendet | die Datei    | nichts       | -   N   Nt  -
unvollendet | nichts       | Ordner fehlt | -   U   -   -
unvollendet | Ordner fehlt | Ordner fehlt | -   U   -   -
unvollendet | eine andere  | Ordner fehlt | -   U   -   -
unvollendet | die Datei    | Ordner fehlt | -   N   -   -
am Ort      | nichts       | nichts       | N   N   N   -
am Ort      | Ordner fehlt | nichts       | N   N   N   -
am Ort      | eine andere  | nichts       | N   N   N   -
am Ort      | die Datei    | nichts       | G   G   Gt  -
in den Korb | nichts       | nichts       | G   G   G   -
in den Korb | Ordner fehlt | nichts       | U   U   U   -
in den Korb | eine andere  | nichts       | N   N   N   -
in den Korb | die Datei    | nichts       | N   N   Nt  -
an Ort im Korb | nichts       | nichts       | Gv  Gv  G   -
an Ort im Korb | nichts       | Ordner fehlt | G   G   -   -
an Ort im Korb | nichts       | leer         | G   G   G   G
an Ort im Korb | nichts       | eine andere  | G   G   G   G
an Ort im Korb | nichts       | die Datei    | G   G   Gt  Gt
an Ort im Korb | Ordner fehlt | nichts       | U   U   U   -
an Ort im Korb | Ordner fehlt | leer         | U   U   U   U
an Ort im Korb | Ordner fehlt | die Datei    | U   U   Ut  Ut
an Ort im Korb | leer         | nichts       | Nv  Nv  N   -
an Ort im Korb | leer         | leer         | N   N   N   N
an Ort im Korb | leer         | die Datei    | Ga  Ga  Gat Gat
an Ort im Korb | eine andere  | nichts       | Nv  Nv  N   -
an Ort im Korb | eine andere  | leer         | N   N   N   N
an Ort im Korb | eine andere  | die Datei    | N   N   Nt  Nt
an Ort im Korb | die Datei    | nichts       | Nv  Nv  Ntv -
an Ort im Korb | die Datei    | Ordner fehlt | N   N   -   -
an Ort im Korb | die Datei    | leer         | Nev Nev Netv Netv
an Ort im Korb | die Datei    | eine andere  | N   N   Nt  Nt
an Ort im Korb | die Datei    | die Datei    | N   N   Nt  Nt
)"_s;
        for (const QString &zeile : tafel.split(u'\n', Qt::SkipEmptyParts)) {
            const QStringList spalten = zeile.split(u'|');
            QTest::newRow(qPrintable(zeile)) << spalten.at(0).trimmed() << spalten.at(1).trimmed()
                                             << spalten.at(2).trimmed() << spalten.at(3).simplified();
        }
    }

    void lage()
    {
        QFETCH(QString, weg);
        QFETCH(QString, anfang);
        QFETCH(QString, ende);
        QStringList urteile;
        for (const QString &zwischen : {u"keine"_s, u"fort"_s, u"liegt"_s, u"veröffentlicht"_s}) {
            Tatort ort(weg, inhalt);
            urteile << (ort.aufbauen(anfang, ende, zwischen) ? ort.urteil() : u"-"_s);
        }
        QTEST(urteile.join(u' '), "erwartet");
    }

    /** Only the note of this file goes, or one that a crash has kept from being written. */
    void fremderVermerk_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("urteil");
        QTest::newRow("leer") << QByteArray() << u"Nv"_s;
        QTest::newRow("fremd") << QByteArray("[Trash Info]\nPath=/anders/Brief.pdf\nDeletionDate=2026\n") << u"N"_s;
        QTest::newRow("Unsinn") << QByteArray("?") << u"N"_s;
    }
    void fremderVermerk()
    {
        QFETCH(QByteArray, text);
        Tatort ort(u"an Ort im Korb"_s, inhalt);
        QVERIFY(ort.aufbauen(u"die Datei"_s, u"nichts"_s, u"keine"_s));
        ort.vermerken(text);
        QTEST(ort.urteil(), "urteil");
    }

    /** An empty document is no placeholder. */
    void leeresDokument()
    {
        for (const QString &zwischen : {u"keine"_s, u"fort"_s}) {
            for (const QString &weg : {u"verschieben"_s, u"an Ort im Korb"_s}) {
                Tatort ort(weg, {});
                QVERIFY(ort.aufbauen(u"die Datei"_s, u"leer"_s, zwischen));
                QCOMPARE(ort.urteil(), u"N"_s);
            }
        }
    }
};

QTEST_GUILESS_MAIN(TestKlaerung)
#include "test_klaerung.moc"
