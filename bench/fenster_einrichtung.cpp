#include "fenster.h"

#include "abschnitt.h"
#include "einrichtung.h"
#include "fensterbuehne.h"
#include "messung.h"
#include "probe.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QTreeView>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;
using namespace Fensterbuehne;

namespace
{
constexpr int ordner = 200;
constexpr int rubriken = 5000;
constexpr double grenze = 50;

/** A hundred thousand scans in folders, and a tree of five thousand rubrics in five branches of ten kinds. */
void anlegen(const Profil &profil)
{
    for (int n = 0; n < alle; ++n) {
        const QString in = profil.quelle + u"/Ordner %1"_s.arg(n % ordner);
        if (n < ordner)
            QDir().mkpath(in);
        Probe::schreiben(in + u"/Scan %1.pdf"_s.arg(n), {});
    }
    for (int n = 0; n < rubriken; ++n)
        QDir().mkpath(profil.zielWurzel +
                      u"/Zweig %1/Ablage %2/2024/Rubrik mit Namen %3"_s.arg(n % 5).arg(n % 50 / 5).arg(n));
}

template <typename T>
T *teil(const Fenster &f, const QString &name)
{
    for (T *kandidat : f.fenster.findChildren<T *>(name)) {
        if (kandidat->isVisible())
            return kandidat;
    }
    qFatal("%s is not there", qPrintable(name));
}

void rollen(QTreeView *baum)
{
    for (int n = 0; n <= 100; ++n) {
        baum->verticalScrollBar()->setValue(baum->verticalScrollBar()->maximum() / 100 * n);
        warten(16);
    }
}

void tippen(Fenster &f, Abschnitt abschnitt, const QString &feld)
{
    f.zustand.einrichtung()->setzeAbschnitt(abschnitt);
    auto *eingabe = teil<QLineEdit>(f, feld);
    eingabe->setFocus();
    for (int n = 0; n < 20; ++n) {
        QTest::keyClick(eingabe, Qt::Key_A);
        warten(60);
    }
}
} // namespace

void Fensterreihen::einrichtungskarte()
{
    const Anwendung anwendung;
    const Heim heim;
    heim.sichern();
    anlegen(heim.profil);
    Fenster f;
    f.zustand.setzeReiter(Reiter::Ablauf);
    warten(blick);
    Schleifenwache wache;
    f.zustand.setzeReiter(Reiter::Einrichtung);
    f.zustand.einrichtung()->setzeAbschnitt(Abschnitt::Herkunft);
    bis([&] {
        return f.zustand.einrichtung()->stand().quelle && f.zustand.einrichtung()->stand().quelle->anzahl == alle;
    });
    warten(blick);
    Messung::drucken("setup: counting 100,000 files, longest block", wache.laengste(), "ms", grenze);
    f.zustand.einrichtung()->setzeAbschnitt(Abschnitt::Ziel);
    warten(blick);
    wache.laengste();
    teil<QAbstractButton>(f, u"strukturEinlesen"_s)->click();
    bis([&] { return f.zustand.einrichtung()->stand().zahlen.rubriken == rubriken; });
    warten(blick);
    Messung::drucken("setup: reading 5,000 rubrics, longest block", wache.laengste(), "ms", grenze);
    rollen(teil<QTreeView>(f, u"struktur"_s));
    Messung::drucken("setup: scrolling them, longest block", wache.laengste(), "ms", grenze);
    QDir(heim.profil.zielWurzel + u"/Zweig 0/Ablage 0"_s).removeRecursively();
    teil<QAbstractButton>(f, u"strukturEinlesen"_s)->click();
    bis([&] { return f.zustand.einrichtung()->stand().zahlen.entfallen == rubriken / 50; });
    warten(blick);
    Messung::drucken("setup: reading and comparing, longest block", wache.laengste(), "ms", grenze);
    tippen(f, Abschnitt::Ziel, u"auffangOrdner"_s);
    tippen(f, Abschnitt::Namen, u"namensVorlage"_s);
    tippen(f, Abschnitt::Eigentuemer, u"eigentuemer"_s);
    tippen(f, Abschnitt::Herkunft, u"neueAusnahme"_s);
    Messung::drucken("setup: typing with that profile, longest block", wache.laengste(), "ms", grenze);
    for (const Abschnitt abschnitt : alleAbschnitte()) {
        f.zustand.einrichtung()->setzeAbschnitt(abschnitt);
        warten(blick / 2);
    }
    Messung::drucken("setup: going through the sections, longest block", wache.laengste(), "ms", grenze);
}
