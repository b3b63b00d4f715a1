#include "analyse.h"

#include "ablagewerk.h"
#include "bestand.h"
#include "hintergrund.h"
#include "katalog.h"
#include "portionen.h"
#include "sprache.h"
#include "text.h"
#include "vorrang.h"
#include "wiedervorlage.h"
#include "zweitmeinung.h"

#include <atomic>
#include <condition_variable>
#include <mutex>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::analyse
{
/** What the worker shares with the object that started it, and what outlives that object. */
struct Analyse::Verbindung {
    explicit Verbindung(std::shared_ptr<Briefkasten> kasten) : briefe(std::move(kasten)) {}

    const std::shared_ptr<Briefkasten> briefe;
    std::mutex schloss;
    std::condition_variable ende;
    bool fertig = false;
    std::atomic<bool> abbrechen = false;
    std::optional<QStringList> ausnahmen; ///< as changed since the run began

    [[nodiscard]] std::optional<QStringList> jetzigeAusnahmen()
    {
        const std::lock_guard sperre(schloss);
        return ausnahmen;
    }

    void abmelden()
    {
        const std::lock_guard sperre(schloss);
        fertig = true;
        ende.notify_all();
    }
};

/** What a run works with. */
struct Analyse::Arbeit {
    std::shared_ptr<Datenbank> db;
    Profil profil;
    Laufauftrag auftrag;
    std::stop_token ende;
};

namespace
{
constexpr auto laengstesWarten = 900ms;
constexpr auto ueblicheGeduld = 10s; // a document that takes longer is named

using Ausnahmen = std::function<std::optional<QStringList>()>;

/** Rules that came while the folder was walked through have not met what the walk took in. */
void neueAusnahmenAnwenden(const Lauf &lauf, const std::optional<QStringList> &ausnahmen)
{
    if (!ausnahmen || *ausnahmen == lauf.profil().ausnahmen)
        return;
    Profil profil = lauf.profil();
    profil.ausnahmen = *ausnahmen;
    Ablagewerk::ausnahmenAnwenden(lauf.db(), profil);
}

/** The stages one after the other; each looks for the wish to stop by itself. */
void stufen(Lauf &lauf, const Laufauftrag &auftrag, const Ausnahmen &ausnahmen)
{
    Bestand::aufnehmen(lauf);
    neueAusnahmenAnwenden(lauf, ausnahmen());
    if (lauf.sollHalten())
        return;
    // Not before: the inventory may refuse the run, and what failed would have lost its reason for nothing.
    if (auftrag.erneut)
        Wiedervorlage::oeffnen(lauf.db(), auftrag.nurDies);
    Portionen::durchlaufen(lauf, auftrag);
    // Once, behind all portions: changing the model costs more than asking it.
    if (!auftrag.nurLesen && !lauf.sollHalten() && lauf.profil().zweitmeinung)
        Zweitmeinung::einholen(lauf);
}

Laufstand angehalten(const QString &grund)
{
    return {.stufe = QUILLMAR_TEXT(u"Angehalten"_s),
            .meldung = grund,
            .restzeit = {},
            .anteil = 0,
            .dokument = {},
            .ganzes = {}};
}

/** One whole run; tells the state in which it ended. */
Laufstand durchgang(Lauf &lauf, const Laufauftrag &auftrag, const Ausnahmen &ausnahmen)
{
    try {
        const auto vorrang = auftrag.vorrang ? auftrag.vorrang : Vorrang::nehmen(lauf.db(), Vorrang::Art::Durchgang);
        stufen(lauf, auftrag, ausnahmen);
    } catch (const Fehler &f) {
        return angehalten(f.text());
    } catch (const std::exception &f) {
        return angehalten(QString::fromUtf8(f.what())); // out of memory, say: the program goes on
    }
    if (lauf.sollHalten())
        return angehalten({});
    return {.stufe = QUILLMAR_TEXT(u"Analyse abgeschlossen"_s),
            .meldung = {},
            .restzeit = {},
            .anteil = 1,
            .dokument = {},
            .ganzes = {}};
}
} // namespace

Analyse::Analyse(std::shared_ptr<Datenbank> db, Profil profil, QObject *parent)
    : QObject(parent), m_db(std::move(db)), m_profil(std::move(profil))
{
    m_geduld.setSingleShot(true);
    m_geduld.setInterval(ueblicheGeduld);
    connect(&m_geduld, &QTimer::timeout, this, [this] {
        m_dauert = true;
        Q_EMIT geaendert();
    });
}

Analyse::~Analyse()
{
    if (!m_verbindung)
        return;
    sofortBeenden();
    // A worker that waits for a locked catalogue is left behind; it holds all it needs.
    std::unique_lock sperre(m_verbindung->schloss);
    m_verbindung->ende.wait_for(sperre, laengstesWarten, [this] { return m_verbindung->fertig; });
}

QString Analyse::stufe() const { return Sprache::text(/* QUILLMAR_TEXT */ m_stand.stufe); }

bool Analyse::abbrechenGewuenscht() const { return m_verbindung && m_verbindung->abbrechen; }

void Analyse::abbrechen()
{
    if (m_laeuft)
        m_verbindung->abbrechen = true;
    Q_EMIT geaendert();
}

void Analyse::setzeAusnahmen(const QStringList &ausnahmen)
{
    if (!m_laeuft)
        return;
    const std::lock_guard sperre(m_verbindung->schloss);
    m_verbindung->ausnahmen = ausnahmen;
}

void Analyse::sofortBeenden() { m_ende.request_stop(); }

void Analyse::allesStarten(const Laufauftrag &auftrag)
{
    if (m_laeuft)
        return;
    m_laeuft = true;
    m_fazit = {};
    m_stand = {};
    m_ende = {};
    m_verbindung = std::make_shared<Verbindung>(Briefkasten::fuer(this));
    Hintergrund::starten(
        [this, v = m_verbindung, db = m_db, profil = m_profil, auftrag = auftrag, ende = m_ende.get_token()]() mutable {
            laufen(this, v, {std::move(db), profil, std::move(auftrag), ende});
            v->abmelden(); // when nothing holds the catalogue any more
        });
    Q_EMIT geaendert();
}

/** The run itself, on its own thread; @p ziel may be gone by then and is only where the letters go. */
void Analyse::laufen(Analyse *ziel, const std::shared_ptr<Verbindung> &v, Arbeit arbeit)
{
    Lauf lauf(
        std::move(arbeit.db), arbeit.profil, [v] { return v->abbrechen.load(); }, arbeit.ende,
        [ziel, v](const Laufstand &stand) {
            // States of one stage that come faster than they are taken are skipped.
            v->briefe->fortschreiben([ziel, stand] { ziel->setzeStand(stand); }, stand.stufe);
        });
    const Laufstand stand = durchgang(lauf, arbeit.auftrag, [v] { return v->jetzigeAusnahmen(); });
    arbeit.auftrag.vorrang.reset(); // whoever hears of the end may begin the next one
    v->briefe->einwerfen([ziel, stand, fazit = lauf.fazit()] { ziel->schluss(stand, fazit); });
}

QString Analyse::dauersatz() const
{
    return m_dauert ? gefuellt(Sprache::text(u"%@ dauert länger"_s), {m_stand.dokument}) : QString();
}

void Analyse::geduldBeginnen(bool inArbeit)
{
    m_dauert = false;
    if (inArbeit)
        m_geduld.start();
    else
        m_geduld.stop();
}

void Analyse::setzeStand(const Laufstand &stand)
{
    if (stand.dokumente != m_stand.dokumente || stand.dokument != m_stand.dokument)
        geduldBeginnen(!stand.dokument.isEmpty());
    m_stand = stand;
    Q_EMIT geaendert();
}

void Analyse::schluss(const Laufstand &stand, const Lauffazit &fazit)
{
    // The last counts stay readable unless the end has something to say itself.
    const QString meldung = stand.meldung.isEmpty() ? m_stand.meldung : stand.meldung;
    geduldBeginnen(false);
    m_stand = stand;
    m_stand.meldung = meldung;
    m_fazit = fazit;
    if (!stand.meldung.isEmpty())
        m_fazit.hinweise << stand.meldung;
    m_laeuft = false;
    Q_EMIT geaendert();
    Q_EMIT beendet();
}
} // namespace quillmar::analyse
