#pragma once

#include "namensraeume.h"

#include <QWidget>

class QVBoxLayout;

namespace quillmar::zustand
{
class Modelldienst;
} // namespace quillmar::zustand

namespace quillmar::ablauf
{
/** What a start without the model asks, in its place under the title of the run card. */
class Startfrage : public QWidget
{
    Q_OBJECT

public:
    explicit Startfrage(Modelldienst *modelldienst, QWidget *eltern = nullptr);
    /** Says what is missing and shows itself. */
    void fragen();

Q_SIGNALS:
    void erneutPruefen();
    void nurLesen();

private:
    Modelldienst *m_modelldienst;
    QVBoxLayout *m_spalte;
    QWidget *m_hinweis = nullptr;
};
} // namespace quillmar::ablauf
