#pragma once

#include "namensraeume.h"

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
} // namespace quillmar::bedienteile
