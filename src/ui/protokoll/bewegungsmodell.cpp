#include "bewegungsmodell.h"

#include "pfade.h"
#include "sprache.h"
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
} // namespace

QString standwort(Bewegungsstand stand)
{
    switch (stand) {
    case Bewegungsstand::Zurueck:
        return Sprache::text(u"zurückgedreht"_s);
    case Bewegungsstand::Verschwunden:
        return Sprache::text(u"nicht gefunden"_s);
    case Bewegungsstand::Fehler:
        return Sprache::text(u"Fehler"_s);
    case Bewegungsstand::Uebersprungen:
        return Sprache::text(u"übersprungen"_s);
    case Bewegungsstand::Unbekannt:
    case Bewegungsstand::AmZiel:
        break;
    }
    return {};
}

Symbol standsymbol(Bewegungsstand stand)
{
    switch (stand) {
    case Bewegungsstand::AmZiel:
        return Symbol::Gut;
    case Bewegungsstand::Zurueck:
        return Symbol::Zurueckgedreht;
    case Bewegungsstand::Verschwunden:
        return Symbol::Frage;
    case Bewegungsstand::Fehler:
        return Symbol::Fehler;
    case Bewegungsstand::Uebersprungen:
        return Symbol::Warnung;
    case Bewegungsstand::Unbekannt:
        break;
    }
    return Symbol::Keines;
}

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
    m_gescheiterte.clear();
    m_uebersprungene.clear();
    for (const Rueckbaubefund &befund : bilanz.fehler)
        m_gescheiterte.insert(befund.stelle, befund.grund);
    for (const Rueckbaubefund &befund : bilanz.uebersprungen)
        m_uebersprungene.insert(befund.stelle, befund.grund);
    if (!m_zeilen.isEmpty())
        Q_EMIT dataChanged(index(0), index(int(m_zeilen.size()) - 1));
}

int Bewegungsmodell::rowCount(const QModelIndex &eltern) const { return eltern.isValid() ? 0 : int(m_zeilen.size()); }

/** What could not be turned back still lies where the movement brought it. */
Bewegungsstand Bewegungsmodell::stand(int stelle) const
{
    const Bewegungsstand stand = m_staende.stand(stelle);
    if (stand != Bewegungsstand::AmZiel)
        return stand;
    if (m_gescheiterte.contains(stelle))
        return Bewegungsstand::Fehler;
    return m_uebersprungene.contains(stelle) ? Bewegungsstand::Uebersprungen : stand;
}

/** What stands at the end of the row: the state, and why it is not another one. */
QString Bewegungsmodell::wort(int stelle) const
{
    const Bewegungsstand s = stand(stelle);
    const QString wort = standwort(s);
    QString grund;
    if (s == Bewegungsstand::Fehler)
        grund = m_gescheiterte.value(stelle);
    else if (s != Bewegungsstand::Zurueck)
        grund = m_uebersprungene.value(stelle);
    return wort.isEmpty() || grund.isEmpty() ? wort : wort + u": "_s + grund;
}

QString Bewegungsmodell::ansage(int stelle) const
{
    const Bewegungsstand s = stand(stelle);
    const QString wort = s == Bewegungsstand::AmZiel ? Sprache::text(u"am Ziel"_s) : this->wort(stelle);
    const QString zeilen = data(index(stelle), Von).toString() + u", "_s + data(index(stelle), Nach).toString();
    return wort.isEmpty() ? zeilen : wort + u": "_s + zeilen;
}

QString Bewegungsmodell::hilfe(int stelle) const
{
    const Protokollzeile &z = m_zeilen.at(stelle);
    QStringList teile = {z.zeitKurz() + u"  "_s + z.aktion, gefuellt(Sprache::text(u"Von: %@"_s), {z.von}),
                         gefuellt(Sprache::text(u"Nach: %@"_s), {z.nach})};
    const Bewegungsstand s = stand(stelle);
    if (s == Bewegungsstand::Fehler)
        teile << m_gescheiterte.value(stelle, Sprache::text(u"Der Ordner lässt sich nicht lesen"_s));
    else if (s != Bewegungsstand::Zurueck && m_uebersprungene.contains(stelle))
        teile << m_uebersprungene.value(stelle);
    return u"<qt>"_s + teile.join(u'\n').toHtmlEscaped().replace(u'\n', u"<br>"_s) + u"</qt>"_s;
}

QVariant Bewegungsmodell::data(const QModelIndex &index, int rolle) const
{
    const int stelle = index.row();
    if (!index.isValid() || stelle >= m_zeilen.size())
        return {};
    switch (rolle) {
    case Von:
        return gefuellt(Sprache::text(u"Von: %@"_s), {unter(m_zeilen.at(stelle).von, m_quelle)});
    case Nach:
        return gefuellt(Sprache::text(u"Nach: %@"_s), {unter(m_zeilen.at(stelle).nach, m_ziel)});
    case Stand:
        return int(stand(stelle));
    case Wort:
        return wort(stelle);
    case Qt::DisplayRole:
        return QVariant(data(index, Von).toString() + u'\n' + data(index, Nach).toString());
    case Qt::AccessibleTextRole:
        return ansage(stelle);
    case Qt::ToolTipRole:
        return hilfe(stelle);
    default:
        return {};
    }
}
} // namespace quillmar::protokoll
