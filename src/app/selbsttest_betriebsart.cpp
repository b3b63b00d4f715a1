#include "ablagewerk.h"
#include "ausgabe.h"
#include "datenbank.h"
#include "pfade.h"
#include "protokollbuch.h"
#include "selbstpruefung.h"
#include "sha256.h"
#include "sprache.h"
#include "transaktion.h"

#include <QDir>
#include <QDirIterator>
#include <QSet>
#include <QTemporaryDir>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
/** The rows that filing changes, to be put back as they were. */
class Katalogstand
{
public:
    explicit Katalogstand(Datenbank &db) : m_db(db)
    {
        for (const QString &tabelle : tabellen())
            muss(u"CREATE TEMP TABLE probe_%1 AS SELECT * FROM main.%1"_s.arg(tabelle));
    }
    ~Katalogstand()
    {
        for (const QString &tabelle : tabellen())
            m_db.ausfuehren(u"DROP TABLE temp.probe_%1"_s.arg(tabelle));
    }
    Katalogstand(const Katalogstand &) = delete;
    Katalogstand &operator=(const Katalogstand &) = delete;

    void wiederherstellen()
    {
        Transaktion transaktion(m_db);
        muss(u"INSERT OR REPLACE INTO main.dokumente SELECT * FROM temp.probe_dokumente"_s);
        muss(u"DELETE FROM main.protokoll WHERE rueckgaengig=1 AND id NOT IN (SELECT id FROM temp.probe_protokoll)\n"
             "AND dokument_id IN (SELECT id FROM temp.probe_dokumente WHERE status='bereit')"_s);
        for (const QString &tabelle : {u"gelernt"_s, u"namen"_s}) {
            muss(u"DELETE FROM main.%1"_s.arg(tabelle));
            muss(u"INSERT INTO main.%1 SELECT * FROM temp.probe_%1"_s.arg(tabelle));
        }
        transaktion.abschliessen();
    }

private:
    /** Half a snapshot or half a restoration would take learned rows away. */
    void muss(const QString &sql)
    {
        if (m_db.ausfuehren(sql) != 0)
            throw Fehler(Sprache::text(
                u"Der Katalog lässt sich nicht beschreiben. Ist die Platte voll oder schreibgeschützt?"_s));
    }

    static QStringList tabellen() { return {u"dokumente"_s, u"protokoll"_s, u"gelernt"_s, u"namen"_s}; }
    Datenbank &m_db;
};

QSet<QString> ordnerUnter(const QString &wurzel)
{
    QSet<QString> ordner;
    QDirIterator lauf(wurzel, QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (lauf.hasNext())
        ordner.insert(lauf.next());
    return ordner;
}

/** Takes out the folders that the trial has made; only empty ones go. */
void neueOrdnerEntfernen(const QString &wurzel, const QSet<QString> &vorher)
{
    QStringList neue = (ordnerUnter(wurzel) - vorher).values();
    std::sort(neue.begin(), neue.end(), [](const QString &a, const QString &b) { return a.size() > b.size(); });
    for (const QString &ordner : std::as_const(neue))
        QDir().rmdir(ordner);
}

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
    for (const Zeile &zeile : db.abfragen(u"SELECT * FROM dokumente WHERE status='bereit' AND ausgenommen=0"_s)) {
        const Dokument d = Dokument::aus(zeile);
        proben << Probe{.vorher = d, .summe = sha256Datei(aufDerPlatte(d.pfad))};
    }
    return proben;
}

template <typename Bedingung>
bool alle(const QList<Probe> &proben, Bedingung bedingung)
{
    return std::all_of(proben.begin(), proben.end(), bedingung);
}

void hinweg(Selbstpruefung &p, const QList<Probe> &proben, const std::shared_ptr<Datenbank> &db, const Profil &profil,
            const std::shared_ptr<Protokollbuch> &buch)
{
    QHash<qint64, QString> orte;
    for (const Probe &probe : proben) {
        Ablagewerk werk(db, profil, buch);
        try {
            werk.uebernehmen(probe.vorher);
            orte.insert(probe.vorher.id, werk.mitgezogen->nach);
        } catch (const Fehler &f) {
            Ausgabe::melden(probe.vorher.dateiname + u": "_s + f.text());
        }
    }
    const Ablagewerk werk(db, profil);
    p.pruefe(orte.size() == proben.size(), Sprache::text(u"alle wartenden Dokumente übernommen"_s));
    p.pruefe(alle(proben, [&](const Probe &q) { return sha256Datei(aufDerPlatte(orte[q.vorher.id])) == q.summe; }),
             Sprache::text(u"jede Datei liegt unverändert am Zielort"_s));
    p.pruefe(alle(proben, [&](const Probe &q) { return werk.dokument(q.vorher.id)->status == u"erledigt"_s; }),
             Sprache::text(u"jedes Dokument gilt als einsortiert"_s));
    p.pruefe(Protokollbuch::lesen(buch->datei()).size() == orte.size(),
             Sprache::text(u"jede Bewegung steht im Protokoll"_s));
    const bool kopieren = profil.kopieren;
    p.pruefe(alle(proben,
                  [&](const Probe &q) {
                      const bool liegtNoch = istVorhanden(q.vorher.pfad);
                      return liegtNoch == (kopieren || orte[q.vorher.id] == q.vorher.pfad);
                  }),
             kopieren ? Sprache::text(u"die Originale liegen noch da"_s)
                      : Sprache::text(u"am alten Platz liegt nichts mehr"_s));
}

/** True when everything is back where it was. */
bool rueckweg(Selbstpruefung &p, const QList<Probe> &proben, const std::shared_ptr<Datenbank> &db, const Profil &profil,
              const QString &protokoll)
{
    const Probepapierkorb papierkorb(profil.zielWurzel);
    const Bilanz bilanz = Protokollbuch::zurueckdrehen(protokoll, db, [](qint64, qint64) {});
    const Ablagewerk werk(db, profil);
    const bool ganz = bilanz.fehler.isEmpty() && bilanz.zurueckgedreht == proben.size();
    p.pruefe(ganz, Sprache::text(u"die Sitzung ist zurückgedreht"_s));
    for (const Rueckbaubefund &befund : bilanz.fehler)
        Ausgabe::melden(nameVon(Protokollbuch::lesen(protokoll).value(befund.stelle).nach) + u": "_s + befund.grund);
    p.pruefe(alle(proben, [&](const Probe &q) { return sha256Datei(aufDerPlatte(q.vorher.pfad)) == q.summe; }),
             Sprache::text(u"jede Datei liegt unverändert am alten Platz"_s));
    p.pruefe(alle(proben,
                  [&](const Probe &q) {
                      const auto jetzt = werk.dokument(q.vorher.id);
                      return jetzt && jetzt->status == u"bereit"_s && jetzt->pfad == q.vorher.pfad;
                  }),
             Sprache::text(u"jedes Dokument wartet wieder"_s));
    return ganz;
}
} // namespace

void betriebsartPruefen(Selbstpruefung &p, const std::shared_ptr<Datenbank> &db, const Profil &profil)
{
    p.block(Sprache::text(u"Betriebsart"_s));
    const QString ziel = QDir::cleanPath(profil.zielWurzel);
    if (profil.zielWurzel.isEmpty() || !istOrdner(ziel))
        return Ausgabe::drucken(Sprache::text(u"  ausgelassen: Das Profil hat keinen erreichbaren Zielordner"_s));
    const QList<Probe> proben = wartende(*db);
    const QSet<QString> ordner = ordnerUnter(ziel);
    const QString protokollOrdner = profil.protokollURL().value_or(QString());
    const bool ordnerNeu = !istOrdner(protokollOrdner);
    const auto buch = Protokollbuch::anlegen(protokollOrdner, profil);
    p.pruefe(buch != nullptr, Sprache::text(u"das Protokoll lässt sich anlegen"_s));
    if (!buch)
        return;
    Katalogstand stand(*db);
    hinweg(p, proben, db, profil, buch);
    if (!rueckweg(p, proben, db, profil, buch->datei()))
        return; // the log stays: with it the rest can be turned back
    stand.wiederherstellen();
    QFile::remove(buch->datei());
    if (ordnerNeu)
        QDir().rmdir(protokollOrdner);
    neueOrdnerEntfernen(ziel, ordner);
}
