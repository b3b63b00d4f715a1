#include "pruefziel.h"
#include "sprachsatz.h"
#include "stuecke.h"
#include "text.h"
#include "uebertragung.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;
using namespace quillmar::sprache;

namespace
{
using Texte = QHash<QString, QString>;

QByteArray alsDatei(const Texte &texte)
{
    QJsonObject objekt;
    for (auto text = texte.begin(); text != texte.end(); ++text)
        objekt.insert(text.key(), text.value());
    return QJsonDocument(objekt).toJson();
}
} // namespace

/**
 * A sentence (the first line) and a language file (the rest) of any bytes: what is read is read the same after saving,
 * texts are filled whatever places they have, and a sentence stays as it is in its own language.
 */
void pruefen(const QByteArray &eingabe)
{
    const qsizetype ende = eingabe.indexOf('\n');
    const QString satz = QString::fromUtf8(eingabe.first(std::max<qsizetype>(ende, 0)));
    auto texte = spracheAus(eingabe.mid(ende + 1));
    if (!texte)
        return;
    const auto noch = spracheAus(alsDatei(*texte));
    verlangen(noch && *noch == *texte);
    ausStueckenErgaenzen(*texte);
    const QStringList deutsche = texte->keys() + QStringList{u"%@ von %@ gelesen"_s, u"die Datei ist beschädigt"_s};
    for (const QString &uebersetzt : std::as_const(*texte))
        verlangen(gefuellt(uebersetzt, {satz, satz}).size() >= uebersetzt.size() - 4);
    verlangen(uebertragen(satz, deutsche, {}, {}) == satz);
    verlangen(uebertragen(satz, deutsche, *texte, *texte) == satz);
    static_cast<void>(uebertragen(satz, deutsche, *texte, {}));
    static_cast<void>(uebertragen(satz, deutsche, {}, *texte));
}
