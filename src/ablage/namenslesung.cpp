#include "namenslesung.h"

#include "text.h"
#include "ziel.h"

#include <QHash>
#include <QVarLengthArray>
#include <algorithm>
#include <bit>
#include <numeric>

using namespace Qt::StringLiterals;

namespace quillmar::ablage
{
namespace
{
constexpr char16_t ersteMarke = 0xFDD0; // characters that stand in no text: one for each block
constexpr char16_t freieMarke = 0xFDDF;
constexpr qsizetype laengsterName = 255;

using Glied = Namenslesung::Glied;
using Glieder = QList<Glied>;

QChar markeVon(Baustein b) { return {char16_t(ersteMarke + int(b))}; }

/** Form of the values of a block whose values have one: "d" is a digit. Empty for free text. */
QStringView muster(Baustein b)
{
    switch (b) {
    case Baustein::Datum:
        return u"dddd-dd-dd";
    case Baustein::Jahr:
        return u"dddd";
    case Baustein::Monat:
        return u"dd";
    default:
        return {};
    }
}

bool istFrei(const Glied &g) { return g.baustein && muster(*g.baustein).isEmpty(); }

/** Old names and titles may contain the separator, counterparts rarely do. */
bool istGierig(Baustein b) { return b == Baustein::Titel || b == Baustein::Altname; }

bool istZiffer(QChar c) { return c >= u'0' && c <= u'9'; }

bool hatForm(QStringView text, QStringView form)
{
    return text.size() == form.size() && std::equal(text.begin(), text.end(), form.begin(),
                                                    [](QChar c, QChar f) { return f == u'd' ? istZiffer(c) : c == f; });
}

/** Compares a name with a form, see Namenslesung::lesen(). */
class Vergleich
{
public:
    Vergleich(const Glieder &glieder, QStringView text) : m_glieder(glieder), m_text(text) {}
    [[nodiscard]] bool passt() { return passtAb(0, 0); }
    [[nodiscard]] const Namenslesung::Stuecke &stuecke() const { return m_stuecke; }

private:
    bool passtAb(qsizetype glied, qsizetype stelle)
    {
        if (glied == m_glieder.size())
            return stelle == m_text.size();
        const qsizetype versuch = glied * (m_text.size() + 1) + stelle;
        if (!m_gescheitert.isEmpty() && m_gescheitert.at(versuch))
            return false;
        if (gliedPasst(glied, stelle))
            return true;
        if (m_gescheitert.isEmpty())
            m_gescheitert.resize(m_glieder.size() * (m_text.size() + 1), false);
        m_gescheitert[versuch] = true;
        return false;
    }

    bool gliedPasst(qsizetype glied, qsizetype stelle)
    {
        const Glied &g = m_glieder.at(glied);
        if (istFrei(g))
            return freiesPasst(glied, stelle);
        const QStringView form = g.baustein ? muster(*g.baustein) : QStringView(g.text);
        const QStringView stueck = m_text.mid(stelle, form.size());
        if (g.baustein ? !hatForm(stueck, form) : stueck != form)
            return false;
        if (g.baustein)
            merken(*g.baustein, stueck);
        return passtAb(glied + 1, stelle + form.size());
    }

    bool freiesPasst(qsizetype glied, qsizetype stelle)
    {
        const Baustein baustein = *m_glieder.at(glied).baustein;
        const bool letztes = glied + 1 == m_glieder.size();
        const bool gierig = letztes || istGierig(baustein);
        const QStringView trenner = letztes ? QStringView() : QStringView(m_glieder.at(glied + 1).text);
        qsizetype ende = gierig ? letzter(trenner, m_text.size()) : m_text.indexOf(trenner, stelle + 1);
        while (ende > stelle) {
            merken(baustein, m_text.sliced(stelle, ende - stelle));
            if (passtAb(glied + 1, ende))
                return true;
            ende = letztes ? -1 : gierig ? letzter(trenner, ende - 1) : m_text.indexOf(trenner, ende + 1);
        }
        return false;
    }

    /** Where @p trenner stands last, at @p hoechstens or before. Qt 6.4 looks behind the end of a view otherwise. */
    [[nodiscard]] qsizetype letzter(QStringView trenner, qsizetype hoechstens) const
    {
        const qsizetype ab = std::min(hoechstens, m_text.size() - trenner.size());
        return trenner.isEmpty() || ab < 0 ? ab : m_text.lastIndexOf(trenner, ab);
    }

    void merken(Baustein b, QStringView stueck) { m_stuecke.at(size_t(b)) = stueck; }

    const Glieder &m_glieder;
    QStringView m_text;
    Namenslesung::Stuecke m_stuecke;
    QVarLengthArray<bool, 1024>
        m_gescheitert; // keeps many blanks from being tried in many ways; empty before the first
};

std::optional<Namenslesung::Stuecke> stueckeIn(QStringView text, const Glieder &glieder)
{
    Vergleich vergleich(glieder, text);
    return vergleich.passt() ? std::optional(vergleich.stuecke()) : std::nullopt;
}

/** The name with the marks of the blocks @p welche (a bit each), as the program would write it. */
QString mitMarken(const QString &vorlage, unsigned welche)
{
    Vorlage::Werte werte;
    for (const Baustein b : alleBausteine) {
        if ((welche >> unsigned(b) & 1U) != 0)
            werte.insert(b, QString(markeVon(b)));
    }
    return Ziel::stamm(werte, vorlage);
}

unsigned bausteineIn(const QString &vorlage)
{
    const QString alle = mitMarken(vorlage, ~0U);
    unsigned welche = 0;
    for (const Baustein b : alleBausteine)
        welche |= unsigned(alle.contains(markeVon(b))) << unsigned(b);
    return welche;
}

/** All subsets of the blocks @p alle but the empty one, the larger ones first. */
QList<unsigned> auswahlen(unsigned alle)
{
    QList<unsigned> liste;
    for (unsigned welche = alle; welche != 0; welche = (welche - 1) & alle)
        liste << welche;
    std::stable_sort(liste.begin(), liste.end(),
                     [](unsigned a, unsigned b) { return std::popcount(a) > std::popcount(b); });
    return liste;
}

Glieder gliederVon(const QString &mitMarken)
{
    Glieder glieder;
    for (const QChar c : mitMarken) {
        const int nummer = int(c.unicode()) - ersteMarke;
        if (nummer >= 0 && nummer < int(alleBausteine.size()))
            glieder << Glied{.baustein = Baustein(nummer), .text = {}};
        else if (!glieder.isEmpty() && !glieder.last().baustein)
            glieder.last().text += c;
        else
            glieder << Glied{.baustein = {}, .text = QString(c)};
    }
    return glieder;
}

/** What the form looks like from outside: which free text is which cannot be seen. */
QString gestalt(const Glieder &glieder)
{
    QString ergebnis;
    for (const Glied &g : glieder)
        ergebnis += !g.baustein ? g.text : QString(istFrei(g) ? QChar(freieMarke) : markeVon(*g.baustein));
    return ergebnis;
}

qsizetype stelleDesGegenuebers(const Glieder &glieder)
{
    const auto treffer =
        std::find_if(glieder.begin(), glieder.end(), [](const Glied &g) { return g.baustein == Baustein::Gegenueber; });
    return treffer == glieder.end() ? -1 : treffer - glieder.begin();
}

/** Something tells where the free text at @p stelle begins or ends: more than a blank beside another free text. */
bool istAbgesetzt(const Glieder &glieder, qsizetype stelle, qsizetype richtung)
{
    const auto gibtEs = [&](qsizetype i) { return i >= 0 && i < glieder.size(); };
    qsizetype nachbar = stelle + richtung;
    if (gibtEs(nachbar) && !glieder.at(nachbar).baustein && glieder.at(nachbar).text.trimmed().isEmpty())
        nachbar += richtung;
    return !gibtEs(nachbar) || !istFrei(glieder.at(nachbar));
}

/** A name of this form tells its counterpart, if the template has @p bausteine blocks. */
bool sagtGegenueber(const Glieder &glieder, qsizetype bausteine)
{
    const qsizetype stelle = stelleDesGegenuebers(glieder);
    const bool passtAufAlles = glieder.size() == 1 && bausteine > 1;
    return stelle < 0 || (!passtAufAlles && istAbgesetzt(glieder, stelle, 1) && istAbgesetzt(glieder, stelle, -1));
}

QStringView ohneEndung(QStringView name)
{
    return name.endsWith(".pdf"_L1, Qt::CaseInsensitive) ? name.chopped(4) : name;
}

/** Without the number that a taken name gets. */
QStringView ohneNummer(QStringView stamm)
{
    const qsizetype klammer = stamm.endsWith(u')') ? stamm.lastIndexOf(" ("_L1) : -1;
    if (klammer <= 0)
        return stamm;
    const QStringView nummer = stamm.sliced(klammer + 2).chopped(1);
    const bool istNummer = !nummer.isEmpty() && std::all_of(nummer.begin(), nummer.end(), istZiffer);
    return istNummer ? stamm.first(klammer) : stamm;
}

/** A date that is none of the template ("2024-03", "31.01.2024") before the name or in its place. */
bool beginntMitDatum(QStringView gegenueber)
{
    constexpr qsizetype ziffernEinesJahrs = 4;
    const qsizetype luecke = gegenueber.indexOf(u' ');
    const QStringView wort = luecke < 0 ? gegenueber : gegenueber.first(luecke);
    if (luecke < 0 && std::all_of(wort.begin(), wort.end(), istZiffer)) // a number may be a name
        return false;
    const bool ohneBuchstaben =
        std::all_of(wort.begin(), wort.end(), [](QChar c) { return istZiffer(c) || u".-_"_s.contains(c); });
    return ohneBuchstaben && std::count_if(wort.begin(), wort.end(), istZiffer) >= ziffernEinesJahrs;
}
} // namespace

Namenslesung::Namenslesung(const QString &namensVorlage)
{
    const unsigned alle = bausteineIn(namensVorlage);
    QHash<QString, qsizetype> bekannte;
    for (const unsigned welche : auswahlen(alle)) {
        const Glieder glieder = gliederVon(mitMarken(namensVorlage, welche));
        const QString aussen = gestalt(glieder);
        const auto gleiche = bekannte.constFind(aussen);
        if (gleiche == bekannte.constEnd()) {
            bekannte.insert(aussen, m_formen.size());
            m_formen << Form{.glieder = glieder, .eindeutig = sagtGegenueber(glieder, std::popcount(alle))};
        } else if (stelleDesGegenuebers(m_formen.at(*gleiche).glieder) != stelleDesGegenuebers(glieder)) {
            m_formen[*gleiche].eindeutig = false;
        }
    }
}

bool Namenslesung::kenntGegenueber() const
{
    return std::any_of(m_formen.begin(), m_formen.end(),
                       [](const Form &f) { return f.eindeutig && stelleDesGegenuebers(f.glieder) >= 0; });
}

std::optional<Namenslesung::Stuecke> Namenslesung::lesen(QStringView name) const
{
    const QStringView ganz = ohneEndung(name);
    const QStringView kurz = ohneNummer(ganz);
    if (ganz.size() > laengsterName)
        return std::nullopt;
    for (const Form &form : m_formen) {
        const bool freiesEnde = form.glieder.last().baustein.has_value();
        auto stuecke = stueckeIn(freiesEnde ? kurz : ganz, form.glieder);
        if (!stuecke && !freiesEnde && kurz.size() < ganz.size()) // the brackets were not the template's
            stuecke = stueckeIn(kurz, form.glieder);
        if (!stuecke)
            continue;
        const bool brauchbar = form.eindeutig && !beginntMitDatum(stuecke->at(size_t(Baustein::Gegenueber)));
        return brauchbar ? stuecke : std::nullopt;
    }
    return std::nullopt;
}

QString Namenslesung::gegenueber(const QString &name) const
{
    const QString ganz = nfc(name);
    const auto stuecke = lesen(ganz);
    return stuecke ? alsName(stuecke->at(size_t(Baustein::Gegenueber))) : QString();
}

QString Namenslesung::alsName(QStringView stueck) { return Vorlage::saeubern(stueck.toString(), laengsterName); }
} // namespace quillmar::ablage
