#pragma once

#include "auswahl.h"
#include "baustein.h"
#include "befunde.h"
#include "namensraeume.h"
#include "profil.h"
#include "teile.h"
#include "zeichen.h"

#include <variant>

class QLayout;

namespace quillmar::einrichtung
{
class Abschnittsseite;
struct Abschnittszeile;

using Befundregel = std::function<Befund(const Einrichtungslage &)>;

/** What a row is laid out from. */
struct Teile {
    QWidget *feld = nullptr;          ///< has the row's name, help and label; null: the row has been laid out already
    QLayout *ganz = nullptr;          ///< is laid out in its place
    QLayout *darunter = nullptr;      ///< below it
    QAbstractButton *knopf = nullptr; ///< at the end of what is said
    Befundregel befund = {};          ///< in place of the row's
};

/** The kinds of fields, each with the member of the profile that it shows and changes. */
namespace Feld
{
struct Titel {
}; ///< of a part of the section, with an explanation
struct Text {
    QString Profil::*feld;
    QString (*mangel)(const QString &) = nullptr; ///< why what is typed is not stored; empty if it is
    QString platzhalter = {};
};
struct Ordner { ///< a folder, with a button that asks @p frage
    QString Profil::*feld;
    QString frage;
};
struct Vorlage { ///< a template with its blocks
    QString Profil::*feld;
    bool istPfad;
    QList<Baustein> bausteine;
};
struct Zeilen { ///< one to a line
    QStringList Profil::*feld;
};
struct Kaestchen {
    bool Profil::*feld;
};
struct Paar { ///< one of two, @p ja if the member is true
    struct Seite {
        QString name; ///< behind that of the row
        QString text;
        QString hilfe;
    };
    bool Profil::*feld;
    Seite nein;
    Seite ja;
};
struct Zahl { ///< from 1 to @p groesste
    int Profil::*feld;
    int groesste;
    int schritt = 1;
};
struct Wahl {
    QString Profil::*feld;
    std::function<QList<Wahleintrag>(const Einrichtungslage &)> eintraege;
};
struct Modell { ///< one that the server has, or any name; with a button that has the server fetch it
    QString Profil::*feld;
    Befund (*befund)(const Einrichtungslage &, const QString &eingabe);
};
struct Eigenes { ///< what only one section has
    std::function<Teile(Abschnittsseite &, const Abschnittszeile &)> bauen;
};
using Art =
    std::variant<std::monostate, Titel, Text, Ordner, Vorlage, Zeilen, Kaestchen, Paar, Zahl, Wahl, Modell, Eigenes>;
} // namespace Feld

/** A button at the end of a row. */
struct Zeilenknopf {
    QString name = {}; ///< empty: none
    QString text = {};
    QString hilfe = {};
    std::function<void()> tun = {};
    Symbol symbol = Symbol::NeuLaden;
    bool flach = true;
    std::function<bool(const Einrichtungslage &)> geht = {}; ///< can be pressed; empty: always
    std::function<bool(const Einrichtungslage &)> da = {};   ///< is shown; empty: always
    QString gesprochen = {};                                 ///< for who does not see where it stands; empty: its text
};

/**
 * One row of a section. What is found stands beside a field that has a width and below any other; where nothing is
 * found the explanation stands there, or the help of a field that has a width or several lines.
 */
struct Abschnittszeile {
    QString name = {};   ///< object name of the field; with "-stand" that of what is said
    Feld::Art feld = {}; ///< std::monostate: what is found and a button, without a field
    QString beschriftung = {};
    QString hilfe = {};
    int zeichen = 0; ///< width of the field; 0: what there is
    Befundregel befund = {};
    QString erklaerung = {};
    std::function<bool(const Profil &)> gilt = {}; ///< the field can be changed; empty: always
    Zeilenknopf knopf = {};
};

/** The rows of a section of the setup card, from the top down. A new setting is one row here. */
[[nodiscard]] QList<Abschnittszeile> abschnittszeilen(Abschnitt abschnitt, Zustand *zustand, Fenstersprache *sprache);

// What only one section has.
/** The exclusions with a field for a new one; the files that they leave out. */
[[nodiscard]] Teile ausnahmen(Abschnittsseite &seite, const Abschnittszeile &zeile);
[[nodiscard]] Teile ausgelassene(Abschnittsseite &seite, const Abschnittszeile &zeile);
/** The filing tree with what is new or gone. */
[[nodiscard]] Teile strukturbaum(Abschnittsseite &seite, const Abschnittszeile &zeile);
/** The copies of the catalogue, one of which may take its place. */
[[nodiscard]] Teile sicherungen(Abschnittsseite &seite, const Abschnittszeile &zeile);
/** Learning from the filing tree. */
[[nodiscard]] Teile ausAblage(Abschnittsseite &seite, const Abschnittszeile &zeile);
/** What was learned, in two lists, and how it is forgotten. */
[[nodiscard]] Teile gelerntes(Abschnittsseite &seite, const Abschnittszeile &zeile);
} // namespace quillmar::einrichtung
