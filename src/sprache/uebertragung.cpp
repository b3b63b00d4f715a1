#include "uebertragung.h"

#include <QRegularExpression>
#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace quillmar::sprache
{
namespace
{
constexpr auto platzhalter = "%@"_L1;
constexpr qsizetype wenigeBuchstaben = 4; // a text with fewer would be found in anything

class Uebertragung
{
public:
    Uebertragung(const QStringList &texte, const QHash<QString, QString> &von, const QHash<QString, QString> &nach)
        : m_texte(texte), m_von(von), m_nach(nach)
    {
    }

    [[nodiscard]] QString satz(const QString &gesagt) const
    {
        if (const auto genau = alsText(gesagt))
            return *genau;
        if (const auto teile = zerlegt(gesagt, u", "_s))
            return *teile;
        if (const auto gefuellt = alsMuster(gesagt))
            return *gefuellt;
        return zerlegt(gesagt, u": "_s).value_or(gesagt);
    }

private:
    [[nodiscard]] static QString inSprache(const QHash<QString, QString> &texte, const QString &deutsch)
    {
        const QString uebersetzt = texte.value(deutsch);
        return uebersetzt.isEmpty() ? deutsch : uebersetzt;
    }

    [[nodiscard]] std::optional<QString> alsText(const QString &gesagt) const
    {
        const auto text = std::find_if(m_texte.begin(), m_texte.end(),
                                       [&](const QString &t) { return inSprache(m_von, t) == gesagt; });
        return text == m_texte.end() ? std::nullopt : std::optional(inSprache(m_nach, *text));
    }

    /** The text that has the most in common with what was said, filled with the same arguments. */
    [[nodiscard]] std::optional<QString> alsMuster(const QString &gesagt) const
    {
        qsizetype meistes = wenigeBuchstaben - 1;
        std::optional<QString> bestes;
        for (const QString &text : m_texte) {
            const QString muster = inSprache(m_von, text);
            const qsizetype festes = muster.size() - muster.count(platzhalter) * platzhalter.size();
            if (festes <= meistes || !muster.contains(platzhalter))
                continue;
            const auto treffer = alsRegel(muster).match(gesagt);
            if (!treffer.hasMatch())
                continue;
            meistes = festes;
            bestes = gefuelltes(inSprache(m_nach, text), treffer.capturedTexts().mid(1));
        }
        return bestes;
    }

    /** Finds what has been filled into the places of @p muster. */
    [[nodiscard]] static QRegularExpression alsRegel(const QString &muster)
    {
        const QStringList stuecke = muster.split(platzhalter);
        QStringList regel;
        for (const QString &stueck : stuecke)
            regel << QRegularExpression::escape(stueck);
        return QRegularExpression(u"\\A"_s + regel.join(u"(.*?)"_s) + u"\\z"_s,
                                  QRegularExpression::DotMatchesEverythingOption);
    }

    [[nodiscard]] static QString gefuelltes(const QString &muster, const QStringList &werte)
    {
        const QStringList stuecke = muster.split(platzhalter);
        QString ergebnis = stuecke.first();
        for (qsizetype n = 1; n < stuecke.size(); ++n)
            ergebnis += werte.value(n - 1) + stuecke.at(n);
        return ergebnis;
    }

    /** Both sides of @p trenner; none if the left one is of no text. */
    [[nodiscard]] std::optional<QString> zerlegt(const QString &gesagt, const QString &trenner) const
    {
        for (qsizetype stelle = gesagt.indexOf(trenner); stelle > 0;
             stelle = gesagt.indexOf(trenner, stelle + trenner.size())) {
            const QString links = gesagt.left(stelle);
            const QString rechts = gesagt.mid(stelle + trenner.size());
            auto erster = alsText(links);
            if (!erster)
                erster = alsMuster(links);
            const bool mehrere = alsText(rechts) || alsMuster(rechts) || trenner == u": "_s;
            if (erster && mehrere)
                return *erster + trenner + satz(rechts);
        }
        return std::nullopt;
    }

    const QStringList &m_texte;
    const QHash<QString, QString> &m_von;
    const QHash<QString, QString> &m_nach;
};
} // namespace

QString uebertragen(const QString &satz, const QStringList &texte, const QHash<QString, QString> &von,
                    const QHash<QString, QString> &nach)
{
    return satz.isEmpty() ? satz : Uebertragung(texte, von, nach).satz(satz);
}
} // namespace quillmar::sprache
