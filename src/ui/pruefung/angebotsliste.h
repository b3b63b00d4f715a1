#pragma once

#include "seitenbelege.h"
#include "teile.h"

#include <QObject>

class QCompleter;
class QLineEdit;

namespace quillmar::pruefung
{
/** Opens below a field with what the page offers for it; the passage of the row gone to is told while one moves. */
class Angebotsliste : public QObject
{
    Q_OBJECT

public:
    Angebotsliste(const Seitenbelege *belege, Feld feld, QLineEdit *eingabe);

    void oeffnen();
    void schliessen();

Q_SIGNALS:
    void vorgemerkt(const Seitenmarke &marke); ///< of the row gone to
    void gewaehlt(const QString &wert);        ///< what the field is to say
    void geschlossen();

protected:
    bool eventFilter(QObject *ziel, QEvent *ereignis) override;

private:
    void waehlen(const QModelIndex &zeile);
    [[nodiscard]] QRect platz() const;

    const Seitenbelege *m_belege;
    Feld m_feld;
    QLineEdit *m_eingabe;
    Listenmodell *m_zeilen;
    QCompleter *m_liste;
    QList<Feldangebot> m_angebote;
};
} // namespace quillmar::pruefung
