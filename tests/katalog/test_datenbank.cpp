#include "datenbank.h"
#include "dokument.h"
#include "zaehlwerk.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <sqlite3.h>

using namespace Qt::StringLiterals;
using namespace quillmar::katalog;

namespace
{
/** The catalogue of an early version: without kopiert, ausgenommen, gelernt_von and what was learned. */
constexpr auto altesSchema = "CREATE TABLE dokumente (id INTEGER PRIMARY KEY, pfad TEXT UNIQUE, dateiname TEXT,"
                             " alt_ordner TEXT, groesse INTEGER, sha256 TEXT, seiten INTEGER,"
                             " status TEXT DEFAULT 'neu', hat_textebene INTEGER DEFAULT 0, text_hash TEXT,"
                             " skizze TEXT, datum TEXT, gegenueber TEXT, titel TEXT, zweig TEXT, ablage TEXT,"
                             " rubrik TEXT, jahr TEXT, konfidenz REAL DEFAULT 0, vorschlag TEXT,"
                             " dublette_von INTEGER, aehnlich_zu INTEGER, aehnlichkeit REAL, fehler TEXT, zeit TEXT,"
                             " modell_zweig TEXT, modell_ablage TEXT, modell_rubrik TEXT, ort_quelle TEXT,"
                             " zweitmeinung INTEGER);"
                             "CREATE TABLE texte (dokument_id INTEGER PRIMARY KEY, text TEXT);"
                             "CREATE TABLE protokoll (id INTEGER PRIMARY KEY, dokument_id INTEGER, zeit TEXT,"
                             " aktion TEXT, von_pfad TEXT, nach_pfad TEXT, alt_status TEXT,"
                             " rueckgaengig INTEGER DEFAULT 0);"
                             "INSERT INTO dokumente (pfad, status) VALUES ('/a.pdf', 'bereit');"
                             "INSERT INTO protokoll (dokument_id, aktion) VALUES (1, 'bewegt');";

void mitSqlite(const QString &pfad, const char *sql)
{
    sqlite3 *griff = nullptr;
    QCOMPARE(sqlite3_open(pfad.toUtf8().constData(), &griff), SQLITE_OK);
    QCOMPARE(sqlite3_exec(griff, sql, nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(griff);
}

QStringList werte(Datenbank &db, const QString &sql)
{
    QStringList liste;
    for (const Zeile &zeile : db.abfragen(sql))
        liste << zeile.text(u"w");
    return liste;
}

QString spalten(Datenbank &db, const QString &tabelle)
{
    return werte(db, u"SELECT name w FROM pragma_table_info('%1')"_s.arg(tabelle)).join(u", "_s);
}

/** Everything that a catalogue holds, the schema included. */
QStringList abzug(Datenbank &db)
{
    return werte(db, u"SELECT sql w FROM sqlite_master ORDER BY name"_s) +
           werte(db, u"SELECT id||pfad||status||ausgenommen||coalesce(gelernt_von,'-') w FROM dokumente"_s) +
           werte(db, u"SELECT id||aktion||kopiert w FROM protokoll"_s);
}
} // namespace

class TestDatenbank : public QObject
{
    Q_OBJECT
    std::unique_ptr<QTemporaryDir> m_ordner;
    QString m_pfad;

private Q_SLOTS:
    void init()
    {
        m_ordner = std::make_unique<QTemporaryDir>();
        m_pfad = m_ordner->filePath(u"tief/im Ordner/k.db"_s);
    }

    void neuerKatalogInFehlendemOrdner()
    {
        Datenbank db(m_pfad);
        QVERIFY(!db.nurLesen());
        QCOMPARE(spalten(db, u"dokumente"_s),
                 u"id, pfad, dateiname, alt_ordner, groesse, sha256, seiten, status, hat_textebene, text_hash, skizze, "
                 "datum, gegenueber, titel, zweig, ablage, rubrik, jahr, konfidenz, vorschlag, dublette_von, "
                 "aehnlich_zu, aehnlichkeit, fehler, zeit, modell_zweig, modell_ablage, modell_rubrik, ort_quelle, "
                 "zweitmeinung, ausgenommen, gelernt_von"_s);
        QCOMPARE(spalten(db, u"texte"_s), u"dokument_id, text"_s);
        QCOMPARE(spalten(db, u"protokoll"_s),
                 u"id, dokument_id, zeit, aktion, von_pfad, nach_pfad, alt_status, rueckgaengig, kopiert"_s);
        QCOMPARE(spalten(db, u"namen"_s), u"von, nach, anzahl, zeit"_s);
        QCOMPARE(spalten(db, u"gelernt"_s), u"schluessel, anzeige, zweig, ablage, rubrik, anzahl, zeit"_s);
        QCOMPARE(werte(db, u"SELECT name w FROM sqlite_master WHERE name LIKE 'i\\_%' ESCAPE '\\' ORDER BY name"_s),
                 (QStringList{u"i_ausgenommen"_s, u"i_bewegt"_s, u"i_sha"_s, u"i_status"_s, u"i_tatbewegung"_s,
                              u"i_tatposten"_s, u"i_thash"_s, u"i_wartet"_s, u"i_zaehlen"_s}));
    }

    void verbindung()
    {
        Datenbank db(m_pfad);
        QCOMPARE(werte(db, u"SELECT journal_mode w FROM pragma_journal_mode"_s), QStringList{u"wal"_s});
        QCOMPARE(db.abfragen(u"PRAGMA synchronous"_s).first().ganz(u"synchronous"), 2);
        QCOMPARE(db.abfragen(u"PRAGMA foreign_keys"_s).first().ganz(u"foreign_keys"), 1);
    }

    void nurDerBesitzerDarfLesen()
    {
        constexpr auto nurBesitzer = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
        {
            Datenbank db(m_pfad);
            for (const QString &zusatz : {QString(), u"-wal"_s, u"-shm"_s})
                QVERIFY2(QFileInfo(m_pfad + zusatz).permissions() == nurBesitzer, qPrintable(zusatz));
        }
        QVERIFY(QFile::setPermissions(m_pfad, nurBesitzer | QFile::ReadGroup | QFile::ReadOther));
        const Datenbank wieder(m_pfad);
        QVERIFY(QFileInfo(m_pfad).permissions() == nurBesitzer);
    }

    void alterKatalogWirdErgaenztUndDannNichtMehr()
    {
        QVERIFY(QDir().mkpath(QFileInfo(m_pfad).path()));
        mitSqlite(m_pfad, altesSchema);
        QStringList nachher;
        {
            Datenbank db(m_pfad);
            nachher = abzug(db);
            QVERIFY(nachher.contains(u"1/a.pdfbereit0-"_s));
            QVERIFY(nachher.contains(u"1bewegt0"_s));
            QCOMPARE(spalten(db, u"protokoll"_s).count(u"kopiert"_s), 1);
        }
        Datenbank wieder(m_pfad);
        QCOMPARE(abzug(wieder), nachher);
    }

    /** Version 0.1.0 had one more column: its meaning is taken over once, and the column never read again. */
    void nachgeprueftZiehtUm()
    {
        QVERIFY(QDir().mkpath(QFileInfo(m_pfad).path()));
        mitSqlite(m_pfad, altesSchema);
        mitSqlite(m_pfad, "ALTER TABLE dokumente ADD COLUMN nachgeprueft INTEGER DEFAULT 0;"
                          "UPDATE dokumente SET nachgeprueft=1;"
                          "INSERT INTO dokumente (pfad) VALUES ('/b.pdf');");
        const QString gezogen = u"SELECT dokument_id w FROM nachgeprueft"_s;
        {
            Datenbank db(m_pfad);
            QCOMPARE(db.abfragen(gezogen).size(), 1);
            QCOMPARE(db.abfragen(gezogen).first().ganz(u"w"), 1);
            QCOMPARE(db.ausfuehren(u"DELETE FROM nachgeprueft"_s), 0);
            QCOMPARE(spalten(db, u"dokumente"_s).count(u"nachgeprueft"_s), 1);
        }
        Datenbank wieder(m_pfad);
        QVERIFY(wieder.abfragen(gezogen).isEmpty());
    }

    void parameter_data()
    {
        QTest::addColumn<QVariant>("wert");
        QTest::addColumn<QString>("typ");
        QTest::addColumn<QString>("text");
        QTest::newRow("Text") << QVariant(u"Ä'; DROP TABLE texte;--"_s) << u"text"_s << u"Ä'; DROP TABLE texte;--"_s;
        QTest::newRow("leerer Text ist kein NULL") << QVariant(u""_s) << u"text"_s << u""_s;
        QTest::newRow("null-Text ist kein NULL") << QVariant(QString()) << u"text"_s << u""_s;
        QTest::newRow("nichts") << QVariant() << u"null"_s << QString();
        QTest::newRow("wahr") << QVariant(true) << u"integer"_s << u"1"_s;
        QTest::newRow("falsch") << QVariant(false) << u"integer"_s << u"0"_s;
        QTest::newRow("Zahl") << QVariant(-7) << u"integer"_s << u"-7"_s;
        QTest::newRow("große Zahl") << QVariant(qint64(9'007'199'254'740'993)) << u"integer"_s << u"9007199254740993"_s;
        QTest::newRow("qsizetype") << QVariant(qsizetype(5)) << u"integer"_s << u"5"_s;
        QTest::newRow("Komma") << QVariant(0.25) << u"real"_s << u"0.25"_s;
        QTest::newRow("fremder Typ") << QVariant(QStringList{u"a"_s}) << u"null"_s << QString();
    }
    void parameter()
    {
        QFETCH(QVariant, wert);
        QFETCH(QString, typ);
        QFETCH(QString, text);
        Datenbank db(m_pfad);
        const QList<Zeile> zeilen = db.abfragen(u"SELECT typeof(?1) t, CAST(?1 AS TEXT) w"_s, {wert});
        QCOMPARE(zeilen.size(), 1);
        QCOMPARE(zeilen.first().text(u"t"), typ);
        QCOMPARE(zeilen.first().text(u"w"), text);
    }

    // A statement that is used again must not see the parameters of its last use.
    void fehlendeParameterSindNull()
    {
        Datenbank db(m_pfad);
        const QString sql = u"SELECT typeof(?) a, typeof(?) b"_s;
        QCOMPARE(db.abfragen(sql, {1, 2}).first().text(u"b"), u"integer"_s);
        QCOMPARE(db.abfragen(sql, {1}).first().text(u"b"), u"null"_s);
    }

    void ergebniscodes()
    {
        Datenbank db(m_pfad);
        QCOMPARE(db.ausfuehren(u"UPDATE dokumente SET titel=? WHERE id=?"_s, {u"x"_s, 99}), 0);
        QCOMPARE(db.ausfuehren(u"UNFUG ?"_s, {1}), 1);
        QVERIFY(db.ausfuehren(u"UNFUG"_s) != 0);
        QVERIFY(db.abfragen(u"SELECT * FROM gibtesnicht"_s).isEmpty());
        const QString einfuegen = u"INSERT INTO texte (dokument_id, text) VALUES (?,?)"_s;
        QCOMPARE(db.ausfuehren(einfuegen, {1, u"a"_s}), 0);
        QCOMPARE(db.ausfuehren(einfuegen, {1, u"b"_s}), SQLITE_CONSTRAINT);
        QCOMPARE(db.ausfuehren(einfuegen, {2, u"c"_s}), 0); // the failed use left the statement usable
    }

    void mehrereAnweisungen()
    {
        Datenbank db(m_pfad);
        QCOMPARE(db.ausfuehren(u"INSERT INTO texte VALUES (?,'a'); INSERT INTO texte VALUES (100,'b')"_s, {1}), 0);
        QCOMPARE(werte(db, u"SELECT text w FROM texte"_s), QStringList{u"a"_s});
        QCOMPARE(db.ausfuehren(u"INSERT INTO texte VALUES (2,'c'); INSERT INTO texte VALUES (3,'d')"_s), 0);
        QCOMPARE(werte(db, u"SELECT text w FROM texte ORDER BY 1"_s), (QStringList{u"a"_s, u"c"_s, u"d"_s}));
    }

    void dieselbeAbfrageInSichSelbst()
    {
        Datenbank db(m_pfad);
        db.ausfuehren(u"INSERT INTO texte VALUES (1,'a'), (2,'b')"_s);
        const QString sql = u"SELECT text w FROM texte ORDER BY 1"_s;
        QStringList gesehen;
        db.besuchen(sql, {}, [&](const Zeile &z) { gesehen << z.text(u"w") + werte(db, sql).join(QString()); });
        QCOMPARE(gesehen, (QStringList{u"aab"_s, u"bab"_s}));
    }

    void leser_data()
    {
        QTest::addColumn<QString>("ausdruck");
        QTest::addColumn<qint64>("ganz");
        QTest::addColumn<double>("komma");
        QTest::addColumn<QString>("text");
        QTest::newRow("NULL") << u"NULL"_s << qint64(0) << 0.0 << u"keiner"_s;
        QTest::newRow("42 als Text") << u"'42'"_s << qint64(42) << 42.0 << u"42"_s;
        QTest::newRow("4x") << u"'4x'"_s << qint64(0) << 0.0 << u"4x"_s;
        QTest::newRow("2.9 als Text") << u"'2.9'"_s << qint64(0) << 2.9 << u"2.9"_s;
        QTest::newRow("leerer Text") << u"''"_s << qint64(0) << 0.0 << u"keiner"_s;
        QTest::newRow("2.9") << u"2.9"_s << qint64(2) << 2.9 << u"keiner"_s;
        QTest::newRow("-2.9 zur Null hin") << u"-2.9"_s << qint64(-2) << -2.9 << u"keiner"_s;
        QTest::newRow("Überlauf") << u"1e300"_s << std::numeric_limits<qint64>::max() << 1e300 << u"keiner"_s;
        QTest::newRow("Zahl") << u"7"_s << qint64(7) << 7.0 << u"keiner"_s;
        QTest::newRow("Bytes") << u"x'41'"_s << qint64(0) << 0.0 << u"A"_s;
    }
    void leser()
    {
        QFETCH(QString, ausdruck);
        Datenbank db(m_pfad);
        const Zeile zeile = db.abfragen(u"SELECT %1 AS \"ein Name\""_s.arg(ausdruck)).first();
        QTEST(zeile.ganz(u"ein Name"), "ganz");
        QTEST(zeile.komma(u"ein Name"), "komma");
        QTEST(zeile.textOderNil(u"ein Name").value_or(u"keiner"_s), "text");
        QCOMPARE(zeile.ganz(u"andere"), 0);
        QVERIFY(!zeile.textOderNil(u"andere"));
    }

    void dokumentAusEinerZeile()
    {
        Datenbank db(m_pfad);
        db.ausfuehren(u"INSERT INTO dokumente (id, pfad, hat_textebene, zweitmeinung, aehnlich_zu, fehler, konfidenz)\n"
                      "VALUES (1,'/a',2,2,0,'','0.5'), (2,'/b',1,1,1,'so',0.9)"_s);
        const QList<Zeile> zeilen = db.abfragen(u"SELECT * FROM dokumente ORDER BY id"_s);
        const Dokument erstes = Dokument::aus(zeilen.first());
        Dokument erwartet;
        erwartet.id = 1;
        erwartet.pfad = u"/a"_s;
        erwartet.status = Status::Neu;
        erwartet.konfidenz = 0.5;
        QCOMPARE(erstes, erwartet);
        const Dokument zweites = Dokument::aus(zeilen.last());
        QVERIFY(zweites.hatTextebene && zweites.zweitmeinung);
        QCOMPARE(zweites.aehnlichZu, std::optional<qint64>(1));
        QCOMPARE(zweites.fehler, std::optional(u"so"_s));
        erwartet = {};
        erwartet.id = 2;
        QCOMPARE(Dokument::aus(db.abfragen(u"SELECT id FROM dokumente WHERE id=2"_s).first()), erwartet);
    }

    void zaehlen()
    {
        Datenbank db(m_pfad);
        db.ausfuehren(
            u"INSERT INTO dokumente (pfad, status, ausgenommen) VALUES ('1','neu',0), ('2','laeuft',0),"
            "('3','bereit',0), ('4','bereit',1), ('5','erledigt',0), ('6','zurueckgestellt',0), ('7','dublette',0),"
            "('8','dublette',0), ('9','aussortiert',0), ('10','fehlt',0), ('11','Neu',0), ('12',NULL,0)"_s);
        QCOMPARE(Zaehlwerk::zaehlen(db), (Zaehlwerk{2, 1, 1, 1, 2, 1}));
    }
};

QTEST_GUILESS_MAIN(TestDatenbank)
#include "test_datenbank.moc"
