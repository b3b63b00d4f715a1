#pragma once

#include "fehler.h"

/** Marks a literal that reaches the text lookup later, through a variable: it belongs to the text catalogue all the
 * same. */
#ifndef QUILLMAR_TEXT
#define QUILLMAR_TEXT(literal) literal
#endif

/**
 * A failure of the disk. Thrown below the language lookup: both parts are German keys, text() joins them, and whoever
 * shows them to the user looks them up.
 */
class Plattenfehler : public Fehler
{
public:
    /** @p satz says what did not work, @p ursache why (may be empty). */
    explicit Plattenfehler(const QString &satz, const QString &ursache = {})
        : Fehler(ursache.isEmpty() ? satz : satz + QStringLiteral(": ") + ursache), m_satz(satz), m_ursache(ursache)
    {
    }
    [[nodiscard]] const QString &satz() const { return m_satz; }
    [[nodiscard]] const QString &ursache() const { return m_ursache; }

private:
    QString m_satz;
    QString m_ursache;
};
