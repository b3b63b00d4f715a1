#pragma once

#include "namensraeume.h"
#include "wahleintrag.h"

#include <QComboBox>
#include <functional>

class QMenu;

namespace quillmar::bedienteile
{
/** Each of @p werte shown as it is. */
[[nodiscard]] QList<Wahleintrag> wahleintraege(const QStringList &werte);

/** Shows @p eintraege with @p wert chosen. A list that is the same stays, and what is open in it with it. */
void wahlAuffrischen(QComboBox *wahl, const QList<Wahleintrag> &eintraege, const QString &wert);

/**
 * The same as checkable entries at the end of @p menue, in place of those of the call before. @p waehlen is called for
 * @p empfaenger when the menu is done with: it may go down with what is chosen.
 */
void menueAuffrischen(QMenu *menue, const QList<Wahleintrag> &eintraege, const QString &wert, QObject *empfaenger,
                      const std::function<void(const QString &)> &waehlen);

/** A choice that is made anew whenever it is opened. */
class Auswahl : public QComboBox
{
public:
    Auswahl(const std::function<void(QComboBox *)> &auffrischen, QWidget *eltern)
        : QComboBox(eltern), m_auffrischen(auffrischen)
    {
        m_auffrischen(this);
    }
    void showPopup() override
    {
        m_auffrischen(this);
        QComboBox::showPopup();
    }

private:
    std::function<void(QComboBox *)> m_auffrischen;
};
} // namespace quillmar::bedienteile
