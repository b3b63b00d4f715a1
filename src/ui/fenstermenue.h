#pragma once

#include <QMenu>
#include <QPointer>

class Fenstersprache;
class Handbuchfenster;

/** The menu at the right end of the top bar. */
class Fenstermenue : public QMenu
{
    Q_OBJECT

public:
    Fenstermenue(Fenstersprache *sprache, QWidget *eltern);

Q_SIGNALS:
    void infoGewuenscht();

private:
    void handbuchBauen(QWidget *fenster);
    void schriftBauen();
    void punkteBauen(QMenu *schrift);
    void sprachenBauen();
    void sprachenZeigen();

    Fenstersprache *m_sprache;
    QMenu *m_sprachen = nullptr;
    QPointer<Handbuchfenster> m_handbuch;
};
