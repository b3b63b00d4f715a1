#include "ablagelesung.h"

#include "abbruch.h"
#include "eigeneordner.h"
#include "gegenpruefung.h"
#include "lernregeln.h"
#include "namenslesung.h"
#include "ortswahl.h"
#include "pfade.h"
#include "sprache.h"
#include "text.h"
#include "zielwurzel.h"

#include <QDir>
#include <QHash>
#include <algorithm>
#include <unordered_map>

using namespace Qt::StringLiterals;

namespace quillmar::ablage
{
namespace
{
using Ablagelesung::Uebrige;
using Ablagelesung::Vorbehalt;
using Ablagelesung::Zeile;

constexpr qsizetype zeugen = 3;
constexpr qsizetype beispiele = 5;
constexpr qint64 fortschrittAlle = 1000;
constexpr int tiefeDerEigenen = 2; // deeper ones of the same name are rubrics

bool istPdf(const QByteArray &name)
{
    return name.size() > 4 && qstrnicmp(name.constData() + name.size() - 4, ".pdf", 4) == 0;
}

QByteArray darin(const QByteArray &ordner, const QByteArray &name)
{
    return ordner + (ordner.endsWith('/') ? "" : "/") + name;
}
QString darin(const QString &ordner, const QString &name) { return ordner.isEmpty() ? name : ordner + u'/' + name; }

/** A folder on the way through the tree. */
struct Station {
    QByteArray platte;
    QString relativ;
    int tiefe = 0;
};

/** Whether a PDF file lies in the folder itself. Its subfolders come to @p offene. */
bool hatPdf(const Station &ordner, QList<Station> &offene)
{
    bool gefunden = false;
    ordnerLesen(ordner.platte, [&](int, const Ordnereintrag &e) {
        const QString name = nameVonPlatte(e.name);
        if (e.name.startsWith('.') || name.isNull())
            return;
        if (e.art == Eintragsart::Datei)
            gefunden = gefunden || istPdf(e.name);
        else if (e.art == Eintragsart::Ordner)
            offene << Station{darin(ordner.platte, e.name), darin(ordner.relativ, name), ordner.tiefe + 1};
    });
    return gefunden;
}

/** The first few files, by the order of their folders, then by name: the same ones however a disk lists them. */
class Auswahl
{
public:
    explicit Auswahl(qsizetype hoechstens) : m_hoechstens(hoechstens) {}

    /** @p nummer is that of the folder, in the order of the walk. */
    void dazu(int nummer, const QString &ordner, const QString &name)
    {
        if (m_dateien.size() == m_hoechstens && (nummer > m_dateien.last().nummer || name >= m_dateien.last().name))
            return;
        const auto davor = std::find_if(m_dateien.begin(), m_dateien.end(),
                                        [&](const Datei &d) { return d.nummer == nummer && name < d.name; });
        m_dateien.insert(davor, Datei{.nummer = nummer, .ordner = ordner, .name = name});
        if (m_dateien.size() > m_hoechstens)
            m_dateien.removeLast();
    }

    [[nodiscard]] QStringList pfade() const
    {
        QStringList liste;
        for (const Datei &d : m_dateien)
            liste << darin(d.ordner, d.name);
        return liste;
    }

private:
    struct Datei {
        int nummer;
        QString ordner;
        QString name;
    };
    qsizetype m_hoechstens;
    QList<Datei> m_dateien;
};

struct Gruppe {
    QString schluessel;
    qint64 dokumente = 0;
    QHash<QString, qint64> schreibweisen;
    struct Platz {
        int nummer;
        qint64 dokumente = 0;
        Auswahl zeugen{ablage::zeugen};
    };
    QList<Platz> plaetze; ///< in the order of the walk; by their documents in the end
};

/** What is counted of the files while the tree is walked through. */
class Zaehlung
{
public:
    /** The number of a place; -1 for none. */
    int platz(const Ort &ort)
    {
        const QString name = ort.zweig + u'\0' + ort.ablage + u'\0' + ort.rubrik;
        const auto bekannter = m_platznummern.constFind(name);
        if (bekannter != m_platznummern.constEnd())
            return *bekannter;
        m_plaetze << ort;
        return *m_platznummern.insert(name, int(m_plaetze.size()) - 1);
    }

    /** The group of a counterpart as it stands in a file name; null if it has no key. */
    Gruppe *gruppe(QStringView stueck)
    {
        auto bekannte = m_schreibweisen.find(stueck);
        if (bekannte == m_schreibweisen.end())
            bekannte = m_schreibweisen.emplace(stueck.toString(), neueSchreibweise(stueck)).first;
        Schreibweise &schreibweise = bekannte->second;
        ++schreibweise.anzahl;
        return schreibweise.gruppe < 0 ? nullptr : &m_gruppen[schreibweise.gruppe];
    }

    [[nodiscard]] QList<Gruppe> gruppen()
    {
        for (const auto &[stueck, s] : m_schreibweisen) {
            if (s.gruppe >= 0)
                m_gruppen[s.gruppe].schreibweisen[s.name] += s.anzahl;
        }
        return std::move(m_gruppen);
    }
    [[nodiscard]] const QList<Ort> &plaetze() const { return m_plaetze; }

private:
    struct Schreibweise {
        QString name;
        qsizetype gruppe = -1;
        qint64 anzahl = 0;
    };
    struct Streuung {
        using is_transparent = void;
        size_t operator()(QStringView text) const noexcept { return qHash(text); }
    };

    Schreibweise neueSchreibweise(QStringView stueck)
    {
        const QString name = Namenslesung::alsName(stueck);
        const QString schluessel = lernen::Lernregeln::schluessel(name);
        if (schluessel.isEmpty())
            return {.name = name};
        if (!m_gruppennummern.contains(schluessel)) {
            m_gruppennummern.insert(schluessel, m_gruppen.size());
            m_gruppen << Gruppe{.schluessel = schluessel, .schreibweisen = {}, .plaetze = {}};
        }
        return {.name = name, .gruppe = m_gruppennummern.value(schluessel)};
    }

    QList<Ort> m_plaetze;
    QHash<QString, int> m_platznummern;
    QList<Gruppe> m_gruppen;
    QHash<QString, qsizetype> m_gruppennummern;
    std::unordered_map<QString, Schreibweise, Streuung, std::equal_to<>> m_schreibweisen;
};

/** Walks through the tree; see Ablagelesung::lesen(). */
class Leser
{
public:
    Leser(const Profil &profil, const Ablagelesung::Fortschritt &fortschritt, const std::stop_token &ende)
        : m_profil(profil), m_eigene(profil.eigeneOrdner()), m_namenslesung(profil.namensVorlage),
          m_fortschritt(fortschritt), m_ende(ende)
    {
    }

    void lesen() { ordner(plattenPfad(QDir::cleanPath(nfc(m_profil.zielWurzel))), {}, 0); }

    [[nodiscard]] qint64 dateien() const { return m_dateien; }
    [[nodiscard]] qint64 unlesbareOrdner() const { return m_unlesbareOrdner; }
    [[nodiscard]] Uebrige namen() const { return {.anzahl = m_fremdeNamen, .beispiele = m_namen.pfade()}; }
    [[nodiscard]] Uebrige orte() const { return {.anzahl = m_fremdeOrte, .beispiele = m_orte.pfade()}; }
    [[nodiscard]] Zaehlung &zaehlung() { return m_zaehlung; }

private:
    void ordner(const QByteArray &platte, const QString &relativ, int tiefe)
    {
        if (m_ende.stop_requested())
            throw Abbruch();
        ++m_nummer;
        m_ordner = relativ;
        m_platz = platzVon(relativ);
        QList<QByteArray> tiefer;
        const bool gelesen = ordnerLesen(platte, [&](int, const Ordnereintrag &e) {
            if (e.name.startsWith('.'))
                return;
            if (e.art == Eintragsart::Ordner)
                tiefer << e.name;
            else if (e.art == Eintragsart::Datei && istPdf(e.name))
                datei(e.name);
        });
        m_unlesbareOrdner += gelesen ? 0 : 1;
        std::sort(tiefer.begin(), tiefer.end());
        for (const QByteArray &name : std::as_const(tiefer))
            unterordnerBetreten(platte, name, relativ, tiefe + 1);
    }

    void unterordnerBetreten(const QByteArray &platte, const QByteArray &name, const QString &relativ, int tiefe)
    {
        const QString text = nameVonPlatte(name);
        const QString pfad = darin(relativ, text);
        if (text.isNull())
            ++m_unlesbareOrdner;
        else if (tiefe > tiefeDerEigenen || !m_eigene.enthaelt(pfad))
            ordner(darin(platte, name), pfad, tiefe);
    }

    [[nodiscard]] int platzVon(const QString &relativ)
    {
        const Ort ort = m_profil.zerlegen(relativ);
        return lernen::Ortswahl::istVollstaendig(ort) && m_profil.kennt(ort) ? m_zaehlung.platz(ort) : -1;
    }

    void datei(const QByteArray &platte)
    {
        if (m_ende.stop_requested())
            throw Abbruch();
        ++m_dateien;
        if (m_fortschritt && m_dateien % fortschrittAlle == 0)
            m_fortschritt(m_dateien);
        const QString gelesen = nameVonPlatte(platte);
        const QString name = gelesen.isNull() ? QString::fromUtf8(platte) : gelesen;
        if (m_platz < 0) {
            ++m_fremdeOrte;
            return m_orte.dazu(m_nummer, m_ordner, name);
        }
        Gruppe *gruppe = gruppeVon(gelesen);
        if (!gruppe) {
            ++m_fremdeNamen;
            return m_namen.dazu(m_nummer, m_ordner, name);
        }
        zaehlen(*gruppe, name);
    }

    [[nodiscard]] Gruppe *gruppeVon(const QString &name)
    {
        const auto stuecke = m_namenslesung.lesen(name);
        const QStringView stueck = stuecke ? stuecke->at(size_t(Baustein::Gegenueber)) : QStringView();
        return stueck.isEmpty() ? nullptr : m_zaehlung.gruppe(stueck);
    }

    void zaehlen(Gruppe &gruppe, const QString &name)
    {
        ++gruppe.dokumente;
        auto &plaetze = gruppe.plaetze;
        auto platz =
            std::find_if(plaetze.begin(), plaetze.end(), [this](const auto &p) { return p.nummer == m_platz; });
        if (platz == plaetze.end())
            platz = plaetze.insert(plaetze.end(), Gruppe::Platz{.nummer = m_platz});
        ++platz->dokumente;
        platz->zeugen.dazu(m_nummer, m_ordner, name);
    }

    const Profil &m_profil;
    EigeneOrdner m_eigene;
    Namenslesung m_namenslesung;
    const Ablagelesung::Fortschritt &m_fortschritt;
    const std::stop_token &m_ende;
    Zaehlung m_zaehlung;
    int m_nummer = 0; // of the folder, its path and place
    QString m_ordner;
    int m_platz = -1;
    qint64 m_dateien = 0;
    qint64 m_unlesbareOrdner = 0;
    qint64 m_fremdeNamen = 0;
    qint64 m_fremdeOrte = 0;
    Auswahl m_namen{beispiele};
    Auswahl m_orte{beispiele};
};

/** Of spellings that are equally frequent the first one. */
QString haeufigste(const QHash<QString, qint64> &schreibweisen)
{
    QString beste;
    qint64 anzahl = 0;
    for (auto s = schreibweisen.begin(); s != schreibweisen.end(); ++s) {
        if (s.value() > anzahl || (s.value() == anzahl && s.key() < beste)) {
            beste = s.key();
            anzahl = s.value();
        }
    }
    return beste;
}

QList<lernen::Baumkenntnis::Platz> plaetzeVon(const Gruppe &gruppe, const QList<Ort> &orte)
{
    QList<lernen::Baumkenntnis::Platz> plaetze;
    for (const Gruppe::Platz &platz : gruppe.plaetze)
        plaetze << lernen::Baumkenntnis::Platz{.ort = orte.at(platz.nummer), .dokumente = platz.dokumente};
    return plaetze;
}

/** Of every place one first, so that each has its witness, then further ones. */
QStringList zeugenVon(const Gruppe &gruppe)
{
    QStringList liste;
    for (qsizetype runde = 0; runde < zeugen; ++runde) {
        for (const Gruppe::Platz &platz : gruppe.plaetze) {
            const QStringList pfade = platz.zeugen.pfade();
            if (runde < pfade.size() && liste.size() < zeugen)
                liste << pfade.at(runde);
        }
    }
    return liste;
}

Vorbehalt vorbehaltGegen(const Zeile &zeile, const regeln::Gegenpruefung &eigene)
{
    const QString &schluessel = zeile.kenntnis.schluessel;
    if (eigene.istEigen(zeile.kenntnis.anzeige))
        return Vorbehalt::EigenerName;
    if (std::all_of(schluessel.begin(), schluessel.end(), [](QChar c) { return c.isDigit(); }))
        return Vorbehalt::NurZiffern;
    if (schluessel.size() < lernen::Lernregeln::kuerzesterSchluessel)
        return Vorbehalt::ZuKurz;
    return zeile.dokumente < 2 ? Vorbehalt::EinzelnesDokument : Vorbehalt::Keiner;
}

QList<Zeile> zeilenVon(Zaehlung &zaehlung, const Profil &profil)
{
    const regeln::Gegenpruefung eigene(profil);
    QList<Zeile> zeilen;
    for (Gruppe gruppe : zaehlung.gruppen()) {
        std::stable_sort(gruppe.plaetze.begin(), gruppe.plaetze.end(),
                         [](const auto &a, const auto &b) { return a.dokumente > b.dokumente; });
        Zeile zeile{.kenntnis = {.schluessel = gruppe.schluessel,
                                 .anzeige = haeufigste(gruppe.schreibweisen),
                                 .plaetze = plaetzeVon(gruppe, zaehlung.plaetze())},
                    .dokumente = gruppe.dokumente,
                    .zeugen = zeugenVon(gruppe)};
        zeile.vorbehalt = vorbehaltGegen(zeile, eigene);
        zeile.angekreuzt = zeile.vorbehalt == Vorbehalt::Keiner;
        zeilen << zeile;
    }
    std::sort(zeilen.begin(), zeilen.end(), [](const Zeile &a, const Zeile &b) {
        return a.dokumente != b.dokumente ? a.dokumente > b.dokumente : a.kenntnis.anzeige < b.kenntnis.anzeige;
    });
    return zeilen;
}
} // namespace

Ablagelesung::Ergebnis Ablagelesung::lesen(Datenbank &db, const Profil &profil, const Fortschritt &fortschritt,
                                           const std::stop_token &ende)
{
    Zielwurzel::pruefen(db, profil);
    if (!Namenslesung(profil.namensVorlage).kenntGegenueber())
        throw Fehler(Sprache::text(
            u"Aus der Ablage lässt sich nichts lernen: Mit dieser Namensvorlage sagen die Dateinamen nicht, von wem "
            u"ein Dokument ist. Dazu braucht sie {gegenueber}, durch mehr als ein Leerzeichen vom übrigen Text getrennt."_s));
    Leser leser(profil, fortschritt, ende);
    leser.lesen();
    return {.zeilen = zeilenVon(leser.zaehlung(), profil),
            .orte = leser.orte(),
            .namen = leser.namen(),
            .dateien = leser.dateien(),
            .unlesbareOrdner = leser.unlesbareOrdner()};
}

bool Ablagelesung::hatDokumente(const Profil &profil, const std::stop_token &ende)
{
    const EigeneOrdner eigene(profil.eigeneOrdner());
    QList<Station> offene = {{.platte = plattenPfad(QDir::cleanPath(nfc(profil.zielWurzel))), .relativ = {}}};
    while (!offene.isEmpty()) {
        if (ende.stop_requested())
            throw Abbruch();
        const Station ordner = offene.takeLast();
        const bool eigener = ordner.tiefe > 0 && ordner.tiefe <= tiefeDerEigenen && eigene.enthaelt(ordner.relativ);
        if (!eigener && hatPdf(ordner, offene))
            return true;
    }
    return false;
}

QList<lernen::Baumkenntnis> Ablagelesung::angekreuzte(const QList<Zeile> &zeilen)
{
    QList<lernen::Baumkenntnis> kenntnisse;
    for (const Zeile &zeile : zeilen) {
        if (zeile.angekreuzt)
            kenntnisse << zeile.kenntnis;
    }
    return kenntnisse;
}
} // namespace quillmar::ablage
