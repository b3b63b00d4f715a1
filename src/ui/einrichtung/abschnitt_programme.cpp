#include "abschnitte.h"
#include "abschnittsseite.h"
#include "auswahl.h"
#include "einrichtung.h"
#include "flachknopf.h"
#include "marktext.h"
#include "modelldienst.h"
#include "ocrsprachen.h"
#include "sprache.h"
#include "stil.h"

#include <QHBoxLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace quillmar::einrichtung
{
namespace
{
constexpr int sprachzeichen = 22;

/** The programs that do the reading, and the model server. */
class Programme : public Abschnittsseite
{
public:
    Programme(Profilwahl *profilwahl, Einrichtung *einrichtung, Modelldienst *modelldienst, QWidget *eltern)
        : Abschnittsseite(profilwahl, einrichtung, Abschnitt::Programme,
                          Sprache::text(u"Womit die Dokumente gelesen werden. Alles läuft auf diesem Rechner."_s),
                          eltern),
          m_modelldienst(modelldienst)
    {
        for (const QString &name : {u"pdftotext"_s, u"pdftoppm"_s, u"tesseract"_s})
            werkzeugBauen(name);
        Flachknopf *pruefen =
            flachknopf(u"programmePruefen"_s, Sprache::text(u"Erneut prüfen"_s),
                       Sprache::text(u"Sieht noch einmal nach, was installiert ist"_s), Symbol::NeuLaden);
        connect(pruefen, &QToolButton::clicked, this, [einrichtung, modelldienst] {
            einrichtung->einrichtungPruefen();
            modelldienst->modellPruefen();
        });
        auto *zeile = new QWidget(this);
        auto *waagrecht = new QHBoxLayout(zeile);
        waagrecht->setContentsMargins(0, 0, 0, 0);
        waagrecht->addWidget(pruefen);
        waagrecht->addStretch(1);
        darunter(zeile);
        spracheBauen();
        serverBauen();
        abschliessen();
        connect(modelldienst, &Modelldienst::modellGeaendert, this, [this] { serverZeigen(); });
        folgen([this] { zeigen(); });
    }

private:
    void werkzeugBauen(const QString &name)
    {
        Marktext *text = marktext();
        text->setObjectName(u"werkzeug-"_s + name);
        m_werkzeuge << text;
        reihe(name, werkzeughilfe(name), text);
    }

    static QString werkzeughilfe(const QString &name)
    {
        if (name == "pdftotext"_L1)
            return Sprache::text(u"Holt den Text aus PDF, die schon welchen enthalten."_s);
        if (name == "pdftoppm"_L1)
            return Sprache::text(u"Macht aus den Seiten eines Scans Bilder für die Texterkennung."_s);
        return Sprache::text(u"Erkennt den Text auf den Bildern."_s);
    }

    void spracheBauen()
    {
        auto *erklaerung = marktext();
        erklaerung->erklaeren(Sprache::text(u"Die Texterkennung liest nur Sprachen gut, deren Daten installiert "
                                            "sind."_s));
        titel(Sprache::text(u"Texterkennung"_s), erklaerung);
        m_sprache = new QComboBox(this);
        m_sprache->setObjectName(u"ocrSprache"_s);
        m_sprachstand = marktext();
        m_sprachstand->setObjectName(u"ocrSprache-stand"_s);
        connect(m_sprache, &QComboBox::activated, this, [this](int stelle) {
            aendern([&](Profil &p) { p.ocrSprache = m_sprache->itemData(stelle).toString(); });
        });
        reihe(Sprache::text(u"Sprache der Scans"_s), Sprache::text(u"Die Sprache, in der deine Briefe meist sind."_s),
              m_sprache, daneben(m_sprache, sprachzeichen, m_sprachstand));
    }

    void serverBauen()
    {
        auto *erklaerung = marktext();
        erklaerung->erklaeren(Sprache::text(u"Er rechnet das Sprachmodell, das Namen und Ordner vorschlägt."_s));
        titel(Sprache::text(u"Modellserver"_s), erklaerung);
        m_server = marktext();
        m_server->setObjectName(u"modellserver"_s);
        reihe(u"ollama"_s, {}, m_server);
        m_rat = marktext();
        m_rat->setObjectName(u"modellserver-rat"_s);
        darunter(m_rat);
    }

    void zeigen()
    {
        const Einrichtungslage lage = einrichtung()->lage();
        for (Marktext *text : m_werkzeuge)
            einrichtung::zeigen(*text, Befunde::werkzeug(lage, text->objectName().section(u'-', 1)));
        const auto &programme = lage.stand.programme;
        QList<Wahleintrag> sprachen;
        for (const QString &code :
             Ocrsprachen::auswahl(programme ? programme->sprachen : QStringList(), lage.profil.ocrSprache))
            sprachen << Wahleintrag{.wert = code, .anzeige = Ocrsprachen::name(code)};
        wahlAuffrischen(m_sprache, sprachen, lage.profil.ocrSprache);
        einrichtung::zeigen(*m_sprachstand, Befunde::ocrSprache(lage));
        serverZeigen();
    }

    void serverZeigen()
    {
        einrichtung::zeigen(*m_server, Befunde::modellserver(einrichtung()->lage()));
        einrichtung::zeigen(*m_rat, Befunde::serverrat(einrichtung()->lage()));
    }

    Modelldienst *m_modelldienst;
    QList<Marktext *> m_werkzeuge;
    QComboBox *m_sprache = nullptr;
    Marktext *m_sprachstand = nullptr;
    Marktext *m_server = nullptr;
    Marktext *m_rat = nullptr;
};
} // namespace

Abschnittsseite *programmseite(Profilwahl *profilwahl, Einrichtung *einrichtung, Modelldienst *modelldienst,
                               QWidget *eltern)
{
    return new Programme(profilwahl, einrichtung, modelldienst, eltern);
}
} // namespace quillmar::einrichtung
