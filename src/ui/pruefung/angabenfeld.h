#pragma once

#include "entwurf.h"
#include "teile.h"
#include "vorschlagsteil.h"

#include <QList>

namespace quillmar::pruefung
{
class Bekanntenliste;

/** The fields of the proposal. What is typed goes to the state object at every keystroke. */
class Angabenfeld : public QObject
{
    Q_OBJECT

public:
    Angabenfeld(Profilwahl *profilwahl, Pruefung *pruefung, QWidget *eltern);
    /** Stands in @p raster of four columns from @p zeile on. Short of height, fields share rows. */
    void legen(QGridLayout *raster, int zeile, const Platz &platz);

    /** Help text of the field that has the focus, empty if none has. */
    [[nodiscard]] QString hilfeImFokus() const;
    [[nodiscard]] bool hatFokus() const;

Q_SIGNALS:
    /** The focus went into a field or left the fields. */
    void fokusGewechselt();

protected:
    bool eventFilter(QObject *objekt, QEvent *ereignis) override;

private:
    /** One field; it is a line edit or a choice. */
    struct Eingabe {
        QLabel *schild = nullptr;
        QLineEdit *text = nullptr;
        QComboBox *wahl = nullptr;
        QWidget *teil = nullptr; ///< what is laid out

        [[nodiscard]] QWidget *feld() const;
    };
    Eingabe eingabeBauen(Feld feld, QWidget *eltern);
    void zeigen();
    void wahlenZeigen();
    void wahlZeigen(Feld feld, const QStringList &auswahl, const QString &wert);
    void tagZeigen();
    void erklaerungZeigen();
    void festhalten();

    Profilwahl *m_profilwahl;
    Pruefung *m_pruefung;
    Abschnittskopf m_kopf;
    Bekanntenliste *m_bekannte = nullptr;
    Textschild *m_tag;         ///< weekday of the date, or what is wrong with it
    QList<Eingabe> m_eingaben; ///< by Feld
};
} // namespace quillmar::pruefung
