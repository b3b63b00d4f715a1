#pragma once

#include "namensraeume.h"

#include <QListView>

class QStandardItemModel;

namespace quillmar::zustand
{
class Einrichtung;
} // namespace quillmar::zustand

namespace quillmar::einrichtung
{
/** The sections of the setup card: a mark for the state of each, its title and one line of what is set. */
class Abschnittsliste : public QListView
{
    Q_OBJECT

public:
    explicit Abschnittsliste(Einrichtung *einrichtung, QWidget *eltern = nullptr);

protected:
    void currentChanged(const QModelIndex &jetzt, const QModelIndex &vorher) override;

private:
    void zeigen();
    void waehlen();

    Einrichtung *m_einrichtung;
    QStandardItemModel *m_zeilen;
    QString m_fenster; ///< language and font size, which are no business of the state object
};
} // namespace quillmar::einrichtung
