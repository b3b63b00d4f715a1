#include "schema.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace quillmar::katalog
{
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
        // What the reviewer has typed and not filed yet.
        u"CREATE TABLE IF NOT EXISTS entwuerfe (dokument_id INTEGER PRIMARY KEY, felder TEXT);"_s,
        u"CREATE INDEX IF NOT EXISTS i_ausgenommen ON dokumente(ausgenommen);"_s,
        // Serves the status counters and the search for waiting documents of one counterpart.
        u"CREATE INDEX IF NOT EXISTS i_zaehlen ON dokumente"
        "(ausgenommen, status, gegenueber, zweig, ablage, rubrik);"_s,
        // Serves the search for the next waiting document: without it all that are filed already would be passed by.
        u"CREATE INDEX IF NOT EXISTS i_wartet ON dokumente(status, ausgenommen);"_s,
        // Turning back a session asks for the movements of each of its documents.
        u"CREATE INDEX IF NOT EXISTS i_bewegt ON protokoll(dokument_id);"_s,
        // The state of the file whose digest is stored; geprueft = 0: noted without having read it.
        u"CREATE TABLE IF NOT EXISTS dateistand (\n"
        "    dokument_id INTEGER PRIMARY KEY, groesse INTEGER, geaendert INTEGER, geprueft INTEGER DEFAULT 1\n"
        ");"_s,
        // Where a document was whose path another one has now.
        u"CREATE TABLE IF NOT EXISTS fruehere_pfade (\n"
        "    id INTEGER PRIMARY KEY, dokument_id INTEGER, pfad TEXT, zeit TEXT\n"
        ");"_s,
        // What the source folder is: the folder below a drive that is not mounted is another one.
        u"CREATE TABLE IF NOT EXISTS herkunft (pfad TEXT PRIMARY KEY, nummer INTEGER);"_s,
        // Failed since the file was not there: tried again by itself when it is.
        u"CREATE TABLE IF NOT EXISTS abwesend (dokument_id INTEGER PRIMARY KEY);"_s,
        // Deeds of the review that are more than one movement or none; what they did to which document.
        u"CREATE TABLE IF NOT EXISTS taten (\n"
        "    id INTEGER PRIMARY KEY, zeit TEXT, art TEXT, bis_protokoll INTEGER, zurueck INTEGER DEFAULT 0\n"
        ");"_s,
        u"CREATE TABLE IF NOT EXISTS tatposten (\n"
        "    id INTEGER PRIMARY KEY, tat_id INTEGER, dokument_id INTEGER,\n"
        "    alt_status TEXT, neu_status TEXT, protokoll_id INTEGER\n"
        ");"_s,
        // Up to which number documents are named in logs that tell of more than the catalogue does.
        u"CREATE TABLE IF NOT EXISTS vergebene_nummern (bis INTEGER);"_s,
        u"CREATE INDEX IF NOT EXISTS i_tatposten ON tatposten(tat_id);"_s,
        u"CREATE INDEX IF NOT EXISTS i_tatbewegung ON tatposten(protokoll_id);"_s,
        // Movements and deeds that could not be taken back once; the next time they are passed over.
        u"CREATE TABLE IF NOT EXISTS uebergangen (art TEXT, id INTEGER, PRIMARY KEY (art, id));"_s,
        // Names on disk that are not what their path in form C says, percent-encoded.
        u"CREATE TABLE IF NOT EXISTS schreibweisen (protokoll_id INTEGER PRIMARY KEY, name TEXT);"_s,
        // What was counted of each counterpart's places; baum: documents that lie in the filing tree.
        u"CREATE TABLE IF NOT EXISTS gelernte_orte (\n"
        "    id INTEGER PRIMARY KEY, schluessel TEXT, zweig TEXT, ablage TEXT, rubrik TEXT,\n"
        "    anzahl INTEGER DEFAULT 0, korrekturen INTEGER DEFAULT 0, baum INTEGER DEFAULT 0,\n"
        "    belesen INTEGER DEFAULT -1, zeit TEXT, UNIQUE (schluessel, zweig, ablage, rubrik)\n"
        ");"_s,
        // In how many filed documents of such a place a word stands.
        u"CREATE TABLE IF NOT EXISTS gelernte_worte (\n"
        "    ort_id INTEGER, wort TEXT, anzahl INTEGER, PRIMARY KEY (ort_id, wort)\n"
        ") WITHOUT ROWID;"_s,
        // What each accept taught, so that it can be taken back.
        u"CREATE TABLE IF NOT EXISTS lernschritte (protokoll_id INTEGER PRIMARY KEY, schritt TEXT);"_s,
        // The last model answer before anything learned, and by which word the texts decided.
        u"CREATE TABLE IF NOT EXISTS modellantworten (\n"
        "    dokument_id INTEGER PRIMARY KEY, gegenueber TEXT, zweig TEXT, ablage TEXT, rubrik TEXT,\n"
        "    konfidenz REAL, ort_quelle TEXT, sicher INTEGER DEFAULT 0, von_hand INTEGER DEFAULT 0,\n"
        "    worte TEXT, stimmwort TEXT, stimmen INTEGER\n"
        ");"_s,
        // How pages lie in their file: degrees clockwise that make them upright, and straight.
        u"CREATE TABLE IF NOT EXISTS seitenlagen (\n"
        "    dokument_id INTEGER, seite INTEGER, drehung INTEGER, neigung REAL, von_hand INTEGER DEFAULT 0,\n"
        "    PRIMARY KEY (dokument_id, seite)\n"
        ") WITHOUT ROWID;"_s,
        // The text layer was no text: what is stored was recognised from the images.
        u"CREATE TABLE IF NOT EXISTS verworfene_textebenen (dokument_id INTEGER PRIMARY KEY);"_s,
        // Up to which movement the user knows that what was filed below a target root lies elsewhere.
        u"CREATE TABLE IF NOT EXISTS umgezogen (ziel TEXT PRIMARY KEY, bis_protokoll INTEGER, zeit TEXT);"_s,
    };
    return anweisungen;
}

const QString &schemaNachgeprueft()
{
    static const QString anweisung = u"CREATE TABLE nachgeprueft (dokument_id INTEGER PRIMARY KEY);"_s;
    return anweisung;
}

QStringList schemaNamen()
{
    static const QRegularExpression neues(u"CREATE (?:TABLE|INDEX) (?:IF NOT EXISTS )?(\\w+)"_s);
    QStringList namen;
    for (const QString &sql : schemaAnweisungen() + QList<QString>{schemaNachgeprueft()}) {
        for (const auto &treffer : neues.globalMatch(sql))
            namen << treffer.captured(1);
    }
    return namen;
}
} // namespace quillmar::katalog
