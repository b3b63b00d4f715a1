#include "wiederherstellung.h"

#include "absicht.h"
#include "katalog.h"
#include "katalogpruefung.h"
#include "katalogtausch.h"
#include "klaerung.h"
#include "protokollbuch.h"
#include "sprache.h"
#include "text.h"

#include <QFile>
#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::ablage
{
namespace
{
constexpr auto geduld = 10s;

/** The movements that a crash has interrupted. */
struct Unterbrochenes {
    QList<Protokollzeile> geschehenes; ///< newest first
    QList<QByteArray> bleibendes;      ///< what cannot be told yet; it no longer names rows of the former catalogue
    QList<QByteArray> ruecknahmen;     ///< as they are to stand when the rows of the former catalogue are gone
    qint64 hoechsteNummer = 0;         ///< of the documents that they name

    explicit Unterbrochenes(const QList<QByteArray> &zeilen)
    {
        for (const Absicht &absicht : letzteAbsichten(zeilen, bleibendes)) {
            hoechsteNummer = std::max(hoechsteNummer, absicht.zeile.dokument);
            einordnen(absicht);
        }
    }

private:
    void einordnen(const Absicht &absicht)
    {
        const Klaerung::Lage lage = Klaerung::lage(absicht);
        Absicht ohneZeile = absicht;
        ohneZeile.protokollId = 0;
        if (absicht.art == Absicht::Art::Ruecknahme)
            ruecknahmen << ohneZeile.json();
        if (lage == Klaerung::Lage::Unklar) {
            bleibendes << ohneZeile.json();
        } else if (lage == Klaerung::Lage::Geschehen && absicht.art == Absicht::Art::Bewegung) {
            if (absicht.kopf)
                Protokollbuch::nachtragen(absicht.buch, *absicht.kopf, absicht.zeile);
            geschehenes.prepend(absicht.zeile);
        }
    }
};

void alleinBenutzen(const QString &katalog)
{
    if (Katalogpruefung::istAnderswoOffen(katalog))
        Katalogtausch::wirdBenutzt();
}

/** Makes the catalogue that is to come, whole: closed, without a journal. */
Nachtrag::Bilanz bereiten(const QString &katalog, const QString &sicherung,
                          const std::function<Nachtrag::Bilanz(Datenbank &)> &nachtragen)
{
    const QString neuer = Katalogtausch::entstehender(katalog);
    Katalogtausch::verwerfen(katalog);
    if (!QFile::copy(sicherung, neuer))
        throw Fehler(Sprache::text(u"Die Sicherung lässt sich nicht lesen, oder die Platte ist voll"_s));
    Nachtrag::Bilanz bilanz;
    {
        const auto db = Katalog::ungesichertOeffnen(neuer);
        if (Katalog::nurLesen(*db))
            throw Fehler(Katalog::schreibmangel(*db));
        bilanz = nachtragen(*db);
    }
    if (Katalogpruefung::pruefen(neuer) != Katalogpruefung::Befund::Heil)
        throw Fehler(Sprache::text(u"Diese Sicherung ist selbst beschädigt"_s));
    return bilanz;
}
} // namespace

QString Wiederherstellung::Ergebnis::satz() const
{
    QStringList teile{Sprache::text(u"Die Sicherung ist eingesetzt"_s)};
    if (bilanz.eingetragen > 0)
        teile << gefuellt(Sprache::text(bilanz.eingetragen, u"%@ Bewegung seither aus den Protokollen nachgetragen"_s,
                                        u"%@ Bewegungen seither aus den Protokollen nachgetragen"_s),
                          {QString::number(bilanz.eingetragen)});
    if (bilanz.zurueck > 0)
        teile << gefuellt(Sprache::text(bilanz.zurueck, u"%@ Dokument wieder an seinem alten Platz gefunden"_s,
                                        u"%@ Dokumente wieder an ihrem alten Platz gefunden"_s),
                          {QString::number(bilanz.zurueck)});
    if (bilanz.protokolle == 0)
        teile << Sprache::text(u"Protokolle waren keine da"_s);
    if (!bilanz.gescheiterte.isEmpty())
        teile << gefuellt(Sprache::text(u"nicht lesbar: %@"_s), {bilanz.gescheiterte.join(u", "_s)});
    return teile.join(u", "_s);
}

Wiederherstellung::Ergebnis Wiederherstellung::einsetzen(const QString &katalog, const QString &sicherung,
                                                         const Profil &profil, const QStringList &andere)
{
    alleinBenutzen(katalog);
    Absichtsdatei absichten = absichtenNehmen(katalog, geduld);
    const Unterbrochenes unterbrochenes(absichten.zeilen());
    const auto nachtragen = [&](Datenbank &db) {
        return Nachtrag(db, profil, andere).spielen(unterbrochenes.geschehenes, unterbrochenes.hoechsteNummer);
    };
    try {
        Ergebnis ergebnis;
        ergebnis.bilanz = bereiten(katalog, sicherung, nachtragen);
        // Should this program die before they are cleared: by their rows they would turn back what is another's there.
        if (!unterbrochenes.ruecknahmen.isEmpty())
            absichten.schreiben(unterbrochenes.ruecknahmen);
        ergebnis.beiseite = Katalogtausch::vollziehen(katalog);
        absichten.leeren(unterbrochenes.bleibendes);
        return ergebnis;
    } catch (...) {
        Katalogtausch::verwerfen(katalog);
        throw;
    }
}
} // namespace quillmar::ablage
