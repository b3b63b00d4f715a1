#pragma once

#include "entwurf.h"
#include "namensraeume.h"
#include "pruefabschnitt.h"

#include <QMap>

class QComboBox;
class QLabel;
class QLineEdit;

namespace quillmar::zustand
{
class Profilwahl;
class Pruefung;
} // namespace quillmar::zustand

namespace quillmar::pruefung
{
/** The fields of the proposal. What is typed goes to the state object at every keystroke. */
class Angabenfeld : public Pruefabschnitt
{
    Q_OBJECT

public:
    Angabenfeld(Profilwahl *profilwahl, Pruefung *pruefung, QWidget *eltern = nullptr);

    /** Height that it needs at least when it is not short of height. */
    [[nodiscard]] int volleHoehe() const;

    /** Labels of all fields in the user's language, for a column that fits them all. */
    [[nodiscard]] static QStringList beschriftungen();
    /** Help text of the field that has the focus, empty if none has. */
    [[nodiscard]] QString hilfeImFokus() const;
    [[nodiscard]] bool hatFokus() const;

Q_SIGNALS:
    /** The focus went into a field or left the fields. */
    void fokusGewechselt();

protected:
    bool eventFilter(QObject *objekt, QEvent *ereignis) override;

private:
    void textfeldBauen(Feld feld, int zeichen);
    void wahlBauen(Feld feld);
    void einrichten(Feld feld, QWidget *eingabe);
    /** Short of height, branch and kind share a row, year and category too. */
    void anordnen() override;
    void paarAnordnen(Feld feld, int zeile, int spalte, int breite, Qt::Alignment ausrichtung = {});
    void masse();
    void zeigen();
    void textZeigen(Feld feld);
    void wahlenZeigen();
    void wahlZeigen(Feld feld, const QStringList &auswahl, const QString &wert);
    void tagZeigen();
    void erklaerungZeigen();
    void festhalten();

    Profilwahl *m_profilwahl;
    Pruefung *m_pruefung;
    QLabel *m_tag; ///< weekday of the date, or what is wrong with it
    QWidget *m_datumszeile = nullptr;
    QMap<Feld, QLabel *> m_schilder;
    QMap<Feld, QLineEdit *> m_texte;
    QMap<Feld, QComboBox *> m_wahlen;
    QMap<Feld, int> m_zeichen; ///< width of short fields in characters
};
} // namespace quillmar::pruefung
