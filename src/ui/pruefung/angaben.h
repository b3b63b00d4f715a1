#pragma once

#include "entwurf.h"

#include <QMap>
#include <QWidget>

class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class Zustand;

/** The fields of the proposal. What is typed goes to the state object at every keystroke. */
class Angaben : public QWidget
{
    Q_OBJECT

public:
    explicit Angaben(Zustand *zustand, QWidget *eltern = nullptr);

    /** Short of height: no explanation, branch and kind share a row, year and category too. */
    void setzeDicht(bool dicht, bool schmal);
    /** Width of the column of labels. */
    void setzeBeschriftungsbreite(int breite);
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
    void anordnen();
    void paarAnordnen(Feld feld, int zeile, int spalte, int breite, Qt::Alignment ausrichtung = {});
    void masse();
    void zeigen();
    void textZeigen(Feld feld);
    void wahlenZeigen();
    void wahlZeigen(Feld feld, const QStringList &auswahl, const QString &wert);
    void tagZeigen();
    void erklaerungZeigen();
    void festhalten();

    Zustand *m_zustand;
    QWidget *m_kopf;
    QLabel *m_titel;
    QLabel *m_erklaerung;
    QLabel *m_tag; ///< weekday of the date, or what is wrong with it
    QWidget *m_datumszeile = nullptr;
    QGridLayout *m_raster;
    QMap<Feld, QLabel *> m_schilder;
    QMap<Feld, QLineEdit *> m_texte;
    QMap<Feld, QComboBox *> m_wahlen;
    QMap<Feld, int> m_zeichen; ///< width of short fields in characters
    bool m_dicht = false;
    bool m_schmal = false; ///< nothing stands side by side
};
