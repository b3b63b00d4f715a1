#include "profilleiste.h"

#include "flachknopf.h"
#include "profilwahl.h"
#include "rueckfrage.h"
#include "sprache.h"
#include "stil.h"
#include "text.h"
#include "zeile.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quillmar::einrichtung
{
using Stil::abstand;

Profilleiste::Profilleiste(Profilwahl *profilwahl, QWidget *eltern)
    : QWidget(eltern), m_profilwahl(profilwahl),
      m_umbenennen(new Flachknopf(u"profilUmbenennen"_s, Symbol::Umbenennen, Sprache::text(u"Profil umbenennen …"_s),
                                  Sprache::text(u"Gibt dem Profil einen anderen Namen. Sonst ändert sich nichts."_s),
                                  this)),
      m_entfernen(new Flachknopf(u"profilEntfernen"_s, Symbol::Minus, Sprache::text(u"Profil entfernen …"_s),
                                 Sprache::text(u"Nimmt das Profil aus der Liste. Es wird vorher gefragt."_s), this)),
      m_namensteil(new QWidget(this)), m_name(new QLineEdit(m_namensteil)),
      m_frage(new Rueckfrage({{.name = u"profilEntfernenJa"_s, .text = Sprache::text(u"Profil entfernen"_s)}}, this))
{
    auto *spalte = new QVBoxLayout(this);
    spalte->setContentsMargins(0, 0, 0, 0);
    namensfeldBauen();
    spalte->addWidget(m_namensteil);
    spalte->addWidget(m_frage);
    for (Flachknopf *knopf : {m_umbenennen, m_entfernen}) {
        knopf->setzeMitText(true);
        spalte->addWidget(knopf, 0, Qt::AlignLeft);
    }
    connect(m_umbenennen, &QToolButton::clicked, this, &Profilleiste::umbenennen);
    connect(m_entfernen, &QToolButton::clicked, this, &Profilleiste::entfernenFragen);
    connect(m_frage, &Rueckfrage::abgebrochen, this, &Profilleiste::schliessen);
    connect(m_frage, &Rueckfrage::bestaetigt, this, [this] {
        schliessen();
        if (m_profilwahl->aktiv())
            m_profilwahl->profilEntfernen(m_profilwahl->aktiv()->id);
    });
    connect(m_profilwahl, &Profilwahl::aktivGeaendert, this, &Profilleiste::schliessen);
    Stil::folgen(this, [spalte] { spalte->setSpacing(abstand(4)); });
    schliessen();
}

void Profilleiste::namensfeldBauen()
{
    auto *schild = new QLabel(Sprache::text(u"Name des Profils"_s), m_namensteil);
    schild->setTextFormat(Qt::PlainText);
    schild->setBuddy(m_name);
    Stil::nebentext(schild);
    m_name->setObjectName(u"profilname"_s);
    m_name->setAccessibleName(Sprache::text(u"Name des Profils"_s));
    auto *fertig = new QPushButton(Sprache::text(u"Umbenennen"_s));
    fertig->setObjectName(u"profilUmbenennenJa"_s);
    auto *lassen = new QPushButton(Sprache::text(u"Abbrechen"_s));
    lassen->setObjectName(u"profilUmbenennenNein"_s);
    auto *spalte = new QVBoxLayout(m_namensteil);
    spalte->setContentsMargins(0, 0, 0, 0);
    spalte->addWidget(schild);
    spalte->addWidget(m_name);
    spalte->addWidget(zeile(m_namensteil, {fertig, lassen}));
    connect(m_name, &QLineEdit::textChanged, fertig,
            [fertig](const QString &text) { fertig->setEnabled(!text.trimmed().isEmpty()); });
    // Only when the key has been dealt with: it would press the button that has the focus then.
    connect(m_name, &QLineEdit::returnPressed, this, &Profilleiste::nameUebernehmen, Qt::QueuedConnection);
    connect(fertig, &QPushButton::clicked, this, &Profilleiste::nameUebernehmen);
    connect(lassen, &QPushButton::clicked, this, &Profilleiste::schliessen);
    Stil::folgen(m_namensteil, [this, spalte, fertig, lassen] {
        spalte->setSpacing(abstand(6));
        for (QWidget *teil : QList<QWidget *>{m_name, fertig, lassen})
            teil->setMinimumHeight(abstand(30));
    });
}

void Profilleiste::umbenennen()
{
    if (!m_profilwahl->aktiv())
        return;
    m_umbenennen->hide();
    m_entfernen->hide();
    m_namensteil->show();
    m_name->setText(m_profilwahl->aktiv()->name);
    m_name->selectAll();
    m_name->setFocus();
}

void Profilleiste::nameUebernehmen()
{
    const QString name = m_name->text().trimmed();
    if (name.isEmpty() || !m_profilwahl->aktiv())
        return;
    Profil neu = *m_profilwahl->aktiv();
    neu.name = name;
    m_profilwahl->setzeProfil(neu);
    schliessen();
    m_umbenennen->setFocus();
}

void Profilleiste::entfernenFragen()
{
    if (!m_profilwahl->aktiv())
        return;
    m_umbenennen->hide();
    m_entfernen->hide();
    m_frage->fragen(gefuellt(Sprache::text(u"%@ aus der Liste nehmen? Deine Dokumente bleiben, wo sie sind. Auch der "
                                           "Katalog mit allem, was gelesen und gelernt wurde, bleibt liegen: in %@."_s),
                             {m_profilwahl->aktiv()->name, Profilwahl::datenordner()}));
}

void Profilleiste::schliessen()
{
    m_namensteil->hide();
    m_frage->hide();
    m_umbenennen->show();
    m_entfernen->show();
}

void Profilleiste::keyPressEvent(QKeyEvent *ereignis)
{
    if (ereignis->key() != Qt::Key_Escape)
        return QWidget::keyPressEvent(ereignis);
    schliessen();
    m_umbenennen->setFocus();
}
} // namespace quillmar::einrichtung
