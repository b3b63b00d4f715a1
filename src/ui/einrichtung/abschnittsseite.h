#pragma once

#include "abschnitte.h"
#include "bau.h"
#include "namensraeume.h"

#include <QWidget>

class QFormLayout;

namespace quillmar::einrichtung
{
/** One section of the setup card, built from its rows: it shows the active profile and what is known of it. */
class Abschnittsseite : public QWidget
{
    Q_OBJECT

public:
    Abschnittsseite(Zustand *zustand, Abschnitt abschnitt, const QList<Abschnittszeile> &zeilen, QWidget *eltern);

    /** Widest label, and the width that the column of labels has in all sections. */
    [[nodiscard]] int beschriftungsbreite() const;
    /** With little room for the font (@p eng) labels stand above what they name and explanations below it. */
    void anordnen(bool eng, int beschriftungsbreite);

    // For what only one section has
    [[nodiscard]] Zustand *zustand() const { return m_zustand; }
    [[nodiscard]] const Profil &profil() const;
    /** Changes the active profile; it is saved with that. */
    void aendern(const std::function<void(Profil &)> &aenderung) const;
    /** Calls @p zeigen whenever what is known changes while the section is shown, and when it comes up. */
    void folgen(const std::function<void(const Einrichtungslage &)> &zeigen);
    /** What is being typed in @p feld stays; what was typed for another profile does not. */
    [[nodiscard]] bool tippt(const QWidget *feld) const;
    void auffrischen();
    void zeile(const Abschnittszeile &zeile);
    void zeile(const Abschnittszeile &zeile, const Teile &teile);
    void ueberAlles(QWidget *teil);
    QAbstractButton *knopf(const Zeilenknopf &vorgabe);

protected:
    void showEvent(QShowEvent *ereignis) override;

private:
    Teile bauen(const Abschnittszeile &zeile, std::monostate);
    Teile bauen(const Abschnittszeile &zeile, Feld::Titel);
    Teile bauen(const Abschnittszeile &zeile, const Feld::Text &art);
    Teile bauen(const Abschnittszeile &zeile, const Feld::Ordner &art);
    Teile bauen(const Abschnittszeile &zeile, const Feld::Vorlage &art);
    Teile bauen(const Abschnittszeile &zeile, const Feld::Zeilen &art);
    Teile bauen(const Abschnittszeile &zeile, const Feld::Kaestchen &art);
    Teile bauen(const Abschnittszeile &zeile, const Feld::Paar &art);
    Teile bauen(const Abschnittszeile &zeile, const Feld::Zahl &art);
    Teile bauen(const Abschnittszeile &zeile, const Feld::Wahl &art);
    Teile bauen(const Abschnittszeile &zeile, const Feld::Modell &art);
    Teile bauen(const Abschnittszeile &zeile, const Feld::Eigenes &art) { return art.bauen(*this, zeile); }

    QLineEdit *textfeld(QString Profil::*feld,
                        const std::function<std::optional<QString>(const QString &)> &gespeichert);
    QAbstractButton *ladeknopf(const Abschnittszeile &zeile, QString Profil::*feld, const QComboBox *wahl);
    Textschild *befundtext(const Abschnittszeile &zeile, const Befundregel &befund);
    void anfuegen(QLabel *beschriftung, const Teil &teil);
    void benennen(const Abschnittszeile &zeile, QWidget *feld);

    Zustand *m_zustand;
    QFormLayout *m_form;
    QList<QLabel *> m_schilder;
    QList<std::function<void(const Einrichtungslage &)>> m_folgende;
    bool m_gewechselt = false; ///< another profile is being shown
};

/** The sign of @p marke. */
[[nodiscard]] Symbol symbol(Befund::Marke marke);
} // namespace quillmar::einrichtung
