#include "vorschautext.h"

#include "sprache.h"
#include "text.h"

using namespace Qt::StringLiterals;

namespace quillmar::vorschau
{
Vorschausatz vorschausatz(Vorschaubefund befund)
{
    switch (befund) {
    case Vorschaubefund::Gesichert:
        return {Symbol::GrossSchloss, Sprache::text(u"Mit Kennwort geschützt"_s),
                Sprache::text(u"Das Dokument lässt sich erst nach Eingabe eines Kennworts lesen. Ablegen kannst du es "
                              u"trotzdem."_s)};
    case Vorschaubefund::Beschaedigt:
        return {Symbol::GrossBeschaedigt, Sprache::text(u"Datei beschädigt"_s),
                Sprache::text(u"Der Inhalt lässt sich nicht darstellen. Die Datei bleibt, wie sie ist."_s)};
    case Vorschaubefund::Verschwunden:
        return {
            Symbol::GrossVerschwunden, Sprache::text(u"Datei nicht gefunden"_s),
            Sprache::text(u"Sie wurde verschoben, umbenannt oder gelöscht, oder ihr Laufwerk ist nicht verbunden."_s)};
    case Vorschaubefund::ZuGross:
        return {Symbol::GrossVorschau, Sprache::text(u"Zu groß für die Vorschau"_s),
                Sprache::text(u"Dateien ab 256 MB zeigt die Vorschau nicht. Ablegen kannst du sie trotzdem."_s)};
    case Vorschaubefund::Unlesbar:
    case Vorschaubefund::Laedt:
    case Vorschaubefund::Offen:
        break;
    }
    return {Symbol::GrossSchloss, Sprache::text(u"Datei nicht lesbar"_s),
            Sprache::text(u"Dir fehlt das Recht, sie zu öffnen, oder das Laufwerk meldet einen Fehler."_s)};
}

Vorschausatz satzOhneDokument()
{
    return {Symbol::GrossVorschau, Sprache::text(u"Keine Vorschau"_s),
            Sprache::text(u"Sobald ein Dokument zur Prüfung ansteht, erscheint es hier."_s)};
}

QString seitenanzeige(int seite, int seiten)
{
    if (seiten <= 0)
        return {};
    if (seiten == 1)
        return Sprache::text(u"1 Seite"_s);
    return gefuellt(Sprache::text(u"Seite %@ von %@"_s), {QString::number(seite), QString::number(seiten)});
}
} // namespace quillmar::vorschau
