#pragma once

#include "bewegungsstaende.h"
#include "bilanz.h"
#include "namensraeume.h"
#include "protokollzeile.h"

#include <QAbstractListModel>
#include <QHash>

namespace quillmar::protokoll
{
/** The movements of a session as rows of a list, oldest first; nothing is computed for rows that nobody looks at. */
class Bewegungsmodell : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Rolle { Stand = Qt::UserRole };

    explicit Bewegungsmodell(QObject *vater = nullptr);

    /** @p quelle and @p ziel are left out of the paths below them. A session that goes on keeps its marks. */
    void setzen(const QList<Protokollzeile> &zeilen, const QString &quelle, const QString &ziel);
    /** What a turning back of these movements came to: each that was not turned back has its reason in its row. */
    void setzeBilanz(const Bilanz &bilanz);
    void veralten() { m_staende.veralten(); }
    void ansehen(int von, int bis) { m_staende.ansehen(von, bis); }
    [[nodiscard]] const Protokollzeile &zeile(int stelle) const { return m_zeilen.at(stelle); }
    /** Where its file is to be looked for. */
    [[nodiscard]] QString ort(int stelle) const;

    [[nodiscard]] int rowCount(const QModelIndex &eltern = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int rolle) const override;

private:
    [[nodiscard]] Bewegungsstand stand(int stelle) const;
    [[nodiscard]] QString grund(int stelle) const;
    [[nodiscard]] QString wort(int stelle) const;
    [[nodiscard]] QString zeilentext(int stelle, bool alt) const;
    [[nodiscard]] QString ansage(int stelle) const;
    [[nodiscard]] QString hilfe(int stelle) const;

    QList<Protokollzeile> m_zeilen;
    QString m_quelle;
    QString m_ziel;
    QHash<qsizetype, std::pair<Bewegungsstand, QString>> m_befunde; ///< of those that were not turned back, with why
    Bewegungsstaende m_staende;
};
} // namespace quillmar::protokoll
