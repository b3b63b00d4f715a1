#include "analyse.h"
#include "bestand.h"
#include "datenbank.h"
#include "lauf.h"
#include "sha256.h"
#include "transaktion.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <sched.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quillmar::analyse;

namespace
{
const auto weiter = [] { return false; };

QString zerlegt(const QString &text) { return text.normalized(QString::NormalizationForm_D); }
} // namespace

class TestBestand : public QObject
{
    Q_OBJECT
    std::unique_ptr<QTemporaryDir> m_ordner;
    Profil m_profil;

    [[nodiscard]] QByteArray bytes(const QByteArray &name) const { return m_profil.quelle.toUtf8() + '/' + name; }

    void datei(const QByteArray &name, const QByteArray &inhalt = "x") const
    {
        const QString pfad = QString::fromUtf8(bytes(name));
        QVERIFY(QDir().mkpath(QFileInfo(pfad).path()));
        QFile ausgabe(pfad);
        QVERIFY(ausgabe.open(QIODevice::WriteOnly));
        ausgabe.write(inhalt);
    }

    /** Paths below the source folder, in the order found. */
    [[nodiscard]] QStringList gefunden(const QSet<QString> &eigene = {}) const
    {
        QStringList pfade;
        for (const Bestand::Fund &f : Bestand::suchen(m_profil, {.kopien = eigene, .abgelegt = {}}, weiter).funde)
            pfade << f.pfad.mid(m_profil.quelle.size() + 1);
        return pfade;
    }

    /** Status and path below the source folder of every document. */
    [[nodiscard]] QStringList stand(Datenbank &db) const
    {
        QStringList zeilen;
        for (const Zeile &z : db.abfragen(u"SELECT status, pfad FROM dokumente ORDER BY id"_s))
            zeilen << z.text(u"status") + u' ' + z.text(u"pfad").mid(m_profil.quelle.size() + 1);
        return zeilen;
    }

    std::shared_ptr<Datenbank> aufgenommen(QStringList *hinweise = nullptr) const
    {
        auto db = std::make_shared<Datenbank>(m_ordner->filePath(u"k.db"_s));
        Lauf lauf(db, m_profil, weiter, {}, [](const Laufstand &) {});
        Bestand::aufnehmen(lauf);
        if (hinweise)
            *hinweise = lauf.hinweise();
        return db;
    }

private Q_SLOTS:
    void init()
    {
        m_ordner = std::make_unique<QTemporaryDir>();
        m_profil = {};
        m_profil.quelle = m_ordner->filePath(u"scans"_s);
        QVERIFY(QDir().mkdir(m_profil.quelle));
    }

    void wasEinPdfIst()
    {
        const QByteArray lang = QByteArray(251, 'l') + ".pdf";
        const QByteArray seltsam = "Zeile\n\"'\\$ 100%.pdf";
        for (const QByteArray &name : {QByteArray("b.PDF"), QByteArray("a.Pdf"), QByteArray("c.pdf"),
                                       QByteArray("d.pdf.txt"), QByteArray("dpdf"), QByteArray(".versteckt.pdf"),
                                       QByteArray(".ordner/e.pdf"), QByteArray("ordner.pdf/f.pdf"), lang, seltsam})
            datei(name);
        QCOMPARE(::mkfifo(bytes("rohr.pdf").constData(), 0600), 0);
        QCOMPARE(gefunden(), (QStringList{QString::fromUtf8(seltsam), u"a.Pdf"_s, u"b.PDF"_s, u"c.pdf"_s,
                                          QString::fromUtf8(lang), u"ordner.pdf/f.pdf"_s}));
        m_profil.mitUnterordnern = false;
        QVERIFY(!gefunden().contains(u"ordner.pdf/f.pdf"_s));
        QCOMPARE(gefunden().size(), 5);
    }

    void funde()
    {
        datei("Bu\u0308ro/2024/a.pdf", "vier");
        datei("oben.pdf");
        m_profil.quelle += u'/';
        const QList<Bestand::Fund> funde = Bestand::suchen(m_profil, {}, weiter).funde;
        QCOMPARE(funde.size(), 2);
        QCOMPARE(funde.first().pfad, m_profil.quelle + u"Büro/2024/a.pdf"_s);
        QCOMPARE(funde.first().ordner, u"Büro/2024"_s);
        QCOMPARE(funde.first().groesse, 4);
        QCOMPARE(funde.last().ordner, QString());
    }

    void verweiseWerdenGemeldetNichtVerfolgt()
    {
        datei("a.pdf");
        datei("ordner/b.pdf");
        const QList<QPair<const char *, const char *>> verweise = {
            {"a.pdf", "verweis.pdf"}, {"nirgends", "tot.pdf"}, {"..", "ordner/schleife"}, {"a.pdf", "verweis.txt"}};
        for (const auto &[wohin, name] : verweise)
            QCOMPARE(::symlink(wohin, bytes(name).constData()), 0);
        QCOMPARE(gefunden(), (QStringList{u"a.pdf"_s, u"ordner/b.pdf"_s}));
        QStringList hinweise;
        aufgenommen(&hinweise);
        QCOMPARE(hinweise, QStringList{u"2 Verweise auf PDF-Dateien ausgelassen"_s});
    }

    void unlesbareUndDoppelteNamenWerdenGemeldet()
    {
        datei("Pr\u00fcfung.pdf");
        datei("Pru\u0308fung.pdf");
        QCOMPARE(::mkdir(bytes("kaputt\xff").constData(), 0700), 0);
        for (const char *name : {"kaputt\xff.PDF", "kaputt\xff.txt", ".kaputt\xff.pdf", "kaputt\xff/c.pdf"})
            QCOMPARE(::mknod(bytes(name).constData(), S_IFREG | 0600, 0), 0);
        QCOMPARE(gefunden(), QStringList{u"Prüfung.pdf"_s});
        QStringList hinweise;
        aufgenommen(&hinweise);
        QCOMPARE(hinweise, (QStringList{u"2 Einträge ausgelassen: Name nicht lesbar, bitte umbenennen"_s,
                                        u"1 Datei ausgelassen: gleicher Name in anderer Schreibweise der Umlaute"_s}));
    }

    void zwillingsordner()
    {
        datei("B\u00fcro/a.pdf", "erreichbar");
        datei("Bu\u0308ro/a.pdf", "x");
        datei("Bu\u0308ro/tief/b.pdf");
        datei("Pru\u0308fung/c.pdf");
        const Bestand::Ergebnis e = Bestand::suchen(m_profil, {}, weiter);
        QCOMPARE(gefunden(), (QStringList{u"Büro/a.pdf"_s, u"Prüfung/c.pdf"_s}));
        QCOMPARE(e.funde.first().groesse, 10);
        QCOMPARE(e.doppelteNamen, 2);
    }

    void ausnahmenUndEigenes()
    {
        for (const char *name : {"Fotos/a.pdf", "x/_Dubletten/b.pdf", "ziel/doppelt/tief/c.pdf", "ziel/doppelt2/d.pdf",
                                 "kopie.pdf", "Urlaubsfotos.pdf", "e.pdf"})
            datei(name);
        m_profil.ausnahmen = QStringList{u"fotos"_s};
        m_profil.zielWurzel = m_profil.quelle + u"/ziel/"_s;
        m_profil.dublettenOrdner = u"doppelt"_s;
        QCOMPARE(gefunden({m_profil.quelle + u"/kopie.pdf"_s}), (QStringList{u"e.pdf"_s, u"ziel/doppelt2/d.pdf"_s}));
        const Bestand::Ergebnis e = Bestand::suchen(m_profil, {}, weiter);
        QCOMPARE(e.ausgenommen, 2);
        QCOMPARE(e.ausgenommene, (QList<Bestand::Ausgenommene>{{.pfad = u"Fotos/a.pdf"_s, .regel = u"fotos"_s},
                                                               {.pfad = u"Urlaubsfotos.pdf"_s, .regel = u"fotos"_s}}));
    }

    void zweimalAufnehmenAendertNichts()
    {
        datei("Inbox/a.pdf", "gleich");
        datei(zerlegt(u"Büro/Ordner mit langem Namen/ä.pdf"_s).toUtf8(), "gleich");
        datei("b.pdf", "anders");
        const QString abzug =
            u"SELECT id||'|'||pfad||'|'||dateiname||'|'||alt_ordner||'|'||groesse||'|'||sha256||'|'||"
            "status||'|'||coalesce(dublette_von,'')||'|'||coalesce(aehnlichkeit,'') w FROM dokumente"_s;
        const auto zeilen = [&] {
            const auto db = aufgenommen();
            QStringList liste;
            for (const Zeile &z : db->abfragen(abzug))
                liste << z.text(u"w").remove(m_profil.quelle);
            return liste;
        };
        const QStringList erste = zeilen();
        QCOMPARE(erste.size(), 3);
        QVERIFY(
            erste.at(0).startsWith(u"1|/Büro/Ordner mit langem Namen/ä.pdf|ä.pdf|Büro/Ordner mit langem Namen|6|"_s));
        QVERIFY(erste.at(0).endsWith(u"|neu||"_s));
        QVERIFY(erste.at(1).startsWith(u"2|/Inbox/a.pdf|a.pdf|Inbox|6|"_s));
        QVERIFY(erste.at(1).endsWith(u"|dublette|1|1.0"_s));
        QVERIFY(erste.at(2).endsWith(u"|neu||"_s));
        QCOMPARE(erste.at(0).section(u'|', 5, 5), erste.at(1).section(u'|', 5, 5));
        QCOMPARE(zeilen(), erste);
    }

    void zurueckgekehrteUndEigeneKopien()
    {
        datei("da.pdf", "da");
        datei("fertig.pdf", "fertig");
        datei("kopie.pdf");
        datei("zurueckgenommen.pdf", "fertig");
        {
            Datenbank db(m_ordner->filePath(u"k.db"_s));
            const QString q = m_profil.quelle;
            db.ausfuehren(u"INSERT INTO dokumente (pfad, status, vorschlag) VALUES (?,'fehlt',NULL), (?,'fehlt','x'),\n"
                          "(?,'fehlt',NULL)"_s,
                          {q + u"/da.pdf"_s, q + u"/fertig.pdf"_s, q + u"/weg.pdf"_s});
            db.ausfuehren(u"INSERT INTO protokoll (nach_pfad, kopiert, rueckgaengig) VALUES (?,1,0), (?,1,1)"_s,
                          {q + u"/kopie.pdf"_s, q + u"/zurueckgenommen.pdf"_s});
        }
        const auto db = aufgenommen();
        QStringList stand;
        for (const Zeile &z : db->abfragen(u"SELECT pfad, status FROM dokumente ORDER BY id"_s))
            stand << z.text(u"pfad").mid(m_profil.quelle.size() + 1) + u' ' + z.text(u"status");
        QCOMPARE(stand, (QStringList{u"da.pdf neu"_s, u"fertig.pdf bereit"_s, u"weg.pdf fehlt"_s,
                                     u"zurueckgenommen.pdf dublette"_s}));
    }

    /** A file that is not the one which the catalogue knows at its path. */
    void andererInhaltAmBekanntenPfad_data()
    {
        QTest::addColumn<QString>("status");
        QTest::addColumn<QStringList>("danach");
        QTest::newRow("ungesehen") << u"neu"_s << QStringList{u"neu a.pdf"_s};
        QTest::newRow("wartet") << u"bereit"_s << QStringList{u"fehlt "_s, u"neu a.pdf"_s};
        QTest::newRow("zurückgestellt") << u"zurueckgestellt"_s << QStringList{u"fehlt "_s, u"neu a.pdf"_s};
        QTest::newRow("kopiert und fertig") << u"erledigt"_s << QStringList{u"erledigt "_s, u"neu a.pdf"_s};
        QTest::newRow("war verschwunden") << u"fehlt"_s << QStringList{u"fehlt "_s, u"neu a.pdf"_s};
    }
    void andererInhaltAmBekanntenPfad()
    {
        QFETCH(QString, status);
        QFETCH(QStringList, danach);
        datei("a.pdf", "erster");
        aufgenommen()->ausfuehren(u"UPDATE dokumente SET status=?, vorschlag='x', text_hash='h'"_s, {status});
        datei("a.pdf", "ein zweiter Scan");
        const auto db = aufgenommen();
        QCOMPARE(stand(*db), danach);
        const Zeile neu =
            db->abfragen(u"SELECT * FROM dokumente WHERE pfad=?"_s, {m_profil.quelle + u"/a.pdf"_s}).first();
        QCOMPARE(neu.text(u"sha256"), Sha256::hex(Sha256().von("ein zweiter Scan")));
        QVERIFY(neu.text(u"text_hash").isEmpty());
        QCOMPARE(db->abfragen(u"SELECT pfad FROM fruehere_pfade"_s).size(), danach.size() - 1);
        aufgenommen();
        QCOMPARE(stand(*db), danach);
    }

    /** While the target folder is away, an original that may lie in it counts as there; one that was replaced does not.
     */
    void dublettenOhneZielordner_data()
    {
        QTest::addColumn<QString>("pfad");
        QTest::addColumn<QString>("kopie");
        QTest::addColumn<QString>("danach");
        QTest::newRow("filed") << u"/weg/a.pdf"_s << QString() << u"dublette"_s;
        QTest::newRow("copied") << QString() << u"/weg/a.pdf"_s << u"dublette"_s;
        QTest::newRow("gone from the source") << u"quelle"_s << QString() << u"neu"_s;
        QTest::newRow("replaced by another file") << QString() << QString() << u"neu"_s;
    }
    void dublettenOhneZielordner()
    {
        QFETCH(QString, pfad);
        QFETCH(const QString, kopie);
        QFETCH(const QString, danach);
        m_profil.zielWurzel = u"/weg"_s;
        if (pfad == u"quelle"_s)
            pfad = m_profil.quelle + u"/a.pdf"_s;
        datei("b.pdf", "doppelt");
        const auto db = aufgenommen();
        db->ausfuehren(u"INSERT INTO dokumente (id, pfad, status) VALUES (9,?,'fehlt')"_s,
                       {pfad.isEmpty() ? QVariant() : QVariant(pfad)});
        db->ausfuehren(u"UPDATE dokumente SET status='dublette', dublette_von=9, aehnlichkeit=0.99 WHERE id<9"_s);
        if (!kopie.isEmpty())
            db->ausfuehren(u"INSERT INTO protokoll (dokument_id, nach_pfad, kopiert) VALUES (9,?,1)"_s, {kopie});
        aufgenommen();
        QCOMPARE(db->abfragen(u"SELECT status FROM dokumente WHERE id<9"_s).first().text(u"status"), danach);
    }

    /** Nothing is read again only because the catalogue is of an earlier version. */
    void alterKatalogGiltWieErSteht()
    {
        datei("a.pdf", "sechs!");
        datei("b.pdf", "sieben!");
        aufgenommen()->ausfuehren(u"UPDATE dokumente SET status='bereit', sha256='alt', groesse=6;\n"
                                  "DELETE FROM dateistand"_s);
        const auto db = aufgenommen();
        QCOMPARE(stand(*db), (QStringList{u"bereit a.pdf"_s, u"fehlt "_s, u"neu b.pdf"_s}));
        QCOMPARE(db->abfragen(u"SELECT geprueft FROM dateistand ORDER BY dokument_id"_s).first().ganz(u"geprueft"), 0);
        QCOMPARE(db->abfragen(u"SELECT sha256 FROM dokumente WHERE id=1"_s).first().text(u"sha256"), u"alt"_s);
    }

    void verschwundenesKommtNurMitSeinemInhalt()
    {
        datei("a.pdf", "eins");
        datei("b.pdf", "zwei");
        aufgenommen()->ausfuehren(u"UPDATE dokumente SET status='fehlt', vorschlag='x'"_s);
        datei("b.pdf", "drei"); // of the same size
        QCOMPARE(stand(*aufgenommen()), (QStringList{u"bereit a.pdf"_s, u"fehlt "_s, u"neu b.pdf"_s}));
    }

    /** Uploads that have only begun are all alike. */
    void leereSindKeineDubletten()
    {
        datei("a.pdf", "");
        datei("b.pdf", "");
        QCOMPARE(stand(*aufgenommen()), (QStringList{u"neu a.pdf"_s, u"neu b.pdf"_s}));
        datei("a.pdf", "jetzt ist es da");
        datei("b.pdf", "und das auch");
        const auto db = aufgenommen();
        QCOMPARE(stand(*db), (QStringList{u"neu a.pdf"_s, u"neu b.pdf"_s}));
        QCOMPARE(db->abfragen(u"SELECT DISTINCT sha256 FROM dokumente"_s).size(), 2);
    }

    /** A new file repeats one that the catalogue knows: whatever has become of that, as long as it is there. */
    void mitAllemBekanntenVerglichen_data()
    {
        QTest::addColumn<QString>("status");
        QTest::addColumn<bool>("da");
        QTest::addColumn<QString>("neues");
        for (const QString &status : {u"bereit"_s, u"erledigt"_s, u"zurueckgestellt"_s}) {
            QTest::newRow(qPrintable(status)) << status << true << u"dublette"_s;
            QTest::newRow(qPrintable(status + u", verschwunden"_s)) << status << false << u"neu"_s;
        }
        QTest::newRow("aus einem angehaltenen Durchgang") << u"neu"_s << true << u"dublette"_s;
        QTest::newRow("dort verschwunden") << u"neu"_s << false << u"neu"_s;
    }
    void mitAllemBekanntenVerglichen()
    {
        QFETCH(QString, status);
        QFETCH(bool, da);
        datei("a.pdf", "gleich");
        aufgenommen()->ausfuehren(u"UPDATE dokumente SET status=?"_s, {status});
        if (!da)
            QVERIFY(QFile::remove(m_profil.quelle + u"/a.pdf"_s));
        datei("Inbox/viel länger.pdf", "gleich");
        const auto db = aufgenommen();
        QTEST(db->abfragen(u"SELECT status FROM dokumente WHERE id=2"_s).first().text(u"status"), "neues");
        // The only file is nobody's duplicate; when its original goes, it has its turn.
        if (da)
            QVERIFY(QFile::remove(m_profil.quelle + u"/a.pdf"_s));
        aufgenommen();
        QCOMPARE(db->abfragen(u"SELECT status FROM dokumente WHERE id=2"_s).first().text(u"status"), u"neu"_s);
    }

    /** The mount point of a drive that is away is an empty folder. */
    void leererEinhaengepunkt()
    {
        datei("a.pdf", "eins");
        datei("b.pdf", "zwei");
        aufgenommen()->ausfuehren(u"UPDATE dokumente SET status='bereit'"_s);
        QVERIFY(QFile::remove(m_profil.quelle + u"/a.pdf"_s));
        QCOMPARE(stand(*aufgenommen()), (QStringList{u"bereit a.pdf"_s, u"bereit b.pdf"_s}));
        QVERIFY(QFile::remove(m_profil.quelle + u"/b.pdf"_s));
        QVERIFY_EXCEPTION_THROWN(aufgenommen(), Fehler);
        datei("c.pdf", "drei");
        QCOMPARE(stand(*aufgenommen()), (QStringList{u"bereit a.pdf"_s, u"bereit b.pdf"_s, u"neu c.pdf"_s}));
    }

    /** Source and target are one tree, reached on two ways. */
    void zweiWegeZuEinemBaum()
    {
        datei("Haushalt/fertig.pdf", "fertig");
        datei("Haushalt/neu.pdf", "neu");
        datei("Doppelte/weg.pdf", "weg");
        const QString ziel = m_profil.quelle;
        const QString verweis = m_ordner->filePath(u"verweis"_s);
        QVERIFY(QFile::link(ziel, verweis));
        m_profil.zielWurzel = ziel;
        m_profil.dublettenOrdner = u"Doppelte"_s;
        m_profil.quelle = verweis;
        Datenbank(m_ordner->filePath(u"k.db"_s))
            .ausfuehren(u"INSERT INTO dokumente (pfad, status) VALUES (?,'erledigt')"_s,
                        {ziel + u"/Haushalt/fertig.pdf"_s});
        const auto db = aufgenommen();
        QCOMPARE(db->abfragen(u"SELECT 1 FROM dokumente"_s).size(), 2);
        QCOMPARE(db->abfragen(u"SELECT pfad FROM dokumente WHERE status='neu'"_s).first().text(u"pfad"),
                 verweis + u"/Haushalt/neu.pdf"_s);
    }

    void ohneHerkunftsordner()
    {
        const QString fehlt = m_profil.quelle + u"/fehlt"_s;
        const QList<std::pair<QString, QString>> quellen = {
            {QString(), u"Es ist noch kein Herkunftsordner gewählt"_s},
            {fehlt, u"Der Herkunftsordner ist nicht erreichbar: "_s + fehlt}};
        for (const auto &[quelle, satz] : quellen) {
            m_profil.quelle = quelle;
            QString gesagt;
            try {
                aufgenommen();
            } catch (const Fehler &f) {
                gesagt = f.text();
            }
            QCOMPARE(gesagt, satz);
        }
    }

    /** In a child process whose root is the test's folder. */
    void dieWurzelAlsHerkunftsordner()
    {
        datei("a.pdf");
        datei("ordner/b.pdf");
        int rohr[2] = {};
        QCOMPARE(::pipe(rohr), 0);
        const pid_t kind = ::fork();
        if (kind == 0) {
            const QByteArray wurzel = m_profil.quelle.toUtf8();
            QByteArray pfade = "verwehrt";
            if (::chroot(wurzel.constData()) == 0 ||
                (::unshare(CLONE_NEWUSER) == 0 && ::chroot(wurzel.constData()) == 0)) {
                m_profil.quelle = u"/"_s;
                pfade.clear();
                for (const Bestand::Fund &f : Bestand::suchen(m_profil, {}, weiter).funde)
                    pfade += f.pfad.toUtf8() + '|' + f.ordner.toUtf8() + '\n';
            }
            ::_exit(::write(rohr[1], pfade.constData(), size_t(pfade.size())) < 0 ? 1 : 0);
        }
        ::close(rohr[1]);
        QFile leser;
        QVERIFY(leser.open(rohr[0], QIODevice::ReadOnly, QFile::AutoCloseHandle));
        const QByteArray pfade = leser.readAll();
        QCOMPARE(::waitpid(kind, nullptr, 0), kind);
        if (pfade == "verwehrt")
            QSKIP("no other root allowed here");
        QCOMPARE(pfade, QByteArray("/a.pdf|\n/ordner/b.pdf|ordner\n"));
    }

    /** It comes after the run has taken up its profile, and before the folder is walked through. */
    void regelWaehrendDerAufnahme()
    {
        datei("geheim.pdf", "kein PDF");
        datei("offen.pdf", "auch keines");
        const auto db = std::make_shared<Datenbank>(m_ordner->filePath(u"k.db"_s));
        Analyse analyse(db, m_profil);
        {
            const Transaktion haelt(*db);
            analyse.allesStarten({.erneut = false, .nurDies = {}, .nurLesen = true});
            analyse.setzeAusnahmen({u"geheim"_s});
        }
        QTRY_VERIFY(!analyse.laeuft());
        QStringList staende;
        for (const Zeile &z : db->abfragen(u"SELECT * FROM dokumente ORDER BY pfad"_s))
            staende << z.text(u"dateiname") + u' ' + QString::number(z.ganz(u"ausgenommen")) + u' ' +
                           (z.text(u"fehler").isEmpty() ? u"ungelesen"_s : u"gelesen"_s);
        QCOMPARE(staende, (QStringList{u"geheim.pdf 1 ungelesen"_s, u"offen.pdf 0 gelesen"_s}));
    }

    void haltMittendrin()
    {
        datei("a.pdf");
        QVERIFY(Bestand::suchen(m_profil, {}, [] { return true; }).funde.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestBestand)
#include "test_bestand.moc"
