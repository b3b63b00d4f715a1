#include "bewegungsmodell.h"

#include "liste.h"
#include "pfade.h"
#include "sprache.h"
#include "stil.h"
#include "text.h"

using namespace Qt::StringLiterals;

namespace quillmar::protokoll
{
namespace
{
QString unter(const QString &pfad, const QString &ordner)
{
    return !ordner.isEmpty() && pfad.startsWith(ordner + u'/') ? pfad.mid(ordner.size() + 1) : kurzpfad(pfad);
}

/** The mark of a movement, and what is said beside it where the mark does not say it all. */
std::pair<Symbol, QString> zeichnung(Bewegungsstand stand)
{
    switch (stand) {
    case Bewegungsstand::AmZiel:
        return {Symbol::Gut, {}};
    case Bewegungsstand::Zurueck:
        return {Symbol::Zurueckgedreht, Sprache::text(u"zurückgedreht"_s)};
    case Bewegungsstand::Verschwunden:
        return {Symbol::Frage, Sprache::text(u"nicht gefunden"_s)};
    case Bewegungsstand::Fehler:
        return {Symbol::Fehler, Sprache::text(u"Fehler"_s)};
    case Bewegungsstand::Uebersprungen:
        return {Symbol::Warnung, Sprache::text(u"übersprungen"_s)};
    case Bewegungsstand::Unbekannt:
        break;
    }
    return {Symbol::Keines, {}};
}
} // namespace

Bewegungsmodell::Bewegungsmodell(QObject *vater) : QAbstractListModel(vater)
{
    connect(&m_staende, &Bewegungsstaende::erkannt, this,
            [this](qsizetype von, qsizetype bis) { Q_EMIT dataChanged(index(int(von)), index(int(bis))); });
}

void Bewegungsmodell::setzen(const QList<Protokollzeile> &zeilen, const QString &quelle, const QString &ziel)
{
    const qsizetype bisher = m_zeilen.size();
    const bool fortsetzung = bisher > 0 && zeilen.size() > bisher && zeilen.first() == m_zeilen.first() &&
                             zeilen.at(bisher - 1) == m_zeilen.last();
    if (fortsetzung)
        beginInsertRows({}, int(bisher), int(zeilen.size()) - 1);
    else
        beginResetModel();
    m_zeilen = zeilen;
    m_quelle = quelle;
    m_ziel = ziel;
    fortsetzung ? m_staende.fortsetzen(zeilen) : m_staende.setzen(zeilen);
    fortsetzung ? endInsertRows() : endResetModel();
}

void Bewegungsmodell::setzeBilanz(const Bilanz &bilanz)
{
    m_befunde.clear();
    for (const Rueckbaubefund &befund : bilanz.uebersprungen)
        m_befunde.insert(befund.stelle, {Bewegungsstand::Uebersprungen, befund.grund});
    for (const Rueckbaubefund &befund : bilanz.fehler)
        m_befunde.insert(befund.stelle, {Bewegungsstand::Fehler, befund.grund});
    if (!m_zeilen.isEmpty())
        Q_EMIT dataChanged(index(0), index(int(m_zeilen.size()) - 1));
}

QString Bewegungsmodell::ort(int stelle) const
{
    const Protokollzeile &z = m_zeilen.at(stelle);
    return stand(stelle) == Bewegungsstand::Zurueck ? z.von : z.nach;
}

int Bewegungsmodell::rowCount(const QModelIndex &eltern) const { return eltern.isValid() ? 0 : int(m_zeilen.size()); }

/** What could not be turned back still lies where the movement brought it. */
Bewegungsstand Bewegungsmodell::stand(int stelle) const
{
    const Bewegungsstand stand = m_staende.stand(stelle);
    const auto befund = m_befunde.constFind(stelle);
    return stand == Bewegungsstand::AmZiel && befund != m_befunde.constEnd() ? befund->first : stand;
}

/** Why it was not turned back; a failure that is none any more has no reason. */
QString Bewegungsmodell::grund(int stelle) const
{
    const Bewegungsstand s = stand(stelle);
    const auto befund = m_befunde.value(stelle);
    const bool gilt = (befund.first == Bewegungsstand::Fehler) == (s == Bewegungsstand::Fehler);
    return gilt && s != Bewegungsstand::Zurueck ? befund.second : QString();
}

/** What stands at the end of the row: the state, and why it is not another one. */
QString Bewegungsmodell::wort(int stelle) const
{
    const QString wort = zeichnung(stand(stelle)).second;
    return wort.isEmpty() || grund(stelle).isEmpty() ? wort : wort + u": "_s + grund(stelle);
}

QString Bewegungsmodell::zeilentext(int stelle, bool alt) const
{
    const Protokollzeile &z = m_zeilen.at(stelle);
    return alt ? gefuellt(Sprache::text(u"Von: %@"_s), {unter(z.von, m_quelle)})
               : gefuellt(Sprache::text(u"Nach: %@"_s), {unter(z.nach, m_ziel)});
}

QString Bewegungsmodell::ansage(int stelle) const
{
    const QString wort = stand(stelle) == Bewegungsstand::AmZiel ? Sprache::text(u"am Ziel"_s) : this->wort(stelle);
    const QString zeilen = zeilentext(stelle, true) + u", "_s + zeilentext(stelle, false);
    return wort.isEmpty() ? zeilen : wort + u": "_s + zeilen;
}

QString Bewegungsmodell::hilfe(int stelle) const
{
    const Protokollzeile &z = m_zeilen.at(stelle);
    QStringList teile = {z.zeitKurz() + u"  "_s + z.aktion, gefuellt(Sprache::text(u"Von: %@"_s), {z.von}),
                         gefuellt(Sprache::text(u"Nach: %@"_s), {z.nach}), grund(stelle)};
    if (teile.last().isEmpty() && stand(stelle) == Bewegungsstand::Fehler)
        teile.last() = Sprache::text(u"Der Ordner lässt sich nicht lesen"_s);
    teile.removeAll(QString());
    return u"<qt>"_s + teile.join(u'\n').toHtmlEscaped().replace(u'\n', u"<br>"_s) + u"</qt>"_s;
}

QVariant Bewegungsmodell::data(const QModelIndex &index, int rolle) const
{
    const int stelle = index.row();
    if (!index.isValid() || stelle >= m_zeilen.size())
        return {};
    switch (rolle) {
    case Qt::DisplayRole:
        return zeilentext(stelle, true);
    case ZweiteZeile:
        return zeilentext(stelle, false);
    case Hauptzeile:
        return 1;
    case Stand:
        return int(stand(stelle));
    case Marke:
        return int(zeichnung(stand(stelle)).first);
    case Wort:
        return wort(stelle);
    case Wortart:
        return int(stand(stelle) == Bewegungsstand::Fehler ? Schrift::Warnung : Schrift::Neben);
    case Qt::AccessibleTextRole:
        return ansage(stelle);
    case Qt::ToolTipRole:
        return hilfe(stelle);
    default:
        return {};
    }
}
} // namespace quillmar::protokoll
