#pragma once

#include <QSize>
#include <QString>
#include <functional>

namespace quillmar::profil
{
struct Profil;
} // namespace quillmar::profil

namespace quillmar::zustand
{
class Zustand;
} // namespace quillmar::zustand

namespace quillmar::ui
{
class Hauptfenster;
} // namespace quillmar::ui

class Bremse;

/** One picture of the window: how it is set up, and what is done before it is taken. */
struct Buehnenbild {
    QString name; ///< of the file, without ".png"
    std::function<void(quillmar::zustand::Zustand &, quillmar::ui::Hauptfenster &)> vorher = {};
    QSize groesse = {1280, 860};
    double punkte = 10;
    bool dunkel = false;
    QString sprache = QStringLiteral("de");
    QString fenster = {};      ///< name of the other window that is taken instead
    bool unanalysiert = false; ///< before the documents have been analysed
};

/** All pictures, in an order in which each one's state leads to the next. */
[[nodiscard]] QList<Buehnenbild> buehnenbilder();

/** Documents that have been lying in the filing tree of @p profil for years. */
void ablageFuellen(const quillmar::profil::Profil &profil);

/** What stands between the program and its model server. */
[[nodiscard]] Bremse &bremse();
/** Lets the event loop run until @p fertig, at most half a minute. */
void laufenBis(const std::function<bool()> &fertig);
/** Lets it run until nothing is on its way any more: previews, looks into the catalogue. */
void ruhe();
