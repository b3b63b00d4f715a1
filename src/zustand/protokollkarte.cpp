#include "protokollkarte.h"

#include "ausfuehrung.h"
#include "pfade.h"
#include "sitzungen.h"
#include "sprache.h"
#include "text.h"
#include "zustand.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace quillmar::zustand
{
QString ordnersatz(const Profil &profil)
{
    if (!profil.protokollOrdner.isEmpty())
        return Sprache::text(u"Eigener Ort gewählt"_s);
    const auto ort = profil.protokollURL();
    return ort ? gefuellt(Sprache::text(u"Standard: %@"_s), {kurzpfad(*ort)})
               : Sprache::text(u"noch kein Zielordner"_s);
}

QString protokollanzahl(qsizetype alle, bool nurLaufende)
{
    if (alle == 0)
        return Sprache::text(u"Im Protokollordner liegt noch nichts."_s);
    if (nurLaufende)
        return Sprache::text(u"Im Protokollordner liegt nur die laufende Sitzung."_s);
    return gefuellt(Sprache::text(alle, u"%@ Protokoll gefunden."_s, u"%@ Protokolle gefunden, neueste zuerst."_s),
                    {QString::number(alle)});
}

QString sitzungszeit(const QString &datei, const std::optional<Sitzungsbild> &bild, bool mitSekunden)
{
    if (!bild || !bild->beginn.isValid())
        return nameVon(datei);
    return QLocale().toString(bild->beginn, mitSekunden ? Sprache::text(u"d. MMMM yyyy, HH:mm:ss"_s)
                                                        : Sprache::text(u"d. MMMM yyyy, HH:mm"_s));
}

QString sitzungsinhalt(const std::optional<Sitzungsbild> &bild, bool laufend)
{
    if (!bild)
        return u""_s;
    const QString anzahl = gefuellt(Sprache::text(bild->bewegungen, u"%@ Bewegung"_s, u"%@ Bewegungen"_s),
                                    {QLocale().toString(bild->bewegungen)});
    if (bild->bewegungen > 0 && bild->zurueckgedreht)
        return gefuellt(Sprache::text(u"%@, zurückgedreht"_s), {anzahl});
    if (laufend && bild->zuletzt.isValid())
        return gefuellt(Sprache::text(u"%@, zuletzt um %@"_s),
                        {anzahl, QLocale().toString(bild->zuletzt.time(), u"HH:mm"_s)});
    return anzahl;
}

QString sitzungstitel(const Sitzungen &sitzungen)
{
    const QString datei = sitzungen.protokollDatei().value_or(QString());
    if (datei.isEmpty() || sitzungen.laufendeDatei() == datei || sitzungen.protokollDateien().contains(datei))
        return Sprache::text(u"Sitzung"_s);
    return gefuellt(Sprache::text(u"Sitzung aus %@"_s), {nameVon(datei)});
}

QString bewegungsanzahl(const Sitzungen &sitzungen)
{
    const qsizetype zeilen = sitzungen.protokollZeilen().size();
    if (sitzungen.protokollLaedt())
        return Sprache::text(u"Wird gelesen …"_s);
    if (zeilen == 0)
        return Sprache::text(u"In dieser Datei steht keine lesbare Bewegung."_s);
    return gefuellt(Sprache::text(zeilen, u"%@ Eintrag."_s, u"%@ Einträge, älteste zuerst."_s),
                    {QString::number(zeilen)});
}

QList<std::pair<QString, QString>> bedingungen(const std::optional<Protokollkopf> &kopf)
{
    const Protokollkopf k = kopf.value_or(Protokollkopf{});
    const QString art = k.kopieren ? Sprache::text(u"Kopieren"_s) : Sprache::text(u"Verschieben"_s);
    return {{Sprache::text(u"Profil"_s), k.profil},
            {Sprache::text(u"Rechner"_s), k.rechner},
            {Sprache::text(u"Herkunft"_s), kurzpfad(k.quelle)},
            {Sprache::text(u"Ziel"_s), kurzpfad(k.ziel)},
            {Sprache::text(u"Betriebsart"_s), kopf ? art : QString()},
            {Sprache::text(u"Namensmuster"_s), k.namensVorlage},
            {Sprache::text(u"Pfadmuster"_s), k.pfadVorlage}};
}

QString rueckbauerklaerung(bool kopien)
{
    const QString satz =
        Sprache::text(u"Dreht alle Bewegungen der gewählten Sitzung um, jüngste zuerst. Verschobene Dateien gehen an "
                      "ihren alten Platz zurück, Kopien wandern in den Papierkorb."_s);
    if (!kopien)
        return satz;
    return satz + u' ' +
           Sprache::text(u"Rückgängig machen legt in dieser Betriebsart die Kopie in den Papierkorb, das Original "
                         "bleibt ohnehin unangetastet."_s);
}

QString rueckbaufrage(const Profil *aktiv, const std::optional<Protokollkopf> &kopf, qsizetype bewegungen)
{
    const QString frage = gefuellt(Sprache::text(bewegungen, u"%@ Bewegung wird zurückgedreht. Sicher?"_s,
                                                 u"%@ Bewegungen werden zurückgedreht. Sicher?"_s),
                                   {QString::number(bewegungen)});
    if (!aktiv || (kopf && kopf->quelle == aktiv->quelle && kopf->ziel == aktiv->zielWurzel))
        return frage;
    return gefuellt(Sprache::text(u"Dieses Protokoll kommt von woanders. Es bewegt Dateien von %@ nach %@."_s),
                    {kopf ? kopf->ziel : aktiv->zielWurzel, kopf ? kopf->quelle : aktiv->quelle}) +
           u' ' + frage;
}

QString rueckbaufehler(const Bilanz &bilanz, const QList<Protokollzeile> &zeilen)
{
    QStringList saetze;
    for (const Rueckbaubefund &befund : bilanz.fehler) {
        const QString name = nameVon(zeilen.value(befund.stelle).nach);
        saetze << (name.isEmpty() ? befund.grund : name + u": "_s + befund.grund);
    }
    return saetze.join(u'\n');
}

std::pair<Meldestelle::Ton, QString> protokollmeldung(const Zustand &zustand)
{
    const Sitzungen *sitzungen = zustand.sitzungen();
    const QString vorgang = zustand.ausfuehrung()->vorgang();
    const QString gedreht = sitzungen->rueckbauLaeuft() ? QString() : sitzungen->rueckbauMeldung();
    QStringList teile = vorgang.isEmpty() ? zustand.meldestelle()->meldungen() : QStringList{vorgang + u" …"_s};
    teile.prepend(gedreht);
    teile.removeAll(QString());
    const auto ton = gedreht.isEmpty() ? zustand.meldestelle()->ton() : sitzungen->rueckbauTon();
    const bool still = teile.isEmpty() || !vorgang.isEmpty();
    return {still ? Meldestelle::Ton::Ruhig : ton, teile.join(u" · "_s)};
}
} // namespace quillmar::zustand
