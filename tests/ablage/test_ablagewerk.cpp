#include "ablagewerk.h"
#include "datenbank.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::ablage;

class TestAblagewerk : public QObject
{
    Q_OBJECT
    std::unique_ptr<QTemporaryDir> m_ordner;
    std::shared_ptr<Datenbank> m_db;

    [[nodiscard]] QString ausgenommene() const
    {
        QString ids;
        for (const Zeile &z : m_db->abfragen(u"SELECT id FROM dokumente WHERE ausgenommen=1 ORDER BY id"_s))
            ids += QString::number(z.ganz(u"id"));
        return ids;
    }

private Q_SLOTS:
    void init()
    {
        m_db.reset();
        m_ordner = std::make_unique<QTemporaryDir>();
        m_db = std::make_shared<Datenbank>(m_ordner->filePath(u"k.db"_s));
    }
    void cleanupTestCase() { m_db.reset(); }

    void naechstes_data()
    {
        QTest::addColumn<int>("nach"); // 0: none
        QTest::addColumn<Richtung>("richtung");
        QTest::addColumn<int>("erwartet");
        QTest::newRow("erstes") << 0 << Richtung::Erstes << 2;
        QTest::newRow("erstes trotz Richtung") << 0 << Richtung::Weiter << 2;
        QTest::newRow("leeres Wort") << 4 << Richtung::Erstes << 2;
        QTest::newRow("weiter") << 2 << Richtung::Weiter << 4;
        QTest::newRow("weiter von einem erledigten") << 3 << Richtung::Weiter << 4;
        QTest::newRow("weiter am Ende") << 7 << Richtung::Weiter << 2;
        QTest::newRow("zurück") << 7 << Richtung::Zurueck << 4;
        QTest::newRow("zurück am Anfang") << 2 << Richtung::Zurueck << 2;
    }
    void naechstes()
    {
        QFETCH(int, nach);
        QFETCH(Richtung, richtung);
        m_db->ausfuehren(
            u"INSERT INTO dokumente (id, pfad, status, ausgenommen) VALUES (1,'1','neu',0), (2,'2','bereit',0),"
            "(3,'3','erledigt',0), (4,'4','bereit',0), (5,'5','bereit',1), (6,'6','zurueckgestellt',0),"
            "(7,'7','bereit',0), (8,'8','fehlt',0)"_s);
        const Ablagewerk werk(m_db, Profil());
        const auto dokument = werk.naechstes(nach == 0 ? std::nullopt : std::optional<qint64>(nach), richtung);
        QVERIFY(dokument);
        QTEST(int(dokument->id), "erwartet");
    }

    void keinesWartet()
    {
        m_db->ausfuehren(u"INSERT INTO dokumente (id, pfad, status) VALUES (1,'1','erledigt')"_s);
        const Ablagewerk werk(m_db, Profil());
        for (const auto &richtung : {Richtung::Erstes, Richtung::Weiter, Richtung::Zurueck})
            QVERIFY(!werk.naechstes(1, richtung));
        QVERIFY(werk.dokument(1) && !werk.dokument(2));
    }

    void ausnahmenAnwenden()
    {
        m_db->ausfuehren(
            u"INSERT INTO dokumente (id, alt_ordner, dateiname, status) VALUES (1,'privat/Fotos','a.pdf','neu'),"
            "(2,'privat','Urlaubsfotos.pdf','bereit'), (3,'privat','b.pdf','erledigt'), (4,'','c.pdf','neu')"_s);
        Profil profil;
        const auto anwenden = [&](const QStringList &regeln) {
            profil.ausnahmen = regeln;
            const auto wechsel = Ablagewerk::ausnahmenAnwenden(*m_db, profil);
            return QString(ausgenommene() + u" +%1 -%2"_s.arg(wechsel.ruhen).arg(wechsel.zurueckgeholt));
        };
        QCOMPARE(anwenden({u"fotos"_s}), u"12 +2 -0"_s);
        QCOMPARE(anwenden({u"fotos"_s}), u"12 +0 -0"_s);
        QCOMPARE(anwenden({u"Privat/Fotos"_s, u"c.pdf"_s}), u"14 +1 -1"_s);
        QCOMPARE(Ablagewerk(m_db, profil).zaehlen().neu, 0);
        QCOMPARE(anwenden({}), u" +0 -2"_s);
        QCOMPARE(Ablagewerk(m_db, profil).zaehlen().neu, 2);
    }

    void ausnahmenAufEinenUnbeschreibbarenKatalog()
    {
        m_db->ausfuehren(
            u"INSERT INTO dokumente (alt_ordner, dateiname) VALUES ('Fotos','a.pdf'), ('Fotos','b.pdf')"_s);
        m_db->ausfuehren(u"CREATE TRIGGER voll BEFORE UPDATE ON dokumente WHEN old.dateiname='b.pdf'\n"
                         "BEGIN SELECT RAISE(ABORT,'voll'); END"_s);
        Profil profil;
        profil.ausnahmen = QStringList{u"Fotos"_s};
        QVERIFY_EXCEPTION_THROWN(Ablagewerk::ausnahmenAnwenden(*m_db, profil), Fehler);
        QCOMPARE(ausgenommene(), QString());
    }
};

QTEST_GUILESS_MAIN(TestAblagewerk)
#include "test_ablagewerk.moc"
