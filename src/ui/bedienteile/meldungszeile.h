#pragma once

#include "meldestelle.h"
#include "teile.h"
#include "zeichen.h"

#include <QWidget>

namespace quillmar::bedienteile
{
/** The mark of @p ton; empty for none. */
[[nodiscard]] Symbol tonzeichen(Meldestelle::Ton ton);

/** What was done last and what is to be said, at one fixed place; at its end what takes it back. */
class Meldungszeile : public QWidget
{
    Q_OBJECT

public:
    Meldungszeile(Meldestelle *meldestelle, Pruefung *pruefung, Ausfuehrung *ausfuehrung, QWidget *eltern = nullptr);
    void setzeMitText(bool mit);
    /** Deed and notice on a line each; otherwise both on one, where the end may be left out. */
    void setzeZweizeilig(bool zweizeilig);

private:
    void zeigen();

    Meldestelle *m_meldestelle;
    Pruefung *m_pruefung;
    Ausfuehrung *m_ausfuehrung;
    Textschild *m_text;
    Textschild *m_zweite;
    QToolButton *m_zurueck;
    bool m_zweizeilig = false;
};
} // namespace quillmar::bedienteile
