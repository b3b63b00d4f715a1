#include "archiv.h"

#include "fehlschlag.h"
#include "pdf.h"
#include "satz.h"
#include "scan.h"
#include "vorlagen.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <utility>

using namespace Qt::StringLiterals;

namespace vorfuehrung
{

namespace
{

const QStringList &ablagebaum()
{
    // Two spellings of one rubric, a branch without documents of its own and folders that are no branches are meant.
    static const QStringList ordner{
        u"Firma/Jahresablage/2022/{Ausgangsrechnungen,Eingangsrechnungen,Kontoauszuege}"_s,
        u"Firma/Jahresablage/2023/{Ausgangsrechnungen,Eingangsrechnungen,Kontoauszüge,Steuerbescheide}"_s,
        u"Firma/Jahresablage/2024/{Ausgangsrechnungen,Eingangsrechnungen,Kontoauszüge,Steuerbescheide}"_s,
        u"Firma/Jahresablage/2025/{Ausgangsrechnungen,Eingangsrechnungen}"_s,
        u"Firma/Stammdaten/{Verträge,Versicherungen,Zulassungen}"_s,
        u"Privat/Jahresablage/2022/{Kontoauszüge,Steuerbescheide}"_s,
        u"Privat/Jahresablage/2023/{Eingangsrechnungen,Kontoauszüge,Steuerbescheide}"_s,
        u"Privat/Jahresablage/2024/{Eingangsrechnungen,Kontoauszüge,Steuerbescheide}"_s,
        u"Privat/Stammdaten/{Schriftverkehr,Urkunden,Verträge,Wohnung,Versicherungen}"_s,
        u"Privat/Stammdaten/Versicherungen/{Auto,Hausrat}"_s,
        u"Privat/Stammdaten/Wohnung/Fotos"_s,
        u"Privat/prüfen"_s,
        u"Verein/Unterlagen/{Einladungen,Protokolle}"_s,
        u"_Alte Ablage/Jahresablage/1998"_s,
    };
    return ordner;
}

void baumSchreiben(const QString &wurzel)
{
    for (const QString &eintrag : ablagebaum()) {
        const qsizetype klammer = eintrag.indexOf(u'{');
        const QString stamm = wurzel + u'/' + eintrag.left(klammer);
        if (klammer < 0) {
            ordnerAnlegen(stamm);
            continue;
        }
        for (const QString &name : eintrag.mid(klammer + 1).chopped(1).split(u','))
            ordnerAnlegen(stamm + name);
    }
}

QList<Seite> gesetzt(const Vorlage &vorlage)
{
    QList<Seite> seiten;
    for (const QStringList &zeilen : vorlage.seiten)
        seiten.append(Seite{seitenSatz(zeilen), {}, {}, 0});
    return seiten;
}

/** As a broken font map says it: each letter is the next one. */
QStringList verschoben(QStringList zeilen)
{
    for (QString &zeile : zeilen)
        for (QChar &c : zeile)
            if (c >= u'A' && c <= u'z')
                c = QChar(c.unicode() + 1);
    return zeilen;
}

QList<Seite> alsBild(const Vorlage &vorlage)
{
    QList<Seite> seiten;
    quint32 keim = qChecksum(vorlage.pfad.toUtf8());
    for (const QStringList &zeilen : vorlage.seiten)
        seiten.append(gescannt(seitenSatz(zeilen), vorlage.lage, keim++));
    for (qsizetype i = 0; vorlage.ebeneVerschoben && i < seiten.size(); ++i)
        seiten[i].inhalt = seitenSatz(verschoben(vorlage.seiten.at(i)));
    return seiten;
}

const Vorlage &gesucht(const QList<Vorlage> &alle, const QString &pfad)
{
    for (const Vorlage &vorlage : alle)
        if (vorlage.pfad == pfad)
            return vorlage;
    throw Fehlschlag(u"Keine Vorlage dieses Namens: "_s + pfad);
}

QByteArray bytesVon(const QList<Vorlage> &alle, const Vorlage &vorlage)
{
    switch (vorlage.machart) {
    case Machart::text:
        return pdf(gesetzt(vorlage));
    case Machart::bild:
        return pdf(alsBild(vorlage));
    case Machart::kopie:
        return bytesVon(alle, gesucht(alle, vorlage.von));
    case Machart::neuGespeichert:
        return pdf(gesetzt(gesucht(alle, vorlage.von)), Schreibweise::ungepackt);
    case Machart::leer:
        return pdf({Seite{}});
    case Machart::beschaedigt:
        return pdf(gesetzt(vorlage)).left(60);
    case Machart::verschluesselt:
        return pdf(gesetzt(vorlage), Schreibweise::verschluesselt);
    }
    Q_UNREACHABLE();
}

QJsonObject erwartung(const Vorlage &vorlage)
{
    const bool dublette = !vorlage.von.isEmpty();
    const bool eingeordnet = !dublette && vorlage.fehler.isEmpty();
    const QString ortQuelle = eingeordnet && vorlage.ortQuelle.isEmpty() ? u"modell"_s : vorlage.ortQuelle;
    return {{u"pfad"_s, vorlage.pfad},
            {u"status"_s, dublette ? u"dublette"_s : u"bereit"_s},
            {u"dublette_von"_s, vorlage.von},
            {u"aehnlich_zu"_s, vorlage.aehnlichZu},
            {u"fehler"_s, vorlage.fehler},
            {u"datum"_s, vorlage.datum},
            {u"gegenueber"_s, vorlage.gegenueber},
            {u"titel"_s, vorlage.titel},
            {u"zweig"_s, vorlage.zweig},
            {u"ablage"_s, vorlage.ablage},
            {u"rubrik"_s, vorlage.rubrik},
            {u"ort_quelle"_s, ortQuelle},
            {u"hat_textebene"_s, vorlage.machart == Machart::text || vorlage.machart == Machart::neuGespeichert}};
}

/** Files that an inventory must leave alone: hidden, not a PDF, or in a folder for duplicates. */
QStringList beifangSchreiben(const QString &quelle)
{
    QStringList pfade{u"Inbox/.halb geladen.pdf"_s, u"Inbox/Liste.pdf.txt"_s, u"_Dubletten/Rechnung alt.pdf"_s};
    for (const QString &pfad : std::as_const(pfade))
        dateiSchreiben(quelle + u'/' + pfad, pdf({Seite{seitenSatz({u"Gehört nicht zum Bestand."_s}), {}, {}}}));
    return pfade;
}

} // namespace

QString quelleVon(const QString &ordner) { return ordner + u"/Scans"_s; }

QString zielVon(const QString &ordner) { return ordner + u"/Ablage"_s; }

void archivSchreiben(const QString &ordner)
{
    const QList<Vorlage> alle = vorlagen();
    QJsonArray dokumente;
    for (const Vorlage &vorlage : alle) {
        const QString pfad = vorlage.zerlegt ? vorlage.pfad.normalized(QString::NormalizationForm_D) : vorlage.pfad;
        dateiSchreiben(quelleVon(ordner) + u'/' + pfad, bytesVon(alle, vorlage));
        dokumente.append(erwartung(vorlage));
    }
    const QStringList beifang = beifangSchreiben(quelleVon(ordner));
    baumSchreiben(zielVon(ordner));
    const QJsonObject erwartet{{u"dokumente"_s, dokumente}, {u"uebergangen"_s, QJsonArray::fromStringList(beifang)}};
    dateiSchreiben(ordner + u"/erwartet.json"_s, QJsonDocument(erwartet).toJson());
}

} // namespace vorfuehrung
