#pragma once

#include "namensraeume.h"

#include <QObject>
#include <functional>

class QWidget;

namespace quillmar::bedienteile
{
/** Tells of a new font or palette of the application, of which widgets with a size of their own hear nothing. */
class Schriftmelder : public QObject
{
    Q_OBJECT

public:
    /** The application's one, its child. */
    [[nodiscard]] static Schriftmelder *derAnwendung();

    bool eventFilter(QObject *empfaenger, QEvent *ereignis) override;

Q_SIGNALS:
    void schriftGeaendert();

private:
    explicit Schriftmelder(QObject *anwendung);
};

/** What Stil::folgen() leaves behind: a child of the widget that it serves. */
class Folger : public QObject
{
    Q_OBJECT

public:
    Folger(QWidget *traeger, std::function<void()> anwenden);
    bool eventFilter(QObject *empfaenger, QEvent *ereignis) override;

private:
    void folgen();

    std::function<void()> m_anwenden;
    bool m_dabei = false;
};
} // namespace quillmar::bedienteile
