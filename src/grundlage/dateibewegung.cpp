#include "dateibewegung.h"

#include "dateikopie.h"
#include "pfade.h"
#include "platte.h"
#include "plattenfehler.h"
#include "sha256.h"
#include "text.h"

#include <QDir>
#include <QTextBoundaryFinder>
#include <cerrno>
#include <fcntl.h>

using namespace Qt::StringLiterals;

namespace quillmar::grundlage
{
namespace
{
constexpr qsizetype hoechstensBytes = 255;

QString nichtBewegt() { return QUILLMAR_TEXT(u"Die Datei ließ sich nicht bewegen"_s); }

/** The source has gone and the target is safe: if this does not last, the source comes back, and nothing is lost. */
void gegangenesSichern(const QByteArray &pfad)
{
    try {
        Platte::ordnerSichern(pfad);
    } catch (const Fehler &) {
        // Failing now would undo a movement that is done.
    }
}

/** One movement on its way; see Dateibewegung::ausfuehren(). */
class Vorgang
{
public:
    Vorgang(const Dateibewegung::Auftrag &auftrag, const Dateibewegung::Ankuendigung &ankuendigung)
        : m_auftrag(auftrag), m_ankuendigung(ankuendigung), m_quelle(aufDerPlatte(auftrag.von, m_vorher)),
          m_ordner(plattenPfad(auftrag.ordner) + '/')
    {
        if (m_quelle.isEmpty())
            throw Plattenfehler(QUILLMAR_TEXT(u"Die Datei liegt nicht mehr am erwarteten Ort"_s));
        if (!S_ISREG(m_vorher.st_mode) || (auftrag.erwartet && !istErwartete(*auftrag.erwartet)))
            throw Plattenfehler(QUILLMAR_TEXT(u"An der Stelle der Datei liegt jetzt etwas anderes"_s));
    }

    QString ausfuehren()
    {
        struct stat ziel = {};
        const bool selberDatentraeger = ::stat(m_ordner.constData(), &ziel) == 0 && ziel.st_dev == m_vorher.st_dev;
        // Bind mounts share a device number and yet refuse a rename, hence the second way out.
        if (m_auftrag.art == Dateibewegung::Art::Verschieben && selberDatentraeger) {
            if (const QString nach = umbenennen(m_quelle, {}); !nach.isNull())
                return nach;
        }
        const QByteArray belegt = aufDerPlatte(pfadFuer(1), ziel);
        if (istQuelle(belegt, ziel))
            return bleiben();
        if (!belegt.isEmpty() && m_auftrag.nameArt == Dateibewegung::Name::Genau)
            nameBelegt();
        return ueberKopie();
    }

private:
    [[nodiscard]] bool istErwartete(const Dateibewegung::Schritt &angaben) const
    {
        return angaben.groesse == qint64(m_vorher.st_size) && angaben.zeit == Platte::zeitVon(m_vorher);
    }

    /** The bytes that the name gets on disk. */
    [[nodiscard]] QByteArray plattenname(const QString &nach) const
    {
        return m_auftrag.plattenname.isEmpty() ? nameVon(nach).toUtf8() : m_auftrag.plattenname;
    }

    /** Gives @p von the wanted name or the next free one; null when that is on another file system. */
    QString umbenennen(const QByteArray &von, const QString &temporaer)
    {
        for (int n = 1;; ++n) {
            const QString nach = pfadFuer(n);
            struct stat s = {};
            // Whoever wants just this name has looked whether it is free; the renaming does it again.
            const bool genau = m_auftrag.nameArt == Dateibewegung::Name::Genau;
            const QByteArray belegt = genau ? QByteArray() : aufDerPlatte(nach, s);
            if (istQuelle(belegt, s))
                return bleiben();
            const int fehler = belegt.isEmpty() ? angekuendigtVersuchen(von, nach, temporaer) : EEXIST;
            if (fehler == 0)
                return nach;
            if (fehler == EXDEV)
                return {};
            if (genau)
                nameBelegt();
        }
    }

    /** Announces and renames. Returns 0, EXDEV or EEXIST; throws on every other error. */
    int angekuendigtVersuchen(const QByteArray &von, const QString &nach, const QString &temporaer)
    {
        ankuendigen(nach, temporaer);
        const int fehler = versuchen(von, m_ordner + plattenname(nach));
        if (fehler != 0 && fehler != EXDEV && fehler != EEXIST)
            Platte::scheitern(nichtBewegt(), fehler);
        return fehler;
    }

    [[noreturn]] static void nameBelegt()
    {
        throw Plattenfehler(QUILLMAR_TEXT(u"Am Zielort liegt schon eine andere Datei"_s));
    }

    int versuchen(const QByteArray &von, const QByteArray &nach)
    {
        const int fehler = Platte::umbenennen(von, nach);
        if (fehler != 0)
            return fehler;
        try {
            // A copy must last before its source may go, so its folder is never left for later.
            const bool spaeter = m_auftrag.spaeterSichern && von == m_quelle;
            sichern(nach, spaeter);
            if (Platte::ordnerTeil(von) != Platte::ordnerTeil(nach))
                sichern(von, spaeter);
        } catch (const Fehler &) {
            // Not sure to last, so not done: back, as if nothing had been.
            Q_UNUSED(Platte::umbenennen(nach, von));
            throw;
        }
        return 0;
    }

    void sichern(const QByteArray &pfad, bool spaeter)
    {
        if (spaeter)
            m_auftrag.spaeterSichern->insert(Platte::ordnerTeil(pfad));
        else
            Platte::ordnerSichern(pfad);
    }

    void ankuendigen(const QString &nach, const QString &temporaer)
    {
        m_ankuendigung({.nach = nach,
                        .temporaer = temporaer,
                        .groesse = qint64(m_vorher.st_size),
                        .zeit = Platte::zeitVon(m_vorher)});
    }

    /** Full path of the wanted name with the counter @p n. */
    [[nodiscard]] QString pfadFuer(int n) const
    {
        const QString name = n == 1 ? m_auftrag.name : Dateibewegung::nummeriert(m_auftrag.name, n);
        return QDir::cleanPath(m_auftrag.ordner + u'/' + name);
    }

    /** What lies at @p platte (empty: nothing) is the file itself. */
    [[nodiscard]] bool istQuelle(const QByteArray &platte, const struct stat &s) const
    {
        return platte == m_quelle ||
               (!platte.isEmpty() && s.st_nlink == 1 && s.st_dev == m_vorher.st_dev && s.st_ino == m_vorher.st_ino);
    }

    QString bleiben()
    {
        ankuendigen(m_auftrag.von, {});
        return m_auftrag.von;
    }

    QString ueberKopie()
    {
        const bool verschieben = m_auftrag.art == Dateibewegung::Art::Verschieben;
        // Found out before, not after a long copy.
        if (verschieben && ::access(Platte::ordnerTeil(m_quelle).constData(), W_OK) != 0)
            Platte::scheitern(nichtBewegt(), errno);
        Dateikopie kopie(m_quelle, m_vorher, m_ordner);
        const QString temporaer = QDir::cleanPath(m_auftrag.ordner + u'/' + kopie.name());
        // Its final name is announced once it is seen to be free.
        ankuendigen(temporaer, temporaer);
        kopie.anlegen();
        const QString nach = umbenennen(kopie.pfad(), temporaer);
        if (nach == m_auftrag.von)
            return nach; // lies right under a numbered name; the copy goes with its object
        kopie.behalten();
        if (verschieben)
            quelleLoesen(nach);
        return nach;
    }

    void quelleLoesen(const QString &nach)
    {
        struct stat jetzt = {};
        // Whoever has changed, replaced or removed it since: what lies there now is not what was moved, and the copy
        // may be all that is left of that.
        if (!Platte::angaben(m_quelle, jetzt) || !Platte::unveraendert(m_vorher, jetzt))
            return;
        if (::unlink(m_quelle.constData()) == 0)
            return gegangenesSichern(m_quelle);
        const int fehler = errno;
        // The source stays, so the copy must not.
        ::unlink(aufDerPlatte(nach).constData());
        Platte::scheitern(nichtBewegt(), fehler);
    }

    const Dateibewegung::Auftrag &m_auftrag;
    const Dateibewegung::Ankuendigung &m_ankuendigung;
    struct stat m_vorher = {}; // filled while the next one is found
    QByteArray m_quelle;
    QByteArray m_ordner;
};
} // namespace

QString Dateibewegung::ausfuehren(const Auftrag &auftrag, const Ankuendigung &ankuendigung)
{
    return Vorgang(auftrag, ankuendigung).ausfuehren();
}

QString Dateibewegung::nummeriert(const QString &name, int n, qsizetype reserve)
{
    const QString zusatz = n == 1 ? QString() : u" (%1)"_s.arg(n);
    const qsizetype punkt = name.lastIndexOf(u'.');
    const QString stamm = punkt <= 0 ? name : name.first(punkt);
    const QString rest = zusatz + name.mid(stamm.size());
    const qsizetype platz = hoechstensBytes - reserve - rest.toUtf8().size();
    if (stamm.toUtf8().size() <= platz)
        return stamm + rest;
    QTextBoundaryFinder grenzen(QTextBoundaryFinder::Grapheme, stamm);
    grenzen.toEnd();
    qsizetype ende = stamm.size();
    while (ende > 0 && stamm.first(ende).toUtf8().size() > platz)
        ende = grenzen.toPreviousBoundary();
    return stamm.first(std::max<qsizetype>(ende, 0)).trimmed() + rest;
}

void Dateibewegung::ordnerAnlegen(const QString &ordner, const QString &wurzel)
{
    const QString unten = QDir::cleanPath(nfc(ordner));
    const QString oben = QDir::cleanPath(nfc(wurzel));
    if (!istOrdner(oben))
        throw Plattenfehler(QUILLMAR_TEXT(u"Der Ordner ist nicht erreichbar. Ist der Datenträger eingehängt?"_s));
    if (istOrdner(unten))
        return;
    QByteArray platte = plattenPfad(oben);
    QString bisher = oben;
    for (const QString &teil : QDir(oben).relativeFilePath(unten).split(u'/', Qt::SkipEmptyParts)) {
        bisher += u'/' + teil;
        platte = plattenPfad(bisher);
        if (::mkdir(platte.constData(), 0777) == 0)
            Platte::ordnerSichern(platte);
        else if (errno != EEXIST || !istOrdner(bisher))
            Platte::scheitern(QUILLMAR_TEXT(u"Der Ordner ließ sich nicht anlegen"_s), errno);
    }
}

bool Dateibewegung::istDieselbe(const QString &pfad, qint64 groesse, qint64 zeit)
{
    struct stat s = {};
    constexpr quint64 groebsteUhr = 2000000000; // file systems that keep times to two seconds
    if (aufDerPlatte(pfad, s).isEmpty() || !S_ISREG(s.st_mode) || s.st_size != groesse)
        return false;
    const auto [frueher, spaeter] = std::minmax({Platte::zeitVon(s), zeit});
    return quint64(spaeter) - quint64(frueher) <= groebsteUhr; // which times centuries apart do not overflow
}

bool Dateibewegung::istLeer(const QString &pfad)
{
    struct stat s = {};
    return !aufDerPlatte(pfad, s).isEmpty() && S_ISREG(s.st_mode) && s.st_size == 0;
}

std::optional<Dateibewegung::Schritt> Dateibewegung::angabenVon(const QString &pfad)
{
    struct stat s = {};
    if (aufDerPlatte(pfad, s).isEmpty() || !S_ISREG(s.st_mode))
        return std::nullopt;
    return Schritt{.nach = {}, .temporaer = {}, .groesse = qint64(s.st_size), .zeit = Platte::zeitVon(s)};
}

void Dateibewegung::ordnerSichern(const QSet<QByteArray> &ordner)
{
    for (const QByteArray &einer : ordner)
        Platte::ordnerSichern(einer);
}

bool Dateibewegung::istGleich(const QString &a, const QString &b)
{
    struct stat sa = {};
    struct stat sb = {};
    const QByteArray platteA = aufDerPlatte(a, sa);
    const QByteArray platteB = aufDerPlatte(b, sb);
    if (platteA.isEmpty() || platteB.isEmpty() || sa.st_size != sb.st_size)
        return false;
    const QString summe = sha256Datei(platteA);
    return !summe.isNull() && summe == sha256Datei(platteB);
}

bool Dateibewegung::istDerselbeEintrag(const QString &a, const QString &b)
{
    struct stat sa = {};
    struct stat sb = {};
    const QByteArray platteA = aufDerPlatte(a, sa);
    const QByteArray platteB = aufDerPlatte(b, sb);
    if (platteA.isEmpty() || platteB.isEmpty() || sa.st_dev != sb.st_dev || sa.st_ino != sb.st_ino)
        return platteA.isEmpty() && nfc(a) == nfc(b);
    // Two hard links may share a folder, but not a name in it.
    const auto name = [](const QByteArray &platte) { return platte.mid(platte.lastIndexOf('/') + 1); };
    return sa.st_nlink == 1 || (name(platteA) == name(platteB) && kennungVon(ordnerVon(a)) == kennungVon(ordnerVon(b)));
}

QByteArray Dateibewegung::andererPlattenname(const QString &pfad)
{
    const QByteArray platte = aufDerPlatte(pfad);
    const QByteArray name = platte.mid(platte.lastIndexOf('/') + 1);
    return name == nameVon(pfad).toUtf8() ? QByteArray() : name;
}

bool Dateibewegung::sindZweiNamen(const QString &a, const QString &b)
{
    struct stat sa = {};
    struct stat sb = {};
    return !aufDerPlatte(a, sa).isEmpty() && !aufDerPlatte(b, sb).isEmpty() && sa.st_dev == sb.st_dev &&
           sa.st_ino == sb.st_ino && sa.st_nlink > 1;
}

void Dateibewegung::temporaeresEntfernen(const QString &pfad)
{
    if (Dateikopie::istEigenerName(nameVon(pfad)))
        ::unlink(plattenPfad(pfad).constData());
}

void Dateibewegung::quelleEntfernen(const QString &pfad)
{
    const QByteArray platte = aufDerPlatte(pfad);
    if (platte.isEmpty())
        return;
    if (::unlink(platte.constData()) != 0)
        Platte::scheitern(nichtBewegt(), errno);
    gegangenesSichern(platte);
}
} // namespace quillmar::grundlage
