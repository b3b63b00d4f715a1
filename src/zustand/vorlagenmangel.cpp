#include "vorlagenmangel.h"

#include "baustein.h"
#include "sprache.h"
#include "text.h"

using namespace Qt::StringLiterals;

namespace quillmar::zustand
{
namespace
{
bool imPfad(Baustein baustein)
{
    return baustein == Baustein::Zweig || baustein == Baustein::Ablage || baustein == Baustein::Jahr ||
           baustein == Baustein::Rubrik;
}

Vorlagenmangel unbekannt(const QString &block)
{
    return {.satz = gefuellt(Sprache::text(u"Den Baustein %@ gibt es nicht, er bleibt immer leer."_s), {block}),
            .block = block};
}

Vorlagenmangel leerImPfad(const QString &block)
{
    return {.satz = gefuellt(Sprache::text(u"%@ bleibt im Ordner immer leer, die Ebene fällt weg."_s), {block}),
            .block = block};
}

/** What is wrong with @p block, a word with its braces. */
std::optional<Vorlagenmangel> blockmangel(const QString &block, bool istPfad)
{
    const auto baustein = bausteinAus(QStringView(block).sliced(1).chopped(1));
    if (!baustein)
        return unbekannt(block);
    return istPfad && !imPfad(*baustein) ? std::optional(leerImPfad(block)) : std::nullopt;
}
} // namespace

QList<Vorlagenmangel> vorlagenmaengel(const QString &vorlage, bool istPfad)
{
    QList<Vorlagenmangel> maengel;
    if (!istPfad && vorlage.trimmed().isEmpty())
        maengel << Vorlagenmangel{.satz = Sprache::text(u"Ohne Vorlage bekommt keine Datei einen Namen."_s),
                                  .block = {}};
    qsizetype auf = vorlage.indexOf(u'{');
    while (auf >= 0) {
        const qsizetype zu = vorlage.indexOf(u'}', auf);
        if (zu < 0) {
            maengel << Vorlagenmangel{.satz = Sprache::text(u"Eine geschweifte Klammer ist nicht geschlossen."_s),
                                      .block = {}};
            break;
        }
        if (const auto mangel = blockmangel(vorlage.mid(auf, zu - auf + 1), istPfad))
            maengel << *mangel;
        auf = vorlage.indexOf(u'{', zu);
    }
    return maengel;
}

QString ohneBlock(const QString &vorlage, const QString &block)
{
    const qsizetype stelle = vorlage.indexOf(block);
    if (stelle < 0)
        return vorlage;
    const auto trennt = [](QChar c) { return c.isSpace() || u"-–—/|_"_s.contains(c); };
    qsizetype von = stelle;
    while (von > 0 && trennt(vorlage.at(von - 1)))
        --von;
    const QString rest = vorlage.mid(stelle + block.size());
    // At the front the separator behind the block goes, otherwise the one before it.
    qsizetype bis = 0;
    while (von == 0 && bis < rest.size() && trennt(rest.at(bis)))
        ++bis;
    return vorlage.first(von) + rest.mid(bis);
}
} // namespace quillmar::zustand
