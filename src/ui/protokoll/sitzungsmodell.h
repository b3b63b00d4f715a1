#pragma once

#include "namensraeume.h"

#include <QAbstractListModel>

namespace quillmar::zustand
{
class Sitzungen;
class Sitzungsbilder;
} // namespace quillmar::zustand

namespace quillmar::protokoll
{
/** Logs as rows of a list, Kennung their file: when each session was and what it holds, as far as that has been read.
 */
class Sitzungsmodell : public QAbstractListModel
{
    Q_OBJECT

public:
    /** @p laufend: of the session that is going on. */
    Sitzungsmodell(Sitzungen *sitzungen, Sitzungsbilder *bilder, bool laufend, QObject *vater);

    void setzen(const QStringList &dateien);
    [[nodiscard]] const QStringList &dateien() const { return m_dateien; }

    [[nodiscard]] int rowCount(const QModelIndex &eltern = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int rolle) const override;

private:
    [[nodiscard]] QString titel(const QString &datei) const;

    Sitzungen *m_sitzungen;
    Sitzungsbilder *m_bilder;
    bool m_laufend;
    QStringList m_dateien;
};
} // namespace quillmar::protokoll
