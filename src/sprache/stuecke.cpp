#include "stuecke.h"

#include <QStringList>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::sprache
{
namespace
{
struct Satz {
    QString ganz;
    QStringList stuecke; ///< its former texts, and what stood between them, which has a placeholder
};

const QList<Satz> &saetze()
{
    static const QList<Satz> alle = {
        {u"%@ von %@ eingeordnet"_s, {u"%@"_s, u" von "_s, u"%@"_s, u" eingeordnet"_s}},
        {u"%@ von %@ nachgeprüft"_s, {u"%@"_s, u" von "_s, u"%@"_s, u" nachgeprüft"_s}},
        {u"%@ %@ Prozent"_s, {u"%@ "_s, u"%@"_s, u" Prozent"_s}},
        {u"Von: %@"_s, {u"Von: "_s, u"%@"_s}},
        {u"Nach: %@"_s, {u"Nach: "_s, u"%@"_s}},
        {u"Standard: %@"_s, {u"Standard: "_s, u"%@"_s}},
        {u"Datenbank lässt sich nicht öffnen: %@"_s, {u"Datenbank lässt sich nicht öffnen: "_s, u"%@"_s}},
        {u"Der Katalog lässt sich nicht öffnen: %@"_s, {u"Der Katalog lässt sich nicht öffnen"_s, u": %@"_s}},
        {u"Profil nicht gefunden: %@"_s, {u"Profil nicht gefunden"_s, u": %@"_s}},
        {u"Sitzung: %@"_s, {u"Sitzung"_s, u": %@"_s}},
        {u"Ansehen: %@"_s, {u"Ansehen"_s, u": %@"_s}},
    };
    return alle;
}
} // namespace

void ausStueckenErgaenzen(QHash<QString, QString> &texte)
{
    for (const Satz &satz : saetze()) {
        const auto uebersetzt = [&](const QString &stueck) {
            return !stueck.contains("%@"_L1) && !texte.value(stueck).isEmpty();
        };
        if (!texte.value(satz.ganz).isEmpty() || std::none_of(satz.stuecke.begin(), satz.stuecke.end(), uebersetzt))
            continue;
        QString ganz;
        for (const QString &stueck : satz.stuecke)
            ganz += uebersetzt(stueck) ? texte.value(stueck) : stueck;
        texte.insert(satz.ganz, ganz);
    }
}
} // namespace quillmar::sprache
