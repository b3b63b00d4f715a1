#include "abschnitte.h"
#include "abschnittsseite.h"
#include "einrichtung.h"
#include "marktext.h"
#include "sprache.h"
#include "stil.h"

#include <QLineEdit>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace quillmar::einrichtung
{
using Stil::abstand;

namespace
{
constexpr int listenzeilen = 3;
constexpr int rubrikzeichen = 26;

/** Lines without the empty ones. */
QStringList zeilen(const QString &text)
{
    QStringList liste;
    for (const QString &zeile : text.split(u'\n', Qt::SkipEmptyParts)) {
        if (const QString sauber = zeile.trimmed(); !sauber.isEmpty())
            liste << sauber;
    }
    return liste;
}

/** For whom the documents are filed, so that the other side is told from the own one. */
class Eigentuemer : public Abschnittsseite
{
public:
    Eigentuemer(Profilwahl *profilwahl, Einrichtung *einrichtung, QWidget *eltern)
        : Abschnittsseite(
              profilwahl, einrichtung, Abschnitt::Eigentuemer,
              Sprache::text(u"Wer du bist. Daran erkennt das Programm bei jedem Schreiben die andere Seite."_s), eltern)
    {
        QLineEdit *wer = textfeld(u"eigentuemer"_s, &Profil::eigentuemer);
        wer->setPlaceholderText(Sprache::text(u"etwa Familie Brandt, Meißen"_s));
        Stil::platzhalterFolgt(wer);
        reihe(Sprache::text(u"Eigentümer"_s), Sprache::text(u"Beschreibung in freien Worten."_s), wer);
        erklaeren(Sprache::text(u"In freien Worten. Steht in der Anweisung an das Modell."_s));
        liste(u"eigeneNamen"_s, &Profil::eigeneNamen, Sprache::text(u"Eigene Namen"_s),
              Sprache::text(u"Einer je Zeile, auch Firma und Schreibweisen. Diese Namen werden nie als Gegenüber "
                            "vorgeschlagen."_s));
        liste(u"eigeneAnschriften"_s, &Profil::eigeneAnschriften, Sprache::text(u"Eigene Anschriften"_s),
              Sprache::text(u"Eine je Zeile, Teile durch Komma getrennt, etwa Burgstraße 1, 01662 Meißen. Steht sie im "
                            "Anschriftenfeld, ist die Rechnung an dich gerichtet."_s));
        auto *erklaerung = marktext();
        erklaerung->erklaeren(
            Sprache::text(u"Rechnungen von dir und an dich kommen in diese Rubriken, auch wenn deine Struktur sie noch "
                          "nicht hat. Beim Prüfen ist das am Feld zu sehen."_s));
        titel(Sprache::text(u"Rechnungen"_s), erklaerung);
        rubrik(u"rubrikAusgang"_s, &Profil::rubrikAusgang, Sprache::text(u"Rubrik für ausgehende"_s),
               Sprache::text(u"Für Rechnungen, die du geschrieben hast."_s));
        rubrik(u"rubrikEingang"_s, &Profil::rubrikEingang, Sprache::text(u"Rubrik für eingehende"_s),
               Sprache::text(u"Für Rechnungen, die du bekommen hast."_s));
        abschliessen();
    }

private:
    void erklaeren(const QString &text)
    {
        Marktext *schild = marktext();
        schild->erklaeren(text);
        darunter(schild);
    }

    void liste(const QString &name, QStringList Profil::*feld, const QString &beschriftung, const QString &hilfe)
    {
        auto *eingabe = new QPlainTextEdit(this);
        eingabe->setObjectName(name);
        eingabe->setTabChangesFocus(true);
        Stil::folgen(eingabe, [eingabe] {
            eingabe->setFixedHeight(listenzeilen * eingabe->fontMetrics().lineSpacing() + abstand(14));
        });
        reihe(beschriftung, hilfe, eingabe);
        erklaeren(hilfe);
        folgen([this, eingabe, feld] {
            if (!eingabe->hasFocus() && zeilen(eingabe->toPlainText()) != profil().*feld)
                eingabe->setPlainText((profil().*feld).join(u'\n'));
        });
        connect(eingabe, &QPlainTextEdit::textChanged, this, [this, eingabe, feld] {
            if (eingabe->hasFocus())
                aendern([&](Profil &p) { p.*feld = zeilen(eingabe->toPlainText()); });
        });
    }

    void rubrik(const QString &name, QString Profil::*feld, const QString &beschriftung, const QString &hilfe)
    {
        QLineEdit *eingabe = textfeld(name, feld);
        Marktext *text = marktext();
        text->setObjectName(name + u"-stand"_s);
        reihe(beschriftung, hilfe, eingabe, daneben(eingabe, rubrikzeichen, text));
        folgen([this, text, feld, hilfe] {
            zeigen(*text, Befunde::rubrik(einrichtung()->lage(), profil().*feld), hilfe);
        });
    }
};
} // namespace

Abschnittsseite *eigentuemerseite(Profilwahl *profilwahl, Einrichtung *einrichtung, QWidget *eltern)
{
    return new Eigentuemer(profilwahl, einrichtung, eltern);
}
} // namespace quillmar::einrichtung
