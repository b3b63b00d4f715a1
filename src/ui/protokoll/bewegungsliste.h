#pragma once

#include "namensraeume.h"

#include <QListView>

namespace quillmar::protokoll
{
class Bewegungsmodell;

/** The list of a session's movements; asks for the marks of the rows in view. */
class Bewegungsliste : public QListView
{
    Q_OBJECT

public:
    explicit Bewegungsliste(QWidget *eltern = nullptr);
    [[nodiscard]] Bewegungsmodell *modell() const { return m_modell; }

protected:
    void paintEvent(QPaintEvent *ereignis) override;
    void focusInEvent(QFocusEvent *ereignis) override;

private:
    void zeigen(const QModelIndex &index) const;

    Bewegungsmodell *m_modell;
};
} // namespace quillmar::protokoll
