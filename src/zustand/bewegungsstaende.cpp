#include "bewegungsstaende.h"

#include "pfade.h"

#include <cerrno>
#include <sys/stat.h>

namespace quillmar::zustand
{
namespace
{
constexpr qsizetype schub = 32; // movements that are looked at in one go

/** There is nothing at @p pfad, as opposed to: it cannot be found out. */
bool istSicherLeer(const QString &pfad)
{
    struct stat s = {};
    return ::lstat(plattenPfad(pfad).constData(), &s) != 0 && (errno == ENOENT || errno == ENOTDIR);
}

QList<Bewegungsstand> nachsehen(const QList<Protokollzeile> &zeilen)
{
    QList<Bewegungsstand> staende;
    for (const Protokollzeile &zeile : zeilen)
        staende << bewegungsstand(zeile);
    return staende;
}
} // namespace

Bewegungsstand bewegungsstand(const Protokollzeile &zeile)
{
    if (istVorhanden(zeile.nach))
        return Bewegungsstand::AmZiel;
    if (!istSicherLeer(zeile.nach))
        return Bewegungsstand::Fehler;
    if (istVorhanden(zeile.von))
        return Bewegungsstand::Zurueck;
    return istSicherLeer(zeile.von) ? Bewegungsstand::Verschwunden : Bewegungsstand::Fehler;
}

void Bewegungsstaende::setzen(const QList<Protokollzeile> &zeilen)
{
    m_frage.verwerfen();
    m_zeilen = zeilen;
    m_eintraege = QList<Eintrag>(zeilen.size());
    m_von = 0;
    m_bis = -1;
}

void Bewegungsstaende::fortsetzen(const QList<Protokollzeile> &zeilen)
{
    m_zeilen = zeilen;
    m_eintraege.resize(zeilen.size());
}

void Bewegungsstaende::veralten()
{
    m_frage.verwerfen();
    for (Eintrag &eintrag : m_eintraege)
        eintrag.frisch = false;
    weiter();
}

void Bewegungsstaende::ansehen(qsizetype von, qsizetype bis)
{
    m_von = std::max<qsizetype>(0, von);
    m_bis = std::min(bis, m_zeilen.size() - 1);
    weiter();
}

Bewegungsstand Bewegungsstaende::stand(qsizetype stelle) const { return m_eintraege.value(stelle).stand; }

void Bewegungsstaende::weiter()
{
    if (m_frage.laeuft())
        return;
    QList<qsizetype> stellen;
    QList<Protokollzeile> zeilen;
    for (qsizetype n = m_von; n <= m_bis && stellen.size() < schub; ++n) {
        if (m_eintraege.at(n).frisch)
            continue;
        stellen << n;
        zeilen << m_zeilen.at(n);
    }
    if (stellen.isEmpty())
        return;
    m_frage.stellen([zeilen] { return nachsehen(zeilen); },
                    [this, stellen](const Ausgang<QList<Bewegungsstand>> &ausgang) {
                        eintragen(stellen,
                                  ausgang.wert.value_or(QList<Bewegungsstand>(stellen.size(), Bewegungsstand::Fehler)));
                        weiter();
                    });
}

void Bewegungsstaende::eintragen(const QList<qsizetype> &stellen, const QList<Bewegungsstand> &staende)
{
    for (qsizetype n = 0; n < stellen.size(); ++n)
        m_eintraege[stellen.at(n)] = {.stand = staende.at(n), .frisch = true};
    Q_EMIT erkannt(stellen.first(), stellen.last());
}
} // namespace quillmar::zustand
