#pragma once

#include "anfrage.h"
#include "wortquelle.h"

#include <memory>
#include <optional>

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::zustand
{
/**
 * Recognises the words of the documents that wait behind the one under review, one by one, so that they are kept when
 * these come. What cannot be recognised shows when it is looked at.
 */
class Vorauslesung : public QObject
{
    Q_OBJECT

public:
    explicit Vorauslesung(QObject *eltern) : QObject(eltern), m_frage(this) {}

    /** For the next documents behind the one with @p id that have no text layer; they are read as @p wie says. */
    void beginnen(const std::shared_ptr<Datenbank> &db, qint64 id, const Wortlagen::Erkennung &wie);
    void abbrechen();
    /** Is at @p quelle just now: who needs it waits for fertig() rather than to begin anew. */
    [[nodiscard]] bool liest(const Wortquelle &quelle) const { return m_jetzige == quelle; }

Q_SIGNALS:
    void fertig(const Wortquelle &quelle); ///< kept now, or not to be read

private:
    void naechste();

    Wortspeicher m_speicher;
    QList<Wortquelle> m_wartende;
    std::optional<Wortquelle> m_jetzige;
    Anfrage m_frage;
};
} // namespace quillmar::zustand
