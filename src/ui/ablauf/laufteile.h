#pragma once

#include "laufkarte.h"
#include "stil.h"
#include "teile.h"
#include "zeichen.h"

#include <QWidget>

namespace quillmar::ablauf
{
/** A figure above what it counts; one object to a screen reader. */
class Zahl : public QWidget
{
    Q_OBJECT

public:
    /** @p nummer of the object "zahl-…". */
    Zahl(int nummer, Schrift schrift, const QString &was);
    /** @p warnung puts the warning mark before it. */
    void zeigen(qint64 wert, bool warnung = false);

private:
    Textschild *m_wert;
    QString m_was;
};

/** How far a run in portions is as a whole: documents, time that is left, a bar; one object to a screen reader. */
class Gesamtstand : public QWidget
{
    Q_OBJECT

public:
    /** The object "gesamtstand". */
    Gesamtstand();
    void zeigen(const Laufganzes &ganzes);

private:
    QLabel *m_satz;
    QLabel *m_zeit;
    QProgressBar *m_balken;
    Textschild *m_portion;
};

/** A stage of a run: mark, name, message, time, and a bar while it is going on; one object to a screen reader. */
class Stufe : public QWidget
{
    Q_OBJECT

public:
    /** @p nummer of the object "stufe-…"; behind the last one the line to the next ends. */
    Stufe(int nummer, bool letzte);
    /** @p zeit that is left or was taken; @p anteil: how far it is, 0 to 1. */
    void zeigen(const Stufenbild &stufe, const QString &zeit, double anteil);

protected:
    void changeEvent(QEvent *ereignis) override;

private:
    Symbol m_symbol = Symbol::Keines;
    QLabel *m_marke;
    QLabel *m_name;
    QLabel *m_zeit;
    Textschild *m_meldung;
    QProgressBar *m_balken;
};
} // namespace quillmar::ablauf
