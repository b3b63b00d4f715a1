#include "feldliste.h"

#include "liste.h"

#include <QCompleter>
#include <QLineEdit>

namespace quillmar::pruefung
{
namespace
{
constexpr int hoechstensZuSehen = 8;
} // namespace

QCompleter *feldliste(QLineEdit *feld, Listenmodell *zeilen, const QString &name, const QString &titel)
{
    auto *liste = new QCompleter(feld);
    auto *ansicht = new Liste(name, titel);
    ansicht->setFrameShape(QFrame::StyledPanel);
    ansicht->viewport()->setAutoFillBackground(true);
    liste->setModel(zeilen);
    auto *maler = ansicht->itemDelegate();
    liste->setPopup(ansicht);
    ansicht->setItemDelegate(maler); // the completer has put its own in its place
    liste->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    liste->setMaxVisibleItems(hoechstensZuSehen);
    // Not the field's own completer: that one would write into it whatever row is passed over.
    liste->setWidget(feld);
    return liste;
}
} // namespace quillmar::pruefung
