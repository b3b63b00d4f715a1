#pragma once

#include "abschnitt.h"
#include "befund.h"
#include "namensraeume.h"
#include "scanstand.h"

namespace quillmar::zustand
{
/** What the sections of the setup card say beside their fields. Pure: whatever it takes has been looked up before. */
namespace Befunde
{
// Programs. A tool of Programmstand by its name; the model server, and what to do about it.
[[nodiscard]] Befund werkzeug(const Einrichtungslage &lage, const QString &name);
[[nodiscard]] Befund ocrSprache(const Einrichtungslage &lage);
[[nodiscard]] Befund modellserver(const Einrichtungslage &lage);
[[nodiscard]] Befund serverrat(const Einrichtungslage &lage);

// Source and target
[[nodiscard]] Befund quelle(const Einrichtungslage &lage);
[[nodiscard]] Befund ruhende(const Einrichtungslage &lage);
/** Nothing while it is off. */
[[nodiscard]] Befund neueScans(const Scanstand &stand);
[[nodiscard]] Befund zielWurzel(const Einrichtungslage &lage);
[[nodiscard]] Befund struktur(const Einrichtungslage &lage);
/** Only of a rubric that the structure lacks, if there is a structure. */
[[nodiscard]] Befund rubrik(const Einrichtungslage &lage, const QString &rubrik);

// Names. The first thing wrong with a template; what the example is made from; its place, level by level.
[[nodiscard]] Befund vorlage(const QString &vorlage, bool istPfad);
[[nodiscard]] Befund beispiel(const Beispiel &beispiel);
[[nodiscard]] QString ort(const QStringList &ebenen);

// Models. The server as the section of the models tells of it; the chosen model while @p eingabe stands in its field,
// which may be another one; whether fetching it is the next step; how far a fetching is, if there is one.
[[nodiscard]] Befund server(const Einrichtungslage &lage);
[[nodiscard]] Befund modell(const Einrichtungslage &lage, const QString &eingabe);
[[nodiscard]] Befund modellGross(const Einrichtungslage &lage, const QString &eingabe);
[[nodiscard]] bool fehlt(const Modellstand &stand, const QString &gewaehlt, const QString &eingabe);
[[nodiscard]] Befund ladestand(const Einrichtungslage &lage);
/** How much of the model's context the question fills. */
[[nodiscard]] Befund platz(const Einrichtungslage &lage);

// What was learned
[[nodiscard]] Befund zuordnungen(const Einrichtungslage &lage);
[[nodiscard]] Befund gleichungen(const Einrichtungslage &lage);

/** When the catalogue was copied last, or why it was not. */
[[nodiscard]] Befund sicherung(const Einrichtungslage &lage);
} // namespace Befunde

/** What holds for a section as a whole and stands below it; empty for nothing. */
[[nodiscard]] QString fussnote(Abschnitt abschnitt, const Einrichtungslage &lage);
} // namespace quillmar::zustand
