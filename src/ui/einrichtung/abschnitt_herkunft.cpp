#include "abschnitte.h"
#include "abschnittsseite.h"
#include "einrichtung.h"
#include "marktext.h"
#include "profilwahl.h"
#include "pruefung.h"
#include "sprache.h"
#include "stil.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QStringListModel>

using namespace Qt::StringLiterals;

namespace quillmar::einrichtung
{
using Stil::abstand;

namespace
{
constexpr int sichtbareRegeln = 6;

/** Where the documents come from, and what of it is left alone. */
class Herkunft : public Abschnittsseite
{
public:
    Herkunft(Profilwahl *profilwahl, Einrichtung *einrichtung, Pruefung *pruefung, QWidget *eltern)
        : Abschnittsseite(profilwahl, einrichtung, Abschnitt::Herkunft,
                          Sprache::text(u"Der Ordner mit den Scans. Gelesen wird er nur, bis du einen Vorschlag "
                                        "übernimmst."_s),
                          eltern)
    {
        ordnerBauen();
        ausnahmenBauen();
        abschliessen();
        connect(pruefung, &Pruefung::zaehlwerkGeaendert, this, [this] { ruhendeZeigen(); });
        folgen([this] { zeigen(); });
    }

protected:
    void keyPressEvent(QKeyEvent *ereignis) override
    {
        if (ereignis->key() == Qt::Key_Delete && m_liste->hasFocus())
            entfernen();
        else
            Abschnittsseite::keyPressEvent(ereignis);
    }

private:
    void ordnerBauen()
    {
        QWidget *zeile = nullptr;
        QLineEdit *quelle =
            ordnerfeld(u"quelle"_s, &Profil::quelle, Sprache::text(u"Herkunftsordner mit den Scans wählen"_s), &zeile);
        reihe(alsBeschriftung(Sprache::text(u"Herkunftsordner"_s)),
              Sprache::text(u"Der Ordner, in dem die gescannten PDF liegen."_s), quelle, zeile);
        m_fund = marktext();
        m_fund->setObjectName(u"quelle-stand"_s);
        darunter(m_fund);
        m_tiefer = new QCheckBox(Sprache::text(u"Unterordner mitlesen"_s), this);
        m_tiefer->setObjectName(u"mitUnterordnern"_s);
        connect(m_tiefer, &QCheckBox::clicked, this,
                [this](bool an) { aendern([an](Profil &p) { p.mitUnterordnern = an; }); });
        darunter(m_tiefer);
    }

    void ausnahmenBauen()
    {
        auto *erklaerung = marktext();
        erklaerung->erklaeren(
            Sprache::text(u"Ausnahmen wirken sofort auf die ganze Warteschlange. Nimmst du eine Regel wieder heraus, "
                          "kehren die Dokumente von selbst zurück."_s));
        titel(Sprache::text(u"Ausnahmen"_s), erklaerung);
        eingabeBauen();
        m_beschwerde = marktext();
        m_beschwerde->setObjectName(u"ausnahme-stand"_s);
        darunter(m_beschwerde);
        listeBauen();
        ruhendeBauen();
        ausgelasseneBauen();
        connect(m_dazu, &QPushButton::clicked, this, [this] { hinzufuegen(); });
        connect(m_neue, &QLineEdit::returnPressed, this, [this] { hinzufuegen(); });
        connect(m_neue, &QLineEdit::textEdited, this, [this] { beschweren({}); });
        // What was typed for one profile is not meant for another.
        connect(profilwahl(), &Profilwahl::aktivGeaendert, m_neue, [this] {
            m_neue->clear();
            beschweren({});
        });
        beschweren({});
    }

    /** The field for a new rule with its two buttons. */
    void eingabeBauen()
    {
        m_neue = new QLineEdit(this);
        m_neue->setObjectName(u"neueAusnahme"_s);
        m_neue->setPlaceholderText(Sprache::text(u"etwa Fotos oder privat/2019"_s));
        Stil::platzhalterFolgt(m_neue);
        feldmass(m_neue);
        m_dazu = knopf(u"ausnahmeHinzufuegen"_s, Sprache::text(u"Hinzufügen"_s));
        QPushButton *ordner = knopf(u"ausnahmeWaehlen"_s, Sprache::text(u"Ordner wählen …"_s));
        auto *zeile = new QWidget(this);
        auto *waagrecht = new QHBoxLayout(zeile);
        waagrecht->setContentsMargins(0, 0, 0, 0);
        waagrecht->addWidget(m_neue, 1);
        waagrecht->addWidget(m_dazu);
        waagrecht->addWidget(ordner);
        reihe(Sprache::text(u"Neue Ausnahme"_s),
              Sprache::text(
                  u"Ein Name trifft jeden Ordner, der so heißt, und jede Datei, deren Name ihn enthält. Mit "
                  "Schrägstrich trifft er genau diese Folge von Ordnern, mit ./ davor einen Ordner direkt in der "
                  "Herkunft."_s),
              m_neue, zeile);
        connect(ordner, &QPushButton::clicked, this, [this] { beschweren(einrichtung()->ausnahmeWaehlen()); });
    }

    void listeBauen()
    {
        m_regeln = new QStringListModel(this);
        m_liste = regelansicht(u"ausnahmen"_s, m_regeln);
        m_entfernen = knopf(u"ausnahmeEntfernen"_s, Sprache::text(u"Entfernen"_s),
                            Sprache::text(u"Nimmt die gewählte Ausnahme heraus. Taste: Entf"_s));
        connect(m_entfernen, &QPushButton::clicked, this, [this] { entfernen(); });
        connect(m_liste->selectionModel(), &QItemSelectionModel::currentChanged, this,
                [this] { m_entfernen->setEnabled(m_liste->currentIndex().isValid()); });
        auto *zeile = new QWidget(this);
        auto *waagrecht = new QHBoxLayout(zeile);
        waagrecht->setContentsMargins(0, 0, 0, 0);
        waagrecht->addWidget(m_liste, 1);
        waagrecht->addWidget(m_entfernen, 0, Qt::AlignTop);
        reihe(Sprache::text(u"Ausgenommen"_s), {}, m_liste, zeile);
        hoeheFolgt(m_liste);
    }

    void ruhendeBauen()
    {
        m_ruhende = marktext();
        m_ruhende->setObjectName(u"ruhende"_s);
        darunter(m_ruhende);
    }

    void ausgelasseneBauen()
    {
        m_ausgelassene = regelansicht(u"ausgelassene"_s, new QStringListModel(this));
        m_ausgelassene->setAccessibleName(Sprache::text(u"Durch Ausnahmen ausgelassen"_s));
        darunter(m_ausgelassene);
        hoeheFolgt(m_ausgelassene);
    }

    QListView *regelansicht(const QString &name, QStringListModel *modell)
    {
        auto *ansicht = new QListView(this);
        ansicht->setObjectName(name);
        ansicht->setEditTriggers(QAbstractItemView::NoEditTriggers);
        ansicht->setUniformItemSizes(true);
        ansicht->setTabKeyNavigation(false);
        ansicht->setModel(modell);
        return ansicht;
    }

    static void hoeheFolgt(QListView *ansicht)
    {
        Stil::folgen(ansicht, [ansicht] {
            ansicht->setFixedHeight(sichtbareRegeln * (ansicht->fontMetrics().height() + abstand(4)) + abstand(6));
        });
    }

    void hinzufuegen()
    {
        const QString satz = einrichtung()->ausnahmeAufnehmen(m_neue->text());
        beschweren(satz);
        if (satz.isEmpty())
            m_neue->clear();
    }

    void entfernen()
    {
        if (m_liste->currentIndex().isValid())
            einrichtung()->ausnahmeEntfernen(m_liste->currentIndex().data().toString());
    }

    void beschweren(const QString &satz)
    {
        m_beschwerde->setzen(satz.isEmpty() ? Symbol::Keines : Symbol::Warnung,
                             satz.isEmpty() ? Sprache::text(u"Ein bloßer Name gilt überall, ein Pfad nur dort."_s)
                                            : satz);
    }

    void zeigen()
    {
        m_tiefer->setChecked(profil().mitUnterordnern);
        if (m_regeln->stringList() != profil().ausnahmen)
            m_regeln->setStringList(profil().ausnahmen);
        m_entfernen->setEnabled(m_liste->currentIndex().isValid());
        einrichtung::zeigen(*m_fund, Befunde::quelle(einrichtung()->lage()));
        ruhendeZeigen();
        ausgelasseneZeigen();
    }

    /** While the folder is counted anew the last list stays. */
    void ausgelasseneZeigen()
    {
        const auto &quelle = einrichtung()->stand().quelle;
        if (!quelle && einrichtung()->stand().zaehlt)
            return;
        const QStringList liste = quelle ? quelle->ausgenommene : QStringList();
        m_ausgelassene->setVisible(!liste.isEmpty());
        auto *modell = static_cast<QStringListModel *>(m_ausgelassene->model());
        if (modell->stringList() != liste)
            modell->setStringList(liste);
    }

    void ruhendeZeigen() { einrichtung::zeigen(*m_ruhende, Befunde::ruhende(einrichtung()->lage())); }

    Marktext *m_fund = nullptr;
    QCheckBox *m_tiefer = nullptr;
    QLineEdit *m_neue = nullptr;
    QPushButton *m_dazu = nullptr;
    Marktext *m_beschwerde = nullptr;
    QStringListModel *m_regeln = nullptr;
    QListView *m_liste = nullptr;
    QPushButton *m_entfernen = nullptr;
    Marktext *m_ruhende = nullptr;
    QListView *m_ausgelassene = nullptr;
};
} // namespace

Abschnittsseite *herkunftseite(Profilwahl *profilwahl, Einrichtung *einrichtung, Pruefung *pruefung, QWidget *eltern)
{
    return new Herkunft(profilwahl, einrichtung, pruefung, eltern);
}
} // namespace quillmar::einrichtung
