#pragma once

#include "fehler.h"
#include "namensraeume.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <chrono>
#include <optional>
#include <stop_token>

namespace quillmar::analyse
{
/** Finds and runs the command-line tools that read PDF files. Everything blocks; call it off the main thread. */
namespace Werkzeuge
{
/** A tool that ended with a failure; its complaint decides what the user is told. */
class Fehlschlag : public Fehler
{
public:
    Fehlschlag(const QString &text, QByteArray beschwerde) : Fehler(text), m_beschwerde(std::move(beschwerde)) {}
    [[nodiscard]] const QByteArray &beschwerde() const { return m_beschwerde; }

private:
    QByteArray m_beschwerde;
};

/** Folders searched for the tools, in this order, after the program's own. */
[[nodiscard]] const QStringList &suchorte();
/** Folder of tools that come with the program; empty if there is none. */
[[nodiscard]] QString eigenerBinOrdner();

/** Full path of a tool in the first of @p orte that has it as an executable file; none if there is none. */
[[nodiscard]] std::optional<QString> pfadIn(const QStringList &orte, const QString &name);
[[nodiscard]] std::optional<QString> pfad(const QString &name);
/** The tools that were not found, of pdftotext, pdftoppm and tesseract. */
[[nodiscard]] QStringList fehlende();
[[nodiscard]] bool vollstaendig();

/**
 * Runs a tool and returns its standard output. The tool and all it started are killed at @p zeitgrenze, when more than
 * 64 MiB come, when @p ende asks for it, and when the program dies. Throws Fehler when the tool is missing, does not
 * start, runs into a limit or ends with a status other than 0, and Abbruch when it was to end.
 */
QByteArray starten(const QString &name, const QStringList &argumente, std::chrono::milliseconds zeitgrenze,
                   const std::stop_token &ende = {});
/** The same for the program at @p pfad, which messages call @p name. */
QByteArray programmStarten(const QString &pfad, const QString &name, const QStringList &argumente,
                           std::chrono::milliseconds zeitgrenze, const std::stop_token &ende = {});

/** What a tool printed; empty where it is no UTF-8 throughout. */
[[nodiscard]] QString alsText(const QByteArray &ausgabe);

struct Text {
    QString text;
    bool textebene = false; ///< from the PDF's own text, not recognised from its image
    bool operator==(const Text &) const = default;
};

/**
 * Text of the first @p seiten pages of the PDF at @p pdf, trimmed; empty for blank pages. Recognised with the OCR
 * language @p sprache where the text layer has fewer than 120 visible characters. Throws Fehler with the cause.
 */
[[nodiscard]] Text text(const QString &pdf, int seiten, const QString &sprache, const std::stop_token &ende = {});
} // namespace Werkzeuge
} // namespace quillmar::analyse
