#include "profil.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::profil;

namespace
{
/** One line per filing kind: branch/kind, "+" if it keeps years, and its rubrics. */
QStringList lesbar(const QList<Zweig> &zweige)
{
    QStringList liste;
    for (const Zweig &zweig : zweige) {
        for (const Ablageart &art : zweig.ablagen)
            liste << zweig.name + u'/' + art.name + (art.mitJahr ? u"+: "_s : u": "_s) + art.rubriken.join(u", "_s);
    }
    return liste;
}
} // namespace

class TestStruktur : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void einlesen_data()
    {
        QTest::addColumn<QStringList>("ordner");
        QTest::addColumn<int>("tiefe");
        QTest::addColumn<QStringList>("erwartet");
        QTest::newRow("leer") << QStringList{} << 2 << QStringList{};
        QTest::newRow("nur prüfen") << QStringList{u"A/prüfen/x"_s, u"B/Prufen"_s, u"C/PRÜFEN"_s} << 2 << QStringList{};
        QTest::newRow("Jahre") << QStringList{u"P/Steuern/2023/Bescheide"_s, u"P/Steuern/2024/Bescheide"_s} << 2
                               << QStringList{u"P/Steuern+: Bescheide"_s};
        QTest::newRow("neben Jahren keine Rubriken")
            << QStringList{u"P/S/2023/Bescheide/tief"_s, u"P/S/Belege"_s} << 2 << QStringList{u"P/S+: Bescheide"_s};
        QTest::newRow("fast Jahre") << QStringList{u"P/S/202A"_s, u"P/S/23"_s, u"P/S/20234"_s} << 2
                                    << QStringList{u"P/S: 20234, 202A, 23"_s};
        QTest::newRow("leere Jahre") << QStringList{u"P/S/2023"_s} << 2 << QStringList{u"P/S+: "_s};
        const QStringList zweiEbenen = {u"P/Privat/Versicherung/Auto"_s, u"P/Privat/Urlaub/Fotos"_s};
        QTest::newRow("zwei Ebenen") << zweiEbenen << 2
                                     << QStringList{u"P/Privat: Urlaub, Versicherung, Versicherung/Auto"_s};
        QTest::newRow("eine Ebene") << zweiEbenen << 1 << QStringList{u"P/Privat: Urlaub, Versicherung"_s};
        QTest::newRow("keine Zweige") << QStringList{u"_Archiv/a"_s, u"Inbox/a"_s, u"inbox/a"_s, u".hier/a"_s} << 2
                                      << QStringList{u"inbox/a: "_s};
        QTest::newRow("Ablage ohne Rubriken") << QStringList{u"P/leer"_s} << 2 << QStringList{u"P/leer: "_s};
        QTest::newRow("Umlaute siegen") << QStringList{u"P/K/Gebuehren"_s, u"P/K/Gebühren"_s} << 2
                                        << QStringList{u"P/K: Gebühren"_s};
        QTest::newRow("sortiert") << QStringList{u"b/x"_s, u"B/z"_s, u"B/y"_s} << 2
                                  << QStringList{u"B/y: "_s, u"B/z: "_s, u"b/x: "_s};
    }
    void einlesen()
    {
        QFETCH(QStringList, ordner);
        QFETCH(int, tiefe);
        const QTemporaryDir ziel;
        for (const QString &name : ordner)
            QVERIFY(QDir(ziel.path()).mkpath(name));
        QFile datei(ziel.filePath(u"Datei"_s));
        QVERIFY(datei.open(QIODevice::WriteOnly));
        QTEST(lesbar(Profil::struktureinlesen(ziel.path(), tiefe)), "erwartet");
    }

    // The folders that the program files into by itself, under names of the user's own.
    void eigeneOrdnerSindKeineStruktur()
    {
        const QTemporaryDir ziel;
        for (const QString &name :
             {u"P/Offen/x"_s, u"P/Steuern/Offen"_s, u"Offen/Offen"_s, u"Doppelt/a/b"_s, u"P/Buch/c"_s, u"Q/Doppelt"_s})
            QVERIFY(QDir(ziel.path()).mkpath(name));
        Profil p;
        p.zielWurzel = ziel.path() + u'/';
        p.auffangOrdner = u"offen"_s;
        p.dublettenOrdner = u"Doppelt"_s;
        p.protokollOrdner = ziel.filePath(u"P/Buch"_s);
        QCOMPARE(lesbar(Profil::struktureinlesen(p.zielWurzel, 2, p.eigeneOrdner())),
                 (QStringList{u"P/Steuern: Offen"_s, u"Q/Doppelt: "_s}));
        p.dublettenOrdner = u"Q/Doppelt"_s;
        QCOMPARE(lesbar(Profil::struktureinlesen(p.zielWurzel, 2, p.eigeneOrdner())),
                 (QStringList{u"Doppelt/a: b"_s, u"P/Steuern: Offen"_s}));
    }

    void zerlegteUmlauteAufDerPlatte()
    {
        const QTemporaryDir ort;
        const QString wurzel = ort.filePath(u"Prüf"_s.normalized(QString::NormalizationForm_D));
        for (const QString &name : {u"Büro/Verträge/Öl/Über"_s, u"Büro/prüfen/x"_s})
            QVERIFY(QDir().mkpath(wurzel + u'/' + name.normalized(QString::NormalizationForm_D)));
        const QStringList erwartet = {u"Büro/Verträge: Öl, Öl/Über"_s};
        QCOMPARE(lesbar(Profil::struktureinlesen(wurzel, 2)), erwartet);
        QCOMPARE(lesbar(Profil::struktureinlesen(wurzel.normalized(QString::NormalizationForm_C) + u'/', 2)), erwartet);
        QVERIFY(Profil::struktureinlesen(wurzel + u"/fehlt"_s, 2).isEmpty());
    }

    void vereinheitlichen_data()
    {
        QTest::addColumn<QStringList>("namen");
        QTest::addColumn<QStringList>("erwartet");
        QTest::newRow("leer") << QStringList{} << QStringList{};
        QTest::newRow("Schreibweisen") << QStringList{u"steuer-bescheide"_s, u"Steuerbescheide"_s,
                                                      u"Steuerbescheide "_s}
                                       << QStringList{u"Steuerbescheide"_s};
        QTest::newRow("Umlaut nach Umschrift")
            << QStringList{u"Gebuehren"_s, u"Gebühren"_s} << QStringList{u"Gebühren"_s};
        QTest::newRow("Umlaut vor Umschrift")
            << QStringList{u"Ämter"_s, u"ämter"_s, u"aemter"_s} << QStringList{u"Ämter"_s};
        QTest::newRow("scharfes S") << QStringList{u"Strasse"_s, u"Straße"_s} << QStringList{u"Straße"_s};
        QTest::newRow("Ebenen bleiben getrennt") << QStringList{u"a/b"_s, u"ab"_s} << QStringList{u"a/b"_s, u"ab"_s};
    }
    void vereinheitlichen()
    {
        QFETCH(QStringList, namen);
        QTEST(Profil::vereinheitlichen(namen), "erwartet");
    }

    void zerlegen_data()
    {
        QTest::addColumn<QString>("ordner");
        QTest::addColumn<QStringList>("ebenen");
        QTest::newRow("leer") << u""_s << QStringList{u""_s, u""_s, u""_s};
        QTest::newRow("nur Zweig") << u"Privat"_s << QStringList{u"Privat"_s, u""_s, u""_s};
        QTest::newRow("Jahr fällt weg") << u"Privat/Steuern/2023/Bescheide"_s
                                        << QStringList{u"Privat"_s, u"Steuern"_s, u"Bescheide"_s};
        QTest::newRow("ohne Jahr darunter")
            << u"Privat/Steuern/Bescheide"_s << QStringList{u"Privat"_s, u"Steuern"_s, u"Bescheide"_s};
        QTest::newRow("Jahr ist Rubrik") << u"Privat/Akten/2023/x"_s
                                         << QStringList{u"Privat"_s, u"Akten"_s, u"2023/x"_s};
        QTest::newRow("zwei Ebenen") << u"/Privat/Akten/Auto/Kfz/"_s
                                     << QStringList{u"Privat"_s, u"Akten"_s, u"Auto/Kfz"_s};
        QTest::newRow("unbekannt") << u"X/Y/2023/Z"_s << QStringList{u"X"_s, u"Y"_s, u"2023/Z"_s};
    }
    void zerlegen()
    {
        QFETCH(QString, ordner);
        QFETCH(QStringList, ebenen);
        Profil p;
        p.zweige = {{.name = u"Privat"_s,
                     .ablagen = {{.name = u"Steuern"_s, .mitJahr = true, .rubriken = QStringList{u"Bescheide"_s}},
                                 {.name = u"Akten"_s, .mitJahr = false, .rubriken = QStringList{u"Auto/Kfz"_s}}}}};
        const Ort ort = p.zerlegen(ordner);
        QCOMPARE((QStringList{ort.zweig, ort.ablage, ort.rubrik}), ebenen);
        QCOMPARE(p.kennt(ort), ebenen.last() == u"Bescheide"_s || ebenen.last() == u"Auto/Kfz"_s);
    }
};

QTEST_GUILESS_MAIN(TestStruktur)
#include "test_struktur.moc"
