#pragma once

#include "entwurf.h"
#include "seitenbelege.h"
#include "teile.h"
#include "vorschlagsteil.h"

#include <QList>
#include <QMap>
#include <optional>

namespace quillmar::pruefung
{
class Angebotsliste;
class Bekanntenliste;
class Feldnotiz;

/** The fields of the proposal. What is typed goes to the state object at every keystroke. */
class Angabenfeld : public QObject
{
    Q_OBJECT

public:
    Angabenfeld(Profilwahl *profilwahl, Pruefung *pruefung, Seitenbelege *belege, QWidget *eltern);
    /** Stands in @p raster of four columns from @p zeile on. Short of height, fields share rows. */
    void legen(QGridLayout *raster, int zeile, const Platz &platz);

    /** Help text of the field that has the focus, empty if none has. */
    [[nodiscard]] QString hilfeImFokus() const;
    [[nodiscard]] bool hatFokus() const;
    /** The field that has the focus and can take text from the page. */
    [[nodiscard]] std::optional<Feld> nehmendes() const;
    /** What was clicked on the page takes the place of the text in that field, as one step that it can undo. */
    void nehmen(const Wortgriff &griff);

Q_SIGNALS:
    /** The focus went into a field or left the fields. */
    void fokusGewechselt();
    /** A passage is looked at that a field may be set to; without one: no more. */
    void vorgemerkt(const std::optional<Seitenmarke> &marke);

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
    void angeboteBauen();
    void notizenZeigen();
    void ersetzen(Feld feld, const QString &wert);

    Profilwahl *m_profilwahl;
    Pruefung *m_pruefung;
    Seitenbelege *m_belege;
    Abschnittskopf m_kopf;
    Bekanntenliste *m_bekannte = nullptr;
    Textschild *m_tag;         ///< weekday of the date, or what is wrong with it
    QList<Eingabe> m_eingaben; ///< by Feld
    QMap<Feld, Angebotsliste *> m_angebote;
    QMap<Feld, Feldnotiz *> m_notizen;
};
} // namespace quillmar::pruefung
