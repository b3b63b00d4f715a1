#pragma once

#include "namensraeume.h"

#include <QString>

namespace quillmar::app
{
/** Writing of the console mode. */
namespace Ausgabe
{
/** @p text with a mark in place of each character that would steer the terminal; line feeds and tabs stay. */
[[nodiscard]] QString sichtbar(const QString &text);

/** A name or path that must not look like several lines: also line feeds and tabs get their marks. */
[[nodiscard]] QString einzeilig(const QString &text);

/** One line (or block) to standard output, followed by a line feed. */
void drucken(const QString &text);
/** A notice beside the report, to standard error. */
void melden(const QString &text);

/** The one line on a terminal's standard error that tells how far a long run is. Nothing when it is no terminal. */
class Statuszeile
{
public:
    Statuszeile();
    ~Statuszeile();
    Statuszeile(const Statuszeile &) = delete;
    Statuszeile &operator=(const Statuszeile &) = delete;

    void zeigen(const QString &stufe, double anteil, const QString &meldung, const QString &restzeit);
    void loeschen();

    /** The line for a terminal of @p breite columns; @p anteil from 0 to 1. */
    [[nodiscard]] static QString zeile(const QString &stufe, double anteil, const QString &meldung,
                                       const QString &restzeit, int breite);

private:
    bool m_terminal = false;
    QString m_gezeigt;
};
} // namespace Ausgabe
} // namespace quillmar::app
