#pragma once

#include "namensraeume.h"

#include <QWidget>

namespace quillmar::zustand
{
struct Sitzungsbild;
} // namespace quillmar::zustand

namespace quillmar::bedienteile
{
class Elidiertext;
class Flachknopf;
} // namespace quillmar::bedienteile

namespace quillmar::protokoll
{
/** A log in the list of sessions: its mark, when it was, what it holds; a click on it shows it. */
class Sitzungszeile : public QWidget
{
    Q_OBJECT

public:
    explicit Sitzungszeile(QWidget *eltern = nullptr);

    /** @p nummer makes the names of the row's controls different from those of the others. */
    void setzen(const QString &datei, int nummer);
    /** What has been read of it; before that only its name is shown. @p laufend: of the session that is going on. @p
     * mitSekunden: another one began in the same minute. */
    void bildZeigen(const Sitzungsbild &bild, bool laufend, bool mitSekunden);
    void setzeGewaehlt(bool gewaehlt);
    void fokusNehmen();
    [[nodiscard]] const QString &datei() const { return m_datei; }

Q_SIGNALS:
    void gewaehlt(const QString &datei);

protected:
    void paintEvent(QPaintEvent *ereignis) override;
    void resizeEvent(QResizeEvent *ereignis) override;
    void mouseReleaseEvent(QMouseEvent *ereignis) override;

private:
    void knoepfeBenennen();
    void einpassen();

    QString m_datei;
    bool m_gewaehlt = false;
    Flachknopf *m_marke;
    Elidiertext *m_titel;
    Elidiertext *m_unterzeile;
    Flachknopf *m_ansehen;
    Flachknopf *m_finden;
};
} // namespace quillmar::protokoll
