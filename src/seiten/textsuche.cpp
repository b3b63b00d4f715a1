#include "textsuche.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::seiten
{
namespace
{
/** Umlauts as two letters, as they are spelt where there are none. */
QString ausgeschrieben(const QString &text)
{
    static const QHash<QChar, QString> buchstaben{{u'ä', u"ae"_s}, {u'ö', u"oe"_s}, {u'ü', u"ue"_s},
                                                  {u'Ä', u"ae"_s}, {u'Ö', u"oe"_s}, {u'Ü', u"ue"_s}};
    QString ergebnis;
    for (const QChar zeichen : text.normalized(QString::NormalizationForm_C)) {
        const auto umlaut = buchstaben.constFind(zeichen);
        umlaut == buchstaben.constEnd() ? ergebnis += zeichen : ergebnis += *umlaut;
    }
    return ergebnis;
}

/** Lower case without accents. Unlike suchform() it keeps signs, which a search for "12,50" means. */
QString schlicht(const QString &text)
{
    QString ergebnis;
    for (const QChar zeichen : text.normalized(QString::NormalizationForm_KD)) {
        if (zeichen == u'ß')
            ergebnis += "ss"_L1;
        else if (zeichen.category() == QChar::Punctuation_Dash)
            ergebnis += u'-';
        else if (zeichen.category() != QChar::Mark_NonSpacing)
            ergebnis += zeichen.toLower();
    }
    return ergebnis;
}

std::array<QString, 2> formen(const QString &text) { return {schlicht(text), schlicht(ausgeschrieben(text))}; }
} // namespace

Textsuche::Textsuche(const Textkarte &karte)
{
    for (int i = 0; i < karte.seiten(); ++i) {
        Formen seite;
        for (const Seitenwort &wort : karte.seite(i).worte()) {
            const auto gefunden = formen(wort.text);
            for (size_t form = 0; form < seite.size(); ++form) {
                if (!seite[form].anfaenge.isEmpty())
                    seite[form].text += u' ';
                seite[form].anfaenge << seite[form].text.size();
                seite[form].text += gefunden[form];
            }
        }
        m_seiten << seite;
    }
}

QList<Wortspanne> Textsuche::funde(const QString &anfrage) const
{
    QList<Wortspanne> funde;
    const auto gesucht = formen(anfrage.simplified());
    if (gesucht.front().isEmpty())
        return funde;
    for (int i = 0; i < m_seiten.size(); ++i)
        for (size_t form = 0; form < gesucht.size(); ++form)
            suchen(m_seiten.at(i)[form], i, gesucht[form], funde);
    std::sort(funde.begin(), funde.end());
    funde.erase(std::unique(funde.begin(), funde.end()), funde.end());
    return funde;
}

void Textsuche::suchen(const Lauftext &lauftext, int seite, const QString &gesucht, QList<Wortspanne> &funde)
{
    const auto wortBei = [&lauftext](qsizetype stelle) {
        const auto &anfaenge = lauftext.anfaenge;
        return std::distance(anfaenge.begin(), std::upper_bound(anfaenge.begin(), anfaenge.end(), stelle)) - 1;
    };
    for (qsizetype stelle = lauftext.text.indexOf(gesucht); stelle >= 0;
         stelle = lauftext.text.indexOf(gesucht, stelle + gesucht.size()))
        funde << Wortspanne{{seite, wortBei(stelle)}, {seite, wortBei(stelle + gesucht.size() - 1)}};
}

Treffer::Treffer(QList<Wortspanne> funde, const Wortort &ab) : m_funde(std::move(funde))
{
    const auto erster =
        std::find_if(m_funde.cbegin(), m_funde.cend(), [&ab](const Wortspanne &fund) { return fund.von >= ab; });
    m_stelle = erster == m_funde.cend() ? 0 : std::distance(m_funde.cbegin(), erster);
}

std::optional<Wortspanne> Treffer::jetziger() const
{
    return m_funde.isEmpty() ? std::nullopt : std::optional(m_funde.at(m_stelle));
}

void Treffer::weiter(qsizetype schritte)
{
    if (const qsizetype anzahl = m_funde.size(); anzahl > 0)
        m_stelle = ((m_stelle + schritte) % anzahl + anzahl) % anzahl;
}
} // namespace quillmar::seiten
