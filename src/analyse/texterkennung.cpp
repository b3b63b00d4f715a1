#include "texterkennung.h"

#include "aufrichtung.h"
#include "bilderordner.h"
#include "kindprozess.h"
#include "seitenbilder.h"
#include "sprachprobe.h"
#include "werkzeuge.h"

#include <QRegularExpression>
#include <memory>

using namespace Qt::StringLiterals;

namespace quillmar::analyse
{
namespace
{
const QString werkzeug = u"tesseract"_s;

/** The pages of one document, one after the other. */
class Erkenner
{
public:
    Erkenner(const QStringList &bilder, const QString &sprache, const Lesegrenzen &grenzen, const std::stop_token &ende)
        : m_bilder(bilder), m_sprache(sprache), m_grenzen(grenzen.fuerSeiten(1)), m_ende(ende)
    {
    }

    [[nodiscard]] Texterkennung::Ergebnis alle()
    {
        QStringList texte;
        vorrichten(0);
        for (qsizetype i = 0; i < m_bilder.size(); ++i) {
            const Aufrichtung::Lage lage = m_naechste->lage(m_ende);
            vorrichten(i + 1);
            texte << eine(m_bilder.at(i), lage);
        }
        return {.text = texte.join(u'\n').trimmed(), .lagen = m_lagen};
    }

private:
    void vorrichten(qsizetype i)
    {
        m_naechste.reset();
        if (i < m_bilder.size())
            m_naechste = std::make_unique<Vorrichtung>(m_bilder.at(i), m_grenzen);
    }

    QString eine(const QString &bild, const Aufrichtung::Lage &lage)
    {
        Seitenlage seite{.seite = Seitenbilder::seiteVon(bild), .drehung = 0, .neigung = lage.neigung};
        QString text = lesen(bild);
        const Sprachprobe probe(text, m_sprache);
        // Lines that run up or down are recognised as they are, but the page is to be shown upright.
        if (!probe.istSprache() || (lage.hochkant && !probe.istLeer()))
            text = besserGedreht(bild, text, probe, seite);
        if (seite.drehung != 0 || seite.neigung != 0)
            m_lagen << seite;
        return text;
    }

    QString besserGedreht(const QString &bild, const QString &text, const Sprachprobe &probe, Seitenlage &seite)
    {
        const int drehung = fehlendeDrehung(bild);
        const auto lage = drehung == 0 ? std::nullopt : Aufrichtung::aufrichten(bild, drehung, m_grenzen, m_ende);
        if (!lage)
            return text;
        const QString gedreht = lesen(bild);
        if (Sprachprobe(gedreht, m_sprache).guete() < probe.guete())
            return text;
        seite.drehung = drehung;
        return gedreht;
    }

    [[nodiscard]] QString lesen(const QString &bild) const
    {
        return Werkzeuge::alsText(
            Werkzeuge::starten(werkzeug, {bild, u"stdout"_s, u"-l"_s, m_sprache}, m_grenzen, m_ende));
    }

    /** Degrees clockwise; 0 also where tesseract cannot tell. */
    [[nodiscard]] int fehlendeDrehung(const QString &bild) const
    {
        static const QRegularExpression winkel(u"^Rotate: (90|180|270)$"_s, QRegularExpression::MultilineOption);
        try {
            const QByteArray ausgabe =
                Werkzeuge::starten(werkzeug, {bild, u"stdout"_s, u"--psm"_s, u"0"_s}, m_grenzen, m_ende);
            return winkel.match(Werkzeuge::alsText(ausgabe)).captured(1).toInt();
        } catch (const Fehler &) {
            return 0; // too few letters, or its data are not installed
        }
    }

    const QStringList m_bilder;
    const QString m_sprache;
    const Grenzen m_grenzen;
    const std::stop_token m_ende;
    std::unique_ptr<Vorrichtung> m_naechste;
    QList<Seitenlage> m_lagen;
};
} // namespace

Texterkennung::Ergebnis Texterkennung::erkennen(const QString &pdf, int seiten, const QString &sprache,
                                                const Lesegrenzen &grenzen, const std::stop_token &ende)
{
    const Bilderordner ordner;
    try {
        Seitenbilder::zeichnen(pdf, {.erste = 1, .letzte = seiten}, grenzen, ordner, ende);
        return Erkenner(ordner.bilder(), sprache, grenzen, ende).alle();
    } catch (const Fehler &) {
        ordner.platzPruefen(); // the tools say nothing of it, or crash
        throw;
    }
}
} // namespace quillmar::analyse
