#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

/** What stands where nothing is: a sign, a title, a line that says what is missing, and at most one next step. */
class Leeransicht : public QWidget
{
    Q_OBJECT

public:
    explicit Leeransicht(QWidget *eltern = nullptr);

    /** @p symbol as in Zeichen, one of those that begin with "large."; without @p knopf there is no button. */
    void setzen(const QString &symbol, const QString &titel, const QString &zeile, const QString &knopf = {});
    [[nodiscard]] QPushButton *knopf() const { return m_knopf; }

Q_SIGNALS:
    void gedrueckt();

private:
    class Bild;
    Bild *m_bild;
    QLabel *m_titel;
    QLabel *m_zeile;
    QPushButton *m_knopf;
};
