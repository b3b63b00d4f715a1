#include "bestand.h"
#include "buehne.h"
#include "handlung.h"
#include "lauf.h"
#include "originale.h"
#include "pdf.h"
#include "pfade.h"
#include "protokollbuch.h"
#include "satz.h"
#include "sha256.h"
#include "textleser.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTest>
#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace quillmar::zustand;

namespace
{
constexpr int briefe = 8;
constexpr int namen = 14;

/** Letter @p nummer as a file; @p neuGespeichert: with the same words and other bytes. */
QByteArray brief(int nummer, bool neuGespeichert)
{
    QStringList zeilen{neuGespeichert ? u" -- "_s : u"Brief an die"_s};
    if (neuGespeichert)
        zeilen << u"Brief an die"_s;
    for (int i = 0; i < 40; ++i)
        zeilen.last() += u" Zeile%1"_s.arg(nummer * 1000 + i) + (i % 8 == 7 ? u"\n"_s : QString());
    return vorfuehrung::pdf(
        {{.inhalt = vorfuehrung::seitenSatz(zeilen.join(u'\n').split(u'\n')), .jpeg = {}, .bildgroesse = {}}});
}

/** A folder that scanners and people work in, a target, a catalogue, and whoever reviews. */
class Welt
{
public:
    Welt(bool kopieren, quint32 saat) : m_zufall(saat)
    {
        m_buehne.profil.kopieren = kopieren;
        m_buehne.profil.mitUnterordnern = true;
        oeffnen();
        for (int k = 0; k < briefe; ++k)
            m_inhalte << brief(k, false) << brief(k, true);
    }

    void oeffnen()
    {
        m_db.reset();
        m_db = std::make_shared<Datenbank>(m_buehne.ordner() + u"/k.db"_s);
        m_buch.reset();
    }

    [[nodiscard]] Datenbank &db() { return *m_db; }
    [[nodiscard]] const Profil &profil() const { return m_buehne.profil; }
    [[nodiscard]] Arbeitsplatz platz() const { return {.db = m_db, .profil = m_buehne.profil, .buch = m_buch}; }

    Geschehen tun(const std::function<Geschehen(const Arbeitsplatz &)> &tat)
    {
        Geschehen g = tat(platz());
        m_buch = g.buch;
        return g;
    }

    void schreiben(const QString &pfad, const QByteArray &inhalt)
    {
        QVERIFY(QDir().mkpath(ordnerVon(pfad)));
        QFile datei(pfad);
        QVERIFY(datei.open(QIODevice::WriteOnly));
        datei.write(inhalt);
        datei.close();
        // The clock of a file system may be coarser than the steps of this play.
        const struct timespec zeit = {1'600'000'000 + ++m_uhr, 0};
        const struct timespec zeiten[2] = {zeit, zeit};
        QCOMPARE(::utimensat(AT_FDCWD, pfad.toUtf8().constData(), zeiten, 0), 0);
    }

    /** Inventory and reading as they are, then every document gets some proposal. */
    void durchgang()
    {
        Lauf lauf(
            m_db, profil(), [] { return false; }, {}, [](const Laufstand &) {});
        try {
            Bestand::aufnehmen(lauf);
            Textleser::textLesen(lauf);
        } catch (const Fehler &) {
            return; // the drive is away
        }
        m_db->ausfuehren(
            u"UPDATE dokumente SET status='bereit', vorschlag=dateiname, datum='2023-02-14', jahr='2023',\n"
            "gegenueber='Absender '||id, titel='T'||(id%3), zweig='Haushalt', ablage='Jahresablage',\n"
            "rubrik='Strom' WHERE status='neu' AND ausgenommen=0"_s);
    }

    void schritt()
    {
        const int was = m_zufall.bounded(100);
        if (was < 45 && m_weg)
            return;
        if (was < 45)
            return leute(was);
        if (was < 49)
            return laufwerk();
        const QMap<QString, int> vorher = inhalte();
        if (was < 55)
            durchgang();
        else
            pruefer(was);
        verloren(vorher);
    }

    void laufwerkZurueck()
    {
        if (m_weg)
            laufwerk();
    }

    /** Whatever does not agree at the end; empty if every file is accounted for. */
    [[nodiscard]] QStringList maengel()
    {
        for (const QString &pfad : dateien(profil().quelle))
            herkunftPruefen(pfad);
        for (const QString &pfad : dateien(profil().zielWurzel))
            zielPruefen(pfad);
        return m_maengel;
    }

    /** SHA-256 of every PDF in source, target and trash, with how often it occurs. */
    [[nodiscard]] QMap<QString, int> inhalte() const
    {
        QMap<QString, int> bestand;
        const QString korb = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/Trash/files"_s;
        for (const QString &ordner : {profil().quelle, weggelegt(), profil().zielWurzel, korb}) {
            for (const QString &pfad : dateien(ordner))
                ++bestand[summe(pfad)];
        }
        return bestand;
    }

    [[nodiscard]] static QStringList dateien(const QString &ordner)
    {
        QStringList pfade;
        QDirIterator lauf(ordner, {u"*.pdf"_s}, QDir::Files, QDirIterator::Subdirectories);
        while (lauf.hasNext())
            pfade << lauf.next();
        pfade.sort();
        return pfade;
    }

private:
    /** Every writing has its own time, so a file is read once only. */
    [[nodiscard]] QString summe(const QString &pfad) const
    {
        struct stat s = {};
        ::stat(pfad.toUtf8().constData(), &s);
        QString &bekannt = m_summen[{qint64(s.st_mtim.tv_sec), qint64(s.st_size)}];
        if (bekannt.isEmpty())
            bekannt = sha256Datei(pfad.toUtf8());
        return bekannt;
    }

    [[nodiscard]] QString weggelegt() const { return profil().quelle + u".weg"_s; }

    [[nodiscard]] QString einName()
    {
        const int n = m_zufall.bounded(namen);
        return profil().quelle +
               (n % 3 == 0   ? u"/Inbox/"_s
                : n % 3 == 1 ? u"/alt/"_s
                             : u"/"_s) +
               u"%1.pdf"_s.arg(n, 4, 10, QChar(u'0'));
    }

    [[nodiscard]] QString eineDatei()
    {
        const QStringList alle = dateien(profil().quelle);
        return alle.isEmpty() ? QString() : alle.at(m_zufall.bounded(int(alle.size())));
    }

    [[nodiscard]] QByteArray einInhalt() { return m_inhalte.at(m_zufall.bounded(int(m_inhalte.size()))); }

    void leute(int was)
    {
        const QString da = eineDatei();
        const QString name = einName();
        if (was < 20 || da.isEmpty()) {
            if (!QFile::exists(name))
                schreiben(name, einInhalt());
        } else if (was < 28) {
            schreiben(da, einInhalt());
        } else if (was < 32) {
            schreiben(da, {});
        } else if (was < 40) {
            QDir().mkpath(ordnerVon(name));
            QFile::rename(da, name);
        } else {
            QFile::remove(da);
        }
    }

    /** The mount point stays behind as an empty folder. */
    void laufwerk()
    {
        if (m_weg)
            QVERIFY(QDir().rmdir(profil().quelle) && QDir().rename(weggelegt(), profil().quelle));
        else
            QVERIFY(QDir().rename(profil().quelle, weggelegt()) && QDir().mkdir(profil().quelle));
        m_weg = !m_weg;
    }

    void pruefer(int was)
    {
        const QList<Zeile> wartende =
            m_db->abfragen(u"SELECT * FROM dokumente WHERE status='bereit' AND ausgenommen=0 ORDER BY id"_s);
        const auto eines = [&] { return Dokument::aus(wartende.at(m_zufall.bounded(int(wartende.size())))); };
        const auto weiter = [](qint64, qint64) { return true; };
        if (was < 68 && !wartende.isEmpty())
            tun([&](const Arbeitsplatz &p) { return Handlung::uebernehmen(p, eines()); });
        else if (was < 73 && !wartende.isEmpty())
            tun([&](const Arbeitsplatz &p) { return Handlung::zuruecklegen(p, eines()); });
        else if (was < 78 && !wartende.isEmpty())
            tun([&](const Arbeitsplatz &p) { return Handlung::aussortieren(p, eines()); });
        else if (was < 90)
            tun([&](const Arbeitsplatz &p) { return Handlung::rueckgaengig(p); });
        else if (was < 94)
            tun([&](const Arbeitsplatz &p) { return Handlung::dublettenAusraeumen(p, weiter); });
        else if (was < 97)
            tun([&](const Arbeitsplatz &p) { return Handlung::wiederVorlegen(p); });
        else
            oeffnen();
    }

    void verloren(const QMap<QString, int> &vorher)
    {
        const QMap<QString, int> jetzt = inhalte();
        for (auto i = vorher.cbegin(); i != vorher.cend(); ++i) {
            if (jetzt.value(i.key()) < i.value() && m_maengel.size() < 5)
                m_maengel << u"verloren: "_s + i.key().first(8);
        }
        if (!profil().kopieren && jetzt != vorher && m_maengel.size() < 5)
            m_maengel << u"aus dem Nichts"_s;
    }

    void mangel(const QString &pfad, const QString &was)
    {
        m_maengel << pfad.mid(m_buehne.ordner().size()) + u": "_s + was;
    }

    void herkunftPruefen(const QString &pfad)
    {
        const QList<Zeile> zeilen = m_db->abfragen(
            u"SELECT d.*, t.text FROM dokumente d LEFT JOIN texte t ON t.dokument_id=d.id WHERE pfad=?"_s, {pfad});
        if (zeilen.size() != 1)
            return mangel(pfad, u"%1 Zeilen"_s.arg(zeilen.size()));
        const Zeile &z = zeilen.first();
        const QString status = z.text(u"status");
        if (z.text(u"sha256") != sha256Datei(pfad.toUtf8()))
            return mangel(pfad, u"Prüfsumme einer anderen Datei, "_s + status);
        if (status == u"dublette"_s)
            return dublettePruefen(pfad, z);
        if (status == u"erledigt"_s && !hatKopie(z.ganz(u"id"), z.text(u"sha256")))
            return mangel(pfad, u"einsortiert, aber ohne Kopie"_s);
        if (status == u"bereit"_s || status == u"zurueckgestellt"_s)
            return textPruefen(pfad, z);
        if (status != u"erledigt"_s && status != u"aussortiert"_s)
            mangel(pfad, status);
    }

    void textPruefen(const QString &pfad, const Zeile &z)
    {
        if (QFileInfo(pfad).size() == 0) {
            if (!z.text(u"fehler").startsWith(u"Lesen nicht möglich"_s))
                mangel(pfad, u"leer und ohne Fehler"_s);
            return;
        }
        QFile datei(pfad);
        QVERIFY(datei.open(QIODevice::ReadOnly));
        const qsizetype stelle = m_inhalte.indexOf(datei.readAll());
        if (!z.text(u"text").contains(u"Zeile%1 "_s.arg(stelle / 2 * 1000 + 3)))
            mangel(pfad, u"Text einer anderen Datei"_s);
    }

    void dublettePruefen(const QString &pfad, const Zeile &z)
    {
        if (QFileInfo(pfad).size() == 0)
            return mangel(pfad, u"leer und Dublette"_s);
        if (!Originale::istNochDublette(*m_db, z.ganz(u"id"), Textleser::textgrenze(profil())))
            mangel(pfad, u"Dublette ohne Original"_s);
    }

    [[nodiscard]] bool hatKopie(qint64 id, const QString &summe)
    {
        const QStringList orte = Originale::orte(*m_db, id);
        return std::any_of(orte.begin(), orte.end(), [&](const QString &ort) {
            return ort.startsWith(profil().zielWurzel) && sha256Datei(ort.toUtf8()) == summe;
        });
    }

    void zielPruefen(const QString &pfad)
    {
        const qsizetype zeilen = m_db->abfragen(u"SELECT 1 FROM dokumente WHERE pfad=?\n"
                                                "AND status IN ('erledigt','aussortiert')"_s,
                                                {pfad})
                                     .size() +
                                 m_db->abfragen(u"SELECT 1 FROM protokoll WHERE nach_pfad=? AND kopiert=1\n"
                                                "AND rueckgaengig=0"_s,
                                                {pfad})
                                     .size();
        if (zeilen != 1)
            mangel(pfad, u"%1 Zeilen am Ziel"_s.arg(zeilen));
    }

    Buehne m_buehne;
    std::shared_ptr<Datenbank> m_db;
    std::shared_ptr<Protokollbuch> m_buch;
    QRandomGenerator m_zufall;
    QList<QByteArray> m_inhalte;
    QStringList m_maengel;
    mutable QHash<std::pair<qint64, qint64>, QString> m_summen;
    qint64 m_uhr = 0;
    bool m_weg = false;
};

/** Statuses and places of all documents. */
QStringList stand(Welt &welt)
{
    QStringList zeilen;
    for (const Zeile &z : welt.db().abfragen(u"SELECT id, status, pfad FROM dokumente ORDER BY id"_s))
        zeilen << z.text(u"status") + u' ' + z.text(u"pfad");
    return zeilen;
}

Dokument dokument(Welt &welt, const QString &status)
{
    const QList<Zeile> zeilen =
        welt.db().abfragen(u"SELECT * FROM dokumente WHERE status=? ORDER BY id LIMIT 1"_s, {status});
    return zeilen.isEmpty() ? Dokument() : Dokument::aus(zeilen.first());
}
} // namespace

/** What happens to documents between runs and over many deeds. */
class TestLeben : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ordnerDerLebt_data();
    void ordnerDerLebt();
    void jedeTatHatEinenWegZurueck_data();
    void jedeTatHatEinenWegZurueck();
};

void TestLeben::ordnerDerLebt_data()
{
    QTest::addColumn<bool>("kopieren");
    QTest::addColumn<quint32>("saat");
    for (const quint32 saat : {1U, 2U}) {
        QTest::addRow("verschieben %u", saat) << false << saat;
        QTest::addRow("kopieren %u", saat) << true << saat;
    }
}

void TestLeben::ordnerDerLebt()
{
    QFETCH(bool, kopieren);
    QFETCH(quint32, saat);
    bool gesetzt = false;
    const int schritte = qEnvironmentVariableIntValue("QUILLMAR_SCHRITTE", &gesetzt);
    Welt welt(kopieren, saat);
    for (int n = 0; n < (gesetzt ? schritte : 300); ++n)
        welt.schritt();
    welt.laufwerkZurueck();
    welt.durchgang();
    welt.durchgang();
    QCOMPARE(welt.maengel(), QStringList());
}

void TestLeben::jedeTatHatEinenWegZurueck_data()
{
    QTest::addColumn<int>("tat");
    QTest::addColumn<bool>("kopieren");
    const QStringList taten = {u"übernehmen"_s, u"zurückstellen"_s, u"Dublette"_s, u"alle Dubletten"_s,
                               u"wieder vorlegen"_s};
    for (int tat = 0; tat < taten.size(); ++tat) {
        for (const bool kopieren : {false, true})
            QTest::newRow(qPrintable(taten.at(tat) + (kopieren ? u", kopieren"_s : u", verschieben"_s)))
                << tat << kopieren;
    }
}

void TestLeben::jedeTatHatEinenWegZurueck()
{
    QFETCH(int, tat);
    QFETCH(bool, kopieren);
    Welt welt(kopieren, 0);
    for (int n = 0; n < 14; ++n)
        welt.schreiben(welt.profil().quelle + u"/%1.pdf"_s.arg(n), brief(n, false));
    for (int n = 0; n < 3; ++n)
        welt.schreiben(welt.profil().quelle + u"/zweites Mal %1.pdf"_s.arg(n), brief(n, false));
    welt.durchgang();
    const auto zurueckstellen = [&] {
        return welt.tun([&](const Arbeitsplatz &p) { return Handlung::zuruecklegen(p, dokument(welt, u"bereit"_s)); });
    };
    const auto rueckgaengig = [&] { return welt.tun([](const Arbeitsplatz &p) { return Handlung::rueckgaengig(p); }); };
    QVERIFY(zurueckstellen().gelungen);
    QVERIFY(zurueckstellen().gelungen);
    const QList<std::function<Geschehen(const Arbeitsplatz &)>> taten = {
        [&](const Arbeitsplatz &p) { return Handlung::uebernehmen(p, dokument(welt, u"bereit"_s)); },
        [&](const Arbeitsplatz &p) { return Handlung::zuruecklegen(p, dokument(welt, u"bereit"_s)); },
        [&](const Arbeitsplatz &p) { return Handlung::aussortieren(p, dokument(welt, u"bereit"_s)); },
        [&](const Arbeitsplatz &p) { return Handlung::dublettenAusraeumen(p, [](qint64, qint64) { return true; }); },
        [&](const Arbeitsplatz &p) { return Handlung::wiederVorlegen(p); }};
    const QStringList vorher = stand(welt);
    const QStringList dateien = Welt::dateien(welt.profil().quelle) + Welt::dateien(welt.profil().zielWurzel);
    const auto istWieVorher = [&] {
        return stand(welt) == vorher &&
               Welt::dateien(welt.profil().quelle) + Welt::dateien(welt.profil().zielWurzel) == dateien;
    };
    for (const int andere : {0, 10}) {
        for (const bool neuStart : {false, true}) {
            QVERIFY(welt.tun(taten.at(tat)).gelungen);
            QVERIFY(!istWieVorher());
            for (int n = 0; n < andere; ++n)
                QVERIFY(welt.tun(taten.at(n % 3)).gelungen);
            if (neuStart)
                welt.oeffnen();
            for (int n = 0; n <= andere; ++n)
                QVERIFY2(rueckgaengig().gelungen, qPrintable(QString::number(n)));
            QVERIFY2(istWieVorher(), qPrintable(stand(welt).join(u'\n')));
        }
    }
    // Only what came before is left.
    QVERIFY(rueckgaengig().gelungen && rueckgaengig().gelungen);
    QVERIFY(!rueckgaengig().gelungen);
}

QTEST_GUILESS_MAIN(TestLeben)
#include "test_leben.moc"
