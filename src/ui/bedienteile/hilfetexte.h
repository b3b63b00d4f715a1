#pragma once

#include "namensraeume.h"

#include <QObject>

namespace quillmar::bedienteile
{
/**
 * What the user reads of the program is plain text, wherever it comes from: a label does not take a text for markup,
 * and neither does a tool tip, which wraps instead. A help text is the accessible description of its widget too, and
 * goes on being it when it changes, unless the widget has another one.
 */
class Hilfetexte : public QObject
{
    Q_OBJECT

public:
    /** Takes effect for the whole application; once is enough. */
    static void anwenden();

    bool eventFilter(QObject *empfaenger, QEvent *ereignis) override;

private:
    explicit Hilfetexte(QObject *anwendung);
};
} // namespace quillmar::bedienteile
