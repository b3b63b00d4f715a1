#pragma once

#include "bekannte.h"
#include "teile.h"

#include <QObject>

class QCompleter;
class QLineEdit;

namespace quillmar::pruefung
{
/** Offers known counterparts below the field while one types, each with its usual place. */
class Bekanntenliste : public QObject
{
    Q_OBJECT

public:
    Bekanntenliste(Pruefung *pruefung, QLineEdit *feld);
    void schliessen();

    bool eventFilter(QObject *ziel, QEvent *ereignis) override;

private:
    void anbieten();
    void waehlen(const QModelIndex &zeile);

    Pruefung *m_pruefung;
    QLineEdit *m_feld;
    Listenmodell *m_zeilen;
    QCompleter *m_liste;
    QList<Bekannter> m_angebotene;
};
} // namespace quillmar::pruefung
