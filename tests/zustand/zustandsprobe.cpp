#include "zustandsprobe.h"

#include "ordnerwahl.h"
#include "profilspeicher.h"
#include "profilwahl.h"
#include "pruefung.h"
#include "zustand.h"

#include <QTest>

using namespace quillmar::zustand;

void Zustandsprobe::beginnen()
{
    m_b->profilSichern();
    m_z = std::make_unique<Zustand>();
    m_z->profilwahl()->beginnen();
    QTRY_VERIFY(m_z->profilwahl()->offen() && !m_z->profilwahl()->oeffnet());
    QTRY_VERIFY(m_z->profilwahl()->bereitschaft());
}

QString Zustandsprobe::name() const
{
    return m_z->pruefung()->aktuelles() ? m_z->pruefung()->aktuelles()->dateiname : QString();
}

void Zustandsprobe::init()
{
    QFile::remove(Profilspeicher::datei());
    qputenv("OLLAMA_HOST", "127.0.0.1:9"); // nothing listens there
    m_b = std::make_unique<Buehne>();
}

void Zustandsprobe::cleanup()
{
    Ordnerwahl::ordnerwaehler = {};
    Ordnerwahl::protokollwaehler = {};
    m_z.reset();
    m_b.reset();
}
