#include "analyse.h"
#include "durchgang.h"
#include "fensterprobe.h"
#include "lage.h"
#include "testserver.h"
#include "zustand.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;

namespace
{
/** What the model server says of every document. */
Testantwort vorschlag()
{
    const QByteArray antwort = QJsonDocument(QJsonObject{{u"gegenueber"_s, u"Stadtwerke"_s}}).toJson();
    const QJsonObject huelle = {{u"response"_s, QString::fromUtf8(antwort)}, {u"done"_s, true}};
    return Testantwort::fest(200, QJsonDocument(huelle).toJson());
}
} // namespace

/** The run card in the window. */
class TestAblaufkarte : public Fensterprobe
{
    Q_OBJECT

private Q_SLOTS:
    /** Above the stages of the portion stands how far the whole run is; at its end they tell of all portions. */
    void grosserStapel()
    {
        Testserver server;
        server.antworten("/api/tags", Testantwort::fest(200, R"({"models": [{"name": "klein"}]})"));
        server.antworten("/api/generate", QList<Testantwort>(12, vorschlag()) << Testantwort::gehalten(vorschlag()));
        qputenv("OLLAMA_HOST", server.adresse().toUtf8());
        for (int i = 0; i < 60; ++i)
            m_b->dokument(
                u"%1.pdf"_s.arg(i), [](Dokument &d) { d.status = Status::Neu; }, QByteArray::number(i));
        m_b->sql(u"UPDATE dokumente SET text_hash=''"_s);
        m_b->profil.modell = u"klein"_s;
        oeffnen();
        m_z->setzeReiter(Reiter::Ablauf);
        QVERIFY(!suchen<QWidget>("gesamtstand"));
        m_z->durchgang()->durchgangStarten();
        QTRY_COMPARE(m_z->durchgang()->analyse()->ganzes().fertig, 12);
        const auto *ganzes = teil<QWidget>("gesamtstand");
        QCOMPARE(ganzes->accessibleName(), u"12 von 60 Dokumenten fertig"_s);
        QVERIFY(ganzes->accessibleDescription().endsWith(u"Jetzt: Dokumente 11 bis 60"_s));
        QVERIFY(teil<QWidget>("stufe-3")->accessibleDescription().endsWith(u"2 von 50 eingeordnet"_s));
        const Lage unten = lage(*m_z, {});
        QVERIFY2(unten.rest.startsWith(u"12 von 60 Dokumenten fertig · noch rund "_s), qPrintable(unten.rest));
        QCOMPARE(unten.anteil, 0.2);
        server.loslassen();
        QTRY_VERIFY(!m_z->durchgang()->laeuft());
        QVERIFY(!suchen<QWidget>("gesamtstand"));
        QVERIFY(teil<QWidget>("stufe-3")->accessibleDescription().contains(u"60 von 60 eingeordnet"_s));
    }
};

QTEST_MAIN(TestAblaufkarte)
#include "test_ablaufkarte.moc"
