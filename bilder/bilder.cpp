#include "analyse.h"
#include "archiv.h"
#include "beispielprofil.h"
#include "bremse.h"
#include "buehnenbild.h"
#include "durchgang.h"
#include "fenstersprache.h"
#include "hauptfenster.h"
#include "modelldienst.h"
#include "modellserver.h"
#include "profilspeicher.h"
#include "profilwahl.h"
#include "quillmarstil.h"
#include "seitenbelege.h"
#include "sprache.h"
#include "stil.h"
#include "zustand.h"

#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QIcon>
#include <QPainter>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;

namespace
{
constexpr int laengstens = 30'000; // ms
/** ms without anything that still moves. */
int stille() { return QCoreApplication::arguments().contains(u"--namen"_s) ? 100 : 400; }

void gesperrt(QPalette &p, const QColor &farbe)
{
    for (const auto rolle : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        p.setColor(QPalette::Disabled, rolle, farbe);
}

/** The colours of a dark desktop; without a desktop none would be set. */
QPalette dunkel()
{
    QPalette p(QColor(0x31363b), QColor(0x232629));
    p.setColor(QPalette::Base, QColor(0x1b1e20));
    p.setColor(QPalette::AlternateBase, QColor(0x232629));
    p.setColor(QPalette::Text, QColor(0xfcfcfc));
    p.setColor(QPalette::WindowText, QColor(0xfcfcfc));
    p.setColor(QPalette::ButtonText, QColor(0xfcfcfc));
    p.setColor(QPalette::Button, QColor(0x31363b));
    p.setColor(QPalette::Highlight, QColor(0x2a72b0));
    p.setColor(QPalette::HighlightedText, Qt::white);
    p.setColor(QPalette::Link, QColor(0x3daee9));
    p.setColor(QPalette::ToolTipBase, QColor(0x31363b));
    p.setColor(QPalette::ToolTipText, QColor(0xfcfcfc));
    gesperrt(p, QColor(0x767a7e));
    return p;
}

QPalette hell()
{
    QPalette p(QColor(0xefefee), QColor(0xf4f4f3));
    p.setColor(QPalette::Base, Qt::white);
    p.setColor(QPalette::WindowText, QColor(0x232629));
    p.setColor(QPalette::Text, QColor(0x232629));
    p.setColor(QPalette::ButtonText, QColor(0x232629));
    p.setColor(QPalette::Highlight, QColor(0x2a6ea8));
    p.setColor(QPalette::HighlightedText, Qt::white);
    p.setColor(QPalette::Link, QColor(0x2a6ea8));
    gesperrt(p, QColor(0x9a9c9e));
    return p;
}

/** Where the focus can go and what a screen reader then has no word for. */
QStringList unbenanntes(const QWidget &fenster)
{
    QStringList namenlose;
    for (QWidget *teil : fenster.findChildren<QWidget *>()) {
        if (!(teil->focusPolicy() & Qt::TabFocus) || !teil->isVisible() || teil->focusProxy())
            continue;
        QAccessibleInterface *schnittstelle = QAccessible::queryAccessibleInterface(teil);
        if (!schnittstelle || schnittstelle->text(QAccessible::Name).isEmpty() || teil->objectName().isEmpty())
            namenlose << u"%1 \"%2\" in \"%3\""_s.arg(QLatin1String(teil->metaObject()->className()),
                                                      teil->objectName(), teil->parentWidget()->objectName());
    }
    return namenlose;
}

/** Saves the picture to @p ordner, or without one looks whether everything in it has a name. */
bool aufnehmen(const Buehnenbild &bild, Zustand &zustand, const QString &ordner, Fenstersprache &sprache)
{
    QApplication::setPalette(bild.dunkel ? dunkel() : hell());
    Stil::setzeSchriftgroesse(bild.punkte);
    Hauptfenster fenster(&zustand, &sprache);
    fenster.resize(bild.groesse);
    fenster.show();
    fenster.activateWindow();
    ruhe();
    if (bild.vorher)
        bild.vorher(zustand, fenster);
    ruhe();
    if (!ordner.isEmpty()) { // marks come when the words do
        laufenBis([&] { return !zustand.seitenbelege()->liest(); });
        ruhe();
    }
    auto *anderes = bild.fenster.isEmpty() ? nullptr : fenster.findChild<QDialog *>(bild.fenster);
    QWidget &ziel = anderes ? static_cast<QWidget &>(*anderes) : fenster;
    if (ordner.isEmpty()) {
        const QStringList namenlose = unbenanntes(ziel);
        if (!namenlose.isEmpty())
            std::fprintf(stderr, "%s: without a name: %s\n", qPrintable(bild.name),
                         qPrintable(namenlose.join(u", "_s)));
        return namenlose.isEmpty();
    }
    QPixmap alles = ziel.grab();
    if (QWidget *liste = QApplication::activePopupWidget()) { // a window of its own
        QPainter maler(&alles);
        maler.drawPixmap(ziel.mapFromGlobal(liste->mapToGlobal(QPoint())), liste->grab());
    }
    return alles.save(ordner + u'/' + bild.name + u".png"_s, "PNG", 0);
}

/** The state is shown in other looks than the first ones. */
bool istAbwandlung(const Buehnenbild &bild)
{
    const Buehnenbild erstes;
    return bild.dunkel || bild.punkte != erstes.punkte || bild.sprache != erstes.sprache ||
           bild.groesse != erstes.groesse;
}

/** The looks that "--art=18,1100x700,dunkel,en" wants for every state; none without. */
std::optional<Buehnenbild> verlangteArt(const QStringList &argumente)
{
    const QStringList art = argumente.filter(u"--art="_s).value(0).mid(6).split(u',');
    if (art.size() != 4)
        return std::nullopt;
    const QStringList masse = art.at(1).split(u'x');
    return Buehnenbild{.name = {},
                       .groesse = {masse.value(0).toInt(), masse.value(1).toInt()},
                       .punkte = art.at(0).toDouble(),
                       .dunkel = art.at(2) == u"dunkel",
                       .sprache = art.at(3)};
}

/** Before the pictures that show what an analysis has found. */
void analysieren(Zustand &zustand)
{
    if (zustand.durchgang()->laufbild().gelaufen() && !zustand.durchgang()->analyse()->laeuft())
        return;
    qputenv("OLLAMA_HOST", "127.0.0.1:" + QByteArray::number(bremse().serverPort()));
    bremse().loslassen();
    zustand.modelldienst()->modellPruefen();
    zustand.durchgang()->durchgangStarten();
    while (zustand.durchgang()->analyse()->laeuft())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}
Bremse *vorDemServer = nullptr;
} // namespace

Bremse &bremse() { return *vorDemServer; }

void laufenBis(const std::function<bool()> &fertig)
{
    QElapsedTimer uhr;
    uhr.start();
    while (!fertig() && uhr.elapsed() < laengstens)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
}

void ruhe()
{
    QElapsedTimer uhr;
    uhr.start();
    laufenBis([&] { return uhr.elapsed() > stille(); });
}

/**
 * quillmar-bilder ORDNER [NAME...]: takes the pictures of the handbook with the sample archive.
 * quillmar-bilder ORDNER --art=18,1100x700,dunkel,en [NAME...]: every state once, in these looks (hell, dunkel; de,
 * en). quillmar-bilder --namen: looks in every state, once each, whether everything that can have the focus has a name.
 */
int main(int anzahl, char **argumente)
{
    const QTemporaryDir heim(QDir::tempPath() + u"/anna-XXXXXX"_s); // its path is to be seen in some pictures
    qputenv("HOME", heim.path().toUtf8());
    qputenv("XDG_DATA_HOME", heim.filePath(u"daten"_s).toUtf8());
    qputenv("XDG_CONFIG_HOME", heim.filePath(u"einstellungen"_s).toUtf8());
    const QApplication programm(anzahl, argumente);
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    Quillmarstil::anwenden();
    QApplication::setFont(QFont(u"Noto Sans"_s, 10));
    QIcon::setThemeName(u"breeze"_s);
    const std::optional<Buehnenbild> art = verlangteArt(QCoreApplication::arguments());
    const QStringList wuensche = QCoreApplication::arguments().mid(art ? 3 : 2);
    const bool nurNamen = QCoreApplication::arguments().value(1) == u"--namen"_s;
    const QString ziel = nurNamen ? QString() : QCoreApplication::arguments().value(1);
    bool gelungen = true;
    const QString archiv = heim.filePath(u"Dokumente"_s);
    vorfuehrung::archivSchreiben(archiv);
    vorfuehrung::profilSchreiben(Profilspeicher::datei(), archiv);
    vorfuehrung::Modellserver server(vorfuehrung::modellDerVorfuehrung());
    if (!server.lauschen(0))
        return 1;
    Bremse bremse(server.port());
    vorDemServer = &bremse;
    if (!bremse.listen(QHostAddress::LocalHost))
        return 1;
    qputenv("OLLAMA_HOST", "127.0.0.1:" + QByteArray::number(bremse.serverPort()));
    Fenstersprache sprache;
    Zustand zustand;
    zustand.profilwahl()->beginnen();
    laufenBis([&] { return zustand.profilwahl()->offen(); });
    Profil profil = *zustand.profilwahl()->aktiv();
    profil.zweige = Profil::struktureinlesen(profil.zielWurzel, 2);
    ablageFuellen(profil);
    zustand.profilwahl()->setzeProfil(profil);
    bool analysiert = false;
    for (Buehnenbild bild : buehnenbilder()) {
        if ((!wuensche.isEmpty() && !wuensche.contains(bild.name)) || ((nurNamen || art) && istAbwandlung(bild)))
            continue;
        if (art)
            std::tie(bild.groesse, bild.punkte, bild.dunkel, bild.sprache) =
                std::tie(art->groesse, art->punkte, art->dunkel, art->sprache);
        sprache.waehlen(bild.sprache);
        if (!bild.unanalysiert && !std::exchange(analysiert, true))
            analysieren(zustand);
        if (!aufnehmen(bild, zustand, ziel, sprache)) {
            std::fprintf(stderr, "%s: failed\n", qPrintable(bild.name));
            gelungen = false;
        }
    }
    return gelungen ? 0 : 1;
}
