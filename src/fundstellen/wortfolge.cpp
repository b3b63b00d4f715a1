#include "wortfolge.h"

#include "text.h"

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace quillmar::fundstellen
{
namespace
{
constexpr qsizetype zeichenJeFehler = 7;
constexpr double weiteLuecke = 3.5;  // letters of the wider word; a width like the gap, whatever the page's shape
constexpr double hoechsterKopf = 3;  // heights of the word below it
constexpr double gleicheZeile = 0.5; // of the lower height

bool sindGleichHoch(const QRectF &a, const QRectF &b)
{
    const double gemeinsam = std::min(a.bottom(), b.bottom()) - std::max(a.top(), b.top());
    return gemeinsam > gleicheZeile * std::min(a.height(), b.height());
}

/** They are at one height, @p b stands behind @p a, and no column lies between them. */
bool stehenInEinerZeile(const Seitenwort &a, const Seitenwort &b)
{
    const auto buchstabe = [](const Seitenwort &w) {
        return w.ort.width() / double(std::max<qsizetype>(1, w.text.size()));
    };
    const double breite = std::max(buchstabe(a), buchstabe(b));
    const double luecke = b.ort.left() - a.ort.right();
    return sindGleichHoch(a.ort, b.ort) && luecke > -2 * breite && luecke < weiteLuecke * breite;
}

bool gehoertZumWort(QChar c) { return c.isLetterOrNumber() || c.isMark(); }

/** Edits that make one of the other, as far as they are no more than @p hoechstens; one more otherwise. */
qsizetype abstand(const QString &a, const QString &b, qsizetype hoechstens)
{
    QList<qsizetype> vorige(b.size() + 1);
    std::iota(vorige.begin(), vorige.end(), 0);
    for (qsizetype i = 0; i < a.size(); ++i) {
        QList<qsizetype> zeile{i + 1};
        for (qsizetype j = 0; j < b.size(); ++j)
            zeile << std::min({vorige[j + 1] + 1, zeile[j] + 1, vorige[j] + (a.at(i) == b.at(j) ? 0 : 1)});
        if (*std::min_element(zeile.begin(), zeile.end()) > hoechstens)
            return hoechstens + 1;
        vorige = zeile;
    }
    return vorige.last();
}
} // namespace

Wortfolge::Wortfolge(int seite, const Seitenworte &worte) : m_seite(seite), m_worte(worte)
{
    for (qsizetype i = 0; i < m_worte.size(); ++i) {
        m_text += i == 0 ? QString() : u" "_s;
        m_anfaenge << m_text.size();
        m_text += m_worte.at(i).text;
        zerlegen(i);
    }
    umbrechen();
}

void Wortfolge::zerlegen(qsizetype wort)
{
    const QString &text = m_worte.at(wort).text;
    for (qsizetype i = 0; i < text.size();) {
        const qsizetype beginn = i;
        while (i < text.size() && gehoertZumWort(text.at(i)))
            ++i;
        if (const QString stueck = gefaltet(text.sliced(beginn, i - beginn), Faltung::Namen); !stueck.isEmpty())
            m_stuecke << Stueck{.text = stueck, .wort = wort};
        ++i;
    }
}

void Wortfolge::umbrechen()
{
    int zeile = 0;
    for (qsizetype i = 0; i < m_worte.size(); ++i) {
        if (i > 0 && !stehenInEinerZeile(m_worte.at(i - 1), m_worte.at(i)))
            ++zeile;
        m_zeilen << zeile;
    }
}

Fundstelle Wortfolge::stelle(qsizetype stelle, qsizetype laenge) const
{
    const auto wortBei = [this](qsizetype ort) {
        return std::distance(m_anfaenge.begin(), std::upper_bound(m_anfaenge.begin(), m_anfaenge.end(), ort)) - 1;
    };
    const qsizetype erstes = wortBei(stelle);
    return {
        .seite = m_seite, .wort = erstes, .worte = wortBei(stelle + std::max<qsizetype>(1, laenge) - 1) - erstes + 1};
}

Fundstelle Wortfolge::stelleVonStuecken(qsizetype erstes, qsizetype anzahl) const
{
    const qsizetype wort = m_stuecke.at(erstes).wort;
    return {.seite = m_seite, .wort = wort, .worte = m_stuecke.at(erstes + anzahl - 1).wort - wort + 1};
}

Fundstelle Wortfolge::zeilenstelle(int zeile) const
{
    const auto [von, bis] = std::equal_range(m_zeilen.begin(), m_zeilen.end(), zeile);
    return {.seite = m_seite, .wort = std::distance(m_zeilen.begin(), von), .worte = std::distance(von, bis)};
}

QString Wortfolge::wortlaut(const Fundstelle &stelle) const
{
    QStringList texte;
    for (const Seitenwort &wort : m_worte.sliced(stelle.wort, stelle.worte))
        texte << wort.text;
    return texte.join(u' ');
}

QRectF Wortfolge::ort(const Fundstelle &stelle) const
{
    QRectF alles;
    for (const Seitenwort &wort : m_worte.sliced(stelle.wort, stelle.worte))
        alles |= wort.ort;
    return alles;
}

std::optional<qsizetype> Wortfolge::links(qsizetype wort) const
{
    const QRectF &ort = m_worte.at(wort).ort;
    std::optional<qsizetype> naechstes;
    for (qsizetype i = 0; i < m_worte.size(); ++i) {
        const QRectF &anderes = m_worte.at(i).ort;
        if (anderes.right() > ort.left() || !sindGleichHoch(anderes, ort))
            continue;
        if (!naechstes || anderes.right() > m_worte.at(*naechstes).ort.right())
            naechstes = i;
    }
    return naechstes;
}

std::optional<qsizetype> Wortfolge::darueber(qsizetype wort) const
{
    const QRectF &ort = m_worte.at(wort).ort;
    std::optional<qsizetype> naechstes;
    for (qsizetype i = 0; i < m_worte.size(); ++i) {
        const QRectF &anderes = m_worte.at(i).ort;
        const double luecke = ort.top() - anderes.bottom();
        const bool darunter = anderes.left() < ort.right() && ort.left() < anderes.right();
        if (!darunter || luecke < -ort.height() / 2 || luecke > hoechsterKopf * ort.height() ||
            anderes.top() >= ort.top())
            continue;
        if (!naechstes || anderes.bottom() > m_worte.at(*naechstes).ort.bottom())
            naechstes = i;
    }
    return naechstes;
}

QList<Wortfolge> wortfolgen(const QList<Seitenworte> &seiten)
{
    QList<Wortfolge> folgen;
    for (int seite = 0; seite < seiten.size(); ++seite)
        folgen << Wortfolge(seite, seiten.at(seite));
    return folgen;
}

bool hatZiffer(const QString &text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.isDigit(); });
}

QString zusammengezogen(const QString &text)
{
    QString eins;
    for (const auto &stueck : Wortfolge(0, {{.text = text, .ort = {}}}).stuecke())
        eins += stueck.text;
    return eins;
}

bool fastGleich(const QString &a, const QString &b)
{
    if (a == b)
        return true;
    const qsizetype erlaubt = std::min(a.size(), b.size()) / zeichenJeFehler;
    return erlaubt > 0 && std::abs(a.size() - b.size()) <= erlaubt && abstand(a, b, erlaubt) <= erlaubt;
}
} // namespace quillmar::fundstellen
