#include "nachtrag.h"

#include "absicht.h"
#include "bewegungen.h"
#include "dateibewegung.h"
#include "dokumente.h"
#include "papierkorb.h"
#include "pfade.h"
#include "protokollbuch.h"
#include "sha256.h"
#include "text.h"
#include "transaktion.h"

#include <QDir>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::ablage
{
namespace
{
QString ort(const QString &ordner) { return QDir::cleanPath(nfc(ordner)); }

Status statusNach(const Protokollzeile &z) { return z.aktion == u"dublette" ? Status::Aussortiert : Status::Erledigt; }

QString kennung(const QString &zeit, const QString &von, const QString &nach)
{
    return zeit + u'\n' + von + u'\n' + nach;
}

bool istOhneWeg(const Protokollzeile &z) { return z.von == z.nach; }

QString summeVon(const QString &pfad) { return sha256Datei(aufDerPlatte(pfad)); }

/** The file is no longer where the movement has brought it, and lies where it came from as the catalogue knows it. */
bool istHeimgekehrt(const Bewegung &b, const Dateien::Verzeichnetes &dokument)
{
    return b.von != b.nach && dokument.pfad == (b.kopiert ? b.von : b.nach) && !istVorhanden(b.nach) &&
           Dateibewegung::angabenVon(b.von) && summeVon(b.von) == dokument.sha256;
}

Protokollzeile zeileAus(const Bewegung &b)
{
    return {.zeit = b.zeit,
            .aktion = b.aktion,
            .dokument = b.dokument,
            .von = b.von,
            .nach = b.nach,
            .altStatus = b.altStatus,
            .kopiert = b.kopiert,
            .vonName = b.vonName};
}
} // namespace

Nachtrag::Nachtrag(Datenbank &db, Profil profil, QStringList andere)
    : m_db(db), m_profil(std::move(profil)), m_andere(std::move(andere))
{
}

Nachtrag::Bilanz Nachtrag::spielen(const QList<Protokollzeile> &vorab)
{
    const Zeilen zeilen = gelesen();
    Bewegungen(m_db).jedeBestehende([&](const Bewegung &b) { m_bekannte.insert(kennung(b.zeit, b.von, b.nach)); });
    for (const Protokollzeile &zeile : vorab + zeilen.neuesteZuerst)
        spielen(zeile);
    ruecknahmenSuchen();
    Dateien(m_db).nummernVergeben(zeilen.hoechsteNummer);
    return m_bilanz;
}

Nachtrag::Zeilen Nachtrag::gelesen()
{
    Zeilen alle;
    for (const QString &datei : Protokollbuch::dateien(m_profil.protokollURL().value_or(QString()))) {
        const auto kopf = Protokollbuch::kopf(datei);
        if (!kopf || !istEigenes(*kopf))
            continue;
        ++m_bilanz.protokolle;
        QList<Protokollzeile> zeilen = Protokollbuch::lesen(datei);
        std::reverse(zeilen.begin(), zeilen.end());
        for (Protokollzeile &zeile : zeilen) {
            zeile.von = nfc(zeile.von);
            zeile.nach = nfc(zeile.nach);
            alle.hoechsteNummer = std::max(alle.hoechsteNummer, zeile.dokument);
            alle.neuesteZuerst << std::move(zeile);
        }
    }
    return alle;
}

bool Nachtrag::istEigenes(const Protokollkopf &kopf) const
{
    const bool fremdes = kopf.profil != m_profil.name && m_andere.contains(kopf.profil);
    return ort(kopf.quelle) == ort(m_profil.quelle) && !fremdes;
}

void Nachtrag::spielen(const Protokollzeile &zeile)
{
    if (m_bekannte.contains(kennung(zeile.zeit, zeile.von, zeile.nach))) {
        m_orte.insert(zeile.nach);
        return;
    }
    if (!zaehlt(zeile))
        return;
    m_orte.insert(zeile.nach);
    const QString summe = summeVon(zeile.nach);
    if (summe.isNull()) {
        m_bilanz.gescheiterte << nameVon(zeile.nach);
        return;
    }
    Transaktion t(m_db);
    const auto bekanntes = dokument(zeile, summe);
    eintragen(zeile, bekanntes ? bekanntes->id : neuesDokument(zeile, summe));
    t.abschliessen();
    ++m_bilanz.eingetragen;
}

bool Nachtrag::zaehlt(const Protokollzeile &z)
{
    const bool amZiel = !m_orte.contains(z.nach) && Dateibewegung::angabenVon(z.nach).has_value();
    return amZiel && (z.kopiert || istOhneWeg(z) || !istVorhanden(z.von));
}

/** By its path and its content; its number alone may be another document's by now. */
std::optional<Dateien::Verzeichnetes> Nachtrag::dokument(const Protokollzeile &z, const QString &summe) const
{
    const Dateien dateien(m_db);
    const auto passt = [&](const std::optional<Dateien::Verzeichnetes> &d) {
        return d && (d->sha256.isEmpty() || d->sha256 == summe || (z.kopiert && d->sha256 == summeVon(z.von)));
    };
    for (const QString &pfad : {z.von, z.nach}) {
        if (auto gefunden = dateien.anPfad(pfad); passt(gefunden))
            return gefunden;
    }
    auto gezaehltes = dateien.mitNummer(z.dokument);
    const bool ohnePlatz = gezaehltes && (gezaehltes->pfad.isEmpty() || !istVorhanden(gezaehltes->pfad));
    return ohnePlatz && gezaehltes->sha256 == summe ? gezaehltes : std::nullopt;
}

qint64 Nachtrag::neuesDokument(const Protokollzeile &z, const QString &summe)
{
    Dateien dateien(m_db);
    const auto angaben = Dateibewegung::angabenVon(z.nach);
    // The place of a copy's original may be another document's by now.
    const QString platz = z.kopiert ? z.von : z.nach;
    const QString relativ = QDir(ort(m_profil.quelle)).relativeFilePath(ordnerVon(z.von));
    const Dateien::Fund fund{.pfad = z.kopiert && dateien.anPfad(platz) ? QString() : platz,
                             .name = nameVon(platz),
                             .ordner = relativ == u"." || relativ.startsWith(u"..") ? QString() : relativ,
                             .groesse = angaben ? angaben->groesse : 0};
    if (!fund.pfad.isEmpty())
        dateien.platzFreimachen(fund.pfad, 0);
    return dateien.nachtragen(z.dokument, fund, summe);
}

void Nachtrag::eintragen(const Protokollzeile &z, qint64 dokument)
{
    Bewegungen(m_db).eintragen({.dokument = dokument,
                                .zeit = z.zeit,
                                .aktion = z.aktion,
                                .von = z.von,
                                .nach = z.nach,
                                .altStatus = z.altStatus,
                                .kopiert = z.kopiert,
                                .vonName = z.vonName});
    if (z.kopiert || istOhneWeg(z))
        Dokumente(m_db).setzeStatus(dokument, statusNach(z));
    else
        Dokumente(m_db).ortSchreiben(dokument, statusNach(z), z.nach);
}

/** Of a copy that is gone only the trash can tell that it was taken back, and not put elsewhere by hand. */
void Nachtrag::ruecknahmenSuchen()
{
    const QSet<QString> imKorb = Papierkorb::herkuenfte();
    QList<Bewegung> zurueck;
    Bewegungen(m_db).jedeBestehende([&](const Bewegung &b) {
        if (istVorhanden(b.nach) || (b.kopiert && !imKorb.contains(b.nach)))
            return;
        const auto dokument = Dateien(m_db).mitNummer(b.dokument);
        if (dokument && istHeimgekehrt(b, *dokument))
            zurueck << b;
    });
    for (const Bewegung &b : std::as_const(zurueck)) {
        Transaktion t(m_db);
        Bewegungen(m_db).alsZurueckVermerken(b.id);
        Dokumente(m_db).ortSchreiben(b.dokument, statusZurueck(zeileAus(b)), b.von);
        t.abschliessen();
        ++m_bilanz.zurueck;
    }
}
} // namespace quillmar::ablage
