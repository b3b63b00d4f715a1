#include "abschnittsseite.h"

#include "anordnung.h"
#include "einrichtung.h"
#include "modelldienst.h"
#include "ordnerwahl.h"
#include "pfade.h"
#include "profilwahl.h"
#include "sprache.h"
#include "text.h"
#include "textschild.h"
#include "vorlagenmangel.h"
#include "zustand.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QFormLayout>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QToolButton>
#include <utility>

using namespace Qt::StringLiterals;

namespace quillmar::einrichtung
{
namespace
{
constexpr int listenzeilen = 3;
const QString kippend = u"kippend"_s; // what stands side by side and goes below each other where there is little room

/** @p teile in a row, below each other where there is little room. */
Kette *gekippt(std::initializer_list<Teil> teile, Abstand abstand = Abstand::Nah)
{
    Kette *kette = reihe(teile, abstand);
    kette->setObjectName(kippend);
    return kette;
}

/** A row of the form: one that is a layout goes unheard when it needs more height, others ask at their best width. */
class Zeile : public QWidget
{
public:
    [[nodiscard]] QSize sizeHint() const override { return layout()->sizeHint(); }
};

/**
 * A form that reckons its rows anew whenever it becomes larger or smaller. Qt's own does so only when something in it
 * has changed, and else takes heights of other widths: what wraps then takes space from the lists.
 */
class Formular : public QFormLayout
{
public:
    using QFormLayout::QFormLayout;
    void setGeometry(const QRect &flaeche) override
    {
        if (std::exchange(m_groesse, flaeche.size()) != flaeche.size())
            invalidate();
        QFormLayout::setGeometry(flaeche);
    }

private:
    QSize m_groesse;
};

QString sichtbareHilfe(const Abschnittszeile &z)
{
    const bool immer = z.zeichen > 0 || std::holds_alternative<Feld::Zeilen>(z.feld) ||
                       std::holds_alternative<Feld::Vorlage>(z.feld) || std::holds_alternative<Feld::Titel>(z.feld);
    return z.erklaerung.isEmpty() && immer ? z.hilfe : z.erklaerung;
}

void setzeText(QLineEdit *eingabe, const QString &text)
{
    if (eingabe->text() != text)
        eingabe->setText(text);
}
} // namespace

Symbol symbol(Befund::Marke marke)
{
    constexpr std::array zeichen = {Symbol::Keines, Symbol::Gut,  Symbol::Warnung,
                                    Symbol::Laeuft, Symbol::Info, Symbol::Offen};
    return zeichen.at(std::size_t(marke));
}

Abschnittsseite::Abschnittsseite(Zustand *zustand, Abschnitt abschnitt, const QList<Abschnittszeile> &zeilen,
                                 QWidget *eltern)
    : QWidget(eltern), m_zustand(zustand), m_form(new Formular(this))
{
    setObjectName(u"abschnitt-"_s + rohwert(abschnitt));
    m_form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    for (const Abschnittszeile &z : zeilen)
        zeile(z);
    setzeRaender(this, {Abstand::Rand, Abstand::Gruppe, Abstand::Rand, Abstand::Feld});
    connect(m_zustand->einrichtung(), &Einrichtung::staendeGeaendert, this, [this] {
        if (isVisible())
            auffrischen();
    });
    connect(m_zustand->profilwahl(), &Profilwahl::aktivGeaendert, this, [this] {
        m_gewechselt = true;
        auffrischen();
        m_gewechselt = false;
    });
    // What could not be stored gives way to what holds.
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget *vorher) {
        if (vorher && isAncestorOf(vorher))
            auffrischen();
    });
    auffrischen();
}

const Profil &Abschnittsseite::profil() const { return m_zustand->einrichtung()->lage().profil; }

void Abschnittsseite::aendern(const std::function<void(Profil &)> &aenderung) const
{
    m_zustand->profilwahl()->aendern(aenderung);
}

void Abschnittsseite::folgen(const std::function<void(const Einrichtungslage &)> &zeigen) { m_folgende << zeigen; }

bool Abschnittsseite::tippt(const QWidget *feld) const { return feld->hasFocus() && !m_gewechselt; }

void Abschnittsseite::auffrischen()
{
    const Einrichtungslage lage = m_zustand->einrichtung()->lage();
    for (const auto &zeigen : std::as_const(m_folgende))
        zeigen(lage);
}

void Abschnittsseite::showEvent(QShowEvent *ereignis)
{
    QWidget::showEvent(ereignis);
    auffrischen();
}

void Abschnittsseite::zeile(const Abschnittszeile &z)
{
    zeile(z, std::visit([&](const auto &art) { return bauen(z, art); }, z.feld));
}

void Abschnittsseite::zeile(const Abschnittszeile &z, const Teile &teile)
{
    if (!teile.feld)
        return;
    QAbstractButton *taste = z.knopf.name.isEmpty() ? teile.knopf : knopf(z.knopf);
    const Befundregel &regel = teile.befund ? teile.befund : z.befund;
    Textschild *text = regel || !sichtbareHilfe(z).isEmpty() ? befundtext(z, regel) : nullptr;
    const Teil gesagtes = text && taste ? Teil(reihe({{text, 1}, taste}), 1) : Teil(text, 1);
    benennen(z, teile.feld);
    QLabel *beschriftung = nullptr;
    if (!z.beschriftung.isEmpty() && !qobject_cast<QCheckBox *>(teile.feld)) {
        m_schilder << (beschriftung = schild(z.beschriftung, Schrift::Beschriftung));
        beschriftung->setBuddy(taste && std::holds_alternative<std::monostate>(z.feld) ? taste : teile.feld);
        beschriftung->setToolTip(z.hilfe);
    }
    if (z.zeichen > 0 && text)
        return anfuegen(beschriftung, gekippt({{teile.feld, 0, Qt::AlignLeft}, gesagtes}));
    anfuegen(beschriftung, teile.ganz ? Teil(teile.ganz) : Teil(teile.feld));
    if (teile.darunter)
        anfuegen(nullptr, teile.darunter);
    if (text)
        anfuegen(nullptr, gesagtes);
}

void Abschnittsseite::anfuegen(QLabel *beschriftung, const Teil &teil)
{
    m_form->addRow(beschriftung, teil.layout ? fuellen(new Zeile, teil.layout) : teil.widget);
}

/** The name, help and width of a field; it follows whether it can be changed. */
void Abschnittsseite::benennen(const Abschnittszeile &z, QWidget *feld)
{
    if (feld->objectName().isEmpty())
        feld->setObjectName(z.name);
    if (feld->accessibleName().isEmpty())
        feld->setAccessibleName(z.beschriftung);
    if (feld->toolTip().isEmpty())
        feld->setToolTip(z.hilfe);
    radsperre(feld);
    if (z.zeichen > 0)
        breiteFuer(feld, z.zeichen);
    if (z.gilt)
        folgen([feld, gilt = z.gilt](const Einrichtungslage &lage) { feld->setEnabled(gilt(lage.profil)); });
}

/** What is found, for as long as there is anything to say. */
Textschild *Abschnittsseite::befundtext(const Abschnittszeile &z, const Befundregel &regel)
{
    auto *text =
        new Textschild(Textschild::Art::Umbruch, Schrift::Neben, z.name.isEmpty() ? QString() : z.name + u"-stand"_s);
    text->setParent(this);
    folgen([text, regel, hilfe = sichtbareHilfe(z)](const Einrichtungslage &lage) {
        const Befund befund = regel ? regel(lage) : Befund();
        text->befund(symbol(befund.marke), befund.satz.isEmpty() ? hilfe : befund.satz);
        text->setVisible(!text->ganzerText().isEmpty());
    });
    return text;
}

QAbstractButton *Abschnittsseite::knopf(const Zeilenknopf &vorgabe)
{
    QAbstractButton *taste =
        vorgabe.flach ? flachknopf(vorgabe.name, vorgabe.symbol, vorgabe.text, vorgabe.hilfe)
                      : static_cast<QAbstractButton *>(bedienteile::knopf(vorgabe.name, vorgabe.text, vorgabe.hilfe,
                                                                          Knopfart::Feld, vorgabe.symbol));
    taste->setParent(this);
    if (!vorgabe.gesprochen.isEmpty())
        taste->setAccessibleName(vorgabe.gesprochen);
    if (vorgabe.tun)
        connect(taste, &QAbstractButton::clicked, this, vorgabe.tun);
    if (vorgabe.geht)
        folgen([taste, geht = vorgabe.geht](const Einrichtungslage &lage) { taste->setEnabled(geht(lage)); });
    if (vorgabe.da)
        folgen([taste, da = vorgabe.da](const Einrichtungslage &lage) { taste->setVisible(da(lage)); });
    return taste;
}

void Abschnittsseite::ueberAlles(QWidget *teil) { m_form->addRow(teil); }

int Abschnittsseite::beschriftungsbreite() const
{
    int breite = 0;
    for (const QLabel *schild : m_schilder)
        breite = std::max(breite, schild->sizeHint().width());
    return breite;
}

void Abschnittsseite::anordnen(bool eng, int beschriftungsbreite)
{
    m_form->setRowWrapPolicy(eng ? QFormLayout::WrapAllRows : QFormLayout::DontWrapRows);
    m_form->setLabelAlignment(eng ? Qt::AlignLeft : Qt::AlignRight);
    for (QLabel *schild : std::as_const(m_schilder)) {
        schild->setMinimumWidth(eng ? 0 : beschriftungsbreite);
        schild->setAlignment((eng ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    }
    for (auto *reihe : findChildren<QBoxLayout *>(kippend))
        reihe->setDirection(eng ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
}

/** A finding or a button alone. */
Teile Abschnittsseite::bauen(const Abschnittszeile &z, std::monostate)
{
    QAbstractButton *taste = z.knopf.name.isEmpty() ? nullptr : knopf(z.knopf);
    if (!z.befund) {
        anfuegen(nullptr, reihe({{taste, 0, Qt::AlignLeft}}));
        return {};
    }
    Textschild *text = befundtext(z, z.befund);
    text->setObjectName(z.name);
    zeile({.name = z.name, .beschriftung = z.beschriftung, .hilfe = z.hilfe},
          {.feld = text, .ganz = taste ? reihe({{text, 1}, taste}) : nullptr});
    return {};
}

Teile Abschnittsseite::bauen(const Abschnittszeile &z, Feld::Titel)
{
    Kette *kette =
        reihe({{spalte({schild(z.beschriftung, Schrift::Abschnitt), befundtext(z, z.befund)}, Abstand::Keiner), 1}},
              Abstand::Feld);
    if (!z.knopf.name.isEmpty())
        kette->addWidget(knopf(z.knopf), 0, Qt::AlignBottom);
    QWidget *kopf = traeger(kette);
    setzeRaender(kopf, {Abstand::Keiner, m_form->rowCount() == 0 ? Abstand::Keiner : Abstand::Feld, Abstand::Keiner,
                        Abstand::Eng});
    ueberAlles(kopf);
    return {};
}

/** A line edit whose text is the profile's @p feld. */
QLineEdit *Abschnittsseite::textfeld(QString Profil::*feld,
                                     const std::function<std::optional<QString>(const QString &)> &gespeichert)
{
    auto *eingabe = new QLineEdit(this);
    connect(eingabe, &QLineEdit::textEdited, this, [this, feld, gespeichert](const QString &text) {
        if (const auto wert = gespeichert(text))
            aendern([&](Profil &p) { p.*feld = *wert; });
        auffrischen();
    });
    connect(eingabe, &QLineEdit::editingFinished, this, [this, eingabe, feld] {
        setzeText(eingabe, profil().*feld);
        auffrischen();
    });
    folgen([this, eingabe, feld](const Einrichtungslage &lage) {
        if (!tippt(eingabe))
            setzeText(eingabe, lage.profil.*feld);
    });
    return eingabe;
}

Teile Abschnittsseite::bauen(const Abschnittszeile &z, const Feld::Text &art)
{
    const auto mangel = [pruefen = art.mangel](const QString &text) { return pruefen ? pruefen(text) : QString(); };
    QLineEdit *eingabe = textfeld(art.feld, [mangel](const QString &text) {
        return mangel(text).isEmpty() ? std::optional(text.trimmed()) : std::nullopt;
    });
    eingabe->setPlaceholderText(art.platzhalter);
    if (!art.mangel)
        return {.feld = eingabe};
    return {.feld = eingabe, .befund = [eingabe, mangel, regel = z.befund](const Einrichtungslage &lage) {
                const QString satz = mangel(eingabe->text());
                if (!satz.isEmpty())
                    return Befund{.marke = Befund::Marke::Warnung, .satz = satz};
                return regel ? regel(lage) : Befund();
            }};
}

Teile Abschnittsseite::bauen(const Abschnittszeile &z, const Feld::Ordner &art)
{
    QLineEdit *eingabe =
        textfeld(art.feld, [](const QString &text) { return std::optional(langpfad(text.trimmed())); });
    // The folder may have been made meanwhile.
    connect(eingabe, &QLineEdit::editingFinished, m_zustand->einrichtung(), &Einrichtung::einrichtungPruefen);
    auto *waehlen = bedienteile::knopf(z.name + u"-waehlen"_s, Sprache::text(u"Wählen …"_s), art.frage);
    connect(waehlen, &QPushButton::clicked, this, [this, eingabe, art] {
        const QString zweck = eingabe->objectName() + u'-' + profil().id.toString(QUuid::WithoutBraces);
        if (const auto ordner = Ordnerwahl::ordnerWaehlen(art.frage, zweck, profil().*art.feld)) {
            aendern([&](Profil &p) { p.*art.feld = *ordner; });
            eingabe->setText(*ordner);
        }
    });
    return {.feld = eingabe, .ganz = reihe({{eingabe, 1}, waehlen})};
}

Teile Abschnittsseite::bauen(const Abschnittszeile &z, const Feld::Vorlage &art)
{
    QLineEdit *eingabe = textfeld(art.feld, [](const QString &text) { return std::optional(text); });
    const auto setzen = [this, eingabe, feld = art.feld](const QString &vorlage) {
        aendern([&](Profil &p) { p.*feld = vorlage; });
        setzeText(eingabe, vorlage);
        eingabe->setFocus();
    };
    auto *bloecke = new Flussreihe(Abstand::Eng);
    for (const Baustein baustein : art.bausteine) {
        const QString wort = bausteinWort(baustein);
        auto *block = bedienteile::knopf(z.name + u'-' + wort, bausteinAnzeige(baustein), bausteinErklaerung(baustein),
                                         Knopfart::Klein);
        block->setParent(this);
        bloecke->addWidget(block);
        connect(block, &QPushButton::clicked, this, [eingabe, wort, setzen] {
            eingabe->insert(u'{' + wort + u'}');
            setzen(eingabe->text());
        });
    }
    const auto block = [this, art] {
        const QList<Vorlagenmangel> maengel = vorlagenmaengel(profil().*art.feld, art.istPfad);
        return maengel.isEmpty() ? QString() : maengel.first().block;
    };
    QAbstractButton *entfernen = knopf({z.name + u"-entfernen"_s,
                                        Sprache::text(u"Entfernen"_s),
                                        Sprache::text(u"Nimmt den Baustein aus der Vorlage."_s),
                                        [this, art, block, setzen] { setzen(ohneBlock(profil().*art.feld, block())); },
                                        Symbol::Minus,
                                        true,
                                        {},
                                        [block](const Einrichtungslage &) { return !block().isEmpty(); }});
    return {.feld = eingabe, .darunter = bloecke, .knopf = entfernen};
}

Teile Abschnittsseite::bauen(const Abschnittszeile &, const Feld::Zeilen &art)
{
    auto *eingabe = new QPlainTextEdit(this);
    eingabe->setTabChangesFocus(true);
    eingabe->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    hoeheFuer(eingabe, listenzeilen);
    connect(eingabe, &QPlainTextEdit::textChanged, this, [this, eingabe, feld = art.feld] {
        if (eingabe->hasFocus())
            aendern([&](Profil &p) { p.*feld = zeilenAus(eingabe->toPlainText()); });
    });
    folgen([this, eingabe, feld = art.feld](const Einrichtungslage &lage) {
        const QSignalBlocker still(eingabe);
        if (!tippt(eingabe) && zeilenAus(eingabe->toPlainText()) != lage.profil.*feld)
            eingabe->setPlainText((lage.profil.*feld).join(u'\n'));
    });
    return {.feld = eingabe};
}

Teile Abschnittsseite::bauen(const Abschnittszeile &z, const Feld::Kaestchen &art)
{
    auto *kaestchen = new QCheckBox(z.beschriftung, this);
    connect(kaestchen, &QCheckBox::clicked, this,
            [this, feld = art.feld](bool an) { aendern([&](Profil &p) { p.*feld = an; }); });
    folgen([kaestchen, feld = art.feld](const Einrichtungslage &lage) { kaestchen->setChecked(lage.profil.*feld); });
    return {.feld = kaestchen};
}

Teile Abschnittsseite::bauen(const Abschnittszeile &z, const Feld::Paar &art)
{
    Kette *paar = gekippt({}, Abstand::Gruppe);
    auto *gruppe = new QButtonGroup(this);
    for (const bool ja : {false, true}) {
        const Feld::Paar::Seite &seite = ja ? art.ja : art.nein;
        auto *knopf = new QRadioButton(seite.text, this);
        bezeichnen(knopf, z.name + u'-' + seite.name, seite.text, seite.hilfe);
        QLabel *erklaerung = schild(seite.hilfe, Schrift::Neben);
        erklaerung->setMinimumWidth(1); // cut off rather than widening the window
        paar->anfuegen(reihe({knopf, {erklaerung, 1}}));
        connect(knopf, &QRadioButton::clicked, this,
                [this, feld = art.feld, ja] { aendern([&](Profil &p) { p.*feld = ja; }); });
        folgen(
            [knopf, feld = art.feld, ja](const Einrichtungslage &lage) { knopf->setChecked(lage.profil.*feld == ja); });
        gruppe->addButton(knopf);
    }
    paar->anfuegen(Teil::rest());
    return {.feld = gruppe->buttons().first(), .ganz = paar};
}

Teile Abschnittsseite::bauen(const Abschnittszeile &, const Feld::Zahl &art)
{
    auto *eingabe = new QSpinBox(this);
    eingabe->setRange(1, art.groesste);
    eingabe->setSingleStep(art.schritt);
    connect(eingabe, &QSpinBox::valueChanged, this,
            [this, feld = art.feld](int wert) { aendern([&](Profil &p) { p.*feld = wert; }); });
    folgen([eingabe, feld = art.feld](const Einrichtungslage &lage) {
        const QSignalBlocker still(eingabe);
        // A number from a file may lie outside of what is offered here, and is kept.
        eingabe->setMaximum(std::max(eingabe->maximum(), lage.profil.*feld));
        eingabe->setValue(lage.profil.*feld);
    });
    return {.feld = eingabe};
}

Teile Abschnittsseite::bauen(const Abschnittszeile &, const Feld::Wahl &art)
{
    auto *wahl = new QComboBox(this);
    connect(wahl, &QComboBox::activated, this,
            [this, wahl, feld = art.feld] { aendern([&](Profil &p) { p.*feld = wahl->currentData().toString(); }); });
    folgen([wahl, art](const Einrichtungslage &lage) {
        wahlAuffrischen(wahl, art.eintraege(lage), lage.profil.*art.feld);
    });
    return {.feld = wahl};
}

/** Has the server fetch the model of @p z, once it is the next step. */
QAbstractButton *Abschnittsseite::ladeknopf(const Abschnittszeile &z, QString Profil::*feld, const QComboBox *wahl)
{
    const auto laden = feld == &Profil::modellGross ? &Modelldienst::modellGrossLaden : &Modelldienst::modellLaden;
    return knopf({z.name + u"-laden"_s, Sprache::text(u"Modell laden"_s),
                  Sprache::text(u"Lässt den Modellserver das Modell holen. Das sind einige Gigabyte."_s),
                  [dienst = m_zustand->modelldienst(), laden] { (dienst->*laden)(); }, Symbol::Keines, false,
                  [](const Einrichtungslage &lage) {
                      return lage.modell.art != Modellstand::Art::ServerFehlt && lage.modell.laedtModell.isEmpty();
                  },
                  [feld, wahl, gilt = z.gilt](const Einrichtungslage &lage) {
                      return (!gilt || gilt(lage.profil)) &&
                             Befunde::fehlt(lage.modell, lage.profil.*feld, wahl->currentText());
                  },
                  z.beschriftung + u": "_s + Sprache::text(u"Modell laden"_s)});
}

Teile Abschnittsseite::bauen(const Abschnittszeile &z, const Feld::Modell &art)
{
    auto *wahl = new QComboBox(this);
    wahl->setEditable(true);
    wahl->setInsertPolicy(QComboBox::NoInsert);
    bezeichnen(wahl->lineEdit(), z.name + u"-eingabe"_s, z.beschriftung);
    const auto setzen = [this, wahl, feld = art.feld] {
        const QString text = wahl->currentText().trimmed();
        const bool entbehrlich = feld == &Profil::modellGross;
        if (!m_zustand->modelldienst()->modellstand().rechnetAnderswo(text) && (entbehrlich || !text.isEmpty()))
            aendern([&](Profil &p) { p.*feld = text; });
        auffrischen();
    };
    connect(wahl, &QComboBox::activated, this, setzen);
    connect(wahl->lineEdit(), &QLineEdit::editingFinished, this, setzen);
    folgen([this, wahl, feld = art.feld](const Einrichtungslage &lage) {
        if (!tippt(wahl->lineEdit()) || !wahl->lineEdit()->isModified())
            wahlAuffrischen(wahl, lage.modell.auswahl(lage.profil.*feld), lage.profil.*feld);
    });
    return {.feld = wahl,
            .knopf = ladeknopf(z, art.feld, wahl),
            .befund = [wahl, befund = art.befund](const Einrichtungslage &lage) {
                return befund(lage, wahl->currentText());
            }};
}
} // namespace quillmar::einrichtung
