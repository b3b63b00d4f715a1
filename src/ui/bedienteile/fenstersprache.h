#pragma once

#include <QObject>
#include <QTranslator>

/** The language of the window: the program's own texts, Qt's own (standard buttons, dialogs) and number formats. */
class Fenstersprache : public QObject
{
    Q_OBJECT

public:
    /** Puts the language in effect; needs an application object. */
    explicit Fenstersprache(QObject *vater = nullptr);

    /** The stored choice; empty: follow the system. */
    [[nodiscard]] QString kennung() const;
    void waehlen(const QString &kennung);

Q_SIGNALS:
    /** Every text is to be looked up anew. */
    void gewechselt();

private:
    void laden();

    QTranslator m_qt;
};
