#pragma once

#include <QHash>
#include <QKeySequence>
#include <QObject>
#include <functional>

class QAbstractButton;

/**
 * Tells a key that is held down from one that is pressed anew. QKeyEvent::isAutoRepeat() alone does not: under X11 a
 * repeat comes as a release and a press, and on a busy machine Qt takes the two for another stroke.
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

    QHash<int, quint64> m_losgelassen; ///< by key, in milliseconds of the platform
    bool m_gehalten = false;
};

/** @p tat for @p tasten while @p karte or something in it has the focus; once, however long they are held. */
void kurztaste(const QKeySequence &tasten, QWidget *karte, const std::function<void()> &tat);

/** The button below @p teil that has the focus; null if another widget has it. */
[[nodiscard]] QAbstractButton *knopfImFokus(const QWidget *teil);
