#pragma once

#include "laufbild.h"
#include "namensraeume.h"

#include <QWidget>

namespace quillmar::ablauf
{
/** The four stages of a run below each other: mark, name, message, time; a bar under the one that is going on. */
class Stufenliste : public QWidget
{
    Q_OBJECT

public:
    explicit Stufenliste(QWidget *eltern = nullptr);

    /** @p rest: remaining time of the running stage; @p anteil: how far it is, 0 to 1. */
    void zeigen(const QList<Stufenbild> &stufen, const QString &rest, double anteil);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *ereignis) override;
    void resizeEvent(QResizeEvent *ereignis) override;

private:
    [[nodiscard]] int zeilenhoehe(const Stufenbild &stufe) const;
    void stufeMalen(QPainter &maler, const Stufenbild &stufe, int oben, bool letzte) const;
    [[nodiscard]] QString zeittext(const Stufenbild &stufe) const;
    void ansagen(const Stufenbild &stufe, QWidget *teil) const;
    void teileLegen();

    QList<Stufenbild> m_stufen;
    QString m_rest;
    double m_anteil = 0;
    QList<QWidget *> m_teile; ///< one over each stage, for a screen reader
};

/** A duration for the user: seconds, minutes or hours. */
[[nodiscard]] QString dauertext(std::chrono::milliseconds dauer);
} // namespace quillmar::ablauf
