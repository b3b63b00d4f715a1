#include "datenbank.h"
#include "dokumente.h"
#include "einordner.h"
#include "gelernteorte.h"
#include "gelerntes.h"
#include "lernspeicher.h"
#include "messung.h"
#include "probe.h"
#include "reihen.h"
#include "stapel.h"
#include "transaktion.h"
#include "urteiler.h"

#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;

namespace
{
constexpr quint64 welten = 3;
constexpr int dokumente = 2000;
constexpr int jeDurchgang = 200; // classified together, then reviewed
constexpr int gegenueberzahl = 60;
constexpr int mitMehreren = 15;
constexpr int imBaum = 1000;

/** A branch with kinds and categories enough for everybody. */
Profil ablage()
{
    Profil profil;
    for (const QString &zweig : {u"Privat"_s, u"Firma"_s, u"Verein"_s}) {
        Zweig z{.name = zweig, .ablagen = {}};
        for (const QString &art : {u"Jahresablage"_s, u"Verträge"_s}) {
            QStringList rubriken;
            for (const QString &rubrik : {u"Bank"_s, u"Strom"_s, u"Wasser"_s, u"Telefon"_s, u"Versicherung"_s,
                                          u"Steuer"_s, u"Auto"_s, u"Miete"_s, u"Büro"_s, u"Reise"_s})
                rubriken << rubrik;
            z.ablagen << Ablageart{.name = art, .rubriken = rubriken};
        }
        profil.zweige << z;
    }
    return profil;
}

struct Gegenueber {
    QString name;
    QList<Ort> orte;
    QStringList nummern; ///< of the account or contract, one for each place
    QStringList briefkopf;
};

/** What arrives: who writes, and where it rightly belongs. */
struct Brief {
    const Gegenueber *von = nullptr;
    qsizetype ort = 0;
    [[nodiscard]] const Ort &richtig() const { return von->orte.at(ort); }
};

/** The world that the memory is to learn: the same at every run. */
class Welt
{
public:
    explicit Welt(quint64 saat) : m_zufall(saat), m_profil(ablage())
    {
        const QStringList namen = Probe::namen(4000);
        for (int i = 0; m_alle.size() < gegenueberzahl; ++i) {
            const QString name = namen.at(qsizetype(i) * 37 % namen.size());
            // Some names stand in others, as whole words or as parts of one.
            if (m_alle.size() % 12 == 5)
                dazu(m_alle.last().name + u" Nord"_s);
            else if (m_alle.size() % 12 == 9)
                dazu(m_alle.last().name + u"bank"_s);
            else if (istFremd(name))
                dazu(name);
        }
    }

    [[nodiscard]] const Profil &profil() const { return m_profil; }
    [[nodiscard]] const QList<Gegenueber> &alle() const { return m_alle; }

    [[nodiscard]] Brief brief()
    {
        // A few write often, most now and then.
        const auto wer = qsizetype(double(gegenueberzahl) * anteil() * anteil());
        const Gegenueber &von = m_alle.at((wer * 7) % gegenueberzahl);
        const double welcher = anteil();
        const qsizetype ort = von.orte.size() == 1 || welcher < 0.55   ? 0
                              : welcher < 0.85 || von.orte.size() == 2 ? 1
                                                                       : 2;
        return {.von = &von, .ort = ort};
    }

    /** Right in 70 of 100, another plausible place in 20, incomplete in 10; how certain says nothing about that. */
    [[nodiscard]] Einordnungsergebnis modell(const Brief &brief)
    {
        Einordnungsergebnis e;
        e.angaben.gegenueber = geschrieben(brief.von->name);
        e.konfidenz = 0.5 + anteil() / 2;
        e.angaben.ort = brief.richtig();
        const double wie = anteil();
        if (wie < 0.1)
            e.angaben.ort.rubrik.clear();
        else if (wie < 0.3)
            e.angaben.ort = anderer(brief);
        return e;
    }

    [[nodiscard]] QString text(const Brief &brief)
    {
        QString text = brief.von->name + u'\n' + brief.von->briefkopf.join(u' ') + u"\nDatum 0"_s +
                       QString::number(1 + zahl(8)) + u".1"_s + QString::number(zahl(2)) + u".2024\n"_s;
        if (anteil() < 0.9)
            text += u"Unsere Nummer "_s + brief.von->nummern.at(brief.ort) + u'\n';
        text += u"Beleg "_s + QString::number(100000 + zahl(900000)) + u'\n';
        return text + Probe::worte(m_zufall, 40).join(u' ') + u"\nBetrag "_s + QString::number(zahl(900)) +
               u",50 EUR"_s;
    }

private:
    [[nodiscard]] bool istFremd(const QString &name) const
    {
        const QString schluessel = Lernregeln::schluessel(name);
        return schluessel.size() >= 6 && std::none_of(m_alle.begin(), m_alle.end(), [&](const Gegenueber &g) {
                   return Lernregeln::passt(Lernregeln::schluessel(g.name), schluessel);
               });
    }

    void dazu(const QString &name)
    {
        Gegenueber g{.name = name, .orte = {}, .nummern = {}, .briefkopf = Probe::worte(m_zufall, 12)};
        const bool mehrere = m_alle.size() % (gegenueberzahl / mitMehreren) == 0;
        const int orte = mehrere ? 2 + int(m_alle.size() / 4 % 2) : 1;
        while (g.orte.size() < orte) {
            if (const Ort ort = irgendeiner(); !g.orte.contains(ort))
                g.orte << ort;
        }
        for (int i = 0; i < orte; ++i)
            g.nummern << QString::number(1000 + zahl(9000)) + u'-' + QString::number(10 + zahl(90));
        m_alle << g;
    }

    [[nodiscard]] double anteil() { return double(m_zufall() >> 11) / double(1ULL << 53); }
    [[nodiscard]] int zahl(int bis) { return int(m_zufall() % quint64(bis)); }
    [[nodiscard]] Ort irgendeiner()
    {
        const Zweig &z = m_profil.zweige.at(zahl(int(m_profil.zweige.size())));
        const Ablageart &a = z.ablagen.at(zahl(int(z.ablagen.size())));
        return {.zweig = z.name, .ablage = a.name, .rubrik = a.rubriken.at(zahl(int(a.rubriken.size())))};
    }
    /** Where it could belong as well: another place of the same counterpart, or another category. */
    [[nodiscard]] Ort anderer(const Brief &brief)
    {
        if (brief.von->orte.size() > 1 && anteil() < 0.5)
            return brief.von->orte.at((brief.ort + 1) % brief.von->orte.size());
        Ort ort = brief.richtig();
        while (brief.von->orte.contains(ort))
            ort = irgendeiner();
        return ort;
    }
    /** With legal form or without, umlauts written out, now and then a letter that was not recognised. */
    [[nodiscard]] QString geschrieben(QString name)
    {
        const double wie = anteil();
        if (wie < 0.25)
            name += u" GmbH"_s;
        else if (wie < 0.4)
            name.replace(u'ä', u"ae"_s).replace(u'ö', u"oe"_s).replace(u'ü', u"ue"_s).replace(u"ß"_s, u"ss"_s);
        else if (wie < 0.42)
            name.replace(1 + zahl(int(name.size()) - 2), 1, u'1');
        return name;
    }

    Probe::Zufall m_zufall;
    Profil m_profil;
    QList<Gegenueber> m_alle;
};

/** Documents that needed no correction of the place, of all. */
struct Anteil {
    int richtig = 0;
    int alle = 0;
    void dazu(bool treffer)
    {
        richtig += treffer ? 1 : 0;
        ++alle;
    }
    void operator+=(const Anteil &anderer)
    {
        richtig += anderer.richtig;
        alle += anderer.alle;
    }
    [[nodiscard]] double prozent() const { return alle == 0 ? 0 : 100.0 * richtig / alle; }
};

struct Ergebnis {
    Anteil ersteZweihundert, alle, einOrt, mehrere;
    void operator+=(const Ergebnis &e)
    {
        ersteZweihundert += e.ersteZweihundert;
        alle += e.alle;
        einOrt += e.einOrt;
        mehrere += e.mehrere;
    }
    void dazu(int nummer, const Brief &brief, bool treffer)
    {
        alle.dazu(treffer);
        if (nummer < 200)
            ersteZweihundert.dazu(treffer);
        (brief.von->orte.size() > 1 ? mehrere : einOrt).dazu(treffer);
    }
};

/** Somebody who files with the program, run by run. */
class Jahr
{
public:
    Jahr(Welt &welt, bool lernen, const Regelwahl &regeln)
        : m_welt(welt), m_lernen(lernen), m_regeln(regeln), m_db(Probe::katalog(m_ordner.filePath(u"k.db"_s)))
    {
    }

    /** The memory begins with what lies in the tree. */
    void mitBaum()
    {
        QMap<QString, QMap<qsizetype, int>> zahlen;
        QMap<QString, const Gegenueber *> wer;
        for (int i = 0; i < imBaum; ++i) {
            const Brief brief = m_welt.brief();
            ++zahlen[brief.von->name][brief.ort];
            wer[brief.von->name] = brief.von;
        }
        for (auto g = zahlen.begin(); g != zahlen.end(); ++g) {
            const QString schluessel = Lernregeln::schluessel(g.key());
            Eintrag eintrag{.schluessel = schluessel, .anzeige = g.key(), .ort = {}, .anzahl = 0};
            for (auto o = g->begin(); o != g->end(); ++o) {
                const Ort &ort = wer[g.key()]->orte.at(o.key());
                GelernteOrte(*m_db).setzeBaum(schluessel, ort, *o);
                if (*o > eintrag.anzahl)
                    eintrag = {.schluessel = schluessel, .anzeige = g.key(), .ort = ort, .anzahl = *o};
            }
            Gelerntes(*m_db).setzeZuordnung(eintrag);
        }
    }

    [[nodiscard]] Ergebnis verlauf()
    {
        for (int beginn = 0; beginn < dokumente; beginn += jeDurchgang) {
            const qint64 erstes = m_briefe.size() + 1;
            einordnen();
            for (qint64 id = erstes; id <= m_briefe.size(); ++id)
                pruefen(id);
        }
        return m_ergebnis;
    }

private:
    void einordnen()
    {
        Stapel stapel(*m_db);
        for (int i = 0; i < jeDurchgang; ++i) {
            const Brief brief = m_welt.brief();
            m_briefe << brief;
            stapel.naechstes();
            einesEinordnen(m_briefe.size(), m_welt.text(brief), m_welt.modell(brief));
        }
        stapel.abschliessen();
    }

    void einesEinordnen(qint64 id, const QString &text, Einordnungsergebnis e)
    {
        m_db->schreiben(u"INSERT INTO dokumente (id, status) VALUES (?,'neu')"_s, {id});
        m_db->schreiben(u"INSERT INTO texte VALUES (?,?)"_s, {id, text});
        const Ort modellOrt = e.angaben.ort;
        Einordner::Lernspur spur;
        if (m_lernen)
            spur = Einordner::gelerntesAnwenden(*m_db, m_welt.profil(), text, e, u"modell"_s, m_regeln);
        Vorschlaege(*m_db).speichern(id, {.angaben = e.angaben,
                                          .konfidenz = e.konfidenz,
                                          .name = {},
                                          .dauer = {},
                                          .modellOrt = modellOrt,
                                          .ortQuelle = spur.ort ? u"gelernt"_s : u"modell"_s,
                                          .gelerntVon = spur.von});
        if (m_lernen)
            Einordner::antwortBehalten(*m_db, id, spur);
    }

    /** What is wrong is set right. */
    void pruefen(qint64 id)
    {
        const Brief &brief = m_briefe.at(id - 1);
        Angaben angaben = Dokumente(*m_db).eines(id).value().angaben;
        m_ergebnis.dazu(int(id) - 1, brief, angaben.ort == brief.richtig());
        const QString vorher = angaben.gegenueber;
        angaben.ort = brief.richtig();
        if (Lernregeln::schluessel(vorher) != Lernregeln::schluessel(brief.von->name))
            angaben.gegenueber = brief.von->name;
        Transaktion t(*m_db);
        if (m_lernen)
            Lernspeicher(*m_db, m_welt.profil(), m_regeln).merken(id, angaben, vorher, id);
        Dokumente(*m_db).angabenSchreiben(id, angaben);
        Dokumente(*m_db).setzeStatus(id, Status::Erledigt);
        t.abschliessen();
    }

    QTemporaryDir m_ordner;
    Welt &m_welt;
    bool m_lernen;
    Regelwahl m_regeln;
    std::shared_ptr<Datenbank> m_db;
    QList<Brief> m_briefe;
    Ergebnis m_ergebnis;
};

/** Of several worlds together. */
Ergebnis verlauf(bool lernen, const Regelwahl &regeln, bool baum)
{
    Ergebnis ergebnis;
    for (quint64 saat = 1; saat <= welten; ++saat) {
        Welt welt(saat);
        Jahr jahr(welt, lernen, regeln);
        if (baum)
            jahr.mitBaum();
        ergebnis += jahr.verlauf();
    }
    return ergebnis;
}

void drucken(const char *was, const Ergebnis &e)
{
    std::printf("%-72s %5.1f %% %5.1f %% %5.1f %% %5.1f %%\n", was, e.ersteZweihundert.prozent(), e.alle.prozent(),
                e.einOrt.prozent(), e.mehrere.prozent());
    std::fflush(stdout);
}

/** The rules, switched on one after the other. */
struct Schritt {
    const char *was;
    QList<bool Regelwahl::*> regeln;
};

QList<Schritt> schritte()
{
    return {
        // Two halves of one: what is confirmed counts, and only what is corrected is carried further.
        {"+ every confirmed place, what is certain gives way to corrections only",
         {&Regelwahl::alleOrte, &Regelwahl::nurKorrekturen}},
        {"+ reckoned from the model's answer", {&Regelwahl::vomModellAus}},
        {"+ whole words", {&Regelwahl::ganzeWoerter}},
        {"+ same key first", {&Regelwahl::genaueZuerst}},
        {"+ digits in words are letters that were misread", {&Regelwahl::verlesene}},
        {"+ the texts vote", {&Regelwahl::stimmen}},
    };
}
/** One document of a counterpart that has filed 5,000 at two places, judged with nothing looked up before. */
double urteilsdauer()
{
    const QTemporaryDir ordner;
    const auto db = Probe::katalog(ordner.filePath(u"k.db"_s));
    const Profil profil = ablage();
    const QList<Ort> orte = {{u"Privat"_s, u"Verträge"_s, u"Bank"_s}, {u"Firma"_s, u"Verträge"_s, u"Bank"_s}};
    Probe::Zufall zufall(1);
    const auto text = [&](int i) {
        return u"Konto 4711-0%1 Beleg %2 "_s.arg(i % 2).arg(100000 + i) + Probe::worte(zufall, 80).join(u' ');
    };
    Gelerntes(*db).setzeZuordnung({.schluessel = u"sparbank"_s, .anzeige = u"Sparbank"_s, .ort = orte[0], .anzahl = 1});
    Stapel stapel(*db);
    for (int i = 0; i < 5000; ++i) {
        stapel.naechstes();
        const qint64 ort = GelernteOrte(*db).zaehlen(u"sparbank"_s, orte.at(i % 2), 1, 0);
        QHash<QString, qint64> worte;
        for (const QString &wort : Wortstimmen::worte(text(i)))
            worte.insert(Wortstimmen::gefaltetesWort(wort), 1);
        GelernteOrte(*db).worteZaehlen(ort, worte, 1);
    }
    stapel.abschliessen();
    Modellantwort antwort{.gegenueber = u"Sparbank"_s, .ort = orte[0], .konfidenz = 0.9, .ortQuelle = u"modell"_s};
    antwort.worte = Wortstimmen::worte(text(1));
    QList<double> zeiten;
    for (int i = 0; i < 11; ++i)
        zeiten << Messung::dauer([&] {
            const auto urteil =
                Urteiler(*db, profil).urteilen(antwort, Urteiler::Anlass::Einordnen, [&] { return antwort.worte; });
            if (urteil.ort != orte[1])
                throw std::runtime_error("the texts were not heard");
        });
    std::sort(zeiten.begin(), zeiten.end());
    return zeiten.at(5) * 1000;
}
/** One document whose counterpart is nobody's key, among 100,000 that are; and what reading them all would take. */
Messung::Paar suchdauer()
{
    const QTemporaryDir ordner;
    const auto db = Probe::katalog(ordner.filePath(u"k.db"_s));
    const Profil profil = ablage();
    Stapel stapel(*db);
    for (int i = 0; i < 100'000; ++i) {
        stapel.naechstes();
        Gelerntes(*db).setzeZuordnung({.schluessel = u"werk %1 nord"_s.arg(i),
                                       .anzeige = u"Werk %1 Nord"_s.arg(i),
                                       .ort = {u"Privat"_s, u"Verträge"_s, u"Bank"_s},
                                       .anzahl = i % 7});
    }
    stapel.abschliessen();
    const Modellantwort antwort{.gegenueber = u"Werk 4711 Nord und Bau"_s, .ort = {}, .ortQuelle = u"modell"_s};
    const auto unser = [&] {
        return Messung::dauer([&] {
            if (!Urteiler(*db, profil).urteilen(antwort, Urteiler::Anlass::Einordnen, {}).ortGelernt)
                throw std::runtime_error("the entry was not found");
        });
    };
    return Messung::paarweise(5, unser,
                              [&] { return Messung::dauer([&] { Q_UNUSED(Gelerntes(*db).zuordnungen()); }); });
}
} // namespace

void Reihen::gedaechtnis()
{
    Messung::drucken("judging one among 100,000 counterparts", suchdauer(), 1);
    Messung::drucken("judging one among 5,000 of its counterpart", urteilsdauer(), "ms", 20);
    std::printf("%-72s %7s %7s %7s %7s\n", "needed no correction of the place, of 2,000", "200", "all", "one",
                "several");
    Regelwahl regeln{false, false, false, false, false, false, false};
    drucken("no memory", verlauf(false, regeln, false));
    drucken("the place confirmed last", verlauf(true, regeln, false));
    for (const Schritt &schritt : schritte()) {
        for (const auto regel : schritt.regeln)
            regeln.*regel = true;
        drucken(schritt.was, verlauf(true, regeln, false));
    }
    drucken("beginning with a tree of 1,000", verlauf(true, regeln, true));
}
