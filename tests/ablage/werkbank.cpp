#include "werkbank.h"

#include "bewegungsgang.h"
#include "pfade.h"
#include "protokollbuch.h"
#include "sha256.h"

#include <QDir>
#include <QDirIterator>

using namespace Qt::StringLiterals;
using namespace quillmar::ablage;

namespace
{
QStringList alleDateien(const QString &ordner)
{
    QStringList dateien;
    QDirIterator lauf(ordner, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (lauf.hasNext())
        dateien << lauf.next();
    return dateien;
}
} // namespace

QByteArray inhaltVon(const QString &pfad)
{
    QFile datei(pfad);
    return datei.open(QIODevice::ReadOnly) ? datei.readAll() : QByteArray();
}

void dateiSchreiben(const QString &pfad, const QByteArray &inhalt)
{
    QDir().mkpath(ordnerVon(pfad));
    QFile datei(pfad);
    if (!datei.open(QIODevice::WriteOnly) || datei.write(inhalt) != inhalt.size())
        qFatal("cannot write %s", qPrintable(pfad));
}

Werkbank::Werkbank(const QString &ordner, bool kopieren, const QString &ziel) : m_ordner(ordner)
{
    m_profil.quelle = ordner + u"/quelle"_s;
    m_profil.zielWurzel = ziel.isEmpty() ? ordner + u"/ziel"_s : ziel;
    m_profil.protokollOrdner = ordner + u"/protokolle"_s;
    m_profil.kopieren = kopieren;
    m_profil.zweige = {
        {.name = u"Privat"_s,
         .ablagen = {{.name = u"Stammdaten"_s, .mitJahr = false, .rubriken = {u"Strom"_s, u"Wasser"_s}}}}};
    QDir().mkpath(m_profil.quelle);
    QDir().mkpath(m_profil.zielWurzel);
    oeffnen();
}

void Werkbank::oeffnen()
{
    m_db = std::make_shared<Datenbank>(m_ordner + u"/katalog.db"_s);
    Bewegungsgang::klaeren(m_db);
    m_buch = Protokollbuch::anlegen(m_profil.protokollOrdner, m_profil);
}

void Werkbank::schliessen()
{
    m_buch.reset();
    m_db.reset();
}

qint64 Werkbank::dokument(const QString &name, const QByteArray &inhalt, const QString &titel)
{
    dateiSchreiben(quelle(name), inhalt);
    m_db->ausfuehren(
        u"INSERT INTO dokumente (pfad, dateiname, alt_ordner, status, datum, gegenueber, titel, zweig,\n"
        "ablage, rubrik, jahr) VALUES (?,?,'','bereit','2024-03-05','Stadtwerke',?,'Privat','Stammdaten',\n"
        "'Strom','2024')"_s,
        {quelle(name), name, titel});
    return m_db->abfragen(u"SELECT MAX(id) n FROM dokumente"_s).first().ganz(u"n");
}

Vollzug Werkbank::uebernehmen(qint64 id, const QString &gegenueber)
{
    Dokument d = lesen(id);
    if (!gegenueber.isEmpty())
        d.angaben.gegenueber = gegenueber;
    return werk().uebernehmen(d);
}

Vollzug Werkbank::aussortieren(qint64 id) { return werk().aussortieren(id); }

qint64 Werkbank::rueckgaengig() { return werk().rueckgaengig(); }

Dokument Werkbank::lesen(qint64 id) const { return Ablagewerk(m_db, m_profil).dokument(id).value_or(Dokument()); }

QString Werkbank::ziel(const QString &name) const
{
    return m_profil.zielWurzel + u"/Privat/Stammdaten/Strom/"_s + name;
}

QString Werkbank::buchDatei() const { return m_buch ? m_buch->datei() : QString(); }

QMap<QString, int> Werkbank::bestand() const
{
    QMap<QString, int> summen;
    for (const QString &ordner :
         {m_profil.quelle, m_profil.zielWurzel, qEnvironmentVariable("XDG_DATA_HOME") + u"/Trash/files"_s}) {
        for (const QString &datei : alleDateien(ordner))
            ++summen[sha256Datei(datei.toUtf8())];
    }
    return summen;
}

QStringList Werkbank::reste() const
{
    const QString korb = qEnvironmentVariable("XDG_DATA_HOME") + u"/Trash"_s;
    QStringList reste;
    for (const QString &datei :
         alleDateien(m_profil.quelle) + alleDateien(m_profil.zielWurzel) + alleDateien(korb + u"/files"_s)) {
        if (datei.contains(u"/.quillmar-"_s) || QFileInfo(datei).size() == 0)
            reste << datei;
    }
    for (const QString &vermerk : alleDateien(korb + u"/info"_s)) {
        if (!QFile::exists(korb + u"/files/"_s + QFileInfo(vermerk).completeBaseName()))
            reste << vermerk;
    }
    return reste;
}

QStringList Werkbank::abgelegte() const { return alleDateien(m_profil.zielWurzel); }

QStringList Werkbank::widerspruecheOhneProtokoll() const
{
    QStringList liste;
    for (const Zeile &zeile : m_db->abfragen(u"SELECT * FROM dokumente"_s)) {
        const Dokument d = Dokument::aus(zeile);
        if (!QFile::exists(d.pfad))
            liste << u"%1: %2 fehlt"_s.arg(d.id).arg(d.pfad);
        const QList<Zeile> bewegt = m_db->abfragen(
            u"SELECT * FROM protokoll WHERE dokument_id=? AND rueckgaengig=0 ORDER BY id DESC LIMIT 1"_s, {d.id});
        const bool nurVermerkt = m_profil.kopieren && d.status == Status::Aussortiert;
        if (!nurVermerkt && bewegt.isEmpty() == (d.status == Status::Erledigt || d.status == Status::Aussortiert))
            liste << u"%1: Status %2 passt nicht zum Protokoll"_s.arg(d.id).arg(statuswort(d.status));
        if (!bewegt.isEmpty() && !QFile::exists(bewegt.first().text(u"nach_pfad")))
            liste << u"%1: nicht am Zielort"_s.arg(d.id);
    }
    return liste;
}

QStringList Werkbank::widersprueche() const
{
    QStringList liste = widerspruecheOhneProtokoll();
    // Every movement that the catalogue knows stands in a session log.
    QList<Protokollzeile> zeilen;
    for (const QString &datei : Protokollbuch::dateien(m_profil.protokollOrdner))
        zeilen << Protokollbuch::lesen(datei);
    const qint64 bewegungen = m_db->abfragen(u"SELECT COUNT(*) n FROM protokoll"_s).first().ganz(u"n");
    if (zeilen.size() != bewegungen)
        liste << u"%1 Zeilen im Protokoll, %2 im Katalog"_s.arg(zeilen.size()).arg(bewegungen);
    return liste;
}

Absicht absichtFuer(qint64 id, const QString &von, const QString &nach)
{
    Absicht absicht;
    absicht.vorgang = u"v"_s;
    absicht.zeile = {.zeit = u"z"_s,
                     .aktion = u"a"_s,
                     .dokument = id,
                     .von = von,
                     .nach = nach,
                     .altStatus = u"bereit"_s,
                     .kopiert = false};
    const auto angaben = Dateibewegung::angabenVon(von).value_or(Dateibewegung::Schritt());
    absicht.groesse = angaben.groesse;
    absicht.dateizeit = angaben.zeit;
    return absicht;
}
