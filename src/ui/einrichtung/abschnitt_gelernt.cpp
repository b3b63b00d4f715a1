#include "abschnitte.h"
#include "abschnittsseite.h"
#include "einrichtung.h"
#include "lerntabelle.h"
#include "marktext.h"
#include "profilwahl.h"
#include "rueckfrage.h"
#include "sprache.h"
#include "stil.h"
#include "text.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace quillmar::einrichtung
{
using Stil::abstand;

namespace
{
constexpr int sichtbareZeilen = 6;
constexpr int ganze = 100; // of the height that is left over

/** What the program has learned from corrections, and how it forgets. */
class Gelernt : public Abschnittsseite
{
public:
    Gelernt(Profilwahl *profilwahl, Einrichtung *einrichtung, QWidget *eltern)
        : Abschnittsseite(profilwahl, einrichtung, Abschnitt::Gelernt,
                          Sprache::text(u"Was sich das Programm aus deinen Entscheidungen gemerkt hat."_s), eltern)
    {
        zuordnungenBauen();
        gleichungenBauen();
        vergessenBauen();
        abschliessen();
        connect(einrichtung, &Einrichtung::gelerntGelesen, this, [this] { zeigen(); });
        connect(profilwahl, &Profilwahl::aktivGeaendert, this, [this] { zeigen(); });
        zeigen();
    }

private:
    struct Liste {
        Marktext *text = nullptr;
        Lerntabelle *modell = nullptr;
        QTreeView *ansicht = nullptr;
        QPushButton *vergessen = nullptr;
    };

    [[nodiscard]] const Lernstand &gelerntes() const { return einrichtung()->stand().gelerntes; }

    Liste listeBauen(const QString &name, const QString &beschriftung, const QStringList &spalten,
                     const Lerntabelle::Inhalt &inhalt)
    {
        Liste l;
        l.text = marktext();
        l.text->setObjectName(name + u"-stand"_s);
        l.vergessen = knopf(name + u"-vergessen"_s, Sprache::text(u"Vergessen"_s),
                            Sprache::text(u"Vergisst die gewählte Zeile"_s));
        l.vergessen->setAccessibleName(beschriftung + u": "_s + l.vergessen->text());
        titel(beschriftung, l.text, l.vergessen);
        l.modell = new Lerntabelle(spalten, inhalt, this);
        l.ansicht = ansichtBauen(l.modell, spalten);
        l.ansicht->setObjectName(name);
        l.ansicht->setAccessibleName(beschriftung);
        ueberAlles(l.ansicht);
        connect(l.ansicht->selectionModel(), &QItemSelectionModel::currentChanged, this,
                [l] { l.vergessen->setEnabled(l.ansicht->currentIndex().isValid()); });
        return l;
    }

    QTreeView *ansichtBauen(Lerntabelle *modell, const QStringList &spalten)
    {
        auto *ansicht = new QTreeView(this);
        ansicht->setRootIsDecorated(false);
        ansicht->setUniformRowHeights(true);
        ansicht->setTabKeyNavigation(false);
        ansicht->setTextElideMode(Qt::ElideMiddle);
        ansicht->setModel(modell);
        ansicht->header()->setStretchLastSection(false);
        ansicht->header()->setSectionsMovable(false);
        ansicht->header()->setHighlightSections(false);
        ansicht->header()->setSectionResizeMode(QHeaderView::Stretch);
        ansicht->header()->setSectionResizeMode(int(spalten.size()) - 1, QHeaderView::Fixed);
        Stil::folgen(ansicht, [ansicht, letzte = int(spalten.size()) - 1, titel = spalten.last()] {
            const QFontMetrics mass = ansicht->fontMetrics();
            ansicht->setMinimumHeight(sichtbareZeilen * (mass.height() + abstand(4)));
            ansicht->header()->resizeSection(letzte, mass.horizontalAdvance(titel) + abstand(24));
        });
        return ansicht;
    }

    void zuordnungenBauen()
    {
        m_zuordnungen = listeBauen(
            u"gelernt"_s, Sprache::text(u"Zuordnungen"_s),
            {Sprache::text(u"Gegenüber"_s), Sprache::text(u"Ort in der Ablage"_s), Sprache::text(u"bestätigt"_s)},
            [this](int zeile, int spalte) {
                const Eintrag e = gelerntes().zuordnungen.value(zeile);
                return spalte == 0 ? e.anzeige : spalte == 1 ? e.ziel() : QString::number(e.anzahl);
            });
        connect(m_zuordnungen.vergessen, &QPushButton::clicked, this, [this] {
            const int zeile = m_zuordnungen.ansicht->currentIndex().row();
            if (zeile >= 0)
                einrichtung()->gelerntVergessen(gelerntes().zuordnungen.value(zeile).schluessel);
        });
    }

    void gleichungenBauen()
    {
        m_gleichungen =
            listeBauen(u"namen"_s, Sprache::text(u"Namensgleichungen"_s),
                       {Sprache::text(u"Alter Name"_s), Sprache::text(u"wird zu"_s), Sprache::text(u"bestätigt"_s)},
                       [this](int zeile, int spalte) {
                           const Gleichung g = gelerntes().gleichungen.value(zeile);
                           return spalte == 0 ? g.von : spalte == 1 ? g.nach : QString::number(g.anzahl);
                       });
        connect(m_gleichungen.vergessen, &QPushButton::clicked, this, [this] {
            const int zeile = m_gleichungen.ansicht->currentIndex().row();
            if (zeile >= 0)
                einrichtung()->gleichungVergessen(gelerntes().gleichungen.value(zeile).von);
        });
    }

    void vergessenBauen()
    {
        m_alles = knopf(u"allesVergessen"_s, Sprache::text(u"Alles vergessen …"_s),
                        Sprache::text(u"Verwirft alle Zuordnungen und Namensgleichungen. Es wird vorher gefragt."_s));
        auto *zeile = new QWidget(this);
        auto *waagrecht = new QHBoxLayout(zeile);
        waagrecht->setContentsMargins(0, 0, 0, 0);
        m_frage = new Rueckfrage({{.name = u"allesVergessenJa"_s, .text = Sprache::text(u"Alles vergessen"_s)}}, zeile);
        waagrecht->addWidget(m_alles);
        waagrecht->addWidget(m_frage, 1);
        waagrecht->addStretch(0);
        m_frage->hide();
        ueberAlles(zeile);
        connect(m_alles, &QPushButton::clicked, this, [this] {
            m_alles->hide();
            m_frage->fragen(gefuellt(
                Sprache::text(u"Alles Gelernte verwerfen? Zuordnungen: %@, Namensgleichungen: %@. "
                              "Was schon abgelegt ist, bleibt, wo es ist."_s),
                {QString::number(gelerntes().zuordnungen.size()), QString::number(gelerntes().gleichungen.size())}));
        });
        connect(m_frage, &Rueckfrage::abgebrochen, this, [this] { frageSchliessen(); });
        connect(m_frage, &Rueckfrage::bestaetigt, this, [this] {
            frageSchliessen();
            einrichtung()->allesVergessen();
        });
    }

    void frageSchliessen()
    {
        m_frage->hide();
        m_alles->show();
        m_alles->setFocus();
        zeigen();
    }

    void zeigen()
    {
        anzahlZeigen(m_zuordnungen, gelerntes().zuordnungen.size(), Befunde::zuordnungen(einrichtung()->lage()));
        anzahlZeigen(m_gleichungen, gelerntes().gleichungen.size(), Befunde::gleichungen(einrichtung()->lage()));
        m_alles->setVisible(m_frage->isHidden() &&
                            (!gelerntes().zuordnungen.isEmpty() || !gelerntes().gleichungen.isEmpty()));
    }

    /** The line that was forgotten gives its place to the next, so that one can go on. */
    void anzahlZeigen(const Liste &l, qsizetype anzahl, const Befund &befund)
    {
        const int zeile = l.ansicht->currentIndex().row();
        l.modell->setzeAnzahl(int(anzahl));
        einrichtung::zeigen(*l.text, befund);
        if (zeile >= 0 && anzahl > 0)
            l.ansicht->setCurrentIndex(l.modell->index(std::min(zeile, int(anzahl) - 1), 0));
        l.vergessen->setEnabled(l.ansicht->currentIndex().isValid());
        l.vergessen->setVisible(anzahl > 0);
        l.ansicht->setVisible(anzahl > 0);
        strecken(l.ansicht, anzahl > 0 ? ganze : 0);
    }

    Liste m_zuordnungen;
    Liste m_gleichungen;
    QPushButton *m_alles = nullptr;
    Rueckfrage *m_frage = nullptr;
};
} // namespace

Abschnittsseite *gelerntseite(Profilwahl *profilwahl, Einrichtung *einrichtung, QWidget *eltern)
{
    return new Gelernt(profilwahl, einrichtung, eltern);
}
} // namespace quillmar::einrichtung
