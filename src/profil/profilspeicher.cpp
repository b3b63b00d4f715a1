#include "profilspeicher.h"

#include "ganzedatei.h"
#include "nachschlagen.h"
#include "platte.h"
#include "profilformat.h"
#include "programmordner.h"
#include "sperrdatei.h"
#include "text.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::profil
{
namespace
{
template <typename Liste>
auto nachId(Liste &liste, const QUuid &id)
{
    return std::find_if(liste.begin(), liste.end(), [&](const Profil &p) { return p.id == id; });
}

/** A stored profile without an id gets a fresh one at every reading: give it the one that the caller knows it by. */
void wiedererkennen(QList<Profil> &gespeichert, const QList<Profil> &stand)
{
    for (const Profil &bekannt : stand) {
        if (nachId(gespeichert, bekannt.id) != gespeichert.end())
            continue;
        const auto gleich = std::find_if(gespeichert.begin(), gespeichert.end(), [&](Profil p) {
            const bool vergeben = nachId(stand, p.id) != stand.end();
            p.id = bekannt.id;
            return !vergeben && p == bekannt;
        });
        if (gleich != gespeichert.end())
            gleich->id = bekannt.id;
    }
}

/** The three-way merge: @p gespeichert with the changes that lead from @p stand to @p neu. */
QList<Profil> vereint(QList<Profil> gespeichert, const QList<Profil> &stand, const QList<Profil> &neu)
{
    wiedererkennen(gespeichert, stand);
    gespeichert.removeIf(
        [&](const Profil &p) { return nachId(stand, p.id) != stand.end() && nachId(neu, p.id) == neu.end(); });
    for (const Profil &profil : neu) {
        const auto vorher = nachId(stand, profil.id);
        if (vorher != stand.end() && *vorher == profil)
            continue;
        if (const auto alt = nachId(gespeichert, profil.id); alt != gespeichert.end())
            *alt = profil;
        else
            gespeichert << profil;
    }
    return gespeichert;
}

QByteArray inhaltVon(const QString &pfad)
{
    QFile datei(pfad);
    return datei.open(QIODevice::ReadOnly) ? datei.readAll() : QByteArray();
}

/** An earlier copy of the same unreadable list. */
QString gleicheDaneben(const QString &datei)
{
    const QFileInfo angaben(datei);
    const QByteArray inhalt = inhaltVon(datei);
    for (const QFileInfo &kopie :
         angaben.dir().entryInfoList({angaben.fileName() + u" unlesbar *"_s}, QDir::Files, QDir::Time)) {
        if (kopie.size() == angaben.size() && inhaltVon(kopie.filePath()) == inhalt)
            return kopie.filePath();
    }
    return {};
}

/** Keeps an undecodable list under a name of its own; empty when even that fails. */
QString beiseiteLegen(const QString &datei)
{
    // It is met at every start until the list is saved anew.
    if (const QString vorhandene = gleicheDaneben(datei); !vorhandene.isEmpty())
        return vorhandene;
    const QString zeit = QDateTime::currentDateTime().toString(u"yyyy-MM-dd HHmmss"_s);
    for (int n = 1; n < 100; ++n) {
        QString ziel = datei + u" unlesbar "_s + zeit + (n > 1 ? u" (%1)"_s.arg(n) : QString());
        if (QFile::copy(datei, ziel))
            return ziel;
    }
    return {};
}
} // namespace

QString Profilspeicher::ordner() { return programmOrdner(); }

QString Profilspeicher::datei() { return ordner() + u"/profile.json"_s; }

QString Profilspeicher::katalogDatei(const Profil &profil)
{
    return ordner() + u'/' + profil.id.toString(QUuid::WithoutBraces).toUpper() + u".db"_s;
}

QList<Profil> Profilspeicher::laden() { return lesen().profile; }

Profilspeicher::Gefunden Profilspeicher::lesen()
{
    QFile eingabe(datei());
    if (!eingabe.exists())
        return {};
    Platte::anderenVerschliessen(QFile::encodeName(datei()));
    if (eingabe.open(QIODevice::ReadOnly)) {
        if (auto gelesen = Profilformat::auswerten(eingabe.readAll()))
            return {.profile = gelesen->profile, .unlesbar = false, .anmerkungen = gelesen->anmerkungen};
    }
    return {
        .profile = {},
        .unlesbar = true,
        .anmerkungen = {gefuellt(nachgeschlagen(QUILLMAR_TEXT(u"Die Profilliste ist nicht lesbar: %@"_s)), {datei()})}};
}

QString Profilspeicher::unlesbareSichern()
{
    QFile eingabe(datei());
    if (!eingabe.exists() || (eingabe.open(QIODevice::ReadOnly) && Profilformat::lesen(eingabe.readAll())))
        return {};
    const QString kopie = beiseiteLegen(datei());
    return kopie.isEmpty() ? datei() : kopie;
}

Profilspeicher::Gesichert Profilspeicher::sichern(const QList<Profil> &profile, const QList<Profil> &stand)
{
    Gesichert ergebnis{.profile = profile, .gelungen = false, .beiseite = {}};
    const QString ziel = datei();
    const auto sperre = Sperrdatei::nehmen(ziel + u".sperre"_s, 5s);
    if (!sperre)
        return ergebnis;
    std::optional<QList<Profil>> gespeichert;
    if (QFile eingabe(ziel); eingabe.exists()) {
        if (!eingabe.open(QIODevice::ReadOnly))
            return ergebnis;
        gespeichert = Profilformat::lesen(eingabe.readAll());
        if (!gespeichert && (ergebnis.beiseite = beiseiteLegen(ziel)).isEmpty())
            return ergebnis;
    }
    // What the caller knows is all that is left of a list that is gone.
    if (gespeichert)
        ergebnis.profile = vereint(*std::move(gespeichert), stand, profile);
    ergebnis.gelungen = ganzSchreiben(ziel, Profilformat::schreiben(ergebnis.profile));
    return ergebnis;
}
} // namespace quillmar::profil
