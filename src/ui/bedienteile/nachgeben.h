#pragma once

#include "namensraeume.h"

#include <QObject>
#include <functional>

class QWidget;

namespace quillmar::bedienteile
{
/**
 * What gives way where there is too little room: words of buttons, explanations, what stands side by side. Of the ways
 * to show @p traeger, the first that fits holds; tried again whenever its size or what is in it changes.
 */
class Nachgeben : public QObject
{
    Q_OBJECT

public:
    /** What is a reason to try again: another size, or other contents too. */
    enum class Anlass { Groesse, Inhalt };
    /**
     * @p anwenden shows it in way 0 (everything) to @p letzte (the least). @p passt: by default whether the layout of
     * @p traeger asks for no more width than there is.
     */
    Nachgeben(QWidget *traeger, int letzte, std::function<void(int)> anwenden, std::function<bool()> passt = {},
              Anlass anlass = Anlass::Inhalt);

    void pruefen();
    [[nodiscard]] int stufe() const { return m_stufe; }
    bool eventFilter(QObject *empfaenger, QEvent *ereignis) override;

private:
    QWidget *m_traeger;
    int m_letzte;
    std::function<void(int)> m_anwenden;
    std::function<bool()> m_passt;
    int m_stufe = 0;
    Anlass m_anlass;
    bool m_dabei = false;
};
} // namespace quillmar::bedienteile
