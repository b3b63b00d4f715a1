#include "angebotsliste.h"

#include "feldliste.h"
#include "liste.h"
#include "sprache.h"
#include "stil.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::pruefung
{
namespace
{
constexpr int kleinsteBreite = 360; // pixels at 10 points

/** What stands in place of offers. */
QString ohneAngebot(const Seitenbelege &belege)
{
    if (belege.liest())
        return Sprache::text(u"Die Seite ist noch nicht gelesen."_s);
    return belege.pfad().isEmpty() ? Sprache::text(u"Die Wörter dieses Dokuments lassen sich nicht lesen."_s)
                                   : Sprache::text(u"Auf den gelesenen Seiten steht nichts, was hierher passt."_s);
}
} // namespace

Angebotsliste::Angebotsliste(const Seitenbelege *belege, Feld feld, QLineEdit *eingabe)
    : QObject(eingabe), m_belege(belege), m_feld(feld), m_eingabe(eingabe), m_zeilen(new Listenmodell(this)),
      m_liste(feldliste(eingabe, m_zeilen, u"angebote"_s + feldname(feld), Sprache::text(u"Was die Seite anbietet"_s)))
{
    QAbstractItemView *zeilen = m_liste->popup();
    zeilen->installEventFilter(this);
    connect(zeilen->selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex &zeile) {
        if (const qsizetype stelle = zeile.row(); zeile.isValid() && stelle < m_angebote.size())
            Q_EMIT vorgemerkt(m_angebote.at(stelle).marke);
    });
    connect(m_liste, qOverload<const QModelIndex &>(&QCompleter::activated), this, &Angebotsliste::waehlen);
    connect(eingabe, &QLineEdit::textEdited, this, &Angebotsliste::schliessen);
    connect(belege, &Seitenbelege::worteGeaendert, this, [this] {
        if (m_liste->popup()->isVisible() && m_angebote.isEmpty())
            oeffnen(); // was opened before they came
    });
}

void Angebotsliste::schliessen() { m_liste->popup()->hide(); }

void Angebotsliste::oeffnen()
{
    m_angebote = m_belege->angebote(m_feld);
    QList<Listenzeile> zeilen;
    for (const Feldangebot &angebot : std::as_const(m_angebote))
        zeilen << Listenzeile{.kennung = zeilen.size(), .erste = angebot.wert, .zweite = angebot.umfeld};
    if (zeilen.isEmpty())
        zeilen << Listenzeile{.kennung = {}, .erste = ohneAngebot(*m_belege)};
    m_zeilen->setzen(zeilen);
    m_liste->complete(platz());
    m_liste->popup()->setCurrentIndex({});
    // The likeliest, also where the field has it: Return then changes nothing that is right.
    m_liste->popup()->setCurrentIndex(m_liste->popup()->model()->index(0, 0));
}

/** As wide as what is offered, also below a short field, as far as the window reaches. */
QRect Angebotsliste::platz() const
{
    const int fenster = m_eingabe->window()->width();
    const int breite = std::min(std::max(m_eingabe->width(), Stil::mass(kleinsteBreite)), fenster);
    const int rechts = m_eingabe->mapTo(m_eingabe->window(), QPoint()).x() + breite;
    return {std::min(0, fenster - rechts), 0, breite, m_eingabe->height()};
}

void Angebotsliste::waehlen(const QModelIndex &zeile)
{
    if (const qsizetype stelle = zeile.row(); zeile.isValid() && stelle < m_angebote.size())
        Q_EMIT gewaehlt(m_belege->gewaehlt(m_angebote.at(stelle)));
}

bool Angebotsliste::eventFilter(QObject *ziel, QEvent *ereignis)
{
    if (ereignis->type() == QEvent::Hide)
        Q_EMIT geschlossen();
    // At the ends the row stays: the completer would go on to none.
    if (ereignis->type() == QEvent::KeyPress) {
        const int taste = static_cast<QKeyEvent *>(ereignis)->key();
        const int zeile = m_liste->popup()->currentIndex().row();
        if ((taste == Qt::Key_Down && zeile == m_zeilen->rowCount() - 1) || (taste == Qt::Key_Up && zeile == 0))
            return true;
    }
    return QObject::eventFilter(ziel, ereignis);
}
} // namespace quillmar::pruefung
