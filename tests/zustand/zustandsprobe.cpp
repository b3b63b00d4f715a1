#include "zustandsprobe.h"

#include "profilspeicher.h"

#include <QTest>

void Zustandsprobe::beginnen()
{
    m_b->profilSichern();
    m_z = std::make_unique<Zustand>();
    m_z->beginnen();
    QTRY_VERIFY(m_z->offen() && !m_z->oeffnet());
    QTRY_VERIFY(m_z->bereitschaft());
}

QString Zustandsprobe::name() const { return m_z->aktuelles() ? m_z->aktuelles()->dateiname : QString(); }

void Zustandsprobe::init()
{
    QFile::remove(Profilspeicher::datei());
    qputenv("OLLAMA_HOST", "127.0.0.1:9"); // nothing listens there
    m_b = std::make_unique<Buehne>();
}

void Zustandsprobe::cleanup()
{
    Zustand::ordnerwaehler = {};
    Zustand::protokollwaehler = {};
    m_z.reset();
    m_b.reset();
}
