#include "ausnahmefilter.h"

#include "text.h"

using namespace Qt::StringLiterals;

namespace quillmar::profil
{
namespace
{
constexpr auto nurHier = "./"_L1; // directly in the source folder, and nowhere else

QString ohneRandstriche(const QString &text)
{
    qsizetype von = 0;
    qsizetype bis = text.size();
    while (von < bis && text.at(von) == u'/')
        ++von;
    while (bis > von && text.at(bis - 1) == u'/')
        --bis;
    return text.sliced(von, bis - von);
}
} // namespace

Ausnahmefilter::Ausnahmefilter(const QStringList &ausnahmen)
{
    for (const QString &ausnahme : ausnahmen) {
        const QString roh = nfc(ausnahme.trimmed());
        const QString kern = ohneRandstriche(roh).toLower();
        if (!kern.isEmpty())
            m_regeln << Regel{.roh = roh, .kern = kern, .istPfad = kern.contains(u'/')};
    }
}

std::optional<Ausnahmefilter::Regel> Ausnahmefilter::erste(const QString &ordner, const QString &dateiname) const
{
    if (m_regeln.isEmpty())
        return std::nullopt;
    const QString ordnerSchluessel = u'/' + ohneRandstriche(nfc(ordner)).toLower() + u'/';
    const QString dateiSchluessel = nfc(dateiname).toLower();
    for (const Regel &regel : m_regeln) {
        if (regel.kern.startsWith(nurHier) && ordnerSchluessel.startsWith(QString(regel.kern.mid(1) + u'/')))
            return regel;
        if (ordnerSchluessel.contains(QString(u'/' + regel.kern + u'/')))
            return regel;
        if (!regel.istPfad && dateiSchluessel.contains(regel.kern))
            return regel;
    }
    return std::nullopt;
}
} // namespace quillmar::profil
