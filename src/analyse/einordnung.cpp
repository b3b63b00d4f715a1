#include "einordnung.h"

#include "sprache.h"
#include "text.h"

#include <QDate>
#include <QRegularExpression>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::analyse
{
namespace
{
/** Without a date or a known rubric the model cannot have been sure. */
constexpr double hoechstensUnvollstaendig = 0.4;
constexpr int fruehestes = 1900; ///< year that a document may be of

QString zweignamen(const Profil &profil)
{
    QStringList namen;
    for (const Zweig &zweig : profil.zweige)
        namen << zweig.name;
    return namen.join(u", "_s);
}

QString ablagenamen(const Profil &profil)
{
    QStringList namen;
    for (const Zweig &zweig : profil.zweige) {
        for (const Ablageart &art : zweig.ablagen)
            namen << art.name;
    }
    namen.removeDuplicates();
    return namen.join(u", "_s);
}

QString rubrikenliste(const Profil &profil)
{
    QString liste;
    for (const Zweig &zweig : profil.zweige) {
        for (const Ablageart &art : zweig.ablagen)
            liste += zweig.name + u" / "_s + art.name + u": "_s + art.rubriken.join(u", "_s) + u"\n"_s;
    }
    return liste;
}

QString textAus(const QJsonObject &antwort, const QString &schluessel)
{
    return nfc(antwort.value(schluessel).toString()).trimmed();
}

/** For comparing what a model writes with what the structure has: without regard to case, blanks and umlauts. */
QString vereinfacht(const QString &name)
{
    QString ergebnis;
    for (const QChar c : nfc(name).toCaseFolded()) {
        if (!c.isSpace())
            ergebnis += c;
    }
    return ergebnis.replace(u'ä', u"ae"_s).replace(u'ö', u"oe"_s).replace(u'ü', u"ue"_s);
}

template <typename Liste>
auto aehnlichGenannt(const Liste &liste, const QString &name) -> decltype(&liste.first())
{
    const QString gesucht = vereinfacht(name);
    const auto treffer =
        std::find_if(liste.begin(), liste.end(), [&](const auto &e) { return vereinfacht(e.name) == gesucht; });
    return gesucht.isEmpty() || treffer == liste.end() ? nullptr : &*treffer;
}

QStringList ebenen(const QString &text) { return text.split(u'/', Qt::SkipEmptyParts); }

/** By its exact name; else in another spelling, alone or as the first level of a whole path. */
const Zweig *zweigAus(const QString &text, const Profil &profil)
{
    if (const Zweig *zweig = profil.zweig(text))
        return zweig;
    if (const Zweig *zweig = aehnlichGenannt(profil.zweige, text))
        return zweig;
    const QStringList teile = ebenen(text);
    return teile.isEmpty() ? nullptr : aehnlichGenannt(profil.zweige, teile.first());
}

/** The kind of @p zweig that @p text names, alone or behind the branch in a path. */
const Ablageart *ablageartAus(const QString &text, const Zweig &zweig)
{
    const auto genau = std::find_if(zweig.ablagen.begin(), zweig.ablagen.end(),
                                    [&](const Ablageart &art) { return art.name == text; });
    if (genau != zweig.ablagen.end())
        return &*genau;
    if (const Ablageart *art = aehnlichGenannt(zweig.ablagen, text))
        return art;
    QStringList teile = ebenen(text);
    if (teile.size() > 1 && vereinfacht(teile.first()) == vereinfacht(zweig.name))
        teile.removeFirst();
    return teile.isEmpty() ? nullptr : aehnlichGenannt(zweig.ablagen, teile.first());
}

Ort ortAus(const QJsonObject &antwort, const Profil &profil)
{
    Ort ort;
    const QString zweigtext = textAus(antwort, u"zweig"_s);
    const Zweig *zweig = zweigAus(zweigtext, profil);
    if (!zweig)
        return ort;
    ort.zweig = zweig->name;
    const QString ablagetext = textAus(antwort, u"ablage"_s);
    // A model that puts both levels into the branch may leave the kind empty.
    const bool imZweig = ablagetext.isEmpty() && ebenen(zweigtext).size() > 1;
    const Ablageart *art = ablageartAus(imZweig ? zweigtext : ablagetext, *zweig);
    if (!art)
        return ort;
    ort.ablage = art->name;
    const QString rubrik = textAus(antwort, u"rubrik"_s);
    if (art->rubriken.contains(rubrik))
        ort.rubrik = rubrik;
    return ort;
}

/** Whose papers they are and what the model gets. */
QString vorspann(const Profil &profil)
{
    QString text = u"Du bist Archivar einer deutschen Dokumentenablage.\n"_s;
    if (!profil.eigentuemer.isEmpty())
        text += u"Eigentuemer: "_s + profil.eigentuemer;
    return text + u"\n\nDu bekommst den Text eines eingescannten Dokuments. Entscheide allein aus dem Inhalt.\n"
                  "Der bisherige Dateiname kann ein Datum enthalten, ist sonst aber unzuverlaessig.\n\n"
                  "Liefere:\n"_s;
}

/** What the page itself tells: date, counterpart and title. */
QString inhaltsfelder(const Profil &profil)
{
    QString text = u"- datum: das Datum AUF dem Dokument, Format JJJJ-MM-TT. Kein Scandatum. Unbekannt heisst leer.\n"
                   "- gegenueber: Name der ANDEREN Seite, also Absender oder Empfaenger. Ausgeschrieben mit\n"
                   "  Leerzeichen, ohne Rechtsform. Beispiele: Finanzamt Meissen, GLS Bank, Telekom Deutschland.\n"
                   "  Bei eigenen Ausgangsrechnungen ist das Gegenueber der Kunde.\n"
                   "  WICHTIG: Das Gegenueber ist NIEMALS der Eigentuemer selbst"_s;
    if (const QStringList eigene = profil.eigenkennungen(); !eigene.isEmpty())
        text += u", also nicht "_s + eigene.join(u", "_s);
    return text + u".\n  Steht der Eigentuemer als Absender, nimm den Empfaenger. Steht er als Empfaenger,\n"
                  "  nimm den Absender. Gibt es keine andere Seite, lass das Feld leer.\n"
                  "- titel: worum es konkret geht, kurz und sachlich. Er muss dieses Dokument von allen\n"
                  "  anderen desselben Absenders unterscheidbar machen. Nenne Rechnungsnummer, Vertragsnummer,\n"
                  "  Zeitraum oder Gegenstand. Keine Wiederholung des Gegenuebers, kein Datum im Titel.\n"_s;
}

/** The places that there are, of which the model is to name one. */
QString ortsfelder(const Profil &profil)
{
    QString text = u"- zweig: einer von "_s + zweignamen(profil) + u".\n- ablage: eine von "_s + ablagenamen(profil);
    text += u".\n- rubrik: exakt ein Eintrag aus der Liste des gewaehlten Zweigs und der gewaehlten Ablage.\n"
            "- konfidenz: Zahl zwischen 0 und 1.\n\nRubriken:\n"_s;
    return text + rubrikenliste(profil);
}
} // namespace

QString Einordnung::anweisung(const Profil &profil)
{
    return vorspann(profil) + inhaltsfelder(profil) + ortsfelder(profil) +
           u"\nAntworte ausschliesslich mit einem JSON-Objekt mit den Schluesseln\n"
           "datum, gegenueber, titel, zweig, ablage, rubrik, konfidenz."_s;
}

QString Einordnung::frage(const QString &anweisung, const QString &dateiname, const QString &text, int maxZeichen)
{
    return anweisung + u"\n\nBisheriger Dateiname: "_s + dateiname + u"\n\nDokumenttext:\n\"\"\"\n"_s +
           ersteZeichen(text, maxZeichen) + u"\n\"\"\""_s;
}

Einordnungsergebnis Einordnung::auswerten(const QJsonObject &antwort, const QString &altName, const Profil &profil)
{
    Einordnungsergebnis e;
    Angaben &a = e.angaben;
    a.gegenueber = textAus(antwort, u"gegenueber"_s);
    a.titel = textAus(antwort, u"titel"_s);
    a.datum = textAus(antwort, u"datum"_s);
    if (!istDatum(a.datum))
        a.datum = datumAusName(altName);
    a.jahr = a.datum.left(4);
    a.ort = ortAus(antwort, profil);
    e.konfidenz = antwort.value("konfidenz"_L1).toDouble(0);
    if (a.datum.isEmpty() || a.ort.rubrik.isEmpty())
        e.konfidenz = std::min(e.konfidenz, hoechstensUnvollstaendig);
    e.konfidenz = std::clamp(e.konfidenz, 0.0, 1.0);
    return e;
}

bool Einordnung::sagtNichts(const QJsonObject &antwort, const Einordnungsergebnis &ergebnis)
{
    const Angaben &a = ergebnis.angaben;
    // The date of the result may be that of the file name.
    return a.gegenueber.isEmpty() && a.titel.isEmpty() && a.ort.zweig.isEmpty() &&
           !istDatum(textAus(antwort, u"datum"_s));
}

bool Einordnung::istDatum(const QString &text)
{
    static const QRegularExpression form(u"^\\d{4}-\\d{2}-\\d{2}\\z"_s);
    return form.match(text).hasMatch();
}

bool Einordnung::istTag(const QString &text, const QDate &heute)
{
    const QDate tag = istDatum(text) ? QDate::fromString(text, Qt::ISODate) : QDate();
    return tag.isValid() && tag.year() >= fruehestes && tag.year() <= heute.year() + 1;
}

QString Einordnung::datumsmangel(const QString &text)
{
    const QDate heute = QDate::currentDate();
    if (text.isEmpty() || istTag(text, heute))
        return {};
    if (!istDatum(text))
        return Sprache::text(u"Das Datum hat nicht die Form JJJJ-MM-TT"_s);
    return QDate::fromString(text, Qt::ISODate).isValid()
               ? gefuellt(Sprache::text(u"Das Jahr liegt nicht zwischen %@ und %@"_s),
                          {QString::number(fruehestes), QString::number(heute.year() + 1)})
               : Sprache::text(u"Diesen Tag gibt es nicht"_s);
}

QString Einordnung::datumAusName(const QString &name)
{
    static const QRegularExpression muster(u"((?:20|19)\\d{2})[-_. ]?(\\d{2})[-_. ]?(\\d{2})"_s);
    const QRegularExpressionMatch treffer = muster.match(name);
    if (!treffer.hasMatch())
        return {};
    return treffer.captured(1) + u'-' + treffer.captured(2) + u'-' + treffer.captured(3);
}
} // namespace quillmar::analyse
