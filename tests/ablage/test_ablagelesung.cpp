#include "abbruch.h"
#include "ablagelesung.h"
#include "datenbank.h"
#include "fehler.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::ablage;
using Ablagelesung::Vorbehalt;

namespace
{
const QString strom = u"Privat/Jahresablage/2024/Strom"_s;
const QString kfz = u"Privat/Stammdaten/Auto/Kfz"_s;
} // namespace

class TestAblagelesung : public QObject
{
    Q_OBJECT
    std::unique_ptr<QTemporaryDir> m_ordner;
    std::unique_ptr<Datenbank> m_db;
    Profil m_profil;

    void anlegen(const QString &pfad) const
    {
        QDir(m_profil.zielWurzel).mkpath(QFileInfo(pfad).path());
        QFile datei(m_profil.zielWurzel + u'/' + pfad);
        QVERIFY(datei.open(QFile::WriteOnly));
    }
    /** Documents of @p gegenueber with numbers as titles. */
    void briefe(const QString &gegenueber, const QString &ordner, int von, int bis) const
    {
        for (int i = von; i <= bis; ++i)
            anlegen(ordner + u"/2024-01-31 %1 - Brief %2.pdf"_s.arg(gegenueber).arg(i));
    }
    [[nodiscard]] Ablagelesung::Ergebnis lesen() const { return Ablagelesung::lesen(*m_db, m_profil); }

    /** One line for each counterpart: count, name, places, what is against it. */
    [[nodiscard]] static QStringList kurz(const Ablagelesung::Ergebnis &ergebnis)
    {
        QStringList zeilen;
        for (const auto &z : ergebnis.zeilen) {
            QString zeile = u"%1 %2"_s.arg(z.dokumente).arg(z.kenntnis.anzeige);
            for (const auto &p : z.kenntnis.plaetze)
                zeile += u" %1:%2"_s.arg(p.ort.rubrik).arg(p.dokumente);
            zeilen << zeile + (z.angekreuzt ? u""_s : u" !%1"_s.arg(int(z.vorbehalt)));
        }
        return zeilen;
    }

private Q_SLOTS:
    void init()
    {
        m_db.reset();
        m_ordner = std::make_unique<QTemporaryDir>();
        m_db = std::make_unique<Datenbank>(m_ordner->filePath(u"k.db"_s));
        m_profil = Profil();
        m_profil.zielWurzel = m_ordner->filePath(u"Ablage"_s);
        QDir().mkpath(m_profil.zielWurzel);
        m_profil.eigeneNamen = {u"Anna Müller"_s};
        m_profil.zweige = {{.name = u"Privat"_s,
                            .ablagen = {{.name = u"Jahresablage"_s, .mitJahr = true, .rubriken = {u"Strom"_s}},
                                        {.name = u"Stammdaten"_s, .mitJahr = false, .rubriken = {u"Auto/Kfz"_s}}}}};
    }
    void cleanupTestCase() { m_db.reset(); }

    void zeilenUndVorbehalte()
    {
        briefe(u"Stadtwerke Meissen GmbH"_s, strom, 1, 1);
        briefe(u"Stadtwerke Meißen"_s, strom, 2, 3);
        briefe(u"Stadtwerke Meißen"_s, kfz, 4, 4);
        briefe(u"Müller, Anna"_s, kfz, 1, 5);
        briefe(u"4711"_s, kfz, 1, 2);
        briefe(u"DKB"_s, kfz, 1, 2);
        briefe(u"Bäckerei"_s, kfz, 1, 1);
        briefe(u"Zahnarzt"_s, kfz, 1, 2);
        const auto ergebnis = lesen();
        const auto vorbehalt = [](Vorbehalt v) { return u" !%1"_s.arg(int(v)); };
        QCOMPARE(kurz(ergebnis),
                 QStringList({u"5 Müller, Anna Auto/Kfz:5"_s + vorbehalt(Vorbehalt::EigenerName),
                              u"4 Stadtwerke Meißen Strom:3 Auto/Kfz:1"_s,
                              u"2 4711 Auto/Kfz:2"_s + vorbehalt(Vorbehalt::NurZiffern),
                              u"2 DKB Auto/Kfz:2"_s + vorbehalt(Vorbehalt::ZuKurz), u"2 Zahnarzt Auto/Kfz:2"_s,
                              u"1 Bäckerei Auto/Kfz:1"_s + vorbehalt(Vorbehalt::EinzelnesDokument)}));
        const auto &werke = ergebnis.zeilen.at(1);
        QCOMPARE(werke.kenntnis.schluessel, u"stadtwerke meissen"_s);
        const QString davor = u"/2024-01-31 Stadtwerke "_s; // each place has a witness
        QCOMPARE(werke.zeugen,
                 QStringList({strom + davor + u"Meissen GmbH - Brief 1.pdf"_s, kfz + davor + u"Meißen - Brief 4.pdf"_s,
                              strom + davor + u"Meißen - Brief 2.pdf"_s}));
        QCOMPARE(ergebnis.dateien, 16);
        QCOMPARE(ergebnis.namen.anzahl + ergebnis.orte.anzahl, 0);
        const auto gelernt = Ablagelesung::angekreuzte(ergebnis.zeilen);
        QCOMPARE(gelernt.size(), 2);
        QCOMPARE(gelernt.last().anzeige, u"Zahnarzt"_s);
    }

    void wasNichtsSagt_data()
    {
        QTest::addColumn<QString>("pfad");
        QTest::addColumn<QString>("als"); // what it is counted as
        const auto neu = [](const QString &pfad, const QString &als) {
            QTest::newRow(qPrintable(pfad.simplified())) << pfad << als;
        };
        const QString brief = u"/2024-01-31 Zahnarzt - x.pdf"_s;
        neu(strom + brief, u"Zeile"_s);
        neu(strom + u"/2024-01-31 Zahn\narzt - x.PDF"_s, u"Zeile"_s);
        neu(u"Privat/Stammdaten/Auto/Kfz"_s + brief.normalized(QString::NormalizationForm_D), u"Zeile"_s);
        neu(strom + u"/Scan 0017.pdf"_s, u"Name"_s);
        neu(strom + u"/2024-01-31 Брат - x.pdf"_s, u"Name"_s); // no letter of it is in a key
        neu(u"Privat/Jahresablage/2024"_s + brief, u"Ort"_s);
        neu(u"Privat/Jahresablage/2024/Wasser"_s + brief, u"Ort"_s);
        neu(u"Privat/Jahresablage/Strom/Alt"_s + brief, u"Ort"_s);
        neu(u"Firma/Stammdaten/Auto/Kfz"_s + brief, u"Ort"_s);
        neu(u"Brief.pdf"_s, u"Ort"_s);
        neu(strom + u"/2024-01-31 Zahnarzt - x.txt"_s, u""_s);
        neu(strom + u"/.pdf"_s, u""_s);
        neu(u".Trash-1000/files/x.pdf"_s, u""_s);
        neu(u"prüfen"_s + brief, u""_s);
        neu(u"Privat/Prüfen"_s + brief, u""_s);
        neu(u"_Dubletten"_s + brief, u""_s);
        neu(u"_Protokolle"_s + brief, u""_s);
    }
    void wasNichtsSagt()
    {
        QFETCH(QString, pfad);
        QFETCH(QString, als);
        anlegen(pfad);
        const auto ergebnis = lesen();
        QCOMPARE(ergebnis.zeilen.size(), als == u"Zeile" ? 1 : 0);
        QCOMPARE(ergebnis.namen.anzahl, als == u"Name" ? 1 : 0);
        QCOMPARE(ergebnis.orte.anzahl, als == u"Ort" ? 1 : 0);
        QCOMPARE(ergebnis.dateien, als.isEmpty() ? 0 : 1);
        QCOMPARE(Ablagelesung::hatDokumente(m_profil), !als.isEmpty());
        const QStringList beispiele = ergebnis.namen.beispiele + ergebnis.orte.beispiele;
        QCOMPARE(beispiele, als == u"Name" || als == u"Ort" ? QStringList(pfad) : QStringList());
    }

    void verweiseUndZerlegteOrdner()
    {
        const QString zerlegt = u"Privat/Stammdaten/Fu\u0308hrerschein"_s;
        m_profil.zweige.first().ablagen.last().rubriken << u"Führerschein"_s;
        briefe(u"Landratsamt"_s, zerlegt, 1, 2);
        QDir(m_profil.zielWurzel).mkpath(kfz);
        QVERIFY(QFile::link(m_profil.zielWurzel + u'/' + zerlegt, m_profil.zielWurzel + u"/Privat/Verweis"_s));
        QVERIFY(QFile::link(m_profil.zielWurzel + u'/' + zerlegt + u"/2024-01-31 Landratsamt - Brief 1.pdf"_s,
                            m_profil.zielWurzel + u'/' + kfz + u"/2024-01-31 Landratsamt - Brief 1.pdf"_s));
        QCOMPARE(kurz(lesen()), QStringList(u"2 Landratsamt Führerschein:2"_s));
    }

    void nurEineHandvollBeispiele()
    {
        for (int i = 0; i < 9; ++i)
            anlegen(strom + u"/Scan %1.pdf"_s.arg(i));
        const auto ergebnis = lesen();
        QCOMPARE(ergebnis.namen.anzahl, 9);
        QCOMPARE(ergebnis.namen.beispiele.size(), 5);
        QCOMPARE(ergebnis.namen.beispiele.last(), strom + u"/Scan 4.pdf"_s);
    }

    void scheitern_data()
    {
        QTest::addColumn<QString>("vorlage");
        QTest::addColumn<QString>("ziel");
        QTest::addColumn<QString>("meldung");
        const QString ueblich = Profil().namensVorlage;
        QTest::newRow("kein Ziel") << ueblich << u""_s << u"noch kein Zielordner"_s;
        QTest::newRow("Ziel fehlt") << ueblich << u"/gibt/es/nicht"_s << u"nicht erreichbar"_s;
        QTest::newRow("kein Gegenüber") << u"{datum} {titel}"_s << u"/"_s << u"nichts lernen"_s;
    }
    void scheitern()
    {
        QFETCH(QString, vorlage);
        QFETCH(QString, ziel);
        QFETCH(QString, meldung);
        m_profil.zielWurzel = ziel;
        m_profil.namensVorlage = vorlage;
        try {
            (void)lesen();
            QFAIL("was read");
        } catch (const Fehler &f) {
            QVERIFY2(f.text().contains(meldung), qPrintable(f.text()));
        }
    }

    void fortschrittUndHalt()
    {
        for (int i = 0; i < 2500; ++i)
            anlegen(strom + u"/%1.pdf"_s.arg(i));
        QList<qint64> gehoert;
        std::stop_source quelle;
        QCOMPARE(Ablagelesung::lesen(*m_db, m_profil, [&](qint64 n) { gehoert << n; }).dateien, 2500);
        QCOMPARE(gehoert, QList<qint64>({1000, 2000}));
        qint64 zuletzt = 0;
        const auto halten = [&](qint64 n) {
            zuletzt = n;
            quelle.request_stop();
        };
        QVERIFY_EXCEPTION_THROWN((void)Ablagelesung::lesen(*m_db, m_profil, halten, quelle.get_token()), Abbruch);
        QCOMPARE(zuletzt, 1000);
        QVERIFY_EXCEPTION_THROWN((void)Ablagelesung::hatDokumente(m_profil, quelle.get_token()), Abbruch);
    }
};

QTEST_GUILESS_MAIN(TestAblagelesung)
#include "test_ablagelesung.moc"
