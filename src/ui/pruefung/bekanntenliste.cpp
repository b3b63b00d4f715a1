#include "bekanntenliste.h"

#include "feldliste.h"
#include "liste.h"
#include "pruefung.h"
#include "sprache.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace quillmar::pruefung
{
namespace
{
constexpr qsizetype hoechstens = 8;
constexpr qsizetype wenigsteZeichen = 2;
} // namespace

Bekanntenliste::Bekanntenliste(Pruefung *pruefung, QLineEdit *feld)
    : QObject(feld), m_pruefung(pruefung), m_feld(feld), m_zeilen(new Listenmodell(this)),
      m_liste(feldliste(feld, m_zeilen, u"bekannte"_s, Sprache::text(u"Bekannte Gegenüber"_s)))
{
    m_liste->popup()->installEventFilter(this); // after the completer's own, so that it comes first
    connect(feld, &QLineEdit::textEdited, this, &Bekanntenliste::anbieten);
    connect(m_liste, qOverload<const QModelIndex &>(&QCompleter::activated), this, &Bekanntenliste::waehlen);
    connect(pruefung, &Pruefung::bekannteGelesen, this, [this] {
        if (m_feld->hasFocus() && m_feld->isModified())
            anbieten();
    });
}

void Bekanntenliste::schliessen() { m_liste->popup()->hide(); }

/** Tab takes the row along that one has gone to, as it does in other choices. */
bool Bekanntenliste::eventFilter(QObject *ziel, QEvent *ereignis)
{
    if (ereignis->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(ereignis)->key() == Qt::Key_Tab)
        waehlen(m_liste->popup()->currentIndex());
    return QObject::eventFilter(ziel, ereignis);
}

void Bekanntenliste::anbieten()
{
    const QString getippt = m_feld->text().trimmed();
    m_angebotene =
        getippt.size() < wenigsteZeichen ? QList<Bekannter>() : passende(m_pruefung->bekannte(), getippt, hoechstens);
    m_angebotene.removeIf([&](const Bekannter &b) { return b.name == getippt; });
    QList<Listenzeile> zeilen;
    for (const Bekannter &b : std::as_const(m_angebotene))
        zeilen << Listenzeile{.kennung = b.name, .erste = b.name, .zweite = b.ziel()};
    m_liste->popup()->setCurrentIndex({}); // of the rows that were offered before
    m_zeilen->setzen(zeilen);
    if (zeilen.isEmpty())
        return schliessen();
    m_liste->complete();
    // No row is chosen unless one was gone to: who types a name of his own and presses Return means that one.
    m_liste->popup()->setCurrentIndex({});
}

void Bekanntenliste::waehlen(const QModelIndex &zeile)
{
    const QString name = zeile.data(Kennung).toString();
    for (const Bekannter &b : std::as_const(m_angebotene)) {
        if (b.name == name)
            return m_pruefung->bekanntenWaehlen(b);
    }
}
} // namespace quillmar::pruefung
