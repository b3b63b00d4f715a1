#include "bestand.h"
#include "datenbank.h"
#include "lauf.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

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
        QCOMPARE(hinweise,
                 (QStringList{u"2 Einträge ausgelassen: Name nicht lesbar, bitte umbenennen"_s,
                              u"1 Dateien ausgelassen: gleicher Name in anderer Schreibweise der Umlaute"_s}));
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

    void ohneHerkunftsordner()
    {
        for (const QString &quelle : {QString(), m_profil.quelle + u"/fehlt"_s}) {
            m_profil.quelle = quelle;
            QVERIFY_EXCEPTION_THROWN(aufgenommen(), Fehler);
        }
    }

    void haltMittendrin()
    {
        datei("a.pdf");
        QVERIFY(Bestand::suchen(m_profil, {}, [] { return true; }).funde.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestBestand)
#include "test_bestand.moc"
