#include "abschnitte.h"
#include "abschnittsseite.h"
#include "baustein.h"
#include "einrichtung.h"
#include "elidiertext.h"
#include "flachknopf.h"
#include "flussreihe.h"
#include "marktext.h"
#include "sprache.h"
#include "stil.h"
#include "umbruchtext.h"
#include "vorlagenmangel.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quillmar::einrichtung
{
using Stil::abstand;
using Stil::Schrift;

namespace
{
/** The name and the path template, with what they make of a document that waits. */
class Namen : public Abschnittsseite
{
public:
    Namen(Profilwahl *profilwahl, Einrichtung *einrichtung, QWidget *eltern)
        : Abschnittsseite(
              profilwahl, einrichtung, Abschnitt::Namen,
              Sprache::text(u"Wie die Dateien heißen und in welchen Ordner sie kommen. Ein Baustein wird an "
                            "der Schreibmarke eingesetzt."_s),
              eltern)
    {
        vorlage(u"namensVorlage"_s, &Profil::namensVorlage, Sprache::text(u"Dateiname"_s),
                Sprache::text(u"Bausteine in geschweiften Klammern werden je Dokument ersetzt. Leere Bausteine "
                              "verschwinden samt ihrer Trennzeichen."_s),
                {alleBausteine.begin(), alleBausteine.end()}, false);
        luecke();
        vorlage(u"pfadVorlage"_s, &Profil::pfadVorlage, Sprache::text(u"Ordner"_s),
                Sprache::text(u"Ordnerebenen durch Schrägstrich getrennt. Fehlt ein Baustein, fällt die Ebene weg."_s),
                {Baustein::Zweig, Baustein::Ablage, Baustein::Jahr, Baustein::Rubrik}, true);
        beispielBauen();
        abschliessen();
        folgen([this] { beispielZeigen(); });
    }

private:
    void vorlage(const QString &name, QString Profil::*feld, const QString &beschriftung, const QString &hilfe,
                 const QList<Baustein> &bausteine, bool istPfad)
    {
        QLineEdit *eingabe = textfeld(name, feld, {}, nullptr, {}, Rand::Bleibt);
        reihe(beschriftung, hilfe, eingabe);
        auto *bloecke = new QWidget(this);
        auto *fluss = new Flussreihe(Stil::Abstand::Eng);
        bloecke->setLayout(fluss);
        for (const Baustein baustein : bausteine)
            fluss->addWidget(blockknopf(name, baustein, eingabe, feld));
        darunter(bloecke);
        auto *erklaerung = marktext();
        erklaerung->erklaeren(hilfe);
        darunter(erklaerung);
        mangelzeile(name, eingabe, feld, istPfad);
    }

    QPushButton *blockknopf(const QString &name, Baustein baustein, QLineEdit *eingabe, QString Profil::*feld)
    {
        const QString wort = bausteinWort(baustein);
        QPushButton *knopf = this->knopf(name + u'-' + wort, bausteinAnzeige(baustein), bausteinErklaerung(baustein));
        knopf->setAccessibleName(bausteinAnzeige(baustein));
        connect(knopf, &QPushButton::clicked, this, [this, eingabe, feld, wort] {
            eingabe->insert(u'{' + wort + u'}');
            aendern([&](Profil &p) { p.*feld = eingabe->text(); });
            eingabe->setFocus();
        });
        Stil::folgen(knopf, [knopf] {
            knopf->setMinimumHeight(abstand(26));
            // The platform makes every button as wide as a word of ten letters.
            knopf->setFixedWidth(knopf->fontMetrics().horizontalAdvance(knopf->text()) + abstand(20));
        });
        return knopf;
    }

    void mangelzeile(const QString &name, QLineEdit *eingabe, QString Profil::*feld, bool istPfad)
    {
        Marktext *text = marktext();
        text->setObjectName(name + u"-stand"_s);
        Flachknopf *entfernen = flachknopf(name + u"-entfernen"_s, Sprache::text(u"Entfernen"_s),
                                           Sprache::text(u"Nimmt den Baustein aus der Vorlage."_s), Symbol::Minus);
        auto *zeile = new QWidget(this);
        auto *waagrecht = new QHBoxLayout(zeile);
        waagrecht->setContentsMargins(0, 0, 0, 0);
        waagrecht->addWidget(text, 1);
        waagrecht->addWidget(entfernen, 0, Qt::AlignTop);
        darunter(zeile);
        folgen([this, text, entfernen, feld, istPfad, zeile] {
            const QList<Vorlagenmangel> maengel = vorlagenmaengel(profil().*feld, istPfad);
            zeigen(*text, Befunde::vorlage(profil().*feld, istPfad));
            entfernen->setVisible(!maengel.isEmpty() && !maengel.first().block.isEmpty());
            zeile->setVisible(!maengel.isEmpty());
        });
        connect(entfernen, &QToolButton::clicked, this, [this, eingabe, feld, istPfad] {
            const QList<Vorlagenmangel> maengel = vorlagenmaengel(profil().*feld, istPfad);
            if (maengel.isEmpty())
                return;
            aendern([&](Profil &p) { p.*feld = ohneBlock(p.*feld, maengel.first().block); });
            eingabe->setText(profil().*feld);
            eingabe->setFocus();
        });
    }

    void beispielBauen()
    {
        m_erklaerung = marktext();
        titel(Sprache::text(u"Beispiel"_s), m_erklaerung);
        m_dokument = new Elidiertext(Qt::ElideMiddle, this);
        m_dokument->setObjectName(u"beispiel-dokument"_s);
        m_anderes = flachknopf(u"anderesBeispiel"_s, Sprache::text(u"Anderes Dokument"_s),
                               Sprache::text(u"Zeigt das Beispiel am nächsten wartenden Dokument"_s), Symbol::NeuLaden);
        connect(m_anderes, &QToolButton::clicked, einrichtung(), &Einrichtung::anderesBeispiel);
        auto *zeile = new QWidget(this);
        auto *waagrecht = new QHBoxLayout(zeile);
        waagrecht->setContentsMargins(0, 0, 0, 0);
        waagrecht->addWidget(m_dokument, 1);
        waagrecht->addWidget(m_anderes);
        reihe(Sprache::text(u"Dokument"_s), {}, m_dokument, zeile);
        m_name = ergebnis(u"beispiel-name"_s, Sprache::text(u"Neuer Name"_s));
        m_ort = ergebnis(u"beispiel-ort"_s, Sprache::text(u"Neuer Ort"_s));
        m_ohneTitel = ergebnis(u"beispiel-ohneTitel"_s, Sprache::text(u"Ohne Titel"_s));
        m_ohneRubrik = ergebnis(u"beispiel-ohneRubrik"_s, Sprache::text(u"Ohne Rubrik"_s));
        Stil::schriftFolgt(m_name, Schrift::Abschnitt);
        Stil::nebentext(m_ohneTitel);
        Stil::nebentext(m_ohneRubrik);
        Stil::folgen(m_ort, [this] { Stil::setzeTextfarbe(m_ort, Stil::verweis(palette())); });
    }

    Umbruchtext *ergebnis(const QString &name, const QString &beschriftung)
    {
        auto *text = new Umbruchtext(this);
        text->setObjectName(name);
        reihe(beschriftung, {}, text);
        return text;
    }

    void beispielZeigen()
    {
        const Beispiel b = einrichtung()->beispiel();
        zeigen(*m_erklaerung, Befunde::beispiel(b));
        m_anderes->setEnabled(b.echt);
        m_dokument->setzeText(b.dokument);
        m_name->setzeText(b.name);
        m_ort->setzeText(Befunde::ort(b.ort));
        m_ohneTitel->setzeText(b.ohneTitel);
        m_ohneRubrik->setzeText(Befunde::ort(b.ohneRubrik));
    }

    Marktext *m_erklaerung = nullptr;
    Elidiertext *m_dokument = nullptr;
    Flachknopf *m_anderes = nullptr;
    Umbruchtext *m_name = nullptr;
    Umbruchtext *m_ort = nullptr;
    Umbruchtext *m_ohneTitel = nullptr;
    Umbruchtext *m_ohneRubrik = nullptr;
};
} // namespace

Abschnittsseite *namenseite(Profilwahl *profilwahl, Einrichtung *einrichtung, QWidget *eltern)
{
    return new Namen(profilwahl, einrichtung, eltern);
}
} // namespace quillmar::einrichtung
