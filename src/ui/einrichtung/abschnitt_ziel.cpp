#include "abschnitte.h"
#include "abschnittsseite.h"
#include "einrichtung.h"
#include "marktext.h"
#include "profilwahl.h"
#include "sprache.h"
#include "stil.h"
#include "strukturmodell.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace quillmar::einrichtung
{
using Stil::abstand;

namespace
{
constexpr int ordnerzeichen = 22;
constexpr int sichtbareZeilen = 8;

/** Where the documents go, and what the filing tree there looks like. */
class Ziel : public Abschnittsseite
{
public:
    Ziel(Profilwahl *profilwahl, Einrichtung *einrichtung, QWidget *eltern)
        : Abschnittsseite(
              profilwahl, einrichtung, Abschnitt::Ziel,
              Sprache::text(u"Die Wurzel deiner Ablage. Darunter liegen Zweige, Ablagen und Rubriken so, wie du sie "
                            "angelegt hast."_s),
              eltern)
    {
        ordnerBauen();
        betriebsartBauen();
        strukturBauen();
        connect(einrichtung, &Einrichtung::strukturGeaendert, this, [this] {
            m_modell->setzen(this->einrichtung()->stand().struktur);
            m_baum->expandAll();
            zahlenZeigen();
        });
        m_modell->setzen(einrichtung->stand().struktur);
        m_baum->expandAll();
        folgen([this] { zeigen(); });
    }

private:
    void ordnerBauen()
    {
        QWidget *zeile = nullptr;
        QLineEdit *wurzel = ordnerfeld(u"zielWurzel"_s, &Profil::zielWurzel,
                                       Sprache::text(u"Zielordner wählen, in dem deine Ablage liegt"_s), &zeile);
        reihe(alsBeschriftung(Sprache::text(u"Zielordner"_s)), Sprache::text(u"Der oberste Ordner deiner Ablage."_s),
              wurzel, zeile);
        m_wurzelstand = marktext();
        m_wurzelstand->setObjectName(u"zielWurzel-stand"_s);
        darunter(m_wurzelstand);
        namensfeld(u"auffangOrdner"_s, &Profil::auffangOrdner, Sprache::text(u"Auffangordner"_s),
                   Sprache::text(u"Je Zweig, für alles ohne passende Rubrik."_s));
        namensfeld(u"dublettenOrdner"_s, &Profil::dublettenOrdner, Sprache::text(u"Dublettenordner"_s),
                   Sprache::text(u"Hierhin kommt, was doppelt ist. Gelöscht wird nichts."_s));
    }

    void namensfeld(const QString &name, QString Profil::*feld, const QString &beschriftung, const QString &hilfe)
    {
        Marktext *text = marktext();
        text->setObjectName(name + u"-stand"_s);
        QLineEdit *eingabe = textfeld(name, feld, ordnernamenmangel, text, hilfe);
        reihe(beschriftung, hilfe, eingabe, daneben(eingabe, ordnerzeichen, text));
    }

    void betriebsartBauen()
    {
        auto *zeile = new QWidget(this);
        auto *waagrecht = new QHBoxLayout(zeile);
        waagrecht->setContentsMargins(0, 0, 0, 0);
        m_verschieben = artknopf(u"betriebsart-verschieben"_s, Sprache::text(u"Verschieben"_s),
                                 Sprache::text(u"Am alten Platz bleibt nichts."_s), waagrecht, false);
        m_kopieren = artknopf(u"betriebsart-kopieren"_s, Sprache::text(u"Kopieren"_s),
                              Sprache::text(u"Die Originale bleiben unberührt liegen."_s), waagrecht, true);
        Stil::folgen(zeile, [waagrecht] { waagrecht->setSpacing(abstand(16)); });
        waagrecht->addStretch(1);
        kippen(waagrecht);
        const QString name = m_verschieben->accessibleName();
        reihe(Sprache::text(u"Betriebsart"_s), {}, m_verschieben, zeile);
        m_verschieben->setAccessibleName(name);
    }

    QRadioButton *artknopf(const QString &name, const QString &text, const QString &hilfe, QHBoxLayout *zeile,
                           bool kopieren)
    {
        auto *knopf = new QRadioButton(text, this);
        knopf->setObjectName(name);
        knopf->setAccessibleName(text);
        knopf->setAccessibleDescription(hilfe);
        auto *schild = new QLabel(hilfe, this);
        schild->setTextFormat(Qt::PlainText);
        Stil::nebentext(schild);
        schild->setMinimumWidth(1); // cut off rather than widening the window
        auto *paar = new QHBoxLayout;
        paar->addWidget(knopf);
        paar->addWidget(schild, 1);
        zeile->addLayout(paar);
        Stil::folgen(knopf, [knopf, paar] {
            knopf->setMinimumHeight(abstand(30));
            paar->setSpacing(abstand(8));
        });
        connect(knopf, &QRadioButton::clicked, this, [this, kopieren] { profilwahl()->setzeKopieren(kopieren); });
        return knopf;
    }

    void strukturBauen()
    {
        m_zahlen = marktext();
        m_zahlen->setObjectName(u"struktur-stand"_s);
        m_einlesen = knopf(u"strukturEinlesen"_s, Sprache::text(u"Struktur einlesen"_s),
                           Sprache::text(u"Liest die Ordner unter dem Zielordner. Verändert wird dort nichts."_s),
                           Symbol::NeuLaden);
        connect(m_einlesen, &QPushButton::clicked, einrichtung(), &Einrichtung::strukturEinlesen);
        titel(Sprache::text(u"Struktur"_s), m_zahlen, m_einlesen);
        baumBauen();
        ueberAlles(m_baum, 1);
    }

    void baumBauen()
    {
        m_modell = new Strukturmodell(this);
        m_baum = new QTreeView(this);
        m_baum->setObjectName(u"struktur"_s);
        m_baum->setAccessibleName(Sprache::text(u"Struktur der Ablage"_s));
        m_baum->setModel(m_modell);
        m_baum->setUniformRowHeights(true);
        m_baum->setTabKeyNavigation(false);
        m_baum->header()->setStretchLastSection(false);
        m_baum->header()->setSectionResizeMode(0, QHeaderView::Stretch);
        m_baum->header()->setSectionResizeMode(1, QHeaderView::Interactive);
        m_baum->header()->setSectionResizeMode(2, QHeaderView::Interactive);
        m_baum->header()->setSectionsMovable(false);
        m_baum->header()->setHighlightSections(false);
        Stil::folgen(m_baum, [this] {
            const QFontMetrics mass = m_baum->fontMetrics();
            m_baum->setMinimumHeight(sichtbareZeilen * (mass.height() + abstand(4)));
            for (const int spalte : {1, 2})
                m_baum->header()->resizeSection(
                    spalte,
                    mass.horizontalAdvance(m_modell->headerData(spalte, Qt::Horizontal, Qt::DisplayRole).toString()) +
                        abstand(24));
        });
    }

    void zeigen()
    {
        m_verschieben->setChecked(!profil().kopieren);
        m_kopieren->setChecked(profil().kopieren);
        einrichtung::zeigen(*m_wurzelstand, Befunde::zielWurzel(einrichtung()->lage()));
        m_einlesen->setEnabled(!profil().zielWurzel.isEmpty() && !einrichtung()->stand().liestStruktur);
        zahlenZeigen();
    }

    void zahlenZeigen() { einrichtung::zeigen(*m_zahlen, Befunde::struktur(einrichtung()->lage())); }

    Marktext *m_wurzelstand = nullptr;
    QRadioButton *m_verschieben = nullptr;
    QRadioButton *m_kopieren = nullptr;
    Marktext *m_zahlen = nullptr;
    QPushButton *m_einlesen = nullptr;
    Strukturmodell *m_modell = nullptr;
    QTreeView *m_baum = nullptr;
};
} // namespace

Abschnittsseite *zielseite(Profilwahl *profilwahl, Einrichtung *einrichtung, QWidget *eltern)
{
    return new Ziel(profilwahl, einrichtung, eltern);
}
} // namespace quillmar::einrichtung
