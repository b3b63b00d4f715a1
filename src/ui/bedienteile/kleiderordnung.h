#pragma once

#include "auswahl.h"

#include <QObject>

namespace quillmar::bedienteile
{
/**
 * Keeps what Stil::kleiden() has given to texts, of which widgets with a font or a colour of their own hear nothing
 * when those of the application change. The application's one, its child.
 */
class Kleiderordnung : public QObject
{
    Q_OBJECT

public:
    [[nodiscard]] static Kleiderordnung *derAnwendung();
    bool eventFilter(QObject *empfaenger, QEvent *ereignis) override;

Q_SIGNALS:
    /** The application has another font or palette. */
    void geaendert();

private:
    explicit Kleiderordnung(QObject *anwendung);
    void alleKleiden();

    bool m_dabei = false;
};

/** Sets and stores the font size, within its bounds. */
void schriftgroesseWaehlen(double punkte);

/** The sizes that are offered, and the one that comes next to what is set. */
[[nodiscard]] QList<Wahleintrag> schriftgroessen();
[[nodiscard]] QString naechsteSchriftgroesse();
/** The language and the font size in effect, for the user. */
[[nodiscard]] QString spracheUndSchrift();

/**
 * Takes the stored font size over into the running program, and again whenever a desktop sets a font of its own later;
 * without one the desktop's holds.
 */
void schriftgroesseAnwenden();
} // namespace quillmar::bedienteile
