#pragma once

#include "stil.h"
#include "teile.h"

#include <QBoxLayout>
#include <functional>

/** How parts stand beside and below each other, and what gives way where there is little room. */
namespace quillmar::bedienteile
{
/** What stands in a row or column: a widget, another row or column, or room that is left over. */
struct Teil {
    Teil(QWidget *widget, int dehnung = 0, Qt::Alignment wo = {})
        : widget(widget), dehnung(dehnung), wo(wo) {}                            // NOLINT
    Teil(QLayout *layout, int dehnung = 0) : layout(layout), dehnung(dehnung) {} // NOLINT
    /** Takes the room that nobody else wants. */
    [[nodiscard]] static Teil rest(int dehnung = 1) { return {static_cast<QWidget *>(nullptr), dehnung}; }

    QWidget *widget = nullptr;
    QLayout *layout = nullptr;
    int dehnung = 0;
    Qt::Alignment wo;
};

/** A row or column whose distance has a name and grows with the font. */
class Kette : public QBoxLayout
{
    Q_OBJECT

public:
    Kette(Direction richtung, Abstand abstand) : QBoxLayout(richtung), m_abstand(abstand) {}
    [[nodiscard]] int spacing() const override { return Stil::abstand(m_abstand); }
    void setzeAbstand(Abstand abstand);
    void anfuegen(const Teil &teil);

private:
    Abstand m_abstand;
};

/** Puts its widgets side by side and goes on in the next line where there is no more room. */
class Flussreihe : public QLayout
{
    Q_OBJECT

public:
    explicit Flussreihe(Abstand abstand) : m_abstand(abstand) {}
    ~Flussreihe() override;

    [[nodiscard]] int spacing() const override { return Stil::abstand(m_abstand); }
    void addItem(QLayoutItem *teil) override { m_teile << teil; }
    [[nodiscard]] int count() const override { return int(m_teile.size()); }
    [[nodiscard]] QLayoutItem *itemAt(int stelle) const override { return m_teile.value(stelle); }
    QLayoutItem *takeAt(int stelle) override;
    [[nodiscard]] Qt::Orientations expandingDirections() const override { return {}; }
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int breite) const override { return legen({0, 0, breite, 0}, false); }
    void setGeometry(const QRect &flaeche) override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSize() const override;

private:
    int legen(const QRect &flaeche, bool setzen) const;

    Abstand m_abstand;
    QList<QLayoutItem *> m_teile;
};

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

    void pruefen() { versuchen(0); }
    [[nodiscard]] int stufe() const { return m_stufe; }
    bool eventFilter(QObject *empfaenger, QEvent *ereignis) override;

private:
    void versuchen(int ab);

    QWidget *m_traeger;
    int m_letzte;
    std::function<void(int)> m_anwenden;
    std::function<bool()> m_passt;
    int m_stufe = 0;
    QSize m_zuEng; ///< what the way before that needs more than
    Anlass m_anlass;
    bool m_dabei = false;
};
} // namespace quillmar::bedienteile
