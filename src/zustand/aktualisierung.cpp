#include "aktualisierung.h"

#include "einstellungen.h"
#include "sprache.h"
#include "text.h"

#include <QCoreApplication>
#include <QDebug>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>

using namespace Qt::StringLiterals;

namespace quillmar::zustand
{
namespace
{
constexpr qint64 hoechstens = 64LL * 1024;
constexpr int umleitungen = 3;
constexpr int laengsteFassung = 40; // it is shown
constexpr auto schluesselBeimStart = "beimStartPruefen"_L1;

QUrl seite(const QString &pfad)
{
    QUrl url;
    url.setScheme(u"https"_s);
    url.setHost(QStringLiteral(QUILLMAR_UPDATE_RECHNER));
    url.setPath(pfad);
    return url;
}

/** Left to itself Qt would send the user's language, a made-up browser's name and cookies. */
QNetworkRequest anfrage(const Aktualisierung::Quelle &quelle)
{
    QNetworkRequest anfrage(quelle.datei);
    anfrage.setSslConfiguration(quelle.tls);
    anfrage.setRawHeader("User-Agent", "Quillmar/" + Aktualisierung::eigeneFassung().toUtf8());
    anfrage.setRawHeader("Accept-Language", "*");
    anfrage.setRawHeader("Accept-Encoding", "identity");
    anfrage.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    anfrage.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    anfrage.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    anfrage.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    anfrage.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    anfrage.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    anfrage.setMaximumRedirectsAllowed(umleitungen);
    return anfrage;
}

quint64 fuehrendeZahl(const QString &stueck)
{
    qsizetype ende = 0;
    while (ende < stueck.size() && stueck.at(ende) >= u'0' && stueck.at(ende) <= u'9')
        ++ende;
    bool passt = true;
    const quint64 zahl = stueck.left(ende).toULongLong(&passt);
    return passt || ende == 0 ? zahl : std::numeric_limits<quint64>::max();
}
} // namespace

Aktualisierung::Aktualisierung(QObject *vater) : Aktualisierung(Quelle{}, vater) {}

Aktualisierung::Aktualisierung(const Quelle &quelle, QObject *vater)
    : QObject(vater), m_quelle(quelle), m_netz(new QNetworkAccessManager(this))
{
    m_frist.setSingleShot(true);
    connect(&m_frist, &QTimer::timeout, this, [this] {
        if (m_antwort)
            m_antwort->abort();
    });
}

Aktualisierung::~Aktualisierung() = default;

QUrl Aktualisierung::manifest() { return seite(u"/apps/quillmar/version.json"_s); }

QUrl Aktualisierung::ladeseite() { return seite(u"/apps/quillmar/"_s); }

QString Aktualisierung::eigeneFassung()
{
    const QString fassung = QStringLiteral(QUILLMAR_FASSUNG);
    return fassung.isEmpty() ? u"0"_s : fassung;
}

bool Aktualisierung::beimStartPruefen() { return Einstellungen::wert(schluesselBeimStart, false).toBool(); }

void Aktualisierung::setzeBeimStartPruefen(bool pruefen) { Einstellungen::setzen(schluesselBeimStart, pruefen); }

void Aktualisierung::beimStart()
{
    if (beimStartPruefen())
        pruefen();
}

void Aktualisierung::pruefen()
{
    if (laeuft())
        return;
    m_rumpf.clear();
    m_antwort = m_netz->get(anfrage(m_quelle));
    m_antwort->setReadBufferSize(hoechstens + 1);
    connect(m_antwort, &QNetworkReply::readyRead, this, &Aktualisierung::einlesen);
    connect(m_antwort, &QNetworkReply::finished, this, &Aktualisierung::beenden);
    m_frist.start(m_quelle.frist);
    Q_EMIT geaendert();
}

/** The first byte too many ends it. */
void Aktualisierung::einlesen()
{
    m_rumpf += m_antwort->read(hoechstens + 1 - m_rumpf.size());
    if (m_rumpf.size() > hoechstens)
        m_antwort->abort();
}

void Aktualisierung::beenden()
{
    m_frist.stop();
    m_ergebnis = auswerten();
    m_antwort->deleteLater();
    m_antwort = nullptr;
    qInfo().noquote() << "Update:" << satz(*m_ergebnis);
    Q_EMIT geaendert();
}

Aktualisierung::Ergebnis Aktualisierung::auswerten() const
{
    const bool heil = m_antwort->error() == QNetworkReply::NoError && m_antwort->url().scheme() == u"https" &&
                      m_antwort->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() == 200;
    const QByteArray alles = heil && m_antwort->isOpen() ? m_rumpf + m_antwort->readAll() : QByteArray();
    if (!heil || alles.size() > hoechstens)
        return {};
    const QJsonValue fassung = QJsonDocument::fromJson(alles).object().value("version"_L1);
    if (!fassung.isString() || fassung.toString().size() > laengsteFassung)
        return {};
    if (istNeuer(fassung.toString(), eigeneFassung()))
        return {.art = Ergebnis::Art::NeuereDa, .fassung = fassung.toString()};
    return {.art = Ergebnis::Art::Aktuell, .fassung = eigeneFassung()};
}

QString Aktualisierung::satz(const Ergebnis &ergebnis)
{
    switch (ergebnis.art) {
    case Ergebnis::Art::Aktuell:
        return gefuellt(Sprache::text(u"Version %@ ist aktuell."_s), {ergebnis.fassung});
    case Ergebnis::Art::NeuereDa:
        return gefuellt(Sprache::text(u"Version %@ ist verfügbar."_s), {ergebnis.fassung});
    case Ergebnis::Art::Fehlgeschlagen:
        break;
    }
    return Sprache::text(u"Die Prüfung ist fehlgeschlagen. Besteht eine Internetverbindung?"_s);
}

QList<quint64> Aktualisierung::teile(const QString &fassung)
{
    QList<quint64> zahlen;
    for (const QString &stueck : fassung.split(u'.', Qt::SkipEmptyParts))
        zahlen << fuehrendeZahl(stueck);
    return zahlen;
}

bool Aktualisierung::istNeuer(const QString &a, const QString &als)
{
    const QList<quint64> vorne = teile(a);
    const QList<quint64> hinten = teile(als);
    for (qsizetype n = 0; n < std::max(vorne.size(), hinten.size()); ++n) {
        if (vorne.value(n) != hinten.value(n))
            return vorne.value(n) > hinten.value(n);
    }
    return false;
}
} // namespace quillmar::zustand
