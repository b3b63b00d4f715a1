#pragma once

#include "namensraeume.h"

#include <QDeadlineTimer>
#include <QWidget>
#include <functional>

class QScrollArea;
class QStackedLayout;

namespace quillmar::zustand
{
class Zustand;
} // namespace quillmar::zustand

namespace quillmar::bedienteile
{
class Leeransicht;
class Teiler;
} // namespace quillmar::bedienteile

namespace quillmar::vorschau
{
class Vorschau;
} // namespace quillmar::vorschau

namespace quillmar::pruefung
{
class Aktionsfeld;
class Angabenfeld;
class Hinweisfach;
class Vorschlagsteil;

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
    bool eventFilter(QObject *objekt, QEvent *ereignis) override;

private:
    QWidget *vorschlagsseite();
    QWidget *leerseite();
    void tastenBauen();
    void verbinden();
    void taste(const QKeySequence &tasten, const std::function<void()> &tat, bool auchImFeld);
    void eingabe();
    void feldVerlassen();
    void dokumentZeigen();
    void vorschauZeigen();
    void gesehen(const QString &pfad);
    void vorausladen();
    void leereZeigen();
    [[nodiscard]] QString naechsterSchritt();
    void anordnen();
    int setzeTeile(bool schmal);
    void tastenZeigen();
    [[nodiscard]] bool imFeld() const;
    [[nodiscard]] bool ruht();

    Zustand *m_zustand;
    QStackedLayout *m_stapel;
    Teiler *m_teiler = nullptr;
    Vorschau *m_vorschau = nullptr;
    QScrollArea *m_rollen = nullptr;
    Vorschlagsteil *m_vorschlag = nullptr;
    Hinweisfach *m_hinweise = nullptr;
    Angabenfeld *m_angaben = nullptr;
    Aktionsfeld *m_aktionen = nullptr;
    Leeransicht *m_leere = nullptr;
    std::function<void()> m_leereTat; ///< of the button of the empty state
    bool m_dicht = false;
    QDeadlineTimer m_ruhe; ///< until then keys are the rest of a word that was typed
};
} // namespace quillmar::pruefung
