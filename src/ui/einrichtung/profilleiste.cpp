#include "profilleiste.h"

#include "bau.h"
#include "hinweisfeld.h"
#include "profilwahl.h"
#include "sprache.h"
#include "text.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace quillmar::einrichtung
{
namespace
{
class Profilleiste : public QWidget
{
public:
    explicit Profilleiste(Profilwahl *profilwahl);

protected:
    void keyPressEvent(QKeyEvent *ereignis) override;

private:
    QWidget *namensteil();
    void umbenennen();
    void nameUebernehmen();
    void entfernenFragen();
    void offenZeigen(const QWidget *teil);
    void schliessen() { offenZeigen(m_knoepfe); }
    void zurueck(QWidget *knopf);

    Profilwahl *m_profilwahl;
    QAbstractButton *m_umbenennen;
    QAbstractButton *m_entfernen;
    QLineEdit *m_name;
    QWidget *m_knoepfe;
    QWidget *m_namensteil;
    Rueckfrage *m_frage;
};

Profilleiste::Profilleiste(Profilwahl *profilwahl)
    : m_profilwahl(profilwahl),
      m_umbenennen(flachknopf(u"profilUmbenennen"_s, Symbol::Umbenennen, Sprache::text(u"Profil umbenennen …"_s),
                              Sprache::text(u"Gibt dem Profil einen anderen Namen. Sonst ändert sich nichts."_s))),
      m_entfernen(flachknopf(u"profilEntfernen"_s, Symbol::Minus, Sprache::text(u"Profil entfernen …"_s),
                             Sprache::text(u"Nimmt das Profil aus der Liste. Es wird vorher gefragt."_s))),
      m_name(new QLineEdit),
      m_knoepfe(traeger(spalte({{m_umbenennen, 0, Qt::AlignLeft}, {m_entfernen, 0, Qt::AlignLeft}}, Abstand::Eng))),
      m_namensteil(namensteil()),
      m_frage(new Rueckfrage({{.name = u"profilEntfernenJa"_s, .text = Sprache::text(u"Profil entfernen"_s)}}))
{
    fuellen(this, spalte({m_namensteil, m_frage, m_knoepfe}));
    connect(m_umbenennen, &QAbstractButton::clicked, this, &Profilleiste::umbenennen);
    connect(m_entfernen, &QAbstractButton::clicked, this, &Profilleiste::entfernenFragen);
    connect(m_frage, &Rueckfrage::abgebrochen, this, [this] { zurueck(m_entfernen); });
    connect(m_frage, &Rueckfrage::bestaetigt, this, [this] {
        zurueck(m_entfernen);
        if (m_profilwahl->aktiv())
            m_profilwahl->profilEntfernen(m_profilwahl->aktiv()->id);
    });
    connect(m_profilwahl, &Profilwahl::aktivGeaendert, this, &Profilleiste::schliessen);
    schliessen();
}

QWidget *Profilleiste::namensteil()
{
    QLabel *titel = schild(Sprache::text(u"Name des Profils"_s), Schrift::Neben);
    titel->setBuddy(m_name);
    bezeichnen(m_name, u"profilname"_s, titel->text());
    QPushButton *fertig = knopf(u"profilUmbenennenJa"_s, Sprache::text(u"Umbenennen"_s));
    QPushButton *lassen = knopf(u"profilUmbenennenNein"_s, Sprache::text(u"Abbrechen"_s));
    connect(m_name, &QLineEdit::textChanged, fertig,
            [fertig](const QString &text) { fertig->setEnabled(!text.trimmed().isEmpty()); });
    // Only when the key has been dealt with: it would press the button that has the focus then.
    connect(m_name, &QLineEdit::returnPressed, this, &Profilleiste::nameUebernehmen, Qt::QueuedConnection);
    connect(fertig, &QPushButton::clicked, this, &Profilleiste::nameUebernehmen);
    connect(lassen, &QPushButton::clicked, this, [this] { zurueck(m_umbenennen); });
    return traeger(spalte({titel, m_name, reihe({fertig, lassen, Teil::rest()})}, Abstand::Eng));
}

void Profilleiste::umbenennen()
{
    if (!m_profilwahl->aktiv())
        return;
    offenZeigen(m_namensteil);
    m_name->setText(m_profilwahl->aktiv()->name);
    m_name->selectAll();
    m_name->setFocus();
}

void Profilleiste::nameUebernehmen()
{
    const QString name = m_name->text().trimmed();
    if (name.isEmpty())
        return;
    m_profilwahl->aendern([&](Profil &p) { p.name = name; });
    zurueck(m_umbenennen);
}

void Profilleiste::entfernenFragen()
{
    if (!m_profilwahl->aktiv())
        return;
    m_frage->fragen(gefuellt(Sprache::text(u"%@ aus der Liste nehmen? Deine Dokumente bleiben, wo sie sind. Auch der "
                                           "Katalog mit allem, was gelesen und gelernt wurde, bleibt liegen: in %@."_s),
                             {m_profilwahl->aktiv()->name, Profilwahl::datenordner()}));
    offenZeigen(m_frage);
}

void Profilleiste::offenZeigen(const QWidget *teil)
{
    for (QWidget *eines : {m_knoepfe, m_namensteil, static_cast<QWidget *>(m_frage)})
        eines->setVisible(eines == teil);
}

void Profilleiste::zurueck(QWidget *knopf)
{
    schliessen();
    knopf->setFocus();
}

void Profilleiste::keyPressEvent(QKeyEvent *ereignis)
{
    if (ereignis->key() != Qt::Key_Escape)
        return QWidget::keyPressEvent(ereignis);
    zurueck(m_umbenennen);
}
} // namespace

QWidget *profilleiste(Profilwahl *profilwahl) { return new Profilleiste(profilwahl); }
} // namespace quillmar::einrichtung
