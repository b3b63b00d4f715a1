#include "ablagewerk.h"
#include "ausgabe.h"
#include "dateibewegung.h"
#include "dokumente.h"
#include "katalog.h"
#include "pfade.h"
#include "protokollbuch.h"
#include "selbstpruefung.h"
#include "sha256.h"
#include "text.h"
#include "zielwurzel.h"

#include <QHash>
#include <QTemporaryDir>
#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace quillmar::app
{
namespace
{
/**
 * A stage for the trial: copies of the waiting documents in a hidden folder beside them, an empty target in a hidden
 * folder below the real one, and a copy of the catalogue. Nothing that belongs to the user is touched, whatever
 * happens, and another program may go on working meanwhile.
 */
class Probebuehne
{
public:
    Probebuehne(Datenbank &db, const Profil &profil)
        : m_quelle(std::make_unique<QTemporaryDir>(profil.quelle + hier())), m_ziel(profil.zielWurzel + hier()),
          m_profil(profil)
    {
        if (!m_quelle->isValid()) // may be read, but not written to
            m_quelle = std::make_unique<QTemporaryDir>();
        if (!m_quelle->isValid() || !m_ziel.isValid() || !m_katalog.isValid())
            throw Fehler(gefuellt(u"Der Ordner %@ lässt sich nicht anlegen"_s, {profil.zielWurzel}));
        m_profil.quelle = m_quelle->path();
        m_profil.zielWurzel = m_ziel.path();
        m_profil.protokollOrdner.clear();
        const QString katalog = m_katalog.filePath(u"k.db"_s);
        Katalog::kopieren(db, katalog);
        m_db = Katalog::oeffnen(katalog);
        dokumenteHolen();
    }

    [[nodiscard]] const std::shared_ptr<Datenbank> &db() const { return m_db; }
    [[nodiscard]] const Profil &profil() const { return m_profil; }

private:
    static QString hier() { return u"/.quillmar-selbsttest-XXXXXX"_s; }

    /** One that cannot be copied has no file in the trial, and fails there: the user's own is never touched. */
    void dokumenteHolen()
    {
        Dokumente dokumente(*m_db);
        for (const Dokument &d : dokumente.wartende()) {
            const QString ordner = m_profil.quelle + u'/' + QString::number(d.id);
            dokumente.setzePfad(d.id, ordner + u'/' + nameVon(d.pfad));
            try {
                Dateibewegung::ordnerAnlegen(ordner, m_profil.quelle);
                const QString kopie = Dateibewegung::ausfuehren(
                    {.von = d.pfad, .ordner = ordner, .name = nameVon(d.pfad), .art = Dateibewegung::Art::Kopieren},
                    [](const Dateibewegung::Schritt &) {});
                dokumente.setzePfad(d.id, kopie);
            } catch (const Fehler &f) {
                Ausgabe::melden(nameVon(d.pfad) + u": "_s + f.text());
            }
        }
    }

    std::unique_ptr<QTemporaryDir> m_quelle;
    QTemporaryDir m_ziel;
    QTemporaryDir m_katalog;
    Profil m_profil;
    std::shared_ptr<Datenbank> m_db;
};

/** While it lives, what is thrown away goes into a folder beside the target and with it. */
class Probepapierkorb
{
public:
    explicit Probepapierkorb(const QString &wurzel) : m_ordner(wurzel + u"/.quillmar-selbsttest-XXXXXX"_s)
    {
        m_vorher = qgetenv("XDG_DATA_HOME");
        m_gesetzt = qEnvironmentVariableIsSet("XDG_DATA_HOME");
        qputenv("XDG_DATA_HOME", m_ordner.path().toUtf8());
    }
    ~Probepapierkorb()
    {
        if (m_gesetzt)
            qputenv("XDG_DATA_HOME", m_vorher);
        else
            qunsetenv("XDG_DATA_HOME");
    }
    Probepapierkorb(const Probepapierkorb &) = delete;
    Probepapierkorb &operator=(const Probepapierkorb &) = delete;

private:
    QTemporaryDir m_ordner;
    QByteArray m_vorher;
    bool m_gesetzt = false;
};

struct Probe {
    Dokument vorher;
    QString summe;
};

QList<Probe> wartende(Datenbank &db)
{
    QList<Probe> proben;
    for (const Dokument &d : Dokumente(db).wartende())
        proben << Probe{.vorher = d, .summe = sha256Datei(aufDerPlatte(d.pfad))};
    return proben;
}

template <typename Bedingung>
bool alle(const QList<Probe> &proben, Bedingung bedingung)
{
    return std::all_of(proben.begin(), proben.end(), bedingung);
}

/** Files all of them; where each lies now, by its number. */
QHash<qint64, QString> uebernommene(const QList<Probe> &proben, const std::shared_ptr<Datenbank> &db,
                                    const Profil &profil, const std::shared_ptr<Protokollbuch> &buch)
{
    QHash<qint64, QString> orte;
    for (const Probe &probe : proben) {
        Ablagewerk werk(db, profil, buch);
        try {
            orte.insert(probe.vorher.id, werk.uebernehmen(probe.vorher).nach);
        } catch (const Fehler &f) {
            Ausgabe::melden(probe.vorher.dateiname + u": "_s + f.text());
        }
    }
    return orte;
}

void hinweg(Selbstpruefung &p, const QList<Probe> &proben, const std::shared_ptr<Datenbank> &db, const Profil &profil,
            const std::shared_ptr<Protokollbuch> &buch)
{
    QHash<qint64, QString> orte = uebernommene(proben, db, profil, buch);
    const Ablagewerk werk(db, profil);
    p.pruefe(orte.size() == proben.size(), u"alle wartenden Dokumente übernommen"_s);
    p.pruefe(alle(proben, [&](const Probe &q) { return sha256Datei(aufDerPlatte(orte[q.vorher.id])) == q.summe; }),
             u"jede Datei liegt unverändert am Zielort"_s);
    p.pruefe(alle(proben, [&](const Probe &q) { return werk.dokument(q.vorher.id)->status == Status::Erledigt; }),
             u"jedes Dokument gilt als einsortiert"_s);
    p.pruefe(Protokollbuch::lesen(buch->datei()).size() == orte.size(), u"jede Bewegung steht im Protokoll"_s);
    const bool kopieren = profil.kopieren;
    p.pruefe(alle(proben,
                  [&](const Probe &q) {
                      const bool liegtNoch = istVorhanden(q.vorher.pfad);
                      return liegtNoch == (kopieren || orte[q.vorher.id] == q.vorher.pfad);
                  }),
             kopieren ? u"die Originale liegen noch da"_s : u"am alten Platz liegt nichts mehr"_s);
}

void rueckweg(Selbstpruefung &p, const QList<Probe> &proben, const std::shared_ptr<Datenbank> &db, const Profil &profil,
              const QString &protokoll)
{
    const Probepapierkorb papierkorb(profil.zielWurzel);
    const Bilanz bilanz = Protokollbuch::zurueckdrehen(protokoll, db, [](qint64, qint64) {});
    const Ablagewerk werk(db, profil);
    const bool ganz = bilanz.fehler.isEmpty() && bilanz.zurueckgedreht == proben.size();
    p.pruefe(ganz, u"die Sitzung ist zurückgedreht"_s);
    for (const Rueckbaubefund &befund : bilanz.fehler)
        Ausgabe::melden(nameVon(Protokollbuch::lesen(protokoll).value(befund.stelle).nach) + u": "_s + befund.grund);
    p.pruefe(alle(proben, [&](const Probe &q) { return sha256Datei(aufDerPlatte(q.vorher.pfad)) == q.summe; }),
             u"jede Datei liegt unverändert am alten Platz"_s);
    p.pruefe(alle(proben,
                  [&](const Probe &q) {
                      const auto jetzt = werk.dokument(q.vorher.id);
                      return jetzt && jetzt->status == Status::Bereit && jetzt->pfad == q.vorher.pfad;
                  }),
             u"jedes Dokument wartet wieder"_s);
}
} // namespace

void betriebsartPruefen(Selbstpruefung &p, const std::shared_ptr<Datenbank> &db, const Profil &profil)
{
    p.block(u"Betriebsart"_s);
    try {
        Zielwurzel::pruefen(*db, profil);
        const Probebuehne buehne(*db, profil);
        const QList<Probe> proben = wartende(*buehne.db());
        const auto buch = Protokollbuch::anlegen(buehne.profil().protokollURL().value_or(QString()), buehne.profil());
        p.pruefe(buch != nullptr, u"das Protokoll lässt sich anlegen"_s);
        if (!buch)
            return;
        hinweg(p, proben, buehne.db(), buehne.profil(), buch);
        rueckweg(p, proben, buehne.db(), buehne.profil(), buch->datei());
    } catch (const Fehler &f) {
        Ausgabe::drucken(gefuellt(u"  ausgelassen: %@"_s, {f.text()}));
    }
}
} // namespace quillmar::app
