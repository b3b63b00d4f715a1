#include "meldestelle.h"

#include "sprache.h"

namespace quillmar::zustand
{
QStringList Meldestelle::meldungen() const
{
    QStringList beide = m_hinweisIstNeuer ? QStringList{m_hinweis, m_geschehen} : QStringList{m_geschehen, m_hinweis};
    beide.removeAll(QString());
    return beide;
}

void Meldestelle::melden(const QString &hinweis, Ton ton)
{
    m_hinweis = hinweis;
    m_hinweisIstNeuer = true;
    m_ton = hinweis.isEmpty() ? Ton::Ruhig : ton;
    Q_EMIT hinweisGeaendert();
}

void Meldestelle::anhaengen(const QString &satz)
{
    if (m_hinweis.isEmpty())
        melden(satz, Ton::Ruhig);
    else if (!m_hinweis.contains(satz))
        melden(m_hinweis + QStringLiteral(", ") + satz, m_ton);
}

void Meldestelle::ersetzen(const QString &bisheriger, const QString &satz)
{
    if (bisheriger.isEmpty() || (m_hinweis != bisheriger && m_hinweis != Sprache::nachgesprochen(bisheriger)))
        return;
    m_hinweis = satz;
    Q_EMIT hinweisGeaendert();
}

void Meldestelle::berichten(const QString &geschehen, const QString &hinweis, Ton ton, bool hinweisZuerst)
{
    m_geschehen = geschehen;
    m_hinweis = hinweis;
    m_hinweisIstNeuer = hinweisZuerst;
    const bool gutes = ton == Ton::Gut && !geschehen.isEmpty();
    m_ton = hinweis.isEmpty() && !gutes ? Ton::Ruhig : ton;
    Q_EMIT hinweisGeaendert();
}

void Meldestelle::vergessen()
{
    m_geschehen.clear();
    Q_EMIT hinweisGeaendert();
}

void Meldestelle::nachsprechen()
{
    for (QString *satz : {&m_hinweis, &m_geschehen})
        *satz = Sprache::nachgesprochen(*satz);
    Q_EMIT hinweisGeaendert();
}
} // namespace quillmar::zustand
