#include "schema.h"

using namespace Qt::StringLiterals;

const QList<QString> &schemaAnweisungen()
{
    static const QList<QString> anweisungen = {
        u"CREATE TABLE IF NOT EXISTS dokumente (\n"
        "    id INTEGER PRIMARY KEY,\n"
        "    pfad TEXT UNIQUE, dateiname TEXT, alt_ordner TEXT,\n"
        "    groesse INTEGER, sha256 TEXT, seiten INTEGER,\n"
        "    status TEXT DEFAULT 'neu',\n"
        "    hat_textebene INTEGER DEFAULT 0, text_hash TEXT, skizze TEXT,\n"
        "    datum TEXT, gegenueber TEXT, titel TEXT,\n"
        "    zweig TEXT, ablage TEXT, rubrik TEXT, jahr TEXT,\n"
        "    konfidenz REAL DEFAULT 0, vorschlag TEXT,\n"
        "    dublette_von INTEGER, aehnlich_zu INTEGER, aehnlichkeit REAL,\n"
        "    fehler TEXT, zeit TEXT,\n"
        "    modell_zweig TEXT, modell_ablage TEXT, modell_rubrik TEXT,\n"
        "    ort_quelle TEXT, zweitmeinung INTEGER\n"
        ");\n"
        "CREATE INDEX IF NOT EXISTS i_status ON dokumente(status);\n"
        "CREATE INDEX IF NOT EXISTS i_sha ON dokumente(sha256);\n"
        "CREATE INDEX IF NOT EXISTS i_thash ON dokumente(text_hash);\n"
        "CREATE TABLE IF NOT EXISTS texte (dokument_id INTEGER PRIMARY KEY, text TEXT);\n"
        "CREATE TABLE IF NOT EXISTS protokoll (\n"
        "    id INTEGER PRIMARY KEY, dokument_id INTEGER, zeit TEXT, aktion TEXT,\n"
        "    von_pfad TEXT, nach_pfad TEXT, alt_status TEXT, rueckgaengig INTEGER DEFAULT 0,\n"
        "    kopiert INTEGER DEFAULT 0\n"
        ");"_s,
        u"ALTER TABLE protokoll ADD COLUMN kopiert INTEGER DEFAULT 0;"_s,
        u"ALTER TABLE dokumente ADD COLUMN ausgenommen INTEGER DEFAULT 0;"_s,
        u"ALTER TABLE dokumente ADD COLUMN gelernt_von TEXT;"_s,
        // Tells a second opinion that was given from one that was only asked for.
        u"ALTER TABLE dokumente ADD COLUMN nachgeprueft INTEGER DEFAULT 0;"_s,
        u"CREATE TABLE IF NOT EXISTS namen (\n"
        "    von TEXT PRIMARY KEY, nach TEXT, anzahl INTEGER DEFAULT 1, zeit TEXT\n"
        ");"_s,
        u"CREATE TABLE IF NOT EXISTS gelernt (\n"
        "    schluessel TEXT PRIMARY KEY, anzeige TEXT,\n"
        "    zweig TEXT, ablage TEXT, rubrik TEXT,\n"
        "    anzahl INTEGER DEFAULT 1, zeit TEXT\n"
        ");"_s,
        // What was carried over from an earlier version, once.
        u"CREATE TABLE IF NOT EXISTS uebertragungen (name TEXT PRIMARY KEY, zeit TEXT);"_s,
        // Documents whose second opinion was asked for in vain; the program's own.
        u"CREATE TABLE IF NOT EXISTS zweitfragen (dokument_id INTEGER PRIMARY KEY, zeit TEXT);"_s,
        u"CREATE INDEX IF NOT EXISTS i_ausgenommen ON dokumente(ausgenommen);"_s,
        // Serves the status counters and the search for waiting documents of one counterpart.
        u"CREATE INDEX IF NOT EXISTS i_zaehlen ON dokumente"
        "(ausgenommen, status, gegenueber, zweig, ablage, rubrik);"_s,
        // Serves the search for the next waiting document: without it all that are filed already would be passed by.
        u"CREATE INDEX IF NOT EXISTS i_wartet ON dokumente(status, ausgenommen);"_s,
        // Turning back a session asks for the movements of each of its documents.
        u"CREATE INDEX IF NOT EXISTS i_bewegt ON protokoll(dokument_id);"_s,
    };
    return anweisungen;
}
