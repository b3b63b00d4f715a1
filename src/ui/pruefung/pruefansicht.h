#pragma once

#include "teile.h"
#include "vorschlagsteil.h"

#include <QDeadlineTimer>
#include <QWidget>
#include <functional>

namespace quillmar::vorschau
{
class Vorschau;
} // namespace quillmar::vorschau

namespace quillmar::pruefung
{
class Aktionsfeld;
class Angabenfeld;
class Fundzeiger;
class Hinweisfach;

/** The review card: the page on the left, the proposal on the right, one document after the other by the keyboard. */
class PruefAnsicht : public QWidget
{
    Q_OBJECT

public:
    explicit PruefAnsicht(Zustand *zustand, QWidget *eltern = nullptr);

    [[nodiscard]] Vorschau *vorschau() const { return m_vorschau; }
    /** Keys are taken, and not for the rest of a word that was typed for another document. */
    [[nodiscard]] bool nimmtTasten() const { return m_ruhe.hasExpired(); }

protected:
    void focusInEvent(QFocusEvent *ereignis) override;
    void keyPressEvent(QKeyEvent *ereignis) override;

private:
    QWidget *vorschlagsseite();
    void tastenBauen();
    void verbinden();
    void taste(const QKeySequence &tasten, const std::function<void()> &tat, bool auchImFeld = false);
    void eingabe();
    void feldVerlassen();
    void dokumentZeigen();
    void vorschauZeigen();
    void gesehen(const QString &pfad);
    void vorausladen();
    void leereZeigen();
    void legen(const Platz &platz);
    [[nodiscard]] bool passt(const QWidget &seite) const;
    void tastenZeigen();
    [[nodiscard]] bool imFeld() const;
    [[nodiscard]] bool ruht();

    Zustand *m_zustand;
    QStackedLayout *m_stapel;
    Vorschau *m_vorschau;
    QGridLayout *m_raster = nullptr;
    QScrollArea *m_rollen = nullptr;
    Vorschlagsteil *m_vorschlag = nullptr;
    Hinweisfach *m_hinweise = nullptr;
    Angabenfeld *m_angaben = nullptr;
    Aktionsfeld *m_aktionen = nullptr;
    Fundzeiger *m_zeiger = nullptr;
    Nachgeben *m_platz = nullptr;
    Platz m_lage;
    Teiler *m_teiler;
    Leeransicht *m_leere;
    QDeadlineTimer m_ruhe; ///< until then keys are the rest of a word that was typed
};
} // namespace quillmar::pruefung
