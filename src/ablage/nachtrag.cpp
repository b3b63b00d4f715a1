#include "nachtrag.h"

#include "absicht.h"
#include "aufzeichnung.h"
#include "bewegungen.h"
#include "dateibewegung.h"
#include "dokumente.h"
#include "fehler.h"
#include "herkunft.h"
#include "lernspeicher.h"
#include "papierkorb.h"
#include "pfade.h"
#include "protokollbuch.h"
#include "sha256.h"
#include "sprache.h"
#include "stapel.h"
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

/** Nothing lies there, or another file by the same name. */
bool istFort(const QString &pfad, const QString &summe)
{
    if (!istVorhanden(pfad))
        return true;
    const QString jetzt = summeVon(pfad);
    return !jetzt.isNull() && jetzt != summe;
}

/** The file is no longer where the movement has brought it, and lies where it came from as the catalogue knows it. */
bool istHeimgekehrt(const Bewegung &b, const Dateien::Verzeichnetes &dokument)
{
    return b.von != b.nach && dokument.pfad == (b.kopiert ? b.von : b.nach) && !dokument.sha256.isEmpty() &&
           Dateibewegung::angabenVon(b.von) && summeVon(b.von) == dokument.sha256 && istFort(b.nach, dokument.sha256);
}

/** Only an empty folder is there, as where a drive is mounted, or none. */
bool istLeer(const QString &ordner)
{
    return !istOrdner(ordner) || QDir(ordner).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}
} // namespace

Nachtrag::Nachtrag(Datenbank &db, Profil profil, QStringList andere)
    : m_db(db), m_profil(std::move(profil)), m_andere(std::move(andere))
{
}

Nachtrag::Bilanz Nachtrag::spielen(const QList<Protokollzeile> &vorab, qint64 vergeben)
{
    const Zeilen zeilen = gelesen();
    const QList<Protokollzeile> neuesteZuerst = vorab + zeilen.neuesteZuerst;
    ordnerPruefen(neuesteZuerst);
    m_imKorb = Papierkorb::herkuenfte();
    // First, for what lies at their ends now is another movement's.
    ruecknahmenSuchen();
    Bewegungen(m_db).jede([&](const Bewegung &b) {
        bool &besteht = m_bekannte[kennung(b.zeit, b.von, b.nach)];
        besteht = besteht || !b.zurueck;
    });
    QList<Protokollzeile> zaehlende;
    for (const Protokollzeile &zeile : neuesteZuerst) {
        if (zaehlt(zeile))
            zaehlende.prepend(zeile);
    }
    Stapel stapel(m_db);
    for (const Protokollzeile &zeile : std::as_const(zaehlende)) { // as it happened: what is undone first is the last
        stapel.naechstes();
        spielen(zeile);
    }
    stapel.abschliessen();
    Dateien(m_db).nummernVergeben(std::max(zeilen.hoechsteNummer, vergeben));
    return m_bilanz;
}

/** Where a drive is not there, all that was filed since would be forgotten, and all that came back. */
void Nachtrag::ordnerPruefen(const QList<Protokollzeile> &zeilen) const
{
    if (!m_profil.quelle.isEmpty() &&
        (!istOrdner(ort(m_profil.quelle)) || Herkunft::istFremderLeererOrdner(m_db, m_profil)))
        throw Fehler(gefuellt(Sprache::text(u"Der Herkunftsordner ist nicht erreichbar: %@"_s), {m_profil.quelle}));
    const QString wurzel = ort(m_profil.zielWurzel);
    if (m_profil.zielWurzel.isEmpty() || !istLeer(wurzel))
        return;
    const bool abgelegt =
        std::any_of(zeilen.begin(), zeilen.end(), [&](const auto &z) { return liegtUnter(z.nach, wurzel); });
    if (abgelegt || !Bewegungen(m_db).letzteZiele(wurzel).isEmpty())
        throw Fehler(gefuellt(Sprache::text(u"Der Zielordner ist nicht erreichbar: %@"_s), {m_profil.zielWurzel}));
}

Nachtrag::Zeilen Nachtrag::gelesen()
{
    QList<QList<Protokollzeile>> sitzungen;
    for (const QString &datei : Protokollbuch::dateien(m_profil.protokollURL().value_or(QString()))) {
        const auto kopf = Protokollbuch::kopf(datei);
        if (!kopf || !istEigenes(*kopf))
            continue;
        ++m_bilanz.protokolle;
        sitzungen << Protokollbuch::lesen(datei);
    }
    // Files that were brought back from somewhere have lost their times; their lines have not.
    sitzungen.removeAll({});
    std::stable_sort(sitzungen.begin(), sitzungen.end(),
                     [](const auto &a, const auto &b) { return a.last().zeit > b.last().zeit; });
    Zeilen alle;
    for (const QList<Protokollzeile> &sitzung : std::as_const(sitzungen)) {
        for (auto zeile = sitzung.crbegin(); zeile != sitzung.crend(); ++zeile) {
            alle.hoechsteNummer = std::max(alle.hoechsteNummer, zeile->dokument);
            alle.neuesteZuerst << *zeile;
            alle.neuesteZuerst.last().von = nfc(zeile->von);
            alle.neuesteZuerst.last().nach = nfc(zeile->nach);
        }
    }
    return alle;
}

/** Where the profile's name tells it from all others, its source may have been another folder then. */
bool Nachtrag::istEigenes(const Protokollkopf &kopf) const
{
    const bool gleicherName = kopf.profil == m_profil.name;
    const bool vonAnderem = m_andere.contains(kopf.profil);
    return (gleicherName && !vonAnderem) || (ort(kopf.quelle) == ort(m_profil.quelle) && (gleicherName || !vonAnderem));
}

void Nachtrag::spielen(const Protokollzeile &zeile)
{
    const QString summe = summeVon(zeile.nach);
    if (summe.isNull()) {
        m_bilanz.gescheiterte << nameVon(zeile.nach);
        return;
    }
    const auto bekanntes = dokument(zeile, summe);
    eintragen(zeile, bekanntes ? bekanntes->id : neuesDokument(zeile, summe));
    ++m_bilanz.eingetragen;
}

bool Nachtrag::zaehlt(const Protokollzeile &z)
{
    const auto bekannte = m_bekannte.constFind(kennung(z.zeit, z.von, z.nach));
    const bool bekannt = bekannte != m_bekannte.constEnd();
    if (bekannt && *bekannte) {
        m_orte.insert(z.nach);
        return false;
    }
    const bool amZiel = !m_orte.contains(z.nach) && Dateibewegung::angabenVon(z.nach).has_value();
    if (!amZiel || (bekannt && !istNochmals(z)) || (!istOhneWeg(z) && istZurueck(z)))
        return false;
    m_orte.insert(z.nach);
    return true;
}

/** Turned back, and within the same second made once more: what lies there is the document. */
bool Nachtrag::istNochmals(const Protokollzeile &z) const
{
    const auto dokument = Dateien(m_db).mitNummer(z.dokument);
    return dokument && dokument->sha256 == summeVon(z.nach);
}

/** The file itself lies where it came from; another one there, the next scan by that name, says nothing. */
bool Nachtrag::istZurueck(const Protokollzeile &z) const
{
    if (!istVorhanden(z.von))
        return false;
    const QString dort = summeVon(z.von);
    if (z.kopiert) // else somebody has written into the copy
        return m_imKorb.contains(z.nach) && dort != summeVon(z.nach);
    const auto verzeichnetes = Dateien(m_db).anPfad(z.von);
    return dort.isNull() || dort == summeVon(z.nach) || (verzeichnetes && verzeichnetes->sha256 == dort);
}

/**
 * By its path and its content; its number alone may be another document's by now. With its path it tells of one into
 * which somebody has written since.
 */
std::optional<Dateien::Verzeichnetes> Nachtrag::dokument(const Protokollzeile &z, const QString &summe) const
{
    const Dateien dateien(m_db);
    const auto passt = [&](const std::optional<Dateien::Verzeichnetes> &d) {
        return d && (d->sha256.isEmpty() || d->sha256 == summe || d->id == z.dokument ||
                     (z.kopiert && d->sha256 == summeVon(z.von)));
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
    if (!z.kopiert) // it was there again
        Lernspeicher(m_db, m_profil).zuruecknehmen(Bewegungen(m_db).fruehereAlsZurueckVermerken(dokument, z.von));
    Protokollzeile zeile = z;
    zeile.dokument = dokument;
    Aufzeichnung::zeileSchreiben(m_db, zeile);
    if (z.kopiert || istOhneWeg(z))
        Dokumente(m_db).setzeStatus(dokument, statusNach(z));
    else
        Dokumente(m_db).ortSchreiben(dokument, statusNach(z), z.nach);
}

/** Of a copy that is gone only the trash can tell that it was taken back, and not put elsewhere by hand. */
void Nachtrag::ruecknahmenSuchen()
{
    QList<Bewegung> zurueck;
    Bewegungen(m_db).jede([&](const Bewegung &b) {
        if (b.zurueck || (b.kopiert && !m_imKorb.contains(b.nach)))
            return;
        const auto dokument = Dateien(m_db).mitNummer(b.dokument);
        if (dokument && istHeimgekehrt(b, *dokument))
            zurueck << b;
    });
    for (const Bewegung &b : std::as_const(zurueck)) {
        Transaktion t(m_db);
        Bewegungen(m_db).alsZurueckVermerken(b.id);
        Dokumente(m_db).ortSchreiben(b.dokument, statusZurueck(Aufzeichnung::zeileAus(b)), b.von);
        Lernspeicher(m_db, m_profil).zuruecknehmen({b.id});
        t.abschliessen();
        ++m_bilanz.zurueck;
    }
}
} // namespace quillmar::ablage
