#include "einordnung.h"
#include "fehler.h"
#include "ollama.h"
#include "pruefziel.h"

using namespace Qt::StringLiterals;
using namespace quillmar::analyse;

/** Whatever a model says: no place that the profile lacks, no certainty outside 0 to 1, no date of another form. */
void pruefen(const QByteArray &eingabe)
{
    static const Profil profil = [] {
        Profil p;
        p.zweige = {
            {.name = u"Privat"_s, .ablagen = {{.name = u"Jahresablage"_s, .mitJahr = true, .rubriken = {u"Strom"_s}}}}};
        return p;
    }();
    try {
        const Einordnungsergebnis e =
            Einordnung::auswerten(Ollama::objektAus(QString::fromUtf8(eingabe)), u"Scan.pdf"_s, profil);
        verlangen(e.konfidenz >= 0 && e.konfidenz <= 1);
        const auto &[datum, gegenueber, titel, ort, jahr] = e.angaben;
        verlangen(datum.isEmpty() || Einordnung::istDatum(datum));
        verlangen(jahr == datum.first(std::min<qsizetype>(4, datum.size())));
        verlangen(ort.zweig.isEmpty() || profil.zweig(ort.zweig));
        verlangen(ort.ablage.isEmpty() || profil.ablageart(ort.zweig, ort.ablage));
        verlangen(ort.rubrik.isEmpty() || profil.kennt(ort));
    } catch (const Fehler &) {
        // said to the user; that is what it is for
    }
    QString fehler;
    static_cast<void>(Ollama::fortschritt(eingabe, fehler));
}
