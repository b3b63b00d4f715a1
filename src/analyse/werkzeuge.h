#pragma once

#include "grenzen.h"
#include "namensraeume.h"
#include "seitenlagen.h"

#include <QByteArray>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <optional>
#include <stop_token>

namespace quillmar::analyse
{
/** Finds and runs the command-line tools that read PDF files. Everything blocks; call it off the main thread. */
namespace Werkzeuge
{
/** Folders searched for the tools, in this order, after the program's own. */
[[nodiscard]] const QStringList &suchorte();
/** Folder of tools that come with the program; empty if there is none. */
[[nodiscard]] QString eigenerBinOrdner();

/** Full path of a tool in the first of @p orte that has it as an executable file; none if there is none. */
[[nodiscard]] std::optional<QString> pfadIn(const QStringList &orte, const QString &name);
[[nodiscard]] std::optional<QString> pfad(const QString &name);
/** Full path of a program that belongs to this one and is called by nobody else. */
[[nodiscard]] std::optional<QString> eigenesProgramm(const QString &name);
/** The tools that were not found, of pdftotext, pdftoppm and tesseract. */
[[nodiscard]] QStringList fehlende();
[[nodiscard]] bool vollstaendig();

/** What the tools are started with beyond the program's own environment. */
[[nodiscard]] QProcessEnvironment umgebung();
/** Runs a tool as a Kindprozess. Throws Fehler when it is missing as well. */
QByteArray starten(const QString &name, const QStringList &argumente, const Grenzen &grenzen,
                   const std::stop_token &ende = {});

/** What a tool printed; empty where it is no UTF-8 throughout. */
[[nodiscard]] QString alsText(const QByteArray &ausgabe);

struct Text {
    QString text;
    bool textebene = false;       ///< from the PDF's own text, not recognised from its image
    bool ebeneVerworfen = false;  ///< there is a text layer, but it is no text
    QList<Seitenlage> lagen = {}; ///< of pages that were recognised and do not lie upright and straight
    bool operator==(const Text &) const = default;
};

/**
 * Text of the first @p seiten pages of the PDF at @p pdf, trimmed; empty for blank pages. Recognised with the OCR
 * language @p sprache where the text layer has fewer than 120 visible characters, or does not look like language and
 * what is recognised does. Throws Fehler with the cause, and Platzmangel where the disk has no room for its pages.
 */
[[nodiscard]] Text text(const QString &pdf, int seiten, const QString &sprache, const std::stop_token &ende = {},
                        const Lesegrenzen &grenzen = {});
} // namespace Werkzeuge
} // namespace quillmar::analyse
