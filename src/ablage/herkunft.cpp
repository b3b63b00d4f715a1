#include "herkunft.h"

#include "datenbank.h"
#include "pfade.h"
#include "text.h"

#include <QDir>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
bool hatPdfIn(const QByteArray &ordner, bool mitUnterordnern)
{
    bool gefunden = false;
    QList<QByteArray> tiefer;
    ordnerLesen(ordner, [&](int, const Ordnereintrag &e) {
        if (e.name.startsWith('.'))
            return;
        if (e.art == Eintragsart::Ordner)
            tiefer << e.name;
        else
            gefunden = gefunden || e.name.toLower().endsWith(".pdf");
    });
    return gefunden || (mitUnterordnern && std::any_of(tiefer.cbegin(), tiefer.cend(), [&](const QByteArray &name) {
                            return hatPdfIn(ordner + '/' + name, true);
                        }));
}
} // namespace

bool Herkunft::hatPdf(const QString &ordner, bool mitUnterordnern)
{
    return hatPdfIn(plattenPfad(QDir::cleanPath(ordner)), mitUnterordnern);
}

bool Herkunft::istLeererEinhaengepunkt(Datenbank &db, const Profil &profil, qsizetype mindestens)
{
    const QString davor = QDir::cleanPath(nfc(profil.quelle)) + u'/';
    const QList<Zeile> offene = db.abfragen(
        u"SELECT pfad FROM dokumente WHERE status IN ('neu','laeuft','bereit','zurueckgestellt','dublette')\n"
        "AND substr(pfad,1,length(?))=?"_s,
        {davor, davor});
    if (offene.isEmpty() || offene.size() < mindestens)
        return false;
    const bool eineDa =
        std::any_of(offene.begin(), offene.end(), [](const Zeile &z) { return istVorhanden(z.text(u"pfad")); });
    return !eineDa && !hatPdf(profil.quelle, profil.mitUnterordnern);
}

bool Herkunft::istUnerreichbarFuer(Datenbank &db, const Profil &profil, const QString &pfad)
{
    // A single document that is gone from an otherwise empty folder has been taken away by hand.
    constexpr qsizetype mehrAlsEines = 2;
    return liegtUnter(pfad, profil.quelle) &&
           (!istOrdner(QDir::cleanPath(profil.quelle)) || istLeererEinhaengepunkt(db, profil, mehrAlsEines));
}
