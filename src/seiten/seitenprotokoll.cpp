#include "seitenprotokoll.h"

#include <QDataStream>
#include <QIODevice>
#include <algorithm>

namespace quillmar::seiten
{
namespace Seitenprotokoll
{
namespace
{
bool passt(const QSizeF &groesse)
{
    // Written so that what is no number does not fit.
    return groesse.width() >= 1 && groesse.height() >= 1 && groesse.width() <= groessteSeite &&
           groesse.height() <= groessteSeite;
}

bool passt(const QSize &pixel)
{
    return pixel.width() >= 1 && pixel.height() >= 1 && pixel.width() <= groessteKante &&
           pixel.height() <= groessteKante && qint64(pixel.width()) * pixel.height() <= meistePixel;
}

bool istSeite(int seite) { return seite >= 0 && seite < meisteSeiten; }

bool gilt(const Oeffnen &o) { return o.kennung > 0; }
bool gilt(const Malen &m) { return m.kennung > 0 && istSeite(m.seite) && passt(m.pixel); }
bool gilt(const Schliessen &s) { return s.kennung > 0; }
bool gilt(const Bereit &) { return true; }
bool gilt(const Gemalt &g) { return g.kennung > 0 && istSeite(g.seite); }

bool gilt(const Geoeffnet &g)
{
    if (g.kennung == 0 || !std::all_of(g.groessen.begin(), g.groessen.end(), [](const QSizeF &s) { return passt(s); }))
        return false;
    if (g.ergebnis != Ergebnis::Offen)
        return g.ergebnis <= Ergebnis::Beschaedigt && g.seiten == 0 && !g.weitere && g.groessen.isEmpty();
    return !g.groessen.isEmpty() && g.groessen.size() <= std::min(g.seiten, meisteGemessene) &&
           g.seiten <= meisteSeiten && (!g.weitere || g.seiten == meisteSeiten);
}

void schreiben(QDataStream &strom, const Oeffnen &o) { strom << o.kennung; }
void schreiben(QDataStream &strom, const Malen &m) { strom << m.kennung << qint32(m.seite) << m.pixel; }
void schreiben(QDataStream &strom, const Schliessen &s) { strom << s.kennung; }
void schreiben(QDataStream &, const Bereit &) {}
void schreiben(QDataStream &strom, const Gemalt &g) { strom << g.kennung << qint32(g.seite) << quint8(g.gelungen); }

void schreiben(QDataStream &strom, const Geoeffnet &g)
{
    strom << g.kennung << quint8(g.ergebnis) << qint32(g.seiten) << quint8(g.weitere) << qint32(g.groessen.size());
    for (const QSizeF &groesse : g.groessen)
        strom << groesse;
}

/** Neither 0 nor 1 spoils the message. */
bool jaNein(QDataStream &strom)
{
    quint8 wert = 2;
    strom >> wert;
    if (wert > 1)
        strom.setStatus(QDataStream::ReadCorruptData);
    return wert == 1;
}

int ganzeZahl(QDataStream &strom)
{
    qint32 wert = -1;
    strom >> wert;
    return wert;
}

void lesen(QDataStream &strom, Oeffnen &o) { strom >> o.kennung; }
void lesen(QDataStream &strom, Schliessen &s) { strom >> s.kennung; }
void lesen(QDataStream &, Bereit &) {}

void lesen(QDataStream &strom, Malen &m)
{
    strom >> m.kennung;
    m.seite = ganzeZahl(strom);
    strom >> m.pixel;
}

void lesen(QDataStream &strom, Gemalt &g)
{
    strom >> g.kennung;
    g.seite = ganzeZahl(strom);
    g.gelungen = jaNein(strom);
}

void lesen(QDataStream &strom, Geoeffnet &g)
{
    quint8 ergebnis = 0;
    strom >> g.kennung >> ergebnis;
    g.ergebnis = Ergebnis(ergebnis);
    g.seiten = ganzeZahl(strom);
    g.weitere = jaNein(strom);
    const int anzahl = ganzeZahl(strom);
    if (anzahl < 0 || anzahl > meisteGemessene)
        strom.setStatus(QDataStream::ReadCorruptData);
    for (int i = 0; i < anzahl && strom.status() == QDataStream::Ok; ++i) {
        QSizeF groesse;
        strom >> groesse;
        g.groessen << groesse;
    }
}

/** The kinds stand in the order of the variant; the first byte of a message is its place there. */
template <typename Nachricht>
QByteArray alsBytes(const Nachricht &nachricht)
{
    QByteArray bytes;
    QDataStream strom(&bytes, QIODevice::WriteOnly);
    strom.setVersion(QDataStream::Qt_6_4);
    strom << quint8(nachricht.index());
    std::visit([&strom](const auto &n) { schreiben(strom, n); }, nachricht);
    return bytes;
}

template <typename Nachricht, typename Art>
std::optional<Nachricht> gelesen(QDataStream &strom)
{
    Art n;
    lesen(strom, n);
    return strom.status() == QDataStream::Ok && strom.atEnd() && gilt(n) ? std::optional<Nachricht>(n) : std::nullopt;
}

template <typename... Arten>
std::optional<std::variant<Arten...>> ausBytes(const QByteArray &bytes, const std::variant<Arten...> &)
{
    using Nachricht = std::variant<Arten...>;
    if (bytes.size() > laengsteNachricht)
        return std::nullopt;
    QDataStream strom(bytes);
    strom.setVersion(QDataStream::Qt_6_4);
    quint8 art = sizeof...(Arten);
    strom >> art;
    using Leser = std::optional<Nachricht> (*)(QDataStream &);
    constexpr Leser leser[] = {gelesen<Nachricht, Arten>...};
    return art < sizeof...(Arten) ? leser[art](strom) : std::nullopt;
}
} // namespace

QByteArray verpackt(const Auftrag &auftrag) { return alsBytes(auftrag); }

QByteArray verpackt(const Antwort &antwort) { return alsBytes(antwort); }

std::optional<Auftrag> auftragAus(const QByteArray &bytes) { return ausBytes(bytes, Auftrag()); }

std::optional<Antwort> antwortAus(const QByteArray &bytes) { return ausBytes(bytes, Antwort()); }
} // namespace Seitenprotokoll
} // namespace quillmar::seiten
