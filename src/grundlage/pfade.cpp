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

/** The spelling of @p name in the folder @p ordner (ends in "/"); empty if no entry has that NFC form. */
QByteArray schreibweise(const QByteArray &ordner, const QString &name)
{
    for (const auto form : {QString::NormalizationForm_C, QString::NormalizationForm_D}) {
        QByteArray bytes = name.normalized(form).toUtf8();
        if (gibtEs(ordner + bytes))
            return bytes;
    }
    // Mixed spellings are rare enough for a look at every entry.
    if (!std::any_of(name.begin(), name.end(), [](QChar c) { return c.unicode() >= 0x80; }))
        return {};
    const QString gesucht = nfc(name);
    QByteArray treffer;
    ordnerLesen(ordner, [&](int, const Ordnereintrag &e) {
        if (treffer.isEmpty() && nameVonPlatte(e.name) == gesucht)
            treffer = e.name;
    });
    return treffer;
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
    QByteArray direkt = pfad.toUtf8();
    if (gibtEs(direkt))
        return direkt;
    QByteArray bisher = "/";
    bool fehlt = false;
    for (const QString &teil : pfad.split(u'/', Qt::SkipEmptyParts)) {
        const QByteArray name = fehlt ? QByteArray() : schreibweise(bisher, teil);
        fehlt = fehlt || name.isEmpty();
        bisher += (name.isEmpty() ? teil.toUtf8() : name) + '/';
    }
    if (bisher.size() > 1)
        bisher.chop(1);
    return bisher;
}

QByteArray aufDerPlatte(const QString &pfad)
{
    QByteArray bytes = pfad.startsWith(u'/') ? plattenPfad(pfad) : QByteArray();
    return !bytes.isEmpty() && gibtEs(bytes) ? bytes : QByteArray();
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
