#include "stil.h"
#include "teiler.h"

#include <QSignalSpy>
#include <QtTest>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;

class TeilerTest : public QObject
{
    Q_OBJECT

private:
    QWidget *m_links = new QWidget;
    Teiler m_teiler{m_links, new QWidget};
    QWidget *m_griff = nullptr;

    [[nodiscard]] QPoint mitte() const { return m_griff->rect().center(); }

    void ziehen(int weg)
    {
        QTest::mousePress(m_griff, Qt::LeftButton, Qt::NoModifier, mitte());
        const QPoint anfang = m_griff->mapToGlobal(mitte());
        // The strip moves with the mouse, as it does under a hand.
        for (int schritt = 1; schritt <= 10; ++schritt)
            QTest::mouseMove(m_griff, m_griff->mapFromGlobal(anfang + QPoint(weg * schritt / 10, 0)));
        QTest::mouseRelease(m_griff, Qt::LeftButton, Qt::NoModifier, mitte());
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_teiler.resize(1201, 300);
        m_teiler.show();
        QVERIFY(QTest::qWaitForWindowExposed(&m_teiler));
        m_griff = m_teiler.findChild<QWidget *>(u"teilung"_s);
        QVERIFY(m_griff && !m_griff->accessibleName().isEmpty() && !m_griff->toolTip().isEmpty());
        QCOMPARE(m_griff->width(), 11);
    }

    void init() { m_teiler.setzeAnteil(0.5); }

    void zug_data()
    {
        QTest::addColumn<int>("weg");
        QTest::addColumn<double>("erwartet");
        QTest::newRow("zu kurz") << 9 << 0.5;
        QTest::newRow("lang genug") << 12 << 0.51;
        QTest::newRow("rechts") << 180 << 0.65;
        QTest::newRow("links") << -180 << 0.35;
        QTest::newRow("ganz rechts") << 570 << 0.75;
        QTest::newRow("ganz links") << -570 << 0.25;
    }

    void zug()
    {
        QFETCH(const int, weg);
        QFETCH(const double, erwartet);
        QSignalSpy gewaehlt(&m_teiler, &Teiler::anteilGewaehlt);
        ziehen(weg);
        QVERIFY2(qAbs(m_teiler.anteil() - erwartet) < 0.002, qPrintable(QString::number(m_teiler.anteil())));
        QVERIFY(qAbs(m_links->width() - erwartet * 1200) <= 2);
        QCOMPARE(gewaehlt.isEmpty(), erwartet == 0.5);
        QTest::mouseDClick(m_griff, Qt::LeftButton, Qt::NoModifier, mitte());
        QCOMPARE(m_teiler.anteil(), 0.5);
    }

    /** What a pane has to hold grows with the font, and nothing of it may lie outside. */
    void grosseSchrift()
    {
        QSignalSpy angeordnet(&m_teiler, &Teiler::angeordnet);
        m_teiler.setzeAnteil(0.25);
        const int vorher = m_links->width();
        Stil::setzeSchriftgroesse(18);
        QTRY_VERIFY(m_links->width() > vorher * 3 / 2);
        QCOMPARE(angeordnet.last().first().toDouble(), m_links->width() / 1201.0);
        QTest::keyClick(m_griff, Qt::Key_Right);
        QVERIFY(m_teiler.anteil() * 1201 > m_links->width() - 1); // from where it is seen
        Stil::setzeSchriftgroesse(10);
        m_teiler.setzeAnteil(0.25);
        QTRY_COMPARE(m_links->width(), vorher);
    }

    void tasten()
    {
        QTest::keyClick(m_griff, Qt::Key_Left);
        QVERIFY(m_teiler.anteil() < 0.5 && m_teiler.anteil() > 0.4);
        for (int i = 0; i < 50; ++i)
            QTest::keyClick(m_griff, Qt::Key_Right);
        QCOMPARE(m_teiler.anteil(), 0.75);
    }
};

QTEST_MAIN(TeilerTest)
#include "test_teiler.moc"
