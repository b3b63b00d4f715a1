#include "abschnitte.h"
#include "abschnittsseite.h"
#include "einrichtung.h"
#include "fenstersprache.h"
#include "marktext.h"
#include "schriftgroesse.h"
#include "sprache.h"
#include "stil.h"

#include <QComboBox>
#include <QDesktopServices>
#include <QHBoxLayout>
#include <QPushButton>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace quillmar::einrichtung
{
namespace
{
constexpr int sprachzeichen = 22;

/** Language and font size of the window. */
class Oberflaeche : public Abschnittsseite
{
public:
    Oberflaeche(Profilwahl *profilwahl, Einrichtung *einrichtung, Fenstersprache *sprache, QWidget *eltern)
        : Abschnittsseite(profilwahl, einrichtung, Abschnitt::Oberflaeche,
                          Sprache::text(u"Gilt für das ganze Fenster und alle Profile, sofort und ohne Neustart."_s),
                          eltern),
          m_sprache(sprache)
    {
        spracheBauen();
        schriftBauen();
        ordnerBauen();
        abschliessen();
    }

private:
    void spracheBauen()
    {
        auto *wahl = new Auswahl(
            [sprache = m_sprache](QComboBox *auswahl) {
                wahlAuffrischen(auswahl, Fenstersprache::auswahl(), sprache->kennung());
            },
            this);
        wahl->setObjectName(u"sprache"_s);
        // Later: the choice goes down with the window's whole content.
        connect(wahl, &QComboBox::activated, m_sprache, [sprache = m_sprache, wahl](int stelle) {
            const QString kennung = wahl->itemData(stelle).toString();
            QMetaObject::invokeMethod(
                sprache, [sprache, kennung] { sprache->waehlen(kennung); }, Qt::QueuedConnection);
        });
        auto *text = marktext();
        text->erklaeren(Sprache::text(u"Auch Dateidialoge, Zahlen und Daten richten sich danach."_s));
        reihe(Sprache::text(u"Sprache"_s), Sprache::text(u"Sprache des Fensters."_s), wahl,
              daneben(wahl, sprachzeichen, text));
    }

    void schriftBauen()
    {
        auto *groesse = new QComboBox(this);
        groesse->setObjectName(u"schriftgroesse-wahl"_s);
        connect(groesse, &QComboBox::activated, this,
                [groesse] { schriftgroesseWaehlen(groesse->currentData().toDouble()); });
        Stil::folgen(groesse, [groesse] { wahlAuffrischen(groesse, schriftgroessen(), naechsteSchriftgroesse()); });
        auto *text = marktext();
        text->erklaeren(Sprache::text(u"Überall auch mit Strg und Plus oder Minus."_s));
        reihe(Sprache::text(u"Schriftgröße"_s), Sprache::text(u"Grundgröße der Schrift in Punkt."_s), groesse,
              daneben(groesse, sprachzeichen, text));
    }

    void ordnerBauen()
    {
        auto *erklaerung = marktext();
        erklaerung->erklaeren(Sprache::text(
            u"Im Ordner liegt die Vorlage _Vorlage.json mit allen Texten des Programms. Übersetze sie und "
            "speichere sie unter einem anderen Namen, etwa fr.json: Dann steht die Sprache oben zur "
            "Wahl."_s));
        titel(Sprache::text(u"Eigene Sprachen"_s), erklaerung);
        QPushButton *oeffnen = knopf(u"eigeneSprachen"_s, Sprache::text(u"Ordner für eigene Sprachen öffnen"_s),
                                     Sprache::text(u"Öffnet den Ordner in der Dateiverwaltung"_s), Symbol::Ordner);
        auto *zeile = new QWidget(this);
        auto *waagrecht = new QHBoxLayout(zeile);
        waagrecht->setContentsMargins(0, 0, 0, 0);
        waagrecht->addWidget(oeffnen);
        waagrecht->addStretch(1);
        darunter(zeile);
        connect(oeffnen, &QPushButton::clicked, einrichtung(), &Einrichtung::spracheVorbereiten);
        connect(einrichtung(), &Einrichtung::spracheVorbereitet, this,
                [](const QString &ordner) { QDesktopServices::openUrl(QUrl::fromLocalFile(ordner)); });
    }

    Fenstersprache *m_sprache;
};
} // namespace

Abschnittsseite *oberflaechenseite(Profilwahl *profilwahl, Einrichtung *einrichtung, Fenstersprache *sprache,
                                   QWidget *eltern)
{
    return new Oberflaeche(profilwahl, einrichtung, sprache, eltern);
}
} // namespace quillmar::einrichtung
