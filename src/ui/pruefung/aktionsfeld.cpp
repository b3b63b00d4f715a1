#include "aktionsfeld.h"

#include "anordnung.h"
#include "ausfuehrung.h"
#include "bau.h"
#include "meldungszeile.h"
#include "profilwahl.h"
#include "sprache.h"
#include "textschild.h"

#include <QPushButton>
#include <QToolButton>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::pruefung
{
Aktionsfeld::Aktionsfeld(Profilwahl *profilwahl, Pruefung *pruefung, Ausfuehrung *ausfuehrung, Meldestelle *meldestelle,
                         QWidget *eltern)
    : QWidget(eltern), m_profilwahl(profilwahl), m_ausfuehrung(ausfuehrung),
      m_uebernehmen(hauptknopf(u"uebernehmen"_s)),
      m_zuruecklegen(flachknopf(u"zuruecklegen"_s, Symbol::Spaeter, Sprache::text(u"Zurückstellen"_s),
                                Sprache::text(u"Überspringt dieses Dokument, ohne etwas zu verändern. Es kommt am "
                                              "Ende wieder. Taste: Z"_s))),
      m_aussortieren(flachknopf(u"aussortieren"_s, Symbol::Dublette, Sprache::text(u"Dublette"_s), {})),
      m_vorheriges(flachknopf(u"vorheriges"_s, Symbol::PfeilLinks, Sprache::text(u"Vorheriges"_s),
                              Sprache::text(u"Ein Dokument zurück, ohne etwas zu verändern. Taste: Pfeil links"_s),
                              false)),
      m_naechstes(flachknopf(u"naechstes"_s, Symbol::PfeilRechts, Sprache::text(u"Nächstes"_s),
                             Sprache::text(u"Ein Dokument weiter, ohne etwas zu verändern. Taste: Pfeil rechts"_s),
                             false)),
      m_tasten(new Textschild(Textschild::Art::KurzEnde, Schrift::Neben, u"tasten"_s)),
      m_meldung(new Meldungszeile(meldestelle, pruefung, ausfuehrung))
{
    for (QToolButton *knopf : {m_zuruecklegen, m_aussortieren, m_vorheriges, m_naechstes})
        setzeKnopfart(knopf, Knopfart::Hoch);
    Kette *flache = reihe({m_zuruecklegen, m_aussortieren, Teil::rest(), m_vorheriges, m_naechstes}, Abstand::Eng);
    Kette *tun = reihe({m_uebernehmen, {flache, 1}}, Abstand::Eng);
    auto *knoepfe = traeger(tun);
    fuellen(this, spalte({knoepfe, m_tasten, m_meldung}, Abstand::Eng), Abstand::Rand, Abstand::Nah);
    // Narrower than their row, the flat buttons drop their words, then they go below the other one.
    const auto anordnen = [this, tun, flache](int stufe) {
        tun->setDirection(stufe < 2 ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
        for (Kette *kette : {tun, flache})
            kette->setzeAbstand(stufe == 0 ? Abstand::Eng : Abstand::Keiner);
        for (QToolButton *knopf : {m_zuruecklegen, m_aussortieren})
            bedienteile::setzeMitText(knopf, stufe == 0);
        m_meldung->setzeMitText(stufe == 0);
    };
    new Nachgeben(knoepfe, 2, anordnen, [knoepfe, tun] {
        return tun->sizeHint().width() <= knoepfe->width() + Stil::mass(24); // the large one has room to spare
    });
    verbinden();
    zeigen();
    setzeTasten(false, {});
}

void Aktionsfeld::verbinden()
{
    constexpr auto zeichendauer = 2s;
    connect(m_uebernehmen, &QPushButton::clicked, m_ausfuehrung, &Ausfuehrung::uebernehmen);
    connect(m_zuruecklegen, &QToolButton::clicked, m_ausfuehrung, &Ausfuehrung::zuruecklegen);
    connect(m_aussortieren, &QToolButton::clicked, m_ausfuehrung, &Ausfuehrung::aussortieren);
    connect(m_vorheriges, &QToolButton::clicked, this, [this] { m_ausfuehrung->weiter(Richtung::Zurueck); });
    connect(m_naechstes, &QToolButton::clicked, this, [this] { m_ausfuehrung->weiter(Richtung::Weiter); });
    connect(m_ausfuehrung, &Ausfuehrung::zuFruehGedrueckt, this, [this] {
        m_zuFrueh.start();
        tastenZeigen();
    });
    connect(&m_zuFrueh, &QTimer::timeout, this, &Aktionsfeld::tastenZeigen);
    m_zuFrueh.setSingleShot(true);
    m_zuFrueh.setInterval(zeichendauer);
    for (const auto signal : {&Profilwahl::profileGeaendert, &Profilwahl::aktivGeaendert})
        connect(m_profilwahl, signal, this, &Aktionsfeld::zeigen);
}

void Aktionsfeld::zeigen()
{
    const bool kopieren = m_profilwahl->aktiv() && m_profilwahl->aktiv()->kopieren;
    benennen(m_uebernehmen,
             kopieren ? Sprache::text(u"Übernehmen und kopieren"_s) : Sprache::text(u"Übernehmen und weiter"_s),
             kopieren ? Sprache::text(u"Legt eine Kopie am Zielort an. Das Original bleibt liegen. Taste: Eingabe"_s)
                      : Sprache::text(u"Benennt um und verschiebt an den Zielort. Taste: Eingabe"_s));
    benennen(m_aussortieren, Sprache::text(u"Dublette"_s),
             kopieren
                 ? Sprache::text(u"Behandelt das Dokument als Doppelstück und kopiert es nicht mit. Taste: D"_s)
                 : Sprache::text(u"Verschiebt das Dokument in den Dublettenordner. Gelöscht wird nichts. Taste: D"_s));
}

void Aktionsfeld::setzeTasten(bool imFeld, const QString &hilfe)
{
    const QString imText = Sprache::text(u"Eingabe übernehmen · Esc verlässt das Feld"_s);
    if (imFeld)
        m_tastentext = hilfe.isEmpty() ? imText : hilfe + u" · "_s + imText;
    else
        m_tastentext =
            Sprache::text(u"Eingabe übernehmen · Z zurückstellen · D Dublette · U rückgängig · Pfeile blättern"_s);
    tastenZeigen();
}

/** The keys, or for a moment that one of them was pressed too early. */
void Aktionsfeld::tastenZeigen()
{
    m_tasten->setzeText(m_zuFrueh.isActive()
                            ? Sprache::text(u"Zu früh: Das nächste Dokument war noch nicht zu sehen."_s)
                            : m_tastentext);
}

void Aktionsfeld::setzeDicht(bool dicht) { m_meldung->setzeZweizeilig(!dicht); }
} // namespace quillmar::pruefung
