#pragma once

#include "entwurf.h"
#include "namensraeume.h"

#include <QHash>
#include <QObject>
#include <QSet>
#include <QTimer>
#include <QUuid>
#include <memory>

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::zustand
{
/** Drafts by the number of their document. */
using Entwurfsliste = QHash<qint64, Entwurf>;

/** The drafts that @p db keeps. Blocks. */
[[nodiscard]] Entwurfsliste entwuerfeLesen(Datenbank &db);

/**
 * The drafts of one catalogue, and their keeper: what is typed is stored in the catalogue a moment later and outlives
 * the program. A catalogue that cannot be written keeps nothing and hinders nothing; the drafts are in memory then.
 */
class Entwuerfe : public QObject
{
    Q_OBJECT

public:
    explicit Entwuerfe(QObject *vater = nullptr);

    /**
     * The drafts of the profile @p id, whose catalogue keeps @p gelesene. What is still to be stored of the one before
     * is stored at once; what memory has goes before what was read.
     */
    void wechseln(const QUuid &id, const std::shared_ptr<Datenbank> &db, const Entwurfsliste &gelesene);
    /** Nothing is open any more. */
    void schliessen() { wechseln({}, nullptr, {}); }
    [[nodiscard]] const Entwurf *suchen(qint64 dokument) const;
    /** The draft of @p dokument, to be changed: it is stored soon. */
    [[nodiscard]] Entwurf &aendern(qint64 dokument);
    void verwerfen(qint64 dokument);
    /** Stores at once what is still open, on a thread of its own; for the end of the program too. */
    void sichern();

private:
    void vormerken(qint64 dokument);

    struct Schreibstube;

    QUuid m_id;
    std::shared_ptr<Schreibstube> m_stube; ///< of the open catalogue; null if there is none
    QHash<QUuid, Entwurfsliste> m_listen;  ///< by profile
    QSet<qint64> m_offene;                 ///< changed and not handed over yet
    QTimer m_takt;
};
} // namespace quillmar::zustand
