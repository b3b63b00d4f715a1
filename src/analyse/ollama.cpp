#include "ollama.h"

#include "fehler.h"
#include "http.h"
#include "sprache.h"
#include "text.h"

#include <QHostAddress>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QUrl>
#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::analyse
{
namespace
{
constexpr qsizetype hoechstensZeile = 4LL * 1024 * 1024;

Http::Anfrage anfrage(const Ollama::Basis &basis, const QByteArray &pfad, std::chrono::milliseconds zeitgrenze,
                      const std::stop_token &ende)
{
    Http::Anfrage a;
    a.rechner = basis.rechner;
    a.port = basis.port;
    a.pfad = basis.pfad + pfad;
    a.zeitgrenze = zeitgrenze;
    a.ende = ende;
    return a;
}

QByteArray json(const QJsonObject &objekt) { return QJsonDocument(objekt).toJson(QJsonDocument::Compact); }

void nurAufDiesemRechner(const QString &modell)
{
    if (Modellverzeichnis::heisstAnderswo(modell))
        throw ModellAnderswo(modell);
}

/** Cuts a stream into lines; a line may come in pieces and end inside a character. */
class Zeilenleser
{
public:
    explicit Zeilenleser(std::function<void(const QByteArray &)> zeile) : m_zeile(std::move(zeile)) {}
    void dazu(QByteArrayView bytes)
    {
        m_rest += bytes;
        qsizetype von = 0;
        for (qsizetype bis = m_rest.indexOf('\n'); bis >= 0; bis = m_rest.indexOf('\n', von)) {
            m_zeile(m_rest.mid(von, bis - von));
            von = bis + 1;
        }
        m_rest.remove(0, von);
        if (m_rest.size() > hoechstensZeile)
            throw Fehler(Sprache::text(u"Die Antwort des Modellservers ist zu lang"_s));
    }
    void schluss()
    {
        if (!m_rest.isEmpty())
            m_zeile(m_rest);
    }

private:
    std::function<void(const QByteArray &)> m_zeile;
    QByteArray m_rest;
};

/** A setting of the form of OLLAMA_HOST, taken apart as the server's own programs do it. */
struct Adresse {
    QString schema = u"http"_s;
    QString rechner;
    quint16 port = 0;
    QByteArray pfad; ///< encoded, without "/" at its end
    bool lesbar = true;
};

QString ohneKlammern(const QString &rechner)
{
    const bool geklammert = rechner.startsWith(u'[') && rechner.endsWith(u']');
    return geklammert ? rechner.mid(1, rechner.size() - 2) : rechner;
}

/** A name, or an address of either kind; an address of the sixth version without brackets has no port behind it. */
void rechnerUndPort(const QString &text, int ueblich, Adresse &adresse)
{
    const qsizetype trenner = text.lastIndexOf(u':');
    const bool mitPort =
        trenner >= 0 && trenner > text.lastIndexOf(u']') && (text.startsWith(u'[') || text.indexOf(u':') == trenner);
    adresse.rechner = ohneKlammern(mitPort ? text.first(trenner) : text);
    bool gut = true;
    const int port = mitPort ? QStringView(text).mid(trenner + 1).toInt(&gut) : ueblich;
    const bool moeglich = gut && port >= 0 && port <= 65535;
    adresse.port = quint16(moeglich ? port : ueblich);
    static const QRegularExpression form(u"^[A-Za-z0-9._:%-]*\\z"_s);
    adresse.lesbar = moeglich && form.match(adresse.rechner).hasMatch();
}

Adresse adresseAus(const QString &einstellung)
{
    static const QRegularExpression raender(u"^[\"']+|[\"']+$"_s);
    QString text = einstellung.trimmed().remove(raender).trimmed();
    Adresse adresse;
    int ueblich = 11434;
    if (const qsizetype schema = text.indexOf("://"_L1); schema >= 0) {
        adresse.schema = text.first(schema);
        text = text.mid(schema + 3);
        ueblich = adresse.schema == u"https"_s ? 443 : 80; // a full address without a port means that of its scheme
    }
    const qsizetype strich = text.indexOf(u'/');
    rechnerUndPort(strich < 0 ? text : text.first(strich), ueblich, adresse);
    if (strich >= 0)
        adresse.pfad = QUrl::toPercentEncoding(text.mid(strich), "/%");
    while (adresse.pfad.endsWith('/'))
        adresse.pfad.chop(1);
    return adresse;
}

/** What stands for this computer as the address by which it is reached. */
QString hier(const QString &rechner)
{
    const QHostAddress adresse(rechner);
    if (rechner.isEmpty() || rechner.compare("localhost"_L1, Qt::CaseInsensitive) == 0 ||
        adresse == QHostAddress(QHostAddress::AnyIPv4))
        return u"127.0.0.1"_s;
    if (adresse == QHostAddress(QHostAddress::AnyIPv6))
        return u"::1"_s;
    return adresse.isNull() ? rechner : adresse.toString();
}

/** The server says itself that more was to come; an answer that says nothing of it counts as whole. */
bool istAbgeschnitten(const QJsonObject &antwort)
{
    return !antwort.value("done"_L1).toBool(true) || antwort.value("done_reason"_L1).toString() == u"length"_s;
}

[[noreturn]] void fehlerWerfen(const QString &fehlerDesServers)
{
    if (fehlerDesServers.contains("not found"_L1, Qt::CaseInsensitive))
        throw ModellFehlt(fehlerDesServers);
    throw Fehler(fehlerDesServers);
}

QString ohneNachdenken(const QString &antwort)
{
    const qsizetype auf = antwort.indexOf("<think>"_L1);
    const qsizetype zu = auf < 0 ? -1 : antwort.indexOf("</think>"_L1, auf);
    return zu < 0 ? antwort : antwort.first(auf) + antwort.mid(zu + 8);
}
} // namespace

ModellAnderswo::ModellAnderswo(const QString &modell) : Modellmangel(satz(modell)) {}

QString ModellAnderswo::satz(const QString &modell)
{
    return gefuellt(Sprache::text(u"Das Modell %@ rechnet nicht auf diesem Rechner und wird nicht benutzt"_s),
                    {modell});
}

Ollama::Ollama() : m_basis(basisAus(qEnvironmentVariable("OLLAMA_HOST"))) {}

Ollama::Basis Ollama::basisAus(const QString &einstellung, Einstellung *urteil)
{
    const Adresse adresse = adresseAus(einstellung);
    const QString rechner = hier(adresse.rechner);
    Einstellung ergebnis = Einstellung::Brauchbar;
    if (!adresse.lesbar || adresse.schema != u"http"_s)
        ergebnis = Einstellung::Unlesbar;
    else if (!QHostAddress(rechner).isLoopback())
        ergebnis = Einstellung::Fremd;
    if (urteil)
        *urteil = ergebnis;
    if (adresse.schema != u"http"_s || !QHostAddress(rechner).isLoopback())
        return {};
    return {.rechner = rechner, .port = adresse.port, .pfad = adresse.pfad};
}

Ollama::Einstellung Ollama::umgebung()
{
    Einstellung urteil = Einstellung::Brauchbar;
    Q_UNUSED(basisAus(qEnvironmentVariable("OLLAMA_HOST"), &urteil));
    return urteil;
}

QString Ollama::umgebungshinweis()
{
    switch (umgebung()) {
    case Einstellung::Fremd:
        return Sprache::text(u"OLLAMA_HOST nennt einen anderen Rechner und wird nicht beachtet: Texte bleiben hier"_s);
    case Einstellung::Unlesbar:
        return gefuellt(
            Sprache::text(u"OLLAMA_HOST ist nicht lesbar: %@. Gefragt wird der Modellserver auf diesem Rechner."_s),
            {qEnvironmentVariable("OLLAMA_HOST")});
    case Einstellung::Brauchbar:
        break;
    }
    return {};
}

bool Ollama::erreichbar() const
{
    try {
        Http::Anfrage a = anfrage(m_basis, "/api/version", 4s, {});
        a.stueck = [](QByteArrayView) {}; // nobody reads the body, so it may be as long as it likes
        Http::senden(a);
        return true;
    } catch (const Fehler &) {
        return false; // not running is a state that the caller words
    }
}

std::optional<QString> Ollama::fassung() const
{
    constexpr qsizetype hoechstens = 40;
    try {
        const Http::Antwort antwort = Http::senden(anfrage(m_basis, "/api/version", 4s, {}));
        const QString text = QJsonDocument::fromJson(antwort.koerper).object().value("version"_L1).toString();
        return text.simplified().left(hoechstens);
    } catch (const Fehler &) {
        return std::nullopt; // as above
    }
}

Modellverzeichnis Ollama::verzeichnis(const std::stop_token &ende) const
{
    return Modellverzeichnis::aus(Http::senden(anfrage(m_basis, "/api/tags", 10s, ende)).koerper);
}

QString Ollama::hiesiges(const QString &gesucht, const std::stop_token &ende) const
{
    nurAufDiesemRechner(gesucht);
    const Modellverzeichnis liste = verzeichnis(ende);
    const QString name = liste.treffer(gesucht).value_or(gesucht);
    if (liste.rechnetAnderswo(gesucht) || liste.rechnetAnderswo(name))
        throw ModellAnderswo(name);
    return name;
}

QStringList Ollama::modelle() const
{
    try {
        const Modellverzeichnis liste = verzeichnis();
        return liste.vollstaendig() ? liste.namen() : QStringList();
    } catch (const Fehler &) {
        return {}; // as above
    }
}

QString Ollama::fortschritt(const QByteArray &zeile, QString &fehler)
{
    const QJsonObject objekt = QJsonDocument::fromJson(zeile).object();
    if (objekt.value("error"_L1).isString())
        fehler = objekt.value("error"_L1).toString();
    if (!objekt.value("status"_L1).isString())
        return {};
    QString status = objekt.value("status"_L1).toString();
    const QJsonValue gesamt = objekt.value("total"_L1);
    const QJsonValue fertig = objekt.value("completed"_L1);
    if (!gesamt.isDouble() || !fertig.isDouble() || gesamt.toDouble() <= 0)
        return status;
    // Whatever the server says, the number stays one that an integer can hold.
    const double prozent = std::clamp(fertig.toDouble() / gesamt.toDouble() * 100, -1e9, 1e9);
    return gefuellt(Sprache::text(u"%@ %@ Prozent"_s), {status, QString::number(qint64(prozent))});
}

std::pair<qint64, qint64> Ollama::menge(const QByteArray &zeile)
{
    const QJsonObject objekt = QJsonDocument::fromJson(zeile).object();
    const qint64 gesamt = objekt.value("total"_L1).toInteger();
    return gesamt > 0 ? std::pair(std::clamp(objekt.value("completed"_L1).toInteger(), qint64(0), gesamt), gesamt)
                      : std::pair(qint64(0), qint64(0));
}

QString Ollama::laden(const QString &modell, const std::function<void(const QString &)> &meldung,
                      const std::stop_token &ende, const std::function<void(qint64, qint64)> &menge) const
{
    nurAufDiesemRechner(modell);
    QString fehler;
    Zeilenleser zeilen([&](const QByteArray &zeile) {
        if (const auto [fertig, gesamt] = Ollama::menge(zeile); menge && gesamt > 0)
            menge(fertig, gesamt);
        if (const QString text = fortschritt(zeile, fehler); !text.isEmpty())
            meldung(text);
    });
    Http::Anfrage a = anfrage(m_basis, "/api/pull", 3600s, ende);
    a.methode = "POST";
    a.koerper = json({{u"model"_s, modell}, {u"stream"_s, true}});
    a.grenzeGiltStille = true;
    a.stueck = [&](QByteArrayView bytes) { zeilen.dazu(bytes); };
    Http::senden(a);
    zeilen.schluss();
    return fehler;
}

QJsonObject Ollama::fragen(const QString &modell, const QString &prompt, std::chrono::milliseconds zeitgrenze,
                           const std::stop_token &ende) const
{
    nurAufDiesemRechner(modell);
    Http::Anfrage a = anfrage(m_basis, "/api/generate", zeitgrenze, ende);
    a.methode = "POST";
    a.koerper = json({{u"model"_s, modell},
                      {u"prompt"_s, prompt},
                      {u"stream"_s, false},
                      {u"format"_s, u"json"_s},
                      {u"think"_s, false},
                      {u"options"_s, QJsonObject{{u"temperature"_s, 0}, {u"num_ctx"_s, kontext}}}});
    const QJsonObject antwort = QJsonDocument::fromJson(Http::senden(a).koerper).object();
    if (istAbgeschnitten(antwort))
        throw Fehler(Sprache::text(u"Antwort des Modells abgeschnitten"_s));
    if (antwort.value("response"_L1).isString())
        return objektAus(antwort.value("response"_L1).toString());
    // The status is not looked at: an unknown model, say, is told by the body.
    if (const QString fehler = antwort.value("error"_L1).toString(); !fehler.isEmpty())
        fehlerWerfen(ersteZeichen(fehler.simplified(), 200));
    throw Fehler(Sprache::text(u"Antwort des Modells nicht lesbar"_s));
}

QJsonObject Ollama::objektAus(const QString &antwort)
{
    const QString text = ohneNachdenken(antwort);
    const qsizetype auf = text.indexOf(u'{');
    const qsizetype zu = text.lastIndexOf(u'}');
    if (auf >= 0 && zu > auf) {
        const QJsonDocument dokument = QJsonDocument::fromJson(text.mid(auf, zu - auf + 1).toUtf8());
        if (dokument.isObject())
            return dokument.object();
    }
    throw Fehler(Sprache::text(u"Antwort des Modells nicht lesbar"_s));
}
} // namespace quillmar::analyse
