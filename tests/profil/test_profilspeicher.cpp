#include "profilspeicher.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::profil;

namespace
{
Profil profil(const QString &name)
{
    Profil p;
    p.name = name;
    return p;
}

QStringList namen(const QList<Profil> &profile)
{
    QStringList liste;
    for (const Profil &p : profile)
        liste << p.name;
    return liste;
}

void dateiSchreiben(const QByteArray &bytes)
{
    QFile datei(Profilspeicher::datei());
    QVERIFY(datei.open(QIODevice::WriteOnly));
    datei.write(bytes);
}

QStringList beiseitegelegte()
{
    return QDir(Profilspeicher::ordner()).entryList({u"profile.json unlesbar*"_s}, QDir::Files);
}
} // namespace

class TestProfilspeicher : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY(QDir(Profilspeicher::ordner()).removeRecursively()); }

    void woEtwasLiegt()
    {
        Profil p;
        p.id = QUuid::fromString(u"6f1c0d2a-93b4-4e1f-8c55-1a2b3c4d5e6f"_s);
        QCOMPARE(Profilspeicher::katalogDatei(p),
                 Profilspeicher::ordner() + u"/6F1C0D2A-93B4-4E1F-8C55-1A2B3C4D5E6F.db"_s);
        QVERIFY(!p.protokollURL());
        p.zielWurzel = u"/ziel"_s;
        QCOMPARE(p.protokollURL(), u"/ziel/_Protokolle"_s);
        p.zielWurzel.clear();
        p.protokollOrdner = u"/woanders"_s;
        QCOMPARE(p.protokollURL(), u"/woanders"_s);
    }

    void sichernUndLaden()
    {
        QVERIFY(Profilspeicher::laden().isEmpty());
        const QList<Profil> profile = {profil(u"A"_s), profil(u"B"_s)};
        const auto gesichert = Profilspeicher::sichern(profile, {});
        QVERIFY(gesichert.gelungen && gesichert.beiseite.isEmpty());
        QVERIFY(gesichert.profile == profile);
        QVERIFY(Profilspeicher::laden() == profile);
        QVERIFY(QFile::permissions(Profilspeicher::datei()) ==
                (QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser));
    }

    void zweiProgrammeMachenSichNichtsRueckgaengig()
    {
        const QList<Profil> stand = {profil(u"A"_s), profil(u"B"_s), profil(u"C"_s)};
        Profilspeicher::sichern(stand, {});
        QList<Profil> erstes = stand; // changes A, adds D
        erstes[0].modell = u"anderes"_s;
        erstes << profil(u"D"_s);
        QVERIFY(Profilspeicher::sichern(erstes, stand).gelungen);
        QList<Profil> zweites = stand; // knows nothing of that: changes B, takes C out, adds E
        zweites[1].seiten = 9;
        zweites[2] = profil(u"E"_s);
        const auto gesichert = Profilspeicher::sichern(zweites, stand);
        QCOMPARE(namen(gesichert.profile), (QStringList{u"A"_s, u"B"_s, u"D"_s, u"E"_s}));
        QCOMPARE(gesichert.profile.at(0).modell, u"anderes"_s);
        QCOMPARE(gesichert.profile.at(1).seiten, 9);
        QVERIFY(Profilspeicher::laden() == gesichert.profile);
    }

    // What one program took out comes back only if the other has changed it since.
    void geloeschtUndGeaendert()
    {
        const QList<Profil> stand = {profil(u"A"_s), profil(u"B"_s)};
        Profilspeicher::sichern(stand, {});
        Profilspeicher::sichern({stand.at(0)}, stand);
        QList<Profil> anderes = stand;
        anderes[0].seiten = 4;
        QCOMPARE(namen(Profilspeicher::sichern(anderes, stand).profile), QStringList{u"A"_s});
        anderes[1].seiten = 4;
        QCOMPARE(namen(Profilspeicher::sichern(anderes, stand).profile), (QStringList{u"A"_s, u"B"_s}));
    }

    void profilOhneKennungWirdNichtVerdoppelt()
    {
        dateiSchreiben(R"([{"name": "Alt"}, {"name": "Alt"}])");
        const QList<Profil> stand = Profilspeicher::laden();
        QList<Profil> neu = stand;
        neu[0].modell = u"anderes"_s;
        QVERIFY(Profilspeicher::sichern(neu, stand).gelungen);
        QVERIFY(Profilspeicher::laden() == neu);
    }

    // Whatever became of the file: what the window holds is not lost by changing one of its profiles.
    void verschwundeneListeWirdGanzGeschrieben_data()
    {
        QTest::addColumn<QByteArray>("inhalt");
        QTest::addColumn<int>("beiseite");
        QTest::newRow("fort") << QByteArray() << 0;
        QTest::newRow("geleert") << QByteArray("") << 1;
        QTest::newRow("unlesbar") << QByteArray("[{") << 1;
    }
    void verschwundeneListeWirdGanzGeschrieben()
    {
        QFETCH(QByteArray, inhalt);
        const QList<Profil> stand = {profil(u"A"_s), profil(u"B"_s), profil(u"C"_s)};
        QVERIFY(Profilspeicher::sichern(stand, {}).gelungen);
        QVERIFY(QFile::remove(Profilspeicher::datei()));
        if (!inhalt.isNull())
            dateiSchreiben(inhalt);
        QList<Profil> neu = stand;
        neu[1].kopieren = true;
        QVERIFY(Profilspeicher::sichern(neu, stand).profile == neu);
        QVERIFY(Profilspeicher::laden() == neu);
        QTEST(int(beiseitegelegte().size()), "beiseite");
    }

    void unlesbareListeBleibtErhalten()
    {
        const QByteArray kaputt = R"([{"name": 5, "quelle": "/muehsam/eingerichtet"}])";
        dateiSchreiben(kaputt);
        QVERIFY(Profilspeicher::laden().isEmpty());
        const auto gesichert = Profilspeicher::sichern({profil(u"Neu"_s)}, {});
        QVERIFY(gesichert.gelungen);
        QCOMPARE(beiseitegelegte().size(), 1);
        QFile beiseite(gesichert.beiseite);
        QVERIFY(beiseite.open(QIODevice::ReadOnly));
        QCOMPARE(beiseite.readAll(), kaputt);
        QCOMPARE(namen(Profilspeicher::laden()), QStringList{u"Neu"_s});
        dateiSchreiben("nicht einmal JSON"); // within the same second
        QVERIFY(Profilspeicher::sichern({profil(u"Neu"_s)}, {}).gelungen);
        QCOMPARE(beiseitegelegte().size(), 2);
    }

    void wasSichNichtErsetzenLaesstBleibt()
    {
        QVERIFY(QDir().mkpath(Profilspeicher::datei()));
        const QList<Profil> profile = {profil(u"A"_s)};
        const auto gesichert = Profilspeicher::sichern(profile, {});
        QVERIFY(!gesichert.gelungen);
        QVERIFY(gesichert.profile == profile);
        QVERIFY(QFileInfo(Profilspeicher::datei()).isDir());
    }
};

QTEST_GUILESS_MAIN(TestProfilspeicher)
#include "test_profilspeicher.moc"
