#include "pruefstand.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;
using namespace quillmar::analyse;

Pruefstand::Pruefstand() : m_db(std::make_shared<Datenbank>(m_ordner.filePath(u"k.db"_s)))
{
    const Ablageart steuern{
        .name = u"Steuern"_s, .mitJahr = true, .rubriken = QStringList{u"Bescheide"_s, u"Belege"_s}};
    const Ablageart firma{.name = u"Firma"_s,
                          .mitJahr = false,
                          .rubriken = QStringList{u"Ausgangsrechnungen"_s, u"Eingangsrechnungen"_s}};
    profil.zweige = {{.name = u"Privat"_s, .ablagen = {steuern, firma}}};
    profil.modell = u"klein"_s;
    profil.modellGross = u"gross"_s;
    profil.eigeneNamen = QStringList{u"Anna Muster"_s};
    profil.eigeneAnschriften = QStringList{u"Weg 100, 12345 Ort"_s};
    qputenv("OLLAMA_HOST", m_server->adresse().toUtf8());
}

qint64 Pruefstand::dokument(const QString &dateiname, const QString &text, const QString &altOrdner) const
{
    m_db->ausfuehren(u"INSERT INTO dokumente (pfad, dateiname, alt_ordner, text_hash) VALUES (?,?,?,'')"_s,
                     {QString(u"/scans/"_s + dateiname), dateiname, altOrdner});
    const qint64 id = m_db->abfragen(u"SELECT MAX(id) id FROM dokumente"_s).first().ganz(u"id");
    if (!text.isEmpty())
        m_db->ausfuehren(u"INSERT INTO texte VALUES (?,?)"_s, {id, text});
    return id;
}

Zeile Pruefstand::zeile(qint64 id) const
{
    return m_db->abfragen(u"SELECT * FROM dokumente WHERE id=?"_s, {id}).first();
}

QString Pruefstand::werte(qint64 id, const QStringList &spalten) const
{
    const Zeile z = zeile(id);
    QStringList liste;
    for (const QString &spalte : spalten) {
        const Wert &wert = z.wert(spalte);
        if (std::holds_alternative<std::monostate>(wert))
            liste << u"NULL"_s;
        else
            liste << (std::holds_alternative<QString>(wert) ? z.text(spalte) : QString::number(z.komma(spalte)));
    }
    return liste.join(u'|');
}

Testantwort Pruefstand::antwort(const QJsonObject &objekt)
{
    const QString text = QString::fromUtf8(QJsonDocument(objekt).toJson());
    return Testantwort::fest(200, QJsonDocument(QJsonObject{{u"response"_s, text}, {u"done"_s, true}}).toJson());
}

QJsonObject Pruefstand::vorschlag(const QJsonObject &anders)
{
    QJsonObject objekt = {{u"datum"_s, u"2023-05-17"_s}, {u"gegenueber"_s, u"Finanzamt Meißen"_s},
                          {u"titel"_s, u"Bescheid 7"_s}, {u"zweig"_s, u"Privat"_s},
                          {u"ablage"_s, u"Steuern"_s},   {u"rubrik"_s, u"Bescheide"_s},
                          {u"konfidenz"_s, 0.8}};
    for (auto i = anders.begin(); i != anders.end(); ++i)
        objekt.insert(i.key(), i.value());
    return objekt;
}

QList<QJsonObject> Pruefstand::fragen() const
{
    QList<QJsonObject> liste;
    for (const Testanfrage &anfrage : m_server ? m_server->anfragen() : m_fruehere) {
        if (anfrage.pfad == "/api/generate")
            liste << QJsonDocument::fromJson(anfrage.rumpf).object();
    }
    return liste;
}

void Pruefstand::serverListet(const QList<QJsonObject> &modelle)
{
    QJsonArray liste;
    for (const QJsonObject &modell : modelle)
        liste << modell;
    m_server->antworten("/api/tags", Testantwort::fest(200, QJsonDocument(QJsonObject{{u"models"_s, liste}}).toJson()));
}

void Pruefstand::serverStirbt()
{
    if (m_server)
        m_fruehere = m_server->anfragen();
    m_server.reset();
}

Lauf Pruefstand::lauf(std::function<bool()> halt, std::stop_token ende) const
{
    return {m_db, profil, std::move(halt), std::move(ende), [](const Laufstand &) {}};
}
