#pragma once

#include "dateigriff.h"
#include "namensraeume.h"

#include <QByteArray>
#include <QString>
#include <sys/stat.h>

namespace quillmar::grundlage
{
/**
 * A copy of a file under a hidden temporary name in the target folder, checked byte by byte and flushed. Removed with
 * the object unless it was kept.
 */
class Dateikopie
{
public:
    /** @p ordner ends in "/". Nothing is written yet. */
    Dateikopie(QByteArray quelle, const struct stat &angaben, QByteArray ordner);
    ~Dateikopie();
    Dateikopie(const Dateikopie &) = delete;
    Dateikopie &operator=(const Dateikopie &) = delete;

    [[nodiscard]] const QString &name() const { return m_name; }
    [[nodiscard]] QByteArray pfad() const { return m_ordner + m_name.toUtf8(); }
    /** Writes, flushes and compares. Throws Plattenfehler; the fragment is gone then. */
    void anlegen();
    /** It has got another name meanwhile. */
    void behalten() { m_angelegt = false; }

    [[nodiscard]] static bool istEigenerName(const QString &name);

private:
    [[nodiscard]] QString uebertragen(const Dateigriff &von, const Dateigriff &nach) const;
    static void attribute(const Dateigriff &von, const Dateigriff &nach);
    void eigenschaften(const Dateigriff &nach) const;
    void vergleichen(const QString &summe) const;

    QByteArray m_quelle;
    struct stat m_angaben;
    QByteArray m_ordner;
    QString m_name;
    bool m_angelegt = false;
};
} // namespace quillmar::grundlage
