#pragma once

#include "angebote.h"
#include "entwurf.h"
#include "namensraeume.h"
#include "wortquelle.h"

#include <QMap>
#include <QStringList>
#include <memory>
#include <sys/stat.h>

namespace quillmar::zustand
{
/** A passage of a page that carries a value. */
struct Seitenmarke {
    int seite = 0;        ///< from 0
    QList<QRectF> orte{}; ///< one for each line, in shares of the page as it lies
    Feld feld = Feld::Datum;
    bool operator==(const Seitenmarke &) const = default;
};

/** How a document is read: from where, and whose names are no counterpart. */
struct Leseauftrag {
    Wortquelle quelle;
    QStringList eigene;
    bool operator==(const Leseauftrag &) const = default;
};

/** The words of a document, and what they offer for its fields. */
class Lesung
{
public:
    /** Blocks. Throws as Wortlagen::lesen() does. */
    Lesung(const Leseauftrag &auftrag, const Wortspeicher &speicher, const std::stop_token &ende);

    [[nodiscard]] const Leseauftrag &auftrag() const { return m_auftrag; }
    /** As the pages lie. */
    [[nodiscard]] const QList<Seitenworte> &worte() const { return m_worte; }
    /** Upright, as they are read. */
    [[nodiscard]] const QList<Wortfolge> &folgen() const { return m_folgen; }
    /** Likeliest first. */
    [[nodiscard]] QList<Angebot> angebote(Feld feld) const { return m_angebote.value(feld); }
    /** One box for each line of the passage. */
    [[nodiscard]] Seitenmarke marke(const Fundstelle &stelle, Feld feld) const;
    /** The file is still the one that was read. Blocks for as long as the drive takes. */
    [[nodiscard]] bool istAktuell() const;

private:
    Leseauftrag m_auftrag;
    struct stat m_stand {
    }; ///< of the file before it was read
    QList<Seitenworte> m_worte;
    QList<Wortfolge> m_folgen;
    QMap<Feld, QList<Angebot>> m_angebote;
};
using Lesungszeiger = std::shared_ptr<const Lesung>;
} // namespace quillmar::zustand
