#pragma once

#include "teile.h"

#include <QMainWindow>
#include <QPointer>
#include <QTimer>

namespace quillmar::ui
{
/** The program's window: top bar, four cards chosen by tabs, status line. */
class Hauptfenster : public QMainWindow
{
    Q_OBJECT

public:
    /** @p profil: name of the profile to open with, empty for the first. Both others outlive the window. */
    Hauptfenster(Zustand *zustand, Fenstersprache *sprache, const QString &profil = {}, QWidget *eltern = nullptr);
    ~Hauptfenster() override;
    /** Before all others, as far as the window manager allows. */
    void nachVorn();

protected:
    void showEvent(QShowEvent *ereignis) override;
    void closeEvent(QCloseEvent *ereignis) override;
    void keyPressEvent(QKeyEvent *ereignis) override;
    bool focusNextPrevChild(bool vor) override;

private:
    void aufbauen();
    void kartenBauen(QStackedWidget *karten);
    void kartenWechseln();
    void karteZeigen();
    void ersteKarteZeigen();
    void setzeTitel();
    void updateMelden();

    Zustand *m_zustand;
    Fenstersprache *m_sprache;
    QString m_profil;
    Aktualisierung *m_aktualisierung;
    QTimer m_takt;
    QPointer<QStackedWidget> m_karten;
    bool m_begonnen = false;
    bool m_gewaehlt = false; ///< the first card is on show
    bool m_schliesst = false;
};
} // namespace quillmar::ui
