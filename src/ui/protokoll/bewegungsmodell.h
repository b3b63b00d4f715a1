#pragma once

#include "bewegungsstaende.h"
#include "bilanz.h"
#include "namensraeume.h"
#include "protokollzeile.h"
#include "zeichen.h"

#include <QAbstractListModel>
#include <QHash>

namespace quillmar::protokoll
{
/** The movements of a session as rows of a list, oldest first; nothing is computed for rows that nobody looks at. */
class Bewegungsmodell : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Rolle { Von = Qt::UserRole, Nach, Stand, Wort };

    explicit Bewegungsmodell(QObject *vater = nullptr);

    /** @p quelle and @p ziel are left out of the paths below them. A session that goes on keeps its marks. */
    void setzen(const QList<Protokollzeile> &zeilen, const QString &quelle, const QString &ziel);
    /** What a turning back of these movements came to: each that was not turned back has its reason in its row. */
    void setzeBilanz(const Bilanz &bilanz);
    void veralten() { m_staende.veralten(); }
    void ansehen(int von, int bis) { m_staende.ansehen(von, bis); }
    [[nodiscard]] const Protokollzeile &zeile(int stelle) const { return m_zeilen.at(stelle); }

    [[nodiscard]] int rowCount(const QModelIndex &eltern = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int rolle) const override;

private:
    [[nodiscard]] Bewegungsstand stand(int stelle) const;
    [[nodiscard]] QString wort(int stelle) const;
    [[nodiscard]] QString ansage(int stelle) const;
    [[nodiscard]] QString hilfe(int stelle) const;

    QList<Protokollzeile> m_zeilen;
    QString m_quelle;
    QString m_ziel;
    QHash<qsizetype, QString> m_gescheiterte; ///< row, reason
    QHash<qsizetype, QString> m_uebersprungene;
    Bewegungsstaende m_staende;
};

/** What is said of a movement beside its mark; empty where the mark says it all. */
[[nodiscard]] QString standwort(Bewegungsstand stand);
/** Name of the mark's symbol; empty while nothing is known. */
[[nodiscard]] Symbol standsymbol(Bewegungsstand stand);
} // namespace quillmar::protokoll
