#include "fensterprobe.h"

#include "profilwahl.h"
#include "sprache.h"
#include "zustand.h"

#include <QAbstractButton>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;

namespace
{
constexpr int meisteTeile = 60; // that Tab goes through in one window
}

void Fensterprobe::oeffnen(bool mitProfil)
{
    if (mitProfil)
        m_b->profilSichern();
    m_z = std::make_unique<Zustand>();
    m_sprache = std::make_unique<Fenstersprache>();
    m_fenster = std::make_unique<Hauptfenster>(m_z.get(), m_sprache.get());
    m_fenster->show();
    QVERIFY(QTest::qWaitForWindowActive(m_fenster.get()));
    QTRY_VERIFY(!mitProfil || (m_z->profilwahl()->offen() && m_z->profilwahl()->bereitschaft()));
}

void Fensterprobe::klicken(QAnyStringView name) { QTest::mouseClick(teil<QAbstractButton>(name), Qt::LeftButton); }

void Fensterprobe::druecken(Qt::Key taste, Qt::KeyboardModifiers dazu)
{
    QTest::keyClick(QApplication::focusWidget(), taste, dazu);
}

void Fensterprobe::plattformtaste(Qt::Key taste, Qt::KeyboardModifiers dazu) const
{
    QTest::keyClick(m_fenster->windowHandle(), taste, dazu);
}

void Fensterprobe::mitTabZu(QAnyStringView name)
{
    for (int n = 0; n < meisteTeile && fokus() != name.toString(); ++n)
        druecken(Qt::Key_Tab);
    QCOMPARE(fokus(), name.toString());
}

QString Fensterprobe::fokus()
{
    return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
}

void Fensterprobe::init()
{
    Zustandsprobe::init();
    Sprache::setzeGewaehlteKennung(u"de"_s);
}

void Fensterprobe::cleanup()
{
    m_fenster.reset();
    m_sprache.reset();
    Zustandsprobe::cleanup();
}
