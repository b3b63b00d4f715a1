#include "ausfuehrung.h"
#include "katalogpflege.h"
#include "laufkarte.h"
#include "meldestelle.h"
#include "offenesprofil.h"
#include "profilspeicher.h"
#include "profilwahl.h"
#include "pruefung.h"
#include "zustandsprobe.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::zustand;

/** A catalogue in use: its daily copy, its damage, and the way back. */
class TestKatalogpflege : public Zustandsprobe
{
    Q_OBJECT

private:
    [[nodiscard]] QString katalog() const { return Profilspeicher::katalogDatei(m_b->profil); }
    [[nodiscard]] const Katalogstand &stand() const { return m_z->katalogpflege()->stand(); }
    [[nodiscard]] QString gesagt() const { return m_z->meldestelle()->meldungen().join(u'\n'); }

    /** Opens the profile and waits until its catalogue has been looked at and copied. */
    void oeffnen()
    {
        m_b->schliessen(); // a second connection of this program would be none that the other one knows of
        beginnen();
        QTRY_VERIFY(!stand().sicherungen.isEmpty());
    }
    void schliessen()
    {
        m_z.reset();
        m_b->schliessen();
    }

    /** An index loses its page: documents can be read all the same. */
    void beschaedigen()
    {
        const qint64 seite =
            m_b->db().abfragen(u"SELECT rootpage AS n FROM sqlite_master WHERE name='i_thash'"_s).first().ganz(u"n");
        m_b->schliessen();
        QFile datei(katalog());
        QVERIFY(datei.open(QIODevice::ReadWrite));
        QVERIFY(datei.seek((seite - 1) * 4096));
        QCOMPARE(datei.write(QByteArray(4096, 0)), 4096);
    }
    void uebernehmen()
    {
        m_z->ausfuehrung()->uebernehmen();
        QTRY_VERIFY(!m_z->ausfuehrung()->beschaeftigt());
    }

private Q_SLOTS:
    void einmalAmTag()
    {
        m_b->dokument(u"a.pdf"_s);
        oeffnen();
        QCOMPARE(stand().sicherungen.size(), 1);
        QVERIFY(stand().mangel.isEmpty());
        schliessen();
        oeffnen();
        QCOMPARE(stand().sicherungen.size(), 1);
    }

    void beschaedigtWirdGesagtUndNichtsBewegt()
    {
        m_b->dokument(u"a.pdf"_s);
        beschaedigen();
        beginnen();
        QTRY_COMPARE(stand().zugang, Zugang::Beschaedigt);
        QTRY_VERIFY2(gesagt().contains(u"beschädigt"_s), qPrintable(gesagt()));
        QVERIFY(stand().sicherungen.isEmpty()); // a copy of it would be worth nothing
        QCOMPARE(name(), u"a.pdf"_s);
        uebernehmen();
        QVERIFY(QFile::exists(m_b->quelle(u"a.pdf"_s)));
        QVERIFY2(gesagt().contains(u"beschädigt"_s), qPrintable(gesagt()));
        QVERIFY(Lauflage::von(*m_z).beschaedigt);
        const Katalograt rat = katalograt({}, stand());
        QVERIFY(!rat.satz.isEmpty() && rat.knopf.isEmpty());
        schliessen();
        QVERIFY(Katalog::oeffnen(katalog()) && Katalog::nurLesen(*Katalog::oeffnen(katalog())));
    }

    void dieSicherungWeissWasSeitherGeschah()
    {
        m_b->dokument(u"a.pdf"_s);
        m_b->dokument(u"b.pdf"_s);
        oeffnen();
        uebernehmen();
        QCOMPARE(name(), u"b.pdf"_s);
        schliessen();
        beschaedigen();
        oeffnen();
        QTRY_COMPARE(stand().zugang, Zugang::Beschaedigt);
        QVERIFY(katalograt({}, stand()).knopf.contains(u"einsetzen"_s));
        m_z->profilwahl()->sicherungEinsetzen(stand().sicherungen.first().datei);
        QVERIFY(m_z->profilwahl()->oeffnet());
        QTRY_VERIFY(m_z->profilwahl()->kannHandeln());
        QVERIFY2(gesagt().contains(u"1 Bewegung seither"_s), qPrintable(gesagt()));
        QCOMPARE(m_z->meldestelle()->ton(), Meldestelle::Ton::Gut);
        QVERIFY(!Lauflage::von(*m_z).beschaedigt);
        QCOMPARE(stand().zugang, Zugang::Schreiben);
        QCOMPARE(name(), u"b.pdf"_s);
        QCOMPARE(m_z->pruefung()->zaehlwerk().erledigt, 1);
        uebernehmen();
        QVERIFY(!QFile::exists(m_b->quelle(u"b.pdf"_s)));
    }

    // It does not even open: the copies are offered all the same.
    void einKatalogDerNichtAufgeht()
    {
        m_b->dokument(u"a.pdf"_s);
        oeffnen();
        schliessen();
        QFile datei(katalog());
        QVERIFY(datei.open(QIODevice::WriteOnly));
        datei.write(QByteArray(20000, 'x'));
        datei.close();
        m_z = std::make_unique<Zustand>();
        m_z->profilwahl()->beginnen();
        QTRY_VERIFY(!stand().sicherungen.isEmpty());
        QVERIFY(!m_z->profilwahl()->offen());
        QVERIFY(katalograt(m_z->profilwahl()->katalogfehler(), stand()).knopf.contains(u"einsetzen"_s));
        m_z->profilwahl()->sicherungEinsetzen(stand().sicherungen.first().datei);
        QTRY_VERIFY2(m_z->profilwahl()->kannHandeln(), qPrintable(gesagt()));
        QCOMPARE(name(), u"a.pdf"_s);
    }
};

QTEST_GUILESS_MAIN(TestKatalogpflege)
#include "test_katalogpflege.moc"
