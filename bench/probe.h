#pragma once

#include "lauf.h"

#include <QStringList>
#include <random>

using namespace quillmar::ui;

/** Made-up data, the same at every run. */
namespace Probe
{
using Zufall = std::mt19937_64;

/** @p anzahl German words with capitals, umlauts and punctuation. */
[[nodiscard]] QStringList worte(Zufall &zufall, qsizetype anzahl);
/** Names of people, firms and offices as a model writes them. */
[[nodiscard]] QStringList namen(qsizetype anzahl);

/** PDF files of one page each in @p ordner, with a text layer or as a scan at 200 dpi; returns their paths. */
QStringList textPdfs(const QString &ordner, int anzahl);
QStringList scans(const QString &ordner, int anzahl);

/** A fresh catalogue at @p datei. */
[[nodiscard]] std::shared_ptr<Datenbank> katalog(const QString &datei);
/** A run over @p quelle that nobody stops and that tells nobody. */
[[nodiscard]] Lauf lauf(const std::shared_ptr<Datenbank> &db, const QString &quelle);

/** Bytes as @p datei; throws std::runtime_error. */
void schreiben(const QString &datei, const QByteArray &bytes);
} // namespace Probe
