#include "laufhinweis.h"

#include "hinweisfeld.h"
#include "sprache.h"

#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quillmar::ablauf
{
Laufhinweis::Laufhinweis(QWidget *eltern) : QWidget(eltern), m_spalte(new QVBoxLayout(this))
{
    setObjectName(u"laufhinweis"_s);
    m_spalte->setContentsMargins(0, 0, 0, 0);
    hide();
}

void Laufhinweis::zeigen(const QStringList &saetze)
{
    if (saetze == m_saetze)
        return;
    m_saetze = saetze;
    if (m_feld) {
        m_feld->hide();
        m_feld->deleteLater(); // its button may be what led here
        m_feld = nullptr;
    }
    setVisible(!saetze.isEmpty());
    if (saetze.isEmpty())
        return;
    m_feld = new Hinweisfeld(true, Symbol::Warnung, saetze.join(u' '), Sprache::text(u"Noch einmal versuchen"_s), this);
    m_feld->knopf()->setObjectName(u"nochEinmalVersuchen"_s);
    connect(m_feld, &Hinweisfeld::gedrueckt, this, &Laufhinweis::gedrueckt);
    m_spalte->addWidget(m_feld);
}

void Laufhinweis::setzeBedienbar(bool bedienbar)
{
    if (m_feld)
        m_feld->knopf()->setEnabled(bedienbar);
}
} // namespace quillmar::ablauf
