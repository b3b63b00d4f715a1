#include "sprachsatz.h"

#include "nachschlagen.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::sprache
{
namespace
{
constexpr auto schluesselName = "_sprache"_L1;

void sammeln(const QString &ordner, bool eigen, QMap<QString, Sprachsatz> &saetze)
{
    if (ordner.isEmpty())
        return;
    // Plain files only: a pipe would be waited for without end.
    for (const QFileInfo &datei : QDir(ordner).entryInfoList(QDir::Files | QDir::Readable, QDir::Name)) {
        const QString stamm = datei.completeBaseName();
        if (datei.suffix().toLower() != "json"_L1 || stamm.isEmpty() || stamm.startsWith(u'_'))
            continue;
        const QString kennung = stamm.toLower();
        const auto texte = spracheLesen(datei.filePath());
        const QString name = texte ? texte->value(schluesselName) : QString();
        saetze[kennung] = {kennung, name.isEmpty() ? kennung.toUpper() : name, eigen, datei.filePath(),
                           texte ? QString() : QUILLMAR_TEXT(u"Die Datei lässt sich nicht lesen"_s)};
    }
}
} // namespace

std::optional<QHash<QString, QString>> spracheAus(const QByteArray &bytes)
{
    const QJsonDocument dokument = QJsonDocument::fromJson(bytes);
    if (!dokument.isObject())
        return std::nullopt;
    QHash<QString, QString> texte;
    const QJsonObject objekt = dokument.object();
    for (auto it = objekt.begin(); it != objekt.end(); ++it) {
        if (!it.value().isString())
            return std::nullopt;
        texte.insert(it.key(), it.value().toString());
    }
    return texte;
}

std::optional<QHash<QString, QString>> spracheLesen(const QString &ort)
{
    QFile datei(ort);
    return datei.open(QIODevice::ReadOnly) ? spracheAus(datei.readAll()) : std::nullopt;
}

QList<Sprachsatz> sprachsaetze(const QString &mitgeliefert, const QString &eigen)
{
    QMap<QString, Sprachsatz> saetze;
    sammeln(mitgeliefert, false, saetze);
    sammeln(eigen, true, saetze);
    QList<Sprachsatz> liste = saetze.values();
    std::stable_sort(liste.begin(), liste.end(), [](const Sprachsatz &a, const Sprachsatz &b) {
        return a.name.compare(b.name, Qt::CaseInsensitive) < 0;
    });
    return liste;
}

QString kennungFuer(const QString &gewaehlt, const QStringList &vorhandene, const QStringList &bevorzugte)
{
    if (!gewaehlt.isEmpty())
        return gewaehlt;
    for (const QString &sprache : bevorzugte) {
        if (QString kennung = sprache.first(std::min<qsizetype>(2, sprache.size())).toLower();
            vorhandene.contains(kennung))
            return kennung;
    }
    return u"de"_s;
}
} // namespace quillmar::sprache
