#pragma once

#include "befunde.h"
#include "namensraeume.h"
#include "profil.h"
#include "zeichen.h"

#include <QWidget>
#include <functional>

class QBoxLayout;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace quillmar::zustand
{
class Einrichtung;
class Profilwahl;
} // namespace quillmar::zustand

namespace quillmar::bedienteile
{
class Flachknopf;
class Marktext;
} // namespace quillmar::bedienteile

namespace quillmar::einrichtung
{
/** One section of the setup card: title, explanation, and rows of a label and what belongs to it. */
class Abschnittsseite : public QWidget
{
    Q_OBJECT

public:
    enum class Rand {
        Weg,
        Pfad,
        Bleibt
    }; ///< blanks at the ends of what is typed; in a path "~" is spelled out as well

    /** Widest label, and the width that the column of labels has in all sections. */
    [[nodiscard]] int beschriftungsbreite() const;
    void setzeBeschriftungsbreite(int breite);
    /** With little room for the font, labels stand above what they name and explanations below it. */
    void setzeEng(bool eng);

protected:
    Abschnittsseite(Profilwahl *profilwahl, Einrichtung *einrichtung, Abschnitt abschnitt, const QString &erklaerung,
                    QWidget *eltern);

    [[nodiscard]] Profilwahl *profilwahl() const { return m_profilwahl; }
    [[nodiscard]] Einrichtung *einrichtung() const { return m_einrichtung; }
    [[nodiscard]] const Profil &profil() const;
    /** Changes the active profile; it is saved with that. */
    void aendern(const std::function<void(Profil &)> &aenderung) const;
    /** Calls @p zeigen now and whenever the profile, or what is known about it, changes. */
    void folgen(const std::function<void()> &zeigen);

    /** A further title inside the section. @p rechts stands at the end of its line. */
    void titel(const QString &text, Marktext *erklaerung = nullptr, QWidget *rechts = nullptr);
    /** A row; @p eingabe gets name, help and label, @p teil is what is laid out (by default the same). */
    void reihe(const QString &beschriftung, const QString &hilfe, QWidget *eingabe, QWidget *teil = nullptr);
    /** A row below, without a label. */
    void darunter(QWidget *teil);
    void ueberAlles(QWidget *teil, int streckung = 0);
    /** Gives a part laid over the whole width another share of the height that is left over. */
    void strecken(QWidget *teil, int streckung);
    void abschliessen();

    [[nodiscard]] Marktext *marktext();
    /** A line edit whose text is the profile's @p feld; @p mangel says what is wrong with a text that is not stored. */
    QLineEdit *textfeld(const QString &name, QString Profil::*feld,
                        const std::function<QString(const QString &)> &mangel = {}, Marktext *beschwerde = nullptr,
                        const QString &hilfe = {}, Rand rand = Rand::Weg);
    /** A line edit for a folder, and the row with its button "Wählen …". */
    QLineEdit *ordnerfeld(const QString &name, QString Profil::*feld, const QString &frage, QWidget **teil);
    QPushButton *knopf(const QString &name, const QString &text, const QString &hilfe = {},
                       Symbol symbol = Symbol::Keines);
    Flachknopf *flachknopf(const QString &name, const QString &text, const QString &hilfe, Symbol symbol);
    /** A little more room before the next row. */
    void luecke();
    /** A field of @p zeichen characters and what stands beside it. */
    QWidget *daneben(QWidget *feld, int zeichen, QWidget *text);
    /** What stands side by side in @p reihe goes below each other where there is little room. */
    void kippen(QBoxLayout *reihe) { m_kippende << reihe; }

private:
    struct Reihe {
        QLabel *schild; ///< null for a row without
        QWidget *teil;
        QWidget *text; ///< the part itself where it is text alone
        int zeile;     ///< of the label where it stands above; the part is in the next one
    };
    void legen(const Reihe &reihe);
    void ausrichten(const Reihe &reihe) const;

    Profilwahl *m_profilwahl;
    Einrichtung *m_einrichtung;
    QGridLayout *m_raster;
    QList<Reihe> m_reihen;
    QList<QBoxLayout *> m_kippende;
    int m_zeile = 0;
    int m_breite = 0;
    bool m_eng = false;
};

/** A word that stands inside sentences too, and so begins small in some languages. */
[[nodiscard]] QString alsBeschriftung(const QString &text);

[[nodiscard]] Symbol symbol(Befund::Marke marke);
/** Says @p befund; a help text in its place where it says nothing. */
void zeigen(Marktext &text, const Befund &befund, const QString &hilfe = {});

/** Distance of the content from the pane's edge, the same as below it. */
[[nodiscard]] int abschnittsrand();

/** Height and text margin of a field, as they are in all cards; follows the font. */
void feldmass(QWidget *feld);
} // namespace quillmar::einrichtung
