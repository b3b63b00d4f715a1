#include "vorlagenmangel.h"

#include "baustein.h"
#include "sprache.h"
#include "text.h"

using namespace Qt::StringLiterals;

namespace
{
bool imPfad(Baustein baustein)
{
    return baustein == Baustein::zweig || baustein == Baustein::ablage || baustein == Baustein::jahr ||
           baustein == Baustein::rubrik;
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
        const auto baustein = bausteinAus(QStringView(vorlage).mid(auf + 1, zu - auf - 1));
        const QString block = vorlage.mid(auf, zu - auf + 1);
        if (!baustein)
            maengel << unbekannt(block);
        else if (istPfad && !imPfad(*baustein))
            maengel << leerImPfad(block);
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
