#include "buehne.h"

#include "profilspeicher.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;
using namespace quillmar::zustand;

Buehne::Buehne(const QString &name)
{
    profil.name = name;
    profil.quelle = m_ordner.filePath(u"Scans"_s);
    profil.zielWurzel = m_ordner.filePath(u"Ablage"_s);
    profil.zweige = {
        {.name = u"Haushalt"_s,
         .ablagen = {{.name = u"Jahresablage"_s, .mitJahr = true, .rubriken = {u"Strom"_s, u"Wasser"_s}},
                     {.name = u"Stammdaten"_s, .mitJahr = false, .rubriken = {u"Verträge"_s}}}},
        {.name = u"Verein"_s,
         .ablagen = {{.name = u"Jahresablage"_s, .mitJahr = true, .rubriken = {u"Strom"_s, u"Spenden"_s}}}},
    };
    QDir().mkpath(profil.quelle);
    QDir().mkpath(profil.zielWurzel);
}

void Buehne::profilSichern(const QList<Profil> &davor) const
{
    const QList<Profil> alte = Profilspeicher::laden();
    Q_ASSERT(Profilspeicher::sichern(davor + QList{profil}, alte).gelungen);
}

Datenbank &Buehne::db()
{
    if (!m_db)
        m_db = std::make_unique<Datenbank>(Profilspeicher::katalogDatei(profil));
    return *m_db;
}

qint64 Buehne::dokument(const QString &dateiname, const std::function<void(Dokument &)> &aendern,
                        const QByteArray &inhalt)
{
    QFile datei(quelle(dateiname));
    if (datei.open(QIODevice::WriteOnly))
        datei.write(inhalt.isEmpty() ? "%PDF-1.4 " + dateiname.toUtf8() : inhalt);
    Dokument d;
    d.pfad = quelle(dateiname);
    d.dateiname = dateiname;
    d.status = Status::Bereit;
    d.hatTextebene = true;
    d.angaben.datum = u"2023-02-14"_s;
    d.angaben.jahr = u"2023"_s;
    d.angaben.gegenueber = u"Stadtwerke"_s;
    d.angaben.titel = dateiname.chopped(4);
    d.angaben.ort.zweig = u"Haushalt"_s;
    d.angaben.ort.ablage = u"Jahresablage"_s;
    d.angaben.ort.rubrik = u"Strom"_s;
    d.konfidenz = 0.9;
    if (aendern)
        aendern(d);
    sql(u"INSERT INTO dokumente (pfad, dateiname, alt_ordner, status, hat_textebene, datum, gegenueber, titel, zweig,"
        "ablage, rubrik, jahr, konfidenz, ort_quelle) VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?)"_s,
        {d.pfad, d.dateiname, d.altOrdner, statuswort(d.status), d.hatTextebene, d.angaben.datum, d.angaben.gegenueber,
         d.angaben.titel, d.angaben.ort.zweig, d.angaben.ort.ablage, d.angaben.ort.rubrik, d.angaben.jahr, d.konfidenz,
         d.ortQuelle});
    const qint64 id = db().abfragen(u"SELECT id FROM dokumente WHERE pfad=?"_s, {d.pfad}).first().ganz(u"id");
    sql(u"INSERT INTO texte (dokument_id, text) VALUES (?,?)"_s, {id, u"Text"_s});
    return id;
}

Dokument Buehne::lesen(qint64 id)
{
    return Dokument::aus(db().abfragen(u"SELECT * FROM dokumente WHERE id=?"_s, {id}).first());
}

void Buehne::sql(const QString &anweisung, const QVariantList &werte)
{
    if (db().ausfuehren(anweisung, werte) != 0)
        qFatal("%s", qPrintable(anweisung));
}
