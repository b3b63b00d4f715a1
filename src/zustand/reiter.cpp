#include "reiter.h"

#include "sprache.h"

using namespace Qt::StringLiterals;

namespace quillmar::zustand
{
namespace
{
struct Eintrag {
    Reiter reiter;
    QString rohwert;
    QString titel;
    QString symbol;
    QString hilfe;
};

const QList<Eintrag> &tabelle()
{
    static const QList<Eintrag> eintraege = {
        {Reiter::Einrichtung, u"einrichtung"_s, QUILLMAR_TEXT(u"Einrichtung"_s), u"slider.horizontal.3"_s,
         QUILLMAR_TEXT(u"Vorbereitung: benötigte Programme, Herkunftsordner, Ausnahmen, Benennungsmuster und "
                       "Zielstruktur festlegen"_s)},
        {Reiter::Ablauf, u"ablauf"_s, QUILLMAR_TEXT(u"Ablauf"_s), u"play.circle"_s,
         QUILLMAR_TEXT(u"Den Durchgang starten und überwachen. Ob Dateien verschoben oder kopiert werden, "
                       "bestimmt der Schalter rechts oben"_s)},
        {Reiter::Pruefen, u"pruefen"_s, QUILLMAR_TEXT(u"Prüfen"_s), u"doc.text.magnifyingglass"_s,
         QUILLMAR_TEXT(u"Jedes Dokument einzeln ansehen, den Vorschlag bestätigen oder ändern"_s)},
        {Reiter::Protokoll, u"protokoll"_s, QUILLMAR_TEXT(u"Protokoll"_s), u"clock.arrow.circlepath"_s,
         QUILLMAR_TEXT(u"Sitzungsprotokolle ablegen, ansehen und eine ganze Sitzung rückgängig machen"_s)},
    };
    return eintraege;
}

const Eintrag &eintrag(Reiter reiter) { return tabelle().at(int(reiter)); }
} // namespace

const QList<Reiter> &alleReiter()
{
    static const QList<Reiter> alle = {Reiter::Einrichtung, Reiter::Ablauf, Reiter::Pruefen, Reiter::Protokoll};
    return alle;
}

QString rohwert(Reiter reiter) { return eintrag(reiter).rohwert; }

QString reiterTitel(Reiter reiter) { return Sprache::text(/* QUILLMAR_TEXT */ eintrag(reiter).titel); }
QString reiterHilfe(Reiter reiter) { return Sprache::text(/* QUILLMAR_TEXT */ eintrag(reiter).hilfe); }
QString reiterSymbol(Reiter reiter) { return eintrag(reiter).symbol; }
} // namespace quillmar::zustand
