#include "datenbank.h"

#include "katalogpruefung.h"
#include "nurlesend.h"
#include "pfade.h"
#include "schema.h"
#include "sicherungen.h"
#include "sprache.h"
#include "text.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>
#include <chrono>
#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::katalog
{
namespace
{
constexpr auto geduld = 60s;
constexpr auto scheibe = 50ms;
constexpr unsigned long mindestPlatz = 256UL * 1024;
constexpr qsizetype hoechstensBereit = 200;

int binden(sqlite3_stmt *a, int stelle, const QVariant &wert)
{
    switch (wert.typeId()) {
    case QMetaType::QString: {
        const QByteArray bytes = wert.toString().toUtf8();
        return sqlite3_bind_text(a, stelle, bytes.constData(), int(bytes.size()), SQLITE_TRANSIENT);
    }
    case QMetaType::Bool:
        return sqlite3_bind_int64(a, stelle, wert.toBool() ? 1 : 0);
    case QMetaType::Short:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::LongLong:
        return sqlite3_bind_int64(a, stelle, wert.toLongLong());
    case QMetaType::Float:
    case QMetaType::Double:
        return sqlite3_bind_double(a, stelle, wert.toDouble());
    default:
        return sqlite3_bind_null(a, stelle);
    }
}

Wert gelesen(sqlite3_stmt *a, int spalte)
{
    switch (sqlite3_column_type(a, spalte)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return qint64(sqlite3_column_int64(a, spalte));
    case SQLITE_FLOAT:
        return sqlite3_column_double(a, spalte);
    default: {
        const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(a, spalte));
        return QString::fromUtf8(text, sqlite3_column_bytes(a, spalte));
    }
    }
}

Zeile::Spalten spaltenVon(sqlite3_stmt *a)
{
    QStringList namen;
    for (int i = 0; i < sqlite3_column_count(a); ++i)
        namen << QString::fromUtf8(sqlite3_column_name(a, i));
    return std::make_shared<const QStringList>(std::move(namen));
}

Zeile zeileVon(sqlite3_stmt *a, const Zeile::Spalten &spalten)
{
    QList<Wert> werte;
    werte.reserve(spalten->size());
    for (int i = 0; i < spalten->size(); ++i)
        werte << gelesen(a, i);
    return {spalten, std::move(werte)};
}

bool istBelegt(int code) { return (code & 0xff) == SQLITE_BUSY || (code & 0xff) == SQLITE_LOCKED; }

/**
 * Private letters: a new file is made for the user alone. One that is there is never opened here: closing any
 * descriptor of a file drops the locks that another connection of this process holds on it.
 */
void neuFuerDenBesitzer(const QString &pfad)
{
    const int griff = ::open(QFile::encodeName(pfad).constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (griff >= 0)
        ::close(griff);
}

/**
 * Closes a catalogue that was made otherwise to others; what its owner may do stays as it is. Fails quietly: another
 * owner, a file system without modes.
 */
void nurFuerDenBesitzer(const QString &pfad)
{
    constexpr mode_t andere = S_IRWXG | S_IRWXO;
    for (const QString &zusatz : {QString(), u"-wal"_s, u"-shm"_s}) {
        const QByteArray platte = QFile::encodeName(pfad + zusatz);
        struct stat s = {};
        if (::stat(platte.constData(), &s) == 0 && (s.st_mode & andere) != 0) [[maybe_unused]]
            const int egal = ::chmod(platte.constData(), s.st_mode & 07777 & ~andere);
    }
}
} // namespace

void Datenbank::Schliesser::operator()(sqlite3 *griff) const noexcept { sqlite3_close_v2(griff); }

void Datenbank::Finalisierer::operator()(sqlite3_stmt *anweisung) const noexcept { sqlite3_finalize(anweisung); }

Datenbank::Datenbank(const QString &pfad, bool sichern) : m_pfad(pfad)
{
    const QString ordner = QFileInfo(pfad).absolutePath();
    if (!QDir().mkpath(ordner))
        throw Fehler(gefuellt(Sprache::text(u"Der Ordner %@ lässt sich nicht anlegen"_s), {ordner}));
    neuFuerDenBesitzer(pfad);
    if (Katalogpruefung::istVermerkt(pfad))
        m_zugang = Zugang::Beschaedigt;
    if (!griffOeffnen({}) && !zumLesenOeffnen() && !beschaedigtOeffnen())
        throw Fehler(gefuellt(Sprache::text(u"Datenbank lässt sich nicht öffnen: %@"_s), {pfad}));
    if (m_zugang == Zugang::Schreiben)
        einrichten(sichern);
    if (m_zugang != Zugang::Schreiben)
        fehlendesErsetzen();
    if (m_zugang == Zugang::Beschaedigt)
        nichtsMehrSchreiben();
}

Datenbank::~Datenbank() { m_bereit.clear(); }

/** Opens and looks whether the file is a catalogue; an empty file counts as one. */
bool Datenbank::griffOeffnen(const QString &zusatz)
{
    sqlite3 *griff = nullptr;
    const QByteArray ort =
        zusatz.isEmpty() ? m_pfad.toUtf8() : QUrl::fromLocalFile(m_pfad).toEncoded() + zusatz.toLatin1();
    const int code =
        sqlite3_open_v2(ort.constData(), &griff, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_URI, nullptr);
    m_bereit.clear();
    m_griff.reset(griff);
    if (code != SQLITE_OK)
        return false;
    // Before the first statement, so that two programs may open a new catalogue at once.
    sqlite3_busy_timeout(griff, int(std::chrono::milliseconds(geduld).count()));
    if (m_zugang == Zugang::Beschaedigt) // lets a file be read that has been cut off; nothing is written into it
        sqlite3_exec(griff, "PRAGMA writable_schema=ON", nullptr, nullptr, nullptr);
    const Anweisung schema =
        vorbereiten(u"SELECT COUNT(*), COUNT(*) FILTER (WHERE name='dokumente') FROM sqlite_master"_s, {});
    if (!schema || sqlite3_step(schema.get()) != SQLITE_ROW)
        return false;
    m_neu = sqlite3_column_int(schema.get(), 0) == 0;
    if (!m_neu)
        return sqlite3_column_int(schema.get(), 1) > 0;
    // One whose list of tables is lost is no new one.
    const QList<Zeile> seiten = abfragen(u"PRAGMA page_count"_s);
    return !seiten.isEmpty() && seiten.first().ganz(u"page_count") <= 1;
}

/** Second try for a disk on which not even the side files can be made. Never past a journal that still holds rows. */
bool Datenbank::zumLesenOeffnen()
{
    if (m_zugang == Zugang::Beschaedigt || QFileInfo(m_pfad + u"-wal"_s).size() > 0 || QFileInfo(m_pfad).size() == 0)
        return false;
    m_zugang = Zugang::Unbeschreibbar;
    return griffOeffnen(u"?immutable=1"_s);
}

/** Third try for a catalogue of which parts can be read. */
bool Datenbank::beschaedigtOeffnen()
{
    if (QFileInfo(m_pfad).size() == 0)
        return false;
    m_zugang = Zugang::Beschaedigt;
    if (!griffOeffnen({}))
        return false;
    Katalogpruefung::vermerken(m_pfad);
    return true;
}

void Datenbank::einrichten(bool sichern)
{
    ausfuehren(u"PRAGMA journal_mode=WAL;"_s);
    ausfuehren(u"PRAGMA busy_timeout=60000;"_s);
    ausfuehren(u"PRAGMA foreign_keys=ON;"_s);
    ausfuehren(u"PRAGMA synchronous=FULL;"_s);
    m_zugang = umformen(sichern);
    if (m_zugang == Zugang::Schreiben && !istBeschreibbar())
        m_zugang = Zugang::Unbeschreibbar;
    if (abfragen(u"SELECT 1 FROM sqlite_master WHERE name='dokumente'"_s).isEmpty())
        throw Fehler(gefuellt(Sprache::text(u"Datenbank lässt sich nicht öffnen: %@"_s), {m_pfad}));
    nurFuerDenBesitzer(m_pfad);
    // From here on waiting is done in slices, outside the queue.
    sqlite3_busy_timeout(m_griff.get(), 0);
}

/** Brings the tables into their present form; a catalogue that others may need as it is now is copied before. */
Zugang Datenbank::umformen(bool sichern)
{
    if (hatForm())
        return Zugang::Schreiben;
    if (!m_neu && !istBeschreibbar())
        return Zugang::Unbeschreibbar;
    try {
        if (sichern && !m_neu && !Sicherungen::anlegen(m_pfad, {}, geduld))
            return Zugang::Ungesichert;
    } catch (const Fehler &) {
        return Zugang::Ungesichert;
    }
    anlegen();
    return Zugang::Schreiben;
}

bool Datenbank::hatForm()
{
    QSet<QString> vorhanden;
    for (const Zeile &z : abfragen(u"SELECT name FROM sqlite_master"_s))
        vorhanden.insert(z.text(u"name"));
    const QStringList namen = schemaNamen();
    const QList<Zeile> spalten =
        abfragen(u"SELECT (SELECT COUNT(*) FROM pragma_table_info('protokoll') WHERE name='kopiert')\n"
                 "+ (SELECT COUNT(*) FROM pragma_table_info('dokumente')\n"
                 "WHERE name IN ('ausgenommen','gelernt_von')) AS n"_s);
    return std::all_of(namen.begin(), namen.end(), [&](const QString &name) { return vorhanden.contains(name); }) &&
           !spalten.isEmpty() && spalten.first().ganz(u"n") == 3;
}

void Datenbank::sperren()
{
    m_zugang = Zugang::Beschaedigt;
    Katalogpruefung::vermerken(m_pfad);
    Q_UNUSED(mitGeduld([this] {
        nichtsMehrSchreiben();
        return SQLITE_OK;
    }));
}

/** Not even what stands in the journal, when it is closed. */
void Datenbank::nichtsMehrSchreiben()
{
    sqlite3_exec(m_griff.get(), "PRAGMA query_only=ON", nullptr, nullptr, nullptr);
    sqlite3_db_config(m_griff.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
}

void Datenbank::anlegen()
{
    for (const QString &sql : schemaAnweisungen())
        ausfuehren(sql);
    if (abfragen(u"SELECT 1 FROM sqlite_master WHERE name='nachgeprueft'"_s).isEmpty())
        nachgeprueftAnlegen();
}

/** All or nothing, and once: also where two programs open the same catalogue, the second one finds the table. */
void Datenbank::nachgeprueftAnlegen()
{
    QString anweisungen = u"BEGIN IMMEDIATE;"_s + schemaNachgeprueft();
    if (!abfragen(u"SELECT 1 FROM pragma_table_info('dokumente') WHERE name='nachgeprueft'"_s).isEmpty())
        anweisungen += u"INSERT INTO nachgeprueft SELECT id FROM dokumente WHERE nachgeprueft=1;"_s;
    if (ausfuehren(anweisungen + u"COMMIT;"_s) != SQLITE_OK && sqlite3_get_autocommit(m_griff.get()) == 0)
        ausfuehren(u"ROLLBACK"_s);
}

/** What an earlier version has left that may only be read lacks later tables: empty ones stand in for them. */
void Datenbank::fehlendesErsetzen()
{
    static const QRegularExpression tabelle(u"^CREATE TABLE (?:IF NOT EXISTS )?(\\w+)"_s);
    ausfuehren(u"PRAGMA temp_store=MEMORY"_s);
    for (const QString &sql : schemaAnweisungen() + QList<QString>{schemaNachgeprueft()}) {
        const QString name = tabelle.match(sql).captured(1);
        if (!name.isEmpty() && abfragen(u"SELECT 1 FROM sqlite_master WHERE name=?"_s, {name}).isEmpty())
            ausfuehren(QString(sql).replace(u"CREATE TABLE"_s, u"CREATE TEMP TABLE"_s));
    }
}

bool Datenbank::istBeschreibbar()
{
    struct statvfs platte = {};
    if (::statvfs(QFile::encodeName(m_pfad).constData(), &platte) == 0 &&
        platte.f_bavail * platte.f_frsize < mindestPlatz)
        return false;
    // A file that may only be read is opened all the same, and even a transaction begins on it.
    if (sqlite3_db_readonly(m_griff.get(), "main") == 1)
        return false;
    const int code = ausfuehren(u"BEGIN IMMEDIATE; UPDATE dokumente SET status=status WHERE id=0;"_s);
    if (sqlite3_get_autocommit(m_griff.get()) == 0)
        ausfuehren(u"ROLLBACK"_s);
    return code == SQLITE_OK || istBelegt(code);
}

Datenbank::Anweisung Datenbank::vorbereiten(const QString &sql, const QVariantList &parameter)
{
    Anweisung anweisung;
    if (const auto fertig = m_bereit.find(sql); fertig != m_bereit.end()) {
        // Taken out while it runs, so that the same text may be used again inside.
        anweisung = std::move(fertig->second);
        m_bereit.erase(fertig);
    } else {
        sqlite3_stmt *neu = nullptr;
        const QByteArray text = sql.toUtf8();
        if (sqlite3_prepare_v3(m_griff.get(), text.constData(), int(text.size()) + 1, SQLITE_PREPARE_PERSISTENT, &neu,
                               nullptr) != SQLITE_OK)
            return {};
        anweisung.reset(neu);
    }
    for (qsizetype i = 0; anweisung && i < parameter.size(); ++i)
        binden(anweisung.get(), int(i) + 1, parameter.at(i));
    return anweisung;
}

void Datenbank::zurueckgeben(const QString &sql, Anweisung anweisung)
{
    sqlite3_reset(anweisung.get());
    sqlite3_clear_bindings(anweisung.get());
    if (m_bereit.size() < hoechstensBereit)
        m_bereit.insert_or_assign(sql, std::move(anweisung));
}

QList<Zeile> Datenbank::abfragen(const QString &sql, const QVariantList &parameter)
{
    QList<Zeile> zeilen;
    Q_UNUSED(schritte(sql, parameter, [&zeilen](const Zeile &zeile) { zeilen << zeile; }));
    return zeilen;
}

int Datenbank::schritte(const QString &sql, const QVariantList &parameter,
                        const std::function<void(const Zeile &)> &besuch)
{
    int ende = SQLITE_OK;
    Q_UNUSED(mitGeduld([&] {
        Anweisung anweisung = vorbereiten(sql, parameter);
        if (!anweisung)
            return ende = sqlite3_errcode(m_griff.get());
        ende = sqlite3_step(anweisung.get());
        const bool hatZeilen = ende == SQLITE_ROW;
        const Zeile::Spalten spalten = hatZeilen ? spaltenVon(anweisung.get()) : Zeile::Spalten();
        for (; ende == SQLITE_ROW; ende = sqlite3_step(anweisung.get()))
            besuch(zeileVon(anweisung.get(), spalten));
        zurueckgeben(sql, std::move(anweisung));
        return hatZeilen ? SQLITE_OK : ende; // rows were delivered: never from the beginning again
    }));
    return ende == SQLITE_DONE ? SQLITE_OK : ende;
}

int Datenbank::einmal(const QString &sql, const QVariantList &parameter)
{
    if (parameter.isEmpty())
        return sqlite3_exec(m_griff.get(), sql.toUtf8().constData(), nullptr, nullptr, nullptr);
    Anweisung anweisung = vorbereiten(sql, parameter);
    if (!anweisung)
        return 1;
    const int code = sqlite3_step(anweisung.get());
    zurueckgeben(sql, std::move(anweisung));
    return code == SQLITE_ROW || code == SQLITE_DONE ? 0 : code;
}

int Datenbank::ausfuehren(const QString &sql, const QVariantList &parameter)
{
    return mitGeduld([&] { return einmal(sql, parameter); });
}

QList<Zeile> Datenbank::lesen(const QString &sql, const QVariantList &parameter)
{
    QList<Zeile> zeilen;
    besuchen(sql, parameter, [&zeilen](const Zeile &zeile) { zeilen << zeile; });
    return zeilen;
}

void Datenbank::besuchen(const QString &sql, const QVariantList &parameter,
                         const std::function<void(const Zeile &)> &besuch)
{
    if (const int code = schritte(sql, parameter, besuch); code != SQLITE_OK)
        scheitern(code, Sprache::text(u"Der Katalog lässt sich nicht lesen"_s));
}

int Datenbank::schreiben(const QString &sql, const QVariantList &parameter)
{
    int anzahl = 0;
    const int code = mitGeduld([&] {
        const int ergebnis = einmal(sql, parameter);
        anzahl = sqlite3_changes(m_griff.get());
        return ergebnis;
    });
    if (code != SQLITE_OK)
        scheitern(code, Katalog::schreibmangel(*this));
    return anzahl;
}

void Datenbank::scheitern(int code, const QString &satz)
{
    const Warteschlange::Platz platz(m_schlange); // the message is the connection's own
    const bool schaden = istSchaden(code);
    if (schaden)
        sperren();
    throw Katalogfehler(schaden ? Katalog::schreibmangel(*this) : satz,
                        QString::fromUtf8(sqlite3_errstr(code)) + u": "_s +
                            QString::fromUtf8(sqlite3_errmsg(m_griff.get())));
}

bool Datenbank::gibtEs(const QString &sql, const QVariantList &parameter) { return !lesen(sql, parameter).isEmpty(); }

qint64 Datenbank::zahl(const QString &sql, const QVariantList &parameter)
{
    return eine(sql, parameter, [](const Zeile &z) { return z.ganz(u"n"); }).value_or(0);
}

std::optional<qint64> Datenbank::nummer(const QString &sql, const QVariantList &parameter)
{
    return eine(sql, parameter, [](const Zeile &z) { return z.ganz(u"id"); });
}

QList<qint64> Datenbank::nummern(const QString &sql, const QVariantList &parameter)
{
    QList<qint64> liste;
    besuchen(sql, parameter, [&liste](const Zeile &z) { liste << z.ganz(u"id"); });
    return liste;
}

int Datenbank::beginnen(bool &innere)
{
    return mitGeduld(
        [&] {
            innere = sqlite3_get_autocommit(m_griff.get()) == 0;
            return einmal(innere ? u"SAVEPOINT stufe"_s : u"BEGIN IMMEDIATE"_s, {});
        },
        true);
}

int Datenbank::mitGeduld(const std::function<int()> &arbeit, bool platzBehalten)
{
    const auto ende = std::chrono::steady_clock::now() + geduld;
    for (;;) {
        {
            Warteschlange::Platz platz(m_schlange);
            const int code = arbeit();
            if (code == SQLITE_OK && platzBehalten)
                platz.behalten();
            // Inside a transaction the queue cannot be given free, and the file is ours already.
            if (!istBelegt(code) || m_schlange.verschachtelt() || std::chrono::steady_clock::now() >= ende)
                return code;
        }
        std::this_thread::sleep_for(scheibe);
    }
}
} // namespace quillmar::katalog
