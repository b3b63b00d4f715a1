#include "auftragsreihe.h"

#include <QtTest>

using namespace Qt::StringLiterals;
using namespace quillmar::seiten;

namespace
{
Malauftrag auftrag(int seite, Vorrang vorrang)
{
    Malauftrag neuer;
    neuer.kennung = 1;
    neuer.seite = seite;
    neuer.vorrang = vorrang;
    return neuer;
}

/** The pages in the order in which they are done. */
QList<int> abgearbeitet(Auftragsreihe &reihe)
{
    QList<int> seiten;
    while (const auto naechster = reihe.naechster())
        seiten << naechster->seite;
    return seiten;
}
} // namespace

class AuftragsreiheTest : public QObject
{
    Q_OBJECT

private:
    Auftragsreihe m_reihe;

private Q_SLOTS:
    void init()
    {
        m_reihe = Auftragsreihe();
        m_reihe.auftragen(auftrag(0, Vorrang::Nachbar));
        m_reihe.auftragen(auftrag(1, Vorrang::Sofort));
        m_reihe.auftragen(auftrag(2, Vorrang::Voraus));
        m_reihe.auftragen(auftrag(3, Vorrang::Sofort));
    }

    void nachVorrangDannWieSieKamen()
    {
        QVERIFY(m_reihe.hoechster() == Vorrang::Sofort);
        QCOMPARE(abgearbeitet(m_reihe), QList<int>({1, 3, 2, 0}));
        QVERIFY(m_reihe.hoechster() == Vorrang::Ruht);
    }

    void dieselbeSeiteNurEinmal()
    {
        m_reihe.auftragen(auftrag(0, Vorrang::Sofort));
        QCOMPARE(abgearbeitet(m_reihe), QList<int>({1, 3, 0, 2}));
    }

    void nochmalsGehtVoraus()
    {
        m_reihe.nochmals(auftrag(7, Vorrang::Sofort));
        m_reihe.nochmals(auftrag(8, Vorrang::Nachbar));
        QCOMPARE(abgearbeitet(m_reihe), QList<int>({7, 1, 3, 2, 8, 0}));
    }

    void neuBestelltesGilt()
    {
        m_reihe.nochmals(auftrag(0, Vorrang::Sofort));
        m_reihe.spaeter(auftrag(1, Vorrang::Voraus));
        QCOMPARE(abgearbeitet(m_reihe), QList<int>({1, 3, 2, 0}));
    }

    void vorgezogenWirdNieGesenkt()
    {
        m_reihe.vorziehen(1, 0, Vorrang::Sofort);
        m_reihe.vorziehen(1, 1, Vorrang::Nachbar);
        m_reihe.vorziehen(2, 2, Vorrang::Sofort);
        QCOMPARE(abgearbeitet(m_reihe), QList<int>({1, 3, 0, 2}));
    }

    void dasOeffnenTrittZurueck()
    {
        m_reihe.auftragen(auftrag(-1, Vorrang::Sofort));
        m_reihe.zuruecksetzen(2);
        QCOMPARE(m_reihe.hoechster(), Vorrang::Sofort);
        m_reihe.zuruecksetzen(1);
        const QList<int> folge = abgearbeitet(m_reihe);
        QCOMPARE(folge.last(), -1);
        QCOMPARE(folge.size(), 5);
    }

    void verworfenWerdenSeitenOderAlles()
    {
        m_reihe.auftragen(auftrag(-1, Vorrang::Sofort));
        m_reihe.verwerfen(2);
        m_reihe.verwerfen(1, 0);
        QCOMPARE(abgearbeitet(m_reihe), QList<int>({-1}));
        m_reihe.auftragen(auftrag(-1, Vorrang::Sofort));
        m_reihe.verwerfen(1);
        QCOMPARE(abgearbeitet(m_reihe), QList<int>());
    }

    // What has been in the way once goes last; what has been so twice waits until it is asked for.
    void unterbrochenEinmalDannRuhe()
    {
        m_reihe.spaeter(auftrag(5, Vorrang::Voraus));
        QCOMPARE(abgearbeitet(m_reihe), QList<int>({1, 3, 2, 0, 5}));
        Malauftrag wieder = auftrag(5, Vorrang::Nachbar);
        wieder.unterbrochen = true;
        m_reihe.spaeter(wieder);
        QVERIFY(!m_reihe.naechster());
        m_reihe.vorziehen(1, 5, Vorrang::Sofort);
        QCOMPARE(abgearbeitet(m_reihe), QList<int>({5}));
        m_reihe.spaeter(wieder);
        QCOMPARE(m_reihe.alle().size(), 1);
        QCOMPARE(m_reihe.alle().size(), 0);
    }
};

QTEST_APPLESS_MAIN(AuftragsreiheTest)
#include "test_auftragsreihe.moc"
