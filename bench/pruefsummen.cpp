#include "pruefsummen.h"

#include "kommando.h"
#include "messung.h"
#include "probe.h"
#include "reihen.h"

#include <QTemporaryDir>
#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;

namespace
{
constexpr int anzahl = 400;
constexpr quint64 kleinste = quint64{1024} * 1024;

QList<Pruefsummen::Datei> dateienAnlegen(const QTemporaryDir &ordner)
{
    Probe::Zufall zufall{1};
    QList<Pruefsummen::Datei> dateien;
    for (int i = 0; i < anzahl; ++i) {
        QByteArray bytes(qsizetype(kleinste + zufall() % kleinste), Qt::Uninitialized);
        for (char &byte : bytes)
            byte = char(zufall());
        dateien << Pruefsummen::Datei{.id = i, .pfad = ordner.filePath(QString::number(i) + u".pdf"_s)};
        Probe::schreiben(dateien.last().pfad, bytes);
    }
    return dateien;
}

void berechnen(const QList<Pruefsummen::Datei> &dateien)
{
    qsizetype fertig = 0;
    Pruefsummen::berechnen(
        dateien, [] { return false; }, [&](const QList<Pruefsummen::Ergebnis> &neue) { fertig += neue.size(); });
    if (fertig != dateien.size())
        throw std::runtime_error("not every file was digested");
}
} // namespace

void Reihen::pruefsummen()
{
    const QTemporaryDir ordner;
    const QList<Pruefsummen::Datei> dateien = dateienAnlegen(ordner);
    QList<QByteArray> befehl = {"/usr/bin/openssl", "dgst", "-sha256"};
    for (const Pruefsummen::Datei &datei : dateien)
        befehl << datei.pfad.toUtf8();
    const auto paar = Messung::paarweise(
        11, [&] { return Messung::dauer([&] { berechnen(dateien); }); },
        [&] { return Messung::dauer([&] { Kommando::laufen(befehl); }); });
    Messung::drucken("digests of 400 files of 1 to 2 MB", paar, 0.7);
}
