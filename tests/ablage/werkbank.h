#pragma once

#include "ablagewerk.h"
#include "absicht.h"
#include "datenbank.h"
#include "fehler.h"

#include <QMap>
#include <QStringList>
#include <memory>

using namespace quillmar::ablage;

namespace quillmar::ablage
{
class Protokollbuch;
} // namespace quillmar::ablage

/**
 * A small place to file in: @p ordner with "quelle", "katalog.db" and the logs, and a target root that may lie on
 * another file system. The same in the test and in the driver program.
 */
class Werkbank
{
public:
    explicit Werkbank(const QString &ordner, bool kopieren = false, const QString &ziel = {});

    /** Writes a file into the source folder and takes it into the catalogue, ready to be accepted. */
    qint64 dokument(const QString &name, const QByteArray &inhalt, const QString &titel = QStringLiteral("Abschlag"));
    void oeffnen();
    void schliessen();

    Vollzug uebernehmen(qint64 id, const QString &gegenueber = {});
    Vollzug aussortieren(qint64 id);
    qint64 rueckgaengig();

    [[nodiscard]] Dokument lesen(qint64 id) const;
    [[nodiscard]] const Profil &profil() const { return m_profil; }
    [[nodiscard]] const std::shared_ptr<Datenbank> &db() const { return m_db; }
    [[nodiscard]] QString quelle(const QString &name) const { return m_profil.quelle + u'/' + name; }
    [[nodiscard]] QString ziel(const QString &name) const;
    [[nodiscard]] QString buchDatei() const;

    /** SHA-256 of every regular file below source, target, and trash, with how often it occurs. */
    [[nodiscard]] QMap<QString, int> bestand() const;
    /** Temporary files of the program that were left behind. */
    [[nodiscard]] QStringList reste() const;
    /** What does not agree between catalogue and disk; empty if all does. */
    [[nodiscard]] QStringList widersprueche() const;
    /** The same where the logs tell of more than the catalogue does. */
    [[nodiscard]] QStringList widerspruecheOhneProtokoll() const;
    /** All files below the target root. */
    [[nodiscard]] QStringList abgelegte() const;

private:
    [[nodiscard]] Ablagewerk werk() const { return {m_db, m_profil, m_buch}; }
    Profil m_profil;
    QString m_ordner;
    std::shared_ptr<Datenbank> m_db;
    std::shared_ptr<Protokollbuch> m_buch;
};

[[nodiscard]] QByteArray inhaltVon(const QString &pfad);
void dateiSchreiben(const QString &pfad, const QByteArray &inhalt);

/** The sentence with which @p arbeit fails; empty if it does not. */
template <typename Arbeit>
[[nodiscard]] QString fehlerBei(Arbeit arbeit)
{
    try {
        arbeit();
    } catch (const Fehler &f) {
        return f.text();
    }
    return {};
}

/** What is announced before the file @p von of a document is renamed to @p nach. */
[[nodiscard]] Absicht absichtFuer(qint64 id, const QString &von, const QString &nach);
