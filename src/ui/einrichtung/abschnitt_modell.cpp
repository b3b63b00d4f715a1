#include "abschnitte.h"
#include "abschnittsseite.h"
#include "auswahl.h"
#include "balken.h"
#include "einrichtung.h"
#include "flachknopf.h"
#include "marktext.h"
#include "modelldienst.h"
#include "sprache.h"
#include "stil.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quillmar::einrichtung
{
using Stil::abstand;

namespace
{
constexpr int modellzeichen = 22;
constexpr int zahlzeichen = 8;
constexpr int meisteSeiten = 50;
constexpr int meisteZeichen = 20'000;
constexpr int zeichenschritt = 100;

/** The models with what is known about them, how much is read, and whether the question still fits. */
class Modell : public Abschnittsseite
{
public:
    Modell(Profilwahl *profilwahl, Einrichtung *einrichtung, Modelldienst *modelldienst, QWidget *eltern)
        : Abschnittsseite(profilwahl, einrichtung, Abschnitt::Modell,
                          Sprache::text(u"Womit die Dokumente eingeordnet werden. Alles läuft auf diesem Rechner, kein "
                                        "Text verlässt ihn."_s),
                          eltern),
          m_modelldienst(modelldienst)
    {
        serverBauen();
        m_klein = modellBauen(u"modell"_s, &Profil::modell, Sprache::text(u"Sprachmodell"_s),
                              Sprache::text(u"Schlägt für jedes Dokument Datum, Gegenüber, Titel und Ort vor."_s));
        ladeteilBauen();
        m_zweitmeinung = new QCheckBox(Sprache::text(u"Zweitmeinung für strittige Fälle einholen"_s), this);
        m_zweitmeinung->setObjectName(u"zweitmeinung"_s);
        connect(m_zweitmeinung, &QCheckBox::clicked, this,
                [this](bool an) { aendern([an](Profil &p) { p.zweitmeinung = an; }); });
        darunter(m_zweitmeinung);
        m_gross = modellBauen(u"modellGross"_s, &Profil::modellGross, Sprache::text(u"Großes Modell"_s),
                              Sprache::text(u"Prüft nach, wo sich das Sprachmodell nicht sicher war."_s));
        leseteilBauen();
        abschliessen();
        connect(modelldienst, &Modelldienst::modellGeaendert, this, [this] { zeigen(); });
        folgen([this] { zeigen(); });
    }

private:
    struct Modellwahl {
        QString Profil::*feld;
        QComboBox *wahl;
        Marktext *stand;
        QPushButton *laden;
    };

    void serverBauen()
    {
        m_server = marktext();
        m_server->setObjectName(u"modellstand"_s);
        Flachknopf *pruefen = flachknopf(u"modellPruefen"_s, Sprache::text(u"Erneut prüfen"_s),
                                         Sprache::text(u"Fragt den Modellserver noch einmal"_s), Symbol::NeuLaden);
        connect(pruefen, &QToolButton::clicked, m_modelldienst, &Modelldienst::modellPruefen);
        auto *zeile = new QWidget(this);
        auto *waagrecht = new QHBoxLayout(zeile);
        waagrecht->setContentsMargins(0, 0, 0, 0);
        waagrecht->addWidget(m_server, 1);
        waagrecht->addWidget(pruefen);
        reihe(Sprache::text(u"Modellserver"_s), {}, pruefen, zeile);
        pruefen->setAccessibleName(pruefen->text());
        pruefen->setToolTip(Sprache::text(u"Fragt den Modellserver noch einmal"_s));
    }

    Modellwahl modellBauen(const QString &name, QString Profil::*feld, const QString &beschriftung,
                           const QString &hilfe)
    {
        Modellwahl w{.feld = feld, .wahl = new QComboBox(this), .stand = marktext(), .laden = nullptr};
        w.wahl->setObjectName(name);
        w.wahl->setEditable(true);
        w.wahl->setInsertPolicy(QComboBox::NoInsert);
        w.wahl->lineEdit()->setObjectName(name + u"-eingabe"_s);
        w.wahl->lineEdit()->setAccessibleName(beschriftung);
        w.stand->setObjectName(name + u"-stand"_s);
        w.laden = knopf(name + u"-laden"_s, Sprache::text(u"Modell laden"_s),
                        Sprache::text(u"Lässt den Modellserver das Modell holen. Das sind einige Gigabyte."_s));
        w.laden->setAccessibleName(beschriftung + u": "_s + w.laden->text());
        connect(w.laden, &QPushButton::clicked, m_modelldienst,
                feld == &Profil::modell ? &Modelldienst::modellLaden : &Modelldienst::modellGrossLaden);
        const auto setzen = [this, feld, wahl = w.wahl] {
            const QString text = wahl->currentText().trimmed();
            if (!m_modelldienst->modellstand().rechnetAnderswo(text) && (!text.isEmpty() || feld != &Profil::modell))
                aendern([&](Profil &p) { p.*feld = text; });
            zeigen();
        };
        connect(w.wahl, &QComboBox::activated, this, setzen);
        connect(w.wahl->lineEdit(), &QLineEdit::editingFinished, this, setzen);
        auto *rechts = new QWidget(this);
        auto *waagrecht = new QHBoxLayout(rechts);
        waagrecht->setContentsMargins(0, 0, 0, 0);
        waagrecht->addWidget(w.stand, 1);
        waagrecht->addWidget(w.laden);
        reihe(beschriftung, hilfe, w.wahl, daneben(w.wahl, modellzeichen, rechts));
        return w;
    }

    void ladeteilBauen()
    {
        m_ladeteil = new QWidget(this);
        auto *spalte = new QVBoxLayout(m_ladeteil);
        spalte->setContentsMargins(0, 0, 0, 0);
        auto *zeile = new QHBoxLayout;
        m_balken = new Balken(0, m_ladeteil);
        Flachknopf *abbrechen =
            flachknopf(u"modellLadenAbbrechen"_s, Sprache::text(u"Abbrechen"_s),
                       Sprache::text(u"Was schon da ist, bleibt für das nächste Mal"_s), Symbol::Halt);
        connect(abbrechen, &QToolButton::clicked, m_modelldienst, &Modelldienst::modellLadenAbbrechen);
        zeile->addWidget(m_balken, 1);
        zeile->addWidget(abbrechen);
        m_menge = new Marktext(m_ladeteil);
        m_menge->setObjectName(u"modell-menge"_s);
        spalte->addLayout(zeile);
        spalte->addWidget(m_menge);
        Stil::folgen(m_ladeteil, [zeile] { zeile->setSpacing(abstand(12)); });
        darunter(m_ladeteil);
    }

    void leseteilBauen()
    {
        auto *erklaerung = marktext();
        erklaerung->erklaeren(
            Sprache::text(u"Mehr Seiten und Zeichen machen Vorschläge etwas sicherer und den Durchgang "
                          "deutlich langsamer."_s));
        titel(Sprache::text(u"Lesen"_s), erklaerung);
        m_seiten = zahl(u"seiten"_s, &Profil::seiten, meisteSeiten, 1, Sprache::text(u"Seiten"_s),
                        Sprache::text(u"So viele Seiten je Dokument werden gelesen."_s));
        m_zeichen =
            zahl(u"maxZeichen"_s, &Profil::maxZeichen, meisteZeichen, zeichenschritt, Sprache::text(u"Zeichen"_s),
                 Sprache::text(u"So viele Zeichen davon bekommt das Modell höchstens."_s));
        auto *platz = marktext();
        platz->erklaeren(Sprache::text(u"Die Anweisung zählt deine Zweige, Ablagen und Rubriken auf. Wird sie zu lang, "
                                       "sieht das Modell nicht mehr alle."_s));
        titel(Sprache::text(u"Platz im Modell"_s), platz);
        m_platz = marktext();
        m_platz->setObjectName(u"platz"_s);
        reihe(Sprache::text(u"Anweisung"_s), {}, m_platz);
    }

    QSpinBox *zahl(const QString &name, int Profil::*feld, int groesste, int schritt, const QString &beschriftung,
                   const QString &hilfe)
    {
        auto *eingabe = new QSpinBox(this);
        eingabe->setObjectName(name);
        eingabe->setRange(1, groesste);
        eingabe->setSingleStep(schritt);
        connect(eingabe, &QSpinBox::valueChanged, this,
                [this, feld](int wert) { aendern([&](Profil &p) { p.*feld = wert; }); });
        auto *text = marktext();
        text->erklaeren(hilfe);
        reihe(beschriftung, hilfe, eingabe, daneben(eingabe, zahlzeichen, text));
        return eingabe;
    }

    void zeigen()
    {
        const Modellstand &stand = m_modelldienst->modellstand();
        const Einrichtungslage lage = einrichtung()->lage();
        einrichtung::zeigen(*m_server, Befunde::server(lage));
        modellZeigen(m_klein);
        modellZeigen(m_gross);
        einrichtung::zeigen(*m_klein.stand, Befunde::modell(lage, profil().modell, m_klein.wahl->currentText()));
        einrichtung::zeigen(*m_gross.stand, Befunde::modellGross(lage, m_gross.wahl->currentText()));
        m_zweitmeinung->setChecked(profil().zweitmeinung);
        m_gross.wahl->setEnabled(profil().zweitmeinung);
        m_gross.laden->setVisible(profil().zweitmeinung && !m_gross.laden->isHidden());
        m_ladeteil->setVisible(!stand.laedtModell.isEmpty());
        m_balken->setzeAnteil(stand.ladegroesse > 0 ? double(stand.geladen) / double(stand.ladegroesse) : 0);
        einrichtung::zeigen(*m_menge, Befunde::ladestand(lage));
        zahlZeigen(m_seiten, profil().seiten);
        zahlZeigen(m_zeichen, profil().maxZeichen);
        einrichtung::zeigen(*m_platz, Befunde::platz(lage));
    }

    static void zahlZeigen(QSpinBox *eingabe, int wert)
    {
        const QSignalBlocker still(eingabe);
        // A number from a file may lie outside of what is offered here, and is kept.
        eingabe->setMaximum(std::max(eingabe->maximum(), wert));
        eingabe->setValue(wert);
    }

    void modellZeigen(const Modellwahl &w)
    {
        const Modellstand &stand = m_modelldienst->modellstand();
        const QString &gewaehlt = profil().*w.feld;
        wahlZeigen(w, stand, gewaehlt);
        w.laden->setVisible(Befunde::fehlt(stand, gewaehlt, w.wahl->currentText()));
        w.laden->setEnabled(stand.art != Modellstand::Art::ServerFehlt && stand.laedtModell.isEmpty());
    }

    /** The list is left alone while someone types into it. */
    static void wahlZeigen(const Modellwahl &w, const Modellstand &stand, const QString &gewaehlt)
    {
        QStringList namen = stand.vorhandene;
        if (!gewaehlt.isEmpty() && !namen.contains(gewaehlt))
            namen.prepend(gewaehlt);
        if (w.wahl->lineEdit()->hasFocus() && w.wahl->lineEdit()->isModified())
            return;
        QList<Wahleintrag> eintraege = wahleintraege(namen);
        for (Wahleintrag &eintrag : eintraege)
            eintrag.mangel = stand.rechnetAnderswo(eintrag.wert) ? Modellstand::anderswoSatz(eintrag.wert) : QString();
        wahlAuffrischen(w.wahl, eintraege, gewaehlt);
    }

    Modelldienst *m_modelldienst;
    Marktext *m_server = nullptr;
    Modellwahl m_klein{};
    Modellwahl m_gross{};
    QWidget *m_ladeteil = nullptr;
    Balken *m_balken = nullptr;
    Marktext *m_menge = nullptr;
    QCheckBox *m_zweitmeinung = nullptr;
    QSpinBox *m_seiten = nullptr;
    QSpinBox *m_zeichen = nullptr;
    Marktext *m_platz = nullptr;
};
} // namespace

Abschnittsseite *modellseite(Profilwahl *profilwahl, Einrichtung *einrichtung, Modelldienst *modelldienst,
                             QWidget *eltern)
{
    return new Modell(profilwahl, einrichtung, modelldienst, eltern);
}
} // namespace quillmar::einrichtung
