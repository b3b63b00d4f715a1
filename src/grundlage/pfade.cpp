#include "pfade.h"

#include "text.h"

#include <QDir>
#include <QFile>
#include <QStringDecoder>
#include <algorithm>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace quillmar::grundlage
{
namespace
{
constexpr qsizetype hoechstensMischungen = 6;

bool gibtEs(const QByteArray &pfad, struct stat &s) { return ::lstat(pfad.constData(), &s) == 0; }

bool istAscii(const QString &text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
}

bool istZerlegbar(QChar c) { return c.decompositionTag() == QChar::Canonical; }

/** Letters with one mark and the usual punctuation: written whole or as letter and mark, and in no third way. */
bool istEinfach(QChar c)
{
    constexpr char16_t auchAlsEinheit = 0xc5; // Å is also the sign of the ångström
    const char16_t u = c.unicode();
    return u < 0x80 || (u < 0x180 && u != auchAlsEinheit) || (u >= 0x2010 && u < 0x20d0);
}

/** All spellings of the NFC @p name; none when there are too many to be tried one by one. */
QStringList schreibweisen(const QString &name)
{
    if (!std::all_of(name.begin(), name.end(), istEinfach) ||
        std::count_if(name.begin(), name.end(), istZerlegbar) > hoechstensMischungen)
        return {};
    QStringList alle{QString()};
    for (const QChar c : name) {
        const qsizetype bisher = alle.size();
        for (qsizetype i = 0; i < bisher; ++i) {
            if (istZerlegbar(c))
                alle << alle.at(i) + c.decomposition();
            alle[i] += c;
        }
    }
    return alle;
}

/** The entry of the folder @p ordner (ends in "/") whose NFC form is @p name, found by looking at every entry. */
QByteArray inDerListe(const QByteArray &ordner, const QString &name)
{
    QByteArray treffer;
    ordnerLesen(ordner, [&](int, const Ordnereintrag &e) {
        if (treffer.isEmpty() && nameVonPlatte(e.name) == name)
            treffer = e.name;
    });
    return treffer;
}

/** Another spelling of @p name in the folder @p ordner (ends in "/"); empty if no other entry has that NFC form. */
QByteArray schreibweise(const QByteArray &ordner, const QString &name, struct stat &s)
{
    if (istAscii(name))
        return {};
    const QString gesucht = nfc(name);
    const QStringList moegliche = schreibweisen(gesucht);
    for (const QString &eine : moegliche) {
        QByteArray bytes = eine.toUtf8();
        if (eine != name && gibtEs(ordner + bytes, s))
            return bytes;
    }
    const QByteArray treffer = moegliche.isEmpty() ? inDerListe(ordner, gesucht) : QByteArray();
    return !treffer.isEmpty() && gibtEs(ordner + treffer, s) ? treffer : QByteArray();
}

QByteArray ohneSchraegstrich(QByteArray pfad)
{
    while (pfad.size() > 1 && pfad.endsWith('/'))
        pfad.chop(1);
    return pfad;
}

/** @p pfad in the spelling of the disk, as far as it exists; @p vorhanden when all of it does. */
QByteArray aufgeloest(const QString &pfad, bool &vorhanden, struct stat &s)
{
    const QByteArray direkt = ohneSchraegstrich(pfad.toUtf8());
    vorhanden = !direkt.isEmpty() && gibtEs(direkt, s);
    if (vorhanden || direkt.lastIndexOf('/') < 0 || direkt == "/" || istAscii(pfad))
        return direkt;
    const QString ganz = QString::fromUtf8(direkt);
    const QString name = nameVon(ganz);
    QByteArray ordner = aufgeloest(ordnerVon(ganz), vorhanden, s);
    if (!ordner.endsWith('/'))
        ordner += '/';
    const bool ordnerDa = vorhanden;
    vorhanden = ordnerDa && !direkt.startsWith(ordner) && gibtEs(ordner + name.toUtf8(), s);
    const QByteArray andere = ordnerDa && !vorhanden ? schreibweise(ordner, name, s) : QByteArray();
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
    if (istAscii(pfad)) // has only one spelling
        return ohneSchraegstrich(pfad.toLatin1());
    bool vorhanden = false;
    struct stat s = {};
    return aufgeloest(pfad, vorhanden, s);
}

QByteArray aufDerPlatte(const QString &pfad)
{
    struct stat s = {};
    return aufDerPlatte(pfad, s);
}

QByteArray aufDerPlatte(const QString &pfad, struct stat &angaben)
{
    bool vorhanden = false;
    QByteArray bytes = pfad.startsWith(u'/') ? aufgeloest(pfad, vorhanden, angaben) : QByteArray();
    return vorhanden ? bytes : QByteArray();
}

bool istVorhanden(const QString &pfad) { return !aufDerPlatte(pfad).isEmpty(); }

bool istOrdner(const QString &pfad)
{
    struct stat s = {};
    const QByteArray bytes = aufDerPlatte(pfad, s);
    if (bytes.isEmpty())
        return false;
    return S_ISDIR(s.st_mode) || (S_ISLNK(s.st_mode) && ::stat(bytes.constData(), &s) == 0 && S_ISDIR(s.st_mode));
}

bool liegtUnter(const QString &pfad, const QString &ordner)
{
    if (ordner.isEmpty())
        return false;
    const QString oben = QDir::cleanPath(nfc(ordner));
    return nfc(pfad).startsWith(oben == u"/"_s ? oben : oben + u'/');
}

std::optional<Kennung> kennungVon(const QString &pfad)
{
    struct stat s = {};
    const QByteArray bytes = aufDerPlatte(pfad);
    if (bytes.isEmpty() || ::stat(bytes.constData(), &s) != 0)
        return std::nullopt;
    return Kennung{.geraet = quint64(s.st_dev), .nummer = quint64(s.st_ino)};
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

QString vorhandenerOrdner(const QString &pfad)
{
    QString ordner = pfad.isEmpty() ? QDir::homePath() : QDir::cleanPath(pfad);
    while (!QFileInfo(ordner).isDir() && ordner != QFileInfo(ordner).path())
        ordner = QFileInfo(ordner).path();
    return ordner;
}

QString kurzpfad(const QString &pfad)
{
    const QString heim = QDir::homePath();
    return pfad == heim || pfad.startsWith(heim + u'/') ? u'~' + pfad.mid(heim.size()) : pfad;
}

QString langpfad(const QString &pfad)
{
    return pfad == "~"_L1 || pfad.startsWith("~/"_L1) ? QDir::homePath() + pfad.mid(1) : pfad;
}
} // namespace quillmar::grundlage
