#pragma once

#include "fehler.h"
#include "modellverzeichnis.h"
#include "namensraeume.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <chrono>
#include <functional>
#include <optional>
#include <stop_token>

namespace quillmar::analyse
{
/** Nothing can be asked of this model, whatever the document. */
class Modellmangel : public Fehler
{
public:
    using Fehler::Fehler;
};

/** A model that the server only passes on to another computer; it is never used. */
class ModellAnderswo : public Modellmangel
{
public:
    explicit ModellAnderswo(const QString &modell);
    [[nodiscard]] static QString satz(const QString &modell);
};

/** The server has no such model. */
class ModellFehlt : public Modellmangel
{
public:
    using Modellmangel::Modellmangel;
};

/**
 * Client of the ollama model server on this computer. A small value without state of its own; may be used from any
 * thread. Every call blocks: not for the main thread.
 */
class Ollama
{
public:
    /** Tokens of question and answer together that a model is given room for. */
    static constexpr int kontext = 8192;

    /** Where the server is reached: always a loopback address. */
    struct Basis {
        QString rechner = QStringLiteral("127.0.0.1");
        quint16 port = 11434;
        QByteArray pfad; ///< prefix of every path, without "/" at its end
        bool operator==(const Basis &) const = default;
    };

    /** The server that $OLLAMA_HOST names if it is on this computer, else 127.0.0.1:11434. */
    Ollama();
    explicit Ollama(Basis basis) : m_basis(std::move(basis)) {}

    /** What a setting of the form of OLLAMA_HOST is worth. */
    enum class Einstellung {
        Brauchbar,
        Fremd,    ///< names another computer and is passed over
        Unlesbar, ///< is passed over, in its port at least
    };
    /** Reads such a setting as the server's own programs do. */
    [[nodiscard]] static Basis basisAus(const QString &einstellung, Einstellung *urteil = nullptr);
    /** That of the setting in the environment. */
    [[nodiscard]] static Einstellung umgebung();
    /** For the user: that it is passed over, and what is asked instead; empty where there is nothing to say. */
    [[nodiscard]] static QString umgebungshinweis();

    /** A server answers, whatever it says. */
    [[nodiscard]] bool erreichbar() const;
    /** What the server says its version is, empty where it says none; no value when no server answers. */
    [[nodiscard]] std::optional<QString> fassung() const;
    /** What the server lists. Throws Fehler when it cannot be asked; any answer that is no list means no models. */
    [[nodiscard]] Modellverzeichnis verzeichnis(const std::stop_token &ende = {}) const;
    /** Names of the installed models in the server's order; empty on any failure. */
    [[nodiscard]] QStringList modelle() const;

    /**
     * Has the server fetch a model. @p meldung is called on the calling thread with each progress text, @p menge before
     * it with the bytes of the part under way, where the server tells them. Returns the last error that the server
     * named, empty if none. Throws Fehler when the transfer fails or is silent for an hour.
     */
    QString laden(const QString &modell, const std::function<void(const QString &)> &meldung,
                  const std::stop_token &ende = {},
                  const std::function<void(qint64 fertig, qint64 gesamt)> &menge = {}) const;

    /**
     * The name under which the model @p gesucht is to be asked: the installed one that it means, or itself. To be
     * called before any text is sent to it. Throws ModellAnderswo for a model that another computer would compute,
     * another Fehler when the server cannot be asked about it.
     */
    [[nodiscard]] QString hiesiges(const QString &gesucht, const std::stop_token &ende = {}) const;

    /**
     * The model's answer to @p prompt as a JSON object. @p zeitgrenze limits the whole request. Throws Fehler when the
     * transfer fails, or with "Antwort des Modells nicht lesbar", or with the server's own error, ModellFehlt when that
     * says that there is no such model.
     */
    [[nodiscard]] QJsonObject fragen(const QString &modell, const QString &prompt, std::chrono::milliseconds zeitgrenze,
                                     const std::stop_token &ende = {}) const;

    /** Progress text of one line of a pull, empty for a line without a status; its error goes to @p fehler. */
    [[nodiscard]] static QString fortschritt(const QByteArray &zeile, QString &fehler);
    /** Bytes done and bytes in all of such a line; 0 of 0 where it does not tell. */
    [[nodiscard]] static std::pair<qint64, qint64> menge(const QByteArray &zeile);
    /** The object that a model's answer holds, freed of thinking, prose and fences. Throws Fehler. */
    [[nodiscard]] static QJsonObject objektAus(const QString &antwort);

private:
    Basis m_basis;
};
} // namespace quillmar::analyse
