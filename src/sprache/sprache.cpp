#include "sprache.h"

#include "einstellungen.h"
#include "ganzedatei.h"
#include "platte.h"
#include "programmordner.h"
#include "stuecke.h"
#include "textkatalog.h"
#include "uebertragung.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <cstdio>
#include <fcntl.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace quillmar::sprache
{
namespace
{
constexpr auto schluesselSprache = "sprache"_L1;
constexpr auto schluesselPlattform = "AppleLanguages"_L1;

void fruehereUebersetzungUebernehmen(const QString &eigenerOrdner)
{
    const QByteArray von = QFile::encodeName(programmOrdner() + "/Texte.json"_L1);
    const QByteArray nach = QFile::encodeName(eigenerOrdner + "/eigene.json"_L1);
    // A failure leaves the earlier file where it is.
    static_cast<void>(::renameat2(AT_FDCWD, von.constData(), AT_FDCWD, nach.constData(), RENAME_NOREPLACE));
}

QByteArray vorlage()
{
    QJsonObject objekt;
    for (const QString &text : Textkatalog::alle())
        objekt.insert(text, QString());
    return QJsonDocument(objekt).toJson(QJsonDocument::Indented);
}

std::optional<QHash<QString, QString>> texteAus(const QString &datei)
{
    auto texte = spracheLesen(datei);
    if (texte)
        ausStueckenErgaenzen(*texte);
    return texte;
}

void vorlageSchreiben(const QString &ort)
{
    const QByteArray inhalt = vorlage();
    // Every start comes here, and forcing a file to disk takes long.
    if (QFile alt(ort); alt.open(QIODevice::ReadOnly) && alt.readAll() == inhalt)
        return;
    constexpr auto fuerAlle = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther;
    Q_UNUSED(ganzSchreiben(ort, inhalt, fuerAlle));
}
} // namespace

// Here, so that no one who looks up texts himself can forget it.
Sprache::Sprache()
{
    setzeNachschlagewerk([](const QString &deutsch) { return text(/* QUILLMAR_TEXT */ deutsch); });
}

Sprache &Sprache::sitzung()
{
    static Sprache einzige;
    return einzige;
}

QString Sprache::text(const QString &deutsch) { return sitzung().nachschlagen(deutsch); }

QString Sprache::text(qint64 zahl, const QString &einzahl, const QString &mehrzahl)
{
    return text(zahl == 1 ? einzahl : mehrzahl);
}

QString Sprache::nachschlagen(const QString &schluessel)
{
    if (m_nurDeutsch)
        return schluessel;
    const QMutexLocker halten(&m_sperre);
    if (!m_geladen)
        laden();
    const QString uebersetzt = m_eintraege.value(schluessel);
    return uebersetzt.isEmpty() ? schluessel : uebersetzt;
}

void Sprache::laden()
{
    // A broken file is not tried again until another language is chosen.
    m_geladen = true;
    if (auto texte = texteAus(wirksameDatei()))
        m_eintraege = std::move(*texte);
}

QString Sprache::wirksameDatei()
{
    const QString kennung = wirksameKennung();
    for (const Sprachsatz &satz : verfuegbare()) {
        if (satz.kennung == kennung)
            return satz.ort;
    }
    return {};
}

QString Sprache::nachgesprochen(const QString &satz)
{
    Sprache &selbst = sitzung();
    const QMutexLocker halten(&selbst.m_sperre);
    if (!selbst.m_geladen)
        selbst.laden();
    return uebertragen(satz, Textkatalog::alle(), selbst.m_vorige, selbst.m_eintraege);
}

bool Sprache::auffrischen()
{
    const auto neue = texteAus(wirksameDatei());
    Sprache &selbst = sitzung();
    const QMutexLocker halten(&selbst.m_sperre);
    if (!neue || !selbst.m_geladen || *neue == selbst.m_eintraege)
        return false;
    selbst.m_vorige = std::exchange(selbst.m_eintraege, *neue);
    return true;
}

void Sprache::verwerfen()
{
    const QMutexLocker halten(&m_sperre);
    if (m_geladen)
        m_vorige = std::exchange(m_eintraege, {});
    m_geladen = false;
}

QList<Sprachsatz> Sprache::verfuegbare() { return sprachsaetze(mitgelieferterOrdner(), eigenerOrdner()); }

QString Sprache::gewaehlteKennung() { return Einstellungen::wert(schluesselSprache).toString(); }

void Sprache::setzeGewaehlteKennung(const QString &kennung)
{
    Einstellungen::setzen(schluesselSprache, kennung);
    if (kennung.isEmpty())
        Einstellungen::entfernen(schluesselPlattform);
    else
        Einstellungen::setzen(schluesselPlattform, QStringList{kennung});
    sitzung().verwerfen();
}

QString Sprache::wirksameKennung()
{
    if (QString gewaehlt = gewaehlteKennung(); !gewaehlt.isEmpty())
        return gewaehlt;
    QStringList vorhandene;
    for (const Sprachsatz &satz : verfuegbare()) {
        if (satz.mangel.isEmpty())
            vorhandene << satz.kennung;
    }
    return kennungFuer({}, vorhandene, QLocale::system().uiLanguages());
}

void Sprache::vorbereiten()
{
    Q_UNUSED(sitzung()); // whatever fails from now on is told in the chosen language
    const QString ordner = eigenerOrdner();
    fruehereUebersetzungUebernehmen(ordner);
    vorlageSchreiben(ordner + "/_Vorlage.json"_L1);
    Platte::anderenVerschliessen(QFile::encodeName(ordner));
    for (const QString &datei : QDir(ordner).entryList({u"*.json"_s}, QDir::Files | QDir::NoSymLinks))
        Platte::anderenVerschliessen(QFile::encodeName(ordner + u'/' + datei));
}

void Sprache::nurDeutsch() { sitzung().m_nurDeutsch = true; }

QString Sprache::mitgelieferterOrdner()
{
    // Beside an installed program (bin, share) as well as above one in the build folder; needs no application object.
    QDir ordner(QFileInfo(QFile::symLinkTarget(u"/proc/self/exe"_s)).path());
    for (int stufe = 0; stufe <= 4; ++stufe) {
        if (QString ort = ordner.filePath(u"share/quillmar/Sprachen"_s); QFileInfo(ort).isDir())
            return ort;
        if (!ordner.cdUp())
            break;
    }
    return {};
}

QString Sprache::eigenerOrdner()
{
    QString ordner = programmOrdner() + "/Sprachen"_L1;
    QDir().mkpath(ordner);
    return ordner;
}
} // namespace quillmar::sprache
