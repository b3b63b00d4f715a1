#include "herkunft.h"

#include "bewegungen.h"
#include "dateien.h"
#include "pfade.h"
#include "text.h"

#include <QDir>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::ablage
{
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

QString wurzel(const Profil &profil) { return QDir::cleanPath(nfc(profil.quelle)); }
} // namespace

bool Herkunft::hatPdf(const QString &ordner, bool mitUnterordnern)
{
    return hatPdfIn(plattenPfad(QDir::cleanPath(ordner)), mitUnterordnern);
}

bool Herkunft::istLeererEinhaengepunkt(Datenbank &db, const Profil &profil, qsizetype mindestens)
{
    const QString davor = wurzel(profil) + u'/';
    const QStringList offene = Dateien(db).offeneUnter(davor);
    if (offene.isEmpty() || offene.size() < mindestens)
        return false;
    const bool eineDa = std::any_of(offene.begin(), offene.end(), istVorhanden);
    return !eineDa && !hatPdf(profil.quelle, profil.mitUnterordnern);
}

void Herkunft::merken(Datenbank &db, const Profil &profil)
{
    if (const auto kennung = kennungVon(wurzel(profil)))
        Bewegungen(db).herkunftMerken(wurzel(profil), qint64(kennung->nummer));
}

bool Herkunft::istFremderLeererOrdner(Datenbank &db, const Profil &profil)
{
    // Device numbers change from one start of the computer to the next, so only the folder's own is compared.
    const auto gemerkt = Bewegungen(db).herkunft(wurzel(profil));
    const auto kennung = kennungVon(wurzel(profil));
    return gemerkt && kennung && *gemerkt != qint64(kennung->nummer) && !hatPdf(profil.quelle, profil.mitUnterordnern);
}

bool Herkunft::istFuerRueckkehrGesperrt(Datenbank &db, const Profil &profil)
{
    // Where it is known which folder it is, one that the user has emptied himself is no reason.
    const bool bekannt = Bewegungen(db).herkunft(wurzel(profil)).has_value();
    return bekannt ? istFremderLeererOrdner(db, profil) : istLeererEinhaengepunkt(db, profil);
}

bool Herkunft::istUnerreichbarFuer(Datenbank &db, const Profil &profil, const QString &pfad)
{
    // A single document that is gone from an otherwise empty folder has been taken away by hand.
    constexpr qsizetype mehrAlsEines = 2;
    return liegtUnter(pfad, profil.quelle) && (!istOrdner(wurzel(profil)) || istFremderLeererOrdner(db, profil) ||
                                               istLeererEinhaengepunkt(db, profil, mehrAlsEines));
}
} // namespace quillmar::ablage
