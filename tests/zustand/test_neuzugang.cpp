#include "neuzugang.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmar::zustand;

namespace
{
/** What a look at some second finds: files as "name=size"; or what the program does then. */
struct Schritt {
    int sekunde = 0;
    QStringList dateien = {};
    QStringList eigene = {};  ///< a session was turned back, to these paths
    bool aufgenommen = false; ///< a run has begun, behind the look
};

Neuzugang::Zeitpunkt zeit(int sekunde) { return Neuzugang::Zeitpunkt(1h + std::chrono::seconds(sekunde)); }

QList<Neuzugang::Datei> dateien(const QStringList &namen)
{
    QList<Neuzugang::Datei> liste;
    for (const QString &name : namen)
        liste << Neuzugang::Datei{.pfad = name.section(u'=', 0, 0), .groesse = name.section(u'=', 1).toLongLong()};
    return liste;
}

/** Files that come one after the other, each seen once a second from its own second on. */
QList<Schritt> strom(int bis, int abstand)
{
    QList<Schritt> schritte;
    QStringList da;
    for (int s = 0; s <= bis; s += abstand) {
        da << u"%1=1"_s.arg(s);
        schritte << Schritt{.sekunde = s, .dateien = da};
    }
    return schritte;
}
} // namespace

class TestNeuzugang : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wannEsSoweitIst_data()
    {
        QTest::addColumn<QList<Schritt>>("schritte");
        QTest::addColumn<bool>("soweit");
        QTest::addColumn<int>("wartende");
        QTest::addColumn<int>("naechster"); ///< second; negative: none
        const auto fall = [](const char *name, const QList<Schritt> &schritte, bool soweit, int wartende,
                             int naechster) { QTest::newRow(name) << schritte << soweit << wartende << naechster; };
        const Schritt a0{.sekunde = 0, .dateien = {u"a=1"_s}};
        const Schritt a10{.sekunde = 10, .dateien = {u"a=1"_s}};
        const Schritt a10weg{.sekunde = 10, .dateien = {u"a=1"_s}, .aufgenommen = true};
        fall("nichts da", {{.sekunde = 0}}, false, 0, -1);
        fall("eben gekommen", {a0}, false, 1, 10);
        fall("zehn Sekunden unverändert", {a0, a10}, true, 1, 10);
        fall("neun Sekunden", {a0, {.sekunde = 9, .dateien = {u"a=1"_s}}}, false, 1, 10);
        fall("wächst noch", {a0, {.sekunde = 10, .dateien = {u"a=2"_s}}}, false, 1, 20);
        fall("fertig gewachsen", {a0, {.sekunde = 10, .dateien = {u"a=2"_s}}, {.sekunde = 20, .dateien = {u"a=2"_s}}},
             true, 1, 20);
        fall("wieder weg", {a0, {.sekunde = 10}}, false, 0, -1);
        fall("weg und wieder da", {a0, {.sekunde = 5}, a10}, false, 1, 20);
        fall("eine zweite kommt noch", {a0, {.sekunde = 10, .dateien = {u"a=1"_s, u"b=1"_s}}}, false, 2, 20);
        fall("Stapel ist durch",
             {a0, {.sekunde = 5, .dateien = {u"a=1"_s, u"b=1"_s}}, {.sekunde = 15, .dateien = {u"a=1"_s, u"b=1"_s}}},
             true, 2, 15);
        fall("kommen seit kurzem unentwegt", strom(100, 5), false, 21, 110);
        fall("kommen seit langem unentwegt", strom(120, 5), true, 25, 130);
        fall("kommen seit langem, keine ruht",
             {a0, {.sekunde = 125, .dateien = {u"a=2"_s}}, {.sekunde = 130, .dateien = {u"a=3"_s}}}, false, 1, 140);
        fall("wird gelesen", {a0, a10weg}, false, 0, -1);
        // The run failed before the catalogue knew the file: it is still there, and starts no other one.
        fall("gescheitert", {a0, a10weg, {.sekunde = 600, .dateien = {u"a=1"_s}}}, false, 0, -1);
        fall("gescheitert, dann ersetzt",
             {a0, a10weg, {.sekunde = 600, .dateien = {u"a=7"_s}}, {.sekunde = 610, .dateien = {u"a=7"_s}}}, true, 1,
             610);
        fall("gescheitert, dann eine zweite",
             {a0,
              a10weg,
              {.sekunde = 60, .dateien = {u"a=1"_s, u"b=1"_s}},
              {.sekunde = 70, .dateien = {u"a=1"_s, u"b=1"_s}}},
             true, 1, 70);
        fall("zurückgedreht",
             {{.sekunde = 0, .dateien = {u"a=1"_s}, .eigene = {u"a"_s}}, {.sekunde = 60, .dateien = {u"a=1"_s}}}, false,
             0, -1);
        fall("zurückgedreht, schon gesehen",
             {a0, {.sekunde = 5, .dateien = {u"a=1"_s}, .eigene = {u"a"_s}}, {.sekunde = 60, .dateien = {u"a=1"_s}}},
             false, 0, -1);
        fall("zurückgedreht, später ein Scan unter dem Namen",
             {{.sekunde = 0, .eigene = {u"a"_s}},
              {.sekunde = 5, .dateien = {u"a=1"_s}},
              {.sekunde = 15, .dateien = {u"a=1"_s}}},
             true, 1, 15);
        fall("zurückgedreht neben einem Scan",
             {{.sekunde = 0, .dateien = {u"a=1"_s, u"b=1"_s}, .eigene = {u"a"_s}},
              {.sekunde = 10, .dateien = {u"a=1"_s, u"b=1"_s}}},
             true, 1, 10);
    }
    void wannEsSoweitIst()
    {
        QFETCH(QList<Schritt>, schritte);
        QFETCH(bool, soweit);
        QFETCH(int, wartende);
        QFETCH(int, naechster);
        Neuzugang neuzugang;
        for (const Schritt &schritt : schritte) {
            neuzugang.eigene(schritt.eigene);
            neuzugang.gesehen(dateien(schritt.dateien), zeit(schritt.sekunde));
            if (schritt.aufgenommen)
                neuzugang.aufgenommen();
        }
        QCOMPARE(neuzugang.istSoweit(zeit(schritte.last().sekunde)), soweit);
        QCOMPARE(neuzugang.wartende(), wartende);
        QCOMPARE(neuzugang.naechsterBlick(), naechster < 0 ? std::nullopt : std::optional(zeit(naechster)));
    }
};

QTEST_GUILESS_MAIN(TestNeuzugang)
#include "test_neuzugang.moc"
