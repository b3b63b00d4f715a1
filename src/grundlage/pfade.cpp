#include "pfade.h"

#include "text.h"

#include <QFile>
#include <QStringDecoder>
#include <algorithm>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace
{
bool gibtEs(const QByteArray &pfad)
{
    struct stat s = {};
    return ::lstat(pfad.constData(), &s) == 0;
}

/** Another spelling of @p name in the folder @p ordner (ends in "/"); empty if no entry has that NFC form. */
QByteArray schreibweise(const QByteArray &ordner, const QString &name)
{
    if (!std::any_of(name.begin(), name.end(), [](QChar c) { return c.unicode() >= 0x80; }))
        return {};
    for (const auto form : {QString::NormalizationForm_C, QString::NormalizationForm_D}) {
        QByteArray bytes = name.normalized(form).toUtf8();
        if (gibtEs(ordner + bytes))
            return bytes;
    }
    // Mixed spellings are rare enough for a look at every entry.
    const QString gesucht = nfc(name);
    QByteArray treffer;
    ordnerLesen(ordner, [&](int, const Ordnereintrag &e) {
        if (treffer.isEmpty() && nameVonPlatte(e.name) == gesucht)
            treffer = e.name;
    });
    return treffer;
}

/** @p pfad in the spelling of the disk, as far as it exists; @p vorhanden when all of it does. */
QByteArray aufgeloest(const QString &pfad, bool &vorhanden)
{
    QByteArray direkt = pfad.toUtf8();
    while (direkt.size() > 1 && direkt.endsWith('/'))
        direkt.chop(1);
    vorhanden = !direkt.isEmpty() && gibtEs(direkt);
    if (vorhanden || direkt.lastIndexOf('/') < 0 || direkt == "/")
        return direkt;
    const QString ganz = QString::fromUtf8(direkt);
    const QString name = nameVon(ganz);
    QByteArray ordner = aufgeloest(ordnerVon(ganz), vorhanden);
    if (!ordner.endsWith('/'))
        ordner += '/';
    const bool ordnerDa = vorhanden;
    vorhanden = ordnerDa && !direkt.startsWith(ordner) && gibtEs(ordner + name.toUtf8());
    const QByteArray andere = ordnerDa && !vorhanden ? schreibweise(ordner, name) : QByteArray();
    vorhanden = vorhanden || !andere.isEmpty();
    return ordner + (andere.isEmpty() ? name.toUtf8() : andere);
}

Eintragsart artAusStat(int griff, const char *name)
{
    struct stat s = {};
    if (::fstatat(griff, name, &s, AT_SYMLINK_NOFOLLOW) != 0)
        return Eintragsart::Anderes;
    if (S_ISREG(s.st_mode))
        return Eintragsart::Datei;
    if (S_ISDIR(s.st_mode))
        return Eintragsart::Ordner;
    return S_ISLNK(s.st_mode) ? Eintragsart::Verweis : Eintragsart::Anderes;
}

Eintragsart artVon(int griff, const dirent &eintrag)
{
    switch (eintrag.d_type) {
    case DT_REG:
        return Eintragsart::Datei;
    case DT_DIR:
        return Eintragsart::Ordner;
    case DT_LNK:
        return Eintragsart::Verweis;
    case DT_UNKNOWN:
        return artAusStat(griff, eintrag.d_name);
    default:
        return Eintragsart::Anderes;
    }
}

struct OrdnerSchliesser {
    void operator()(DIR *d) const noexcept { ::closedir(d); }
};
} // namespace

QByteArray plattenPfad(const QString &pfad)
{
    bool vorhanden = false;
    return aufgeloest(pfad, vorhanden);
}

QByteArray aufDerPlatte(const QString &pfad)
{
    bool vorhanden = false;
    QByteArray bytes = pfad.startsWith(u'/') ? aufgeloest(pfad, vorhanden) : QByteArray();
    return vorhanden ? bytes : QByteArray();
}

bool istVorhanden(const QString &pfad) { return !aufDerPlatte(pfad).isEmpty(); }

bool istOrdner(const QString &pfad)
{
    struct stat s = {};
    const QByteArray bytes = aufDerPlatte(pfad);
    return !bytes.isEmpty() && ::stat(bytes.constData(), &s) == 0 && S_ISDIR(s.st_mode);
}

bool ordnerLesen(const QByteArray &ordner, const std::function<void(int, const Ordnereintrag &)> &besuch)
{
    const std::unique_ptr<DIR, OrdnerSchliesser> offen(::opendir(ordner.constData()));
    if (!offen)
        return false;
    const int griff = ::dirfd(offen.get());
    while (const dirent *e = ::readdir(offen.get())) {
        const QByteArrayView name(e->d_name);
        if (name != "." && name != "..")
            besuch(griff, {name.toByteArray(), artVon(griff, *e)});
    }
    return true;
}

QString nameVonPlatte(const QByteArray &name)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(name);
    return decoder.hasError() ? QString() : nfc(text);
}

QStringList unterordner(const QString &ordner)
{
    QStringList namen;
    ordnerLesen(plattenPfad(ordner), [&](int, const Ordnereintrag &e) {
        if (e.art != Eintragsart::Ordner || e.name.startsWith('.'))
            return;
        if (const QString name = nameVonPlatte(e.name); !name.isNull())
            namen << name;
    });
    namen.sort();
    namen.removeDuplicates();
    return namen;
}

QString ordnerVon(const QString &pfad)
{
    const qsizetype strich = pfad.lastIndexOf(u'/');
    return strich <= 0 ? u"/"_s : pfad.first(strich);
}

QString nameVon(const QString &pfad) { return pfad.mid(pfad.lastIndexOf(u'/') + 1); }
