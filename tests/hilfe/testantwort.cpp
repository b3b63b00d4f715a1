#include "testantwort.h"

namespace
{
using Art = Testschritt::Art;

Testschritt senden(const QByteArray &bytes, qint64 mal = 1) { return {Art::Senden, bytes, mal}; }

Testschritt warten(std::chrono::milliseconds dauer) { return {Art::Warten, {}, 1, dauer}; }

QByteArray kopf(int status, const QByteArray &weitere)
{
    return "HTTP/1.1 " + QByteArray::number(status) + " Test\r\nConnection: close\r\n" + weitere + "\r\n";
}

QByteArray laenge(qint64 bytes) { return "Content-Length: " + QByteArray::number(bytes) + "\r\n"; }

QByteArray alsBlock(const QByteArray &bytes) { return QByteArray::number(bytes.size(), 16) + "\r\n" + bytes + "\r\n"; }
} // namespace

Testantwort Testantwort::fest(int status, const QByteArray &rumpf, const QByteArray &koepfe)
{
    return {{senden(kopf(status, laenge(rumpf.size()) + koepfe) + rumpf)}};
}

Testantwort Testantwort::inStuecken(const QList<QByteArray> &stuecke, std::chrono::milliseconds pause)
{
    Testantwort antwort{{senden(kopf(200, "Transfer-Encoding: chunked\r\n"))}};
    for (const QByteArray &stueck : stuecke)
        antwort.schritte << warten(pause) << senden(alsBlock(stueck));
    antwort.schritte << senden(alsBlock({}));
    return antwort;
}

Testantwort Testantwort::bisZumEnde(const QList<QByteArray> &stuecke, std::chrono::milliseconds pause)
{
    Testantwort antwort{{senden(kopf(200, {}))}};
    for (const QByteArray &stueck : stuecke)
        antwort.schritte << warten(pause) << senden(stueck);
    return antwort;
}

Testantwort Testantwort::abgeschnitten(const QByteArray &rumpf, qsizetype bytes)
{
    return {{senden(kopf(200, laenge(rumpf.size())) + rumpf.first(bytes))}};
}

Testantwort Testantwort::leerzeichen(qint64 menge, const QByteArray &davor, const QByteArray &danach)
{
    constexpr qint64 block = 65536;
    const qint64 gesamt = davor.size() + menge + danach.size();
    return {{senden(kopf(200, laenge(gesamt)) + davor), senden(QByteArray(block, ' '), menge / block),
             senden(QByteArray(menge % block, ' ') + danach)}};
}

Testantwort Testantwort::keine() { return {{Testschritt{}}}; }

Testantwort Testantwort::zurueckgesetzt(const QByteArray &vorher)
{
    return {{senden(vorher), Testschritt{Art::Zuruecksetzen}}};
}

Testantwort Testantwort::gehalten(Testantwort antwort)
{
    antwort.schritte.prepend(Testschritt{Art::Halten});
    return antwort;
}

Testantwort Testantwort::stumm(std::chrono::milliseconds dauer, const QByteArray &vorher)
{
    return {{senden(vorher), warten(dauer)}};
}
