#include "angebotsliste.h"
#include "ausfuehrung.h"
#include "feldnotiz.h"
#include "fensterprobe.h"
#include "pdf.h"
#include "pruefansicht.h"
#include "pruefung.h"
#include "satz.h"
#include "textschild.h"
#include "vorschau.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;

namespace
{
/** The n-th letter: from one of three firms, on its day, with its number. */
struct Brief {
    explicit Brief(int n)
        : firma(QStringList{u"Stadtwerke Meißen"_s, u"Elbtal Bank"_s, u"Funkhaus Mobil"_s}.at(n % 3)),
          datum(u"2024-01-%1"_s.arg(n, 2, 10, QChar(u'0'))), nummer(QString::number(4700 + n))
    {
        vorfuehrung::Seite seite;
        seite.inhalt = vorfuehrung::seitenSatz(
            {u"# "_s + firma + u" GmbH"_s, u""_s, u"Meißen, %1.01.2024"_s.arg(n, 2, 10, QChar(u'0')), u""_s,
             u"* Rechnung Nr. "_s + nummer, u"Sehr geehrte Frau Muster,"_s, u"bitte zahlen Sie bis 28.02.2024."_s});
        pdf = vorfuehrung::pdf({seite});
    }
    [[nodiscard]] QString titel() const { return u"Rechnung "_s + nummer; }

    QString firma;
    QString datum;
    QString nummer;
    QByteArray pdf;
};
} // namespace

/** The review card beside the page: what is marked, what is missing, and what is taken from it. */
class TestFundkarte : public Fensterprobe
{
    Q_OBJECT

    qint64 dokument(int n, const std::function<void(Dokument &)> &falsch = {})
    {
        const Brief brief(n);
        return m_b->dokument(
            u"Scan_%1.pdf"_s.arg(n, 2, 10, QChar(u'0')),
            [&](Dokument &d) {
                d.hatTextebene = true;
                d.angaben.datum = brief.datum;
                d.angaben.gegenueber = brief.firma;
                d.angaben.titel = brief.titel();
                if (falsch)
                    falsch(d);
            },
            brief.pdf);
    }
    [[nodiscard]] Seitenbelege *belege() const { return m_z->seitenbelege(); }
    [[nodiscard]] QString notiz(const QString &feld) { return m_fenster->findChild<Feldnotiz *>(feld)->notiz(); }
    static QAbstractItemView *offeneListe()
    {
        return qobject_cast<QAbstractItemView *>(QApplication::activePopupWidget());
    }
    static QString text(const char *feld) { return teil<QLineEdit>(feld)->text(); }

    /** Opens what the page offers for the field and takes the row that is proposed. */
    void vonDerSeite(const char *feld)
    {
        mitTabZu(feld);
        plattformtaste(Qt::Key_Down, Qt::ControlModifier);
        QVERIFY(offeneListe() && offeneListe()->currentIndex().isValid());
        plattformtaste(Qt::Key_Return);
    }

private Q_SLOTS:
    /** Thirty letters by keys alone, with five wrong values that nobody types. */
    void dreissigBriefe()
    {
        constexpr int anzahl = 30;
        const QMap<int, const char *> falsche = {
            {3, "datum"}, {8, "gegenueber"}, {14, "titel"}, {21, "datum"}, {27, "titel"}};
        for (int n = 1; n <= anzahl; ++n)
            dokument(n, [&, n](Dokument &d) {
                const QByteArray feld = falsche.value(n);
                d.angaben.datum = feld == "datum" ? u"2024-02-28"_s : d.angaben.datum;
                d.angaben.gegenueber = feld == "gegenueber" ? u"Finanzamt Meissen"_s : d.angaben.gegenueber;
                d.angaben.titel = feld == "titel" ? u"Rechnung 9999"_s : d.angaben.titel;
            });
        oeffnen();
        for (int n = 1; n <= anzahl; ++n) {
            const Brief brief(n);
            QTRY_COMPARE(name(), u"Scan_%1.pdf"_s.arg(n, 2, 10, QChar(u'0')));
            QTRY_VERIFY(!m_z->pruefung()->ungesehen());
            if (const char *feld = falsche.value(n)) {
                QTRY_COMPARE(belege()->pfad(), m_z->pruefung()->aktuelles()->pfad);
                vonDerSeite(feld);
                plattformtaste(Qt::Key_Escape);
                QTest::qWait(10); // no hand presses Return again sooner, and the window knows that
            }
            const Angaben &a = m_z->pruefung()->aktuelles()->angaben;
            const bool betreff = qstrcmp(falsche.value(n), "titel") == 0; // as it stands in the letter
            QCOMPARE(
                QStringList({a.datum, a.gegenueber, a.titel}),
                QStringList({brief.datum, brief.firma, betreff ? u"Rechnung Nr. "_s + brief.nummer : brief.titel()}));
            plattformtaste(Qt::Key_Return);
            QTRY_VERIFY2_WITH_TIMEOUT(m_z->pruefung()->zaehlwerk().erledigt == n,
                                      qPrintable(teil<Textschild>("hinweis")->ganzerText()), 30000);
        }
        QTRY_COMPARE(m_z->pruefung()->zaehlwerk().erledigt, anzahl);
    }

    void wasNirgendsSteht()
    {
        dokument(1, [](Dokument &d) { d.angaben.gegenueber = u"Finanzamt Meissen"_s; });
        oeffnen();
        const QString satz = u"Steht so nicht im Text."_s;
        QTRY_COMPARE(notiz(u"gegenueberNotiz"_s), satz);
        QVERIFY(notiz(u"titelNotiz"_s).isEmpty());
        mitTabZu("datum");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_9);
        QTRY_VERIFY(teil<Textschild>("wochentag")->ganzerText().startsWith(u"Bitte"_s));
        mitTabZu("titel");
        QTest::keyClicks(QApplication::focusWidget(), u" 17"_s);
        QTRY_COMPARE(notiz(u"titelNotiz"_s), satz);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Z, Qt::ControlModifier);
        QTRY_VERIFY(notiz(u"titelNotiz"_s).isEmpty());
    }

    // What is clicked is one step of the field's own undo, and at its beginning nothing else is undone.
    void vonDerSeiteGenommen()
    {
        dokument(1);
        dokument(2);
        oeffnen();
        QTRY_VERIFY(!m_z->pruefung()->ungesehen());
        plattformtaste(Qt::Key_Return);
        QTRY_COMPARE(name(), u"Scan_02.pdf"_s);
        auto *vorschau = m_fenster->findChild<PruefAnsicht *>()->vorschau();
        Q_EMIT vorschau->genommen({.text = u"28.02.2024"_s}); // no field: nothing
        QCOMPARE(text("datum"), u"2024-01-02"_s);
        mitTabZu("datum");
        Q_EMIT vorschau->genommen({.text = u"28.02.2024."_s});
        QCOMPARE(text("datum"), u"2024-02-28"_s);
        QCOMPARE(m_z->pruefung()->aktuelles()->angaben.datum, u"2024-02-28"_s);
        plattformtaste(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(text("datum"), u"2024-01-02"_s);
        plattformtaste(Qt::Key_Z, Qt::ControlModifier);
        QTRY_VERIFY(!m_z->ausfuehrung()->beschaeftigt());
        QCOMPARE(name(), u"Scan_02.pdf"_s);
        QCOMPARE(m_z->pruefung()->zaehlwerk().erledigt, 1);
        mitTabZu("gegenueber");
        Q_EMIT vorschau->genommen({.text = u"Meier Bau GmbH & Co. KG,"_s});
        QCOMPARE(text("gegenueber"), u"Meier Bau"_s);
    }

    void derSchalter()
    {
        dokument(1);
        oeffnen();
        auto *vorschau = m_fenster->findChild<PruefAnsicht *>()->vorschau();
        QVERIFY(vorschau->markenSichtbar());
        QTRY_VERIFY(!m_z->pruefung()->ungesehen());
        plattformtaste(Qt::Key_M);
        QVERIFY(!vorschau->markenSichtbar());
        mitTabZu("titel");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_M); // in a field it is a letter
        QVERIFY(!vorschau->markenSichtbar());
        QVERIFY(text("titel").endsWith(u'm'));
        plattformtaste(Qt::Key_Escape);
        plattformtaste(Qt::Key_M);
        QVERIFY(vorschau->markenSichtbar());
    }

    void wennNichtsDaIst()
    {
        m_b->dokument(
            u"leer.pdf"_s, [](Dokument &d) { d.hatTextebene = true; }, "no PDF");
        oeffnen();
        mitTabZu("datum");
        plattformtaste(Qt::Key_Down, Qt::ControlModifier);
        QVERIFY(offeneListe() && offeneListe()->model()->rowCount() == 1);
        const QString vorher = text("datum");
        plattformtaste(Qt::Key_Return);
        QCOMPARE(text("datum"), vorher);
    }
};

QTEST_MAIN(TestFundkarte)
#include "test_fundkarte.moc"
