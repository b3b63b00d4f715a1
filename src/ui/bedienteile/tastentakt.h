#pragma once

#include "namensraeume.h"

#include <QHash>
#include <QKeySequence>
#include <QObject>
#include <functional>

class QAbstractButton;

namespace quillmar::bedienteile
{
/**
 * Tells a key that is held down from one that is pressed anew. QKeyEvent::isAutoRepeat() alone does not: under X11 a
 * repeat comes as a release and a press, and on a busy machine Qt takes the two for another stroke.
 *
 * While a list, a menu or any other popup is open it keeps the shortcuts of the whole application at rest.
 */
class Tastentakt : public QObject
{
    Q_OBJECT

public:
    /** The application's one, its child. */
    [[nodiscard]] static Tastentakt *derAnwendung();

    /** The key event in hand is the repeat of an earlier one. */
    [[nodiscard]] bool gehalten() const { return m_gehalten; }

    bool eventFilter(QObject *empfaenger, QEvent *ereignis) override;

private:
    explicit Tastentakt(QObject *anwendung);

    bool aufgeklapptes(QObject *empfaenger, QEvent *ereignis);

    QHash<int, quint64> m_losgelassen; ///< by key, in milliseconds of the platform
    bool m_gehalten = false;
    bool m_reichtWeiter = false;
    int m_verbraucht = 0; ///< key that has closed what was open; 0 if none
};

/** @p tat for @p tasten while @p karte or something in it has the focus; once, however long they are held. */
void kurztaste(const QKeySequence &tasten, QWidget *karte, const std::function<void()> &tat);

/** The button below @p teil that has the focus; null if another widget has it. */
[[nodiscard]] QAbstractButton *knopfImFokus(const QWidget *teil);
} // namespace quillmar::bedienteile
