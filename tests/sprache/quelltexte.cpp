#include "quelltexte.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace
{
QString ohneKommentare(QString quelltext)
{
    static const QRegularExpression muster(
        R"RX(("(?:[^"\\\n]|\\.)*"|'(?:[^'\\\n]|\\.)+'|/\*\s*QUILLMAR_TEXT\s*\*/)|//[^\n]*|/\*.*?\*/)RX"_L1,
        QRegularExpression::DotMatchesEverythingOption);
    return quelltext.replace(muster, u"\\1"_s);
}

QString entschluesselt(QString literal)
{
    for (const auto &[folge, zeichen] : {std::pair("\\n"_L1, "\n"_L1), std::pair("\\t"_L1, "\t"_L1),
                                         std::pair("\\\""_L1, "\""_L1), std::pair("\\\\"_L1, "\\"_L1)})
        literal.replace(folge, zeichen);
    return literal;
}
} // namespace

void ausQuelle(const QString &roh, const QString &datei, Fund &fund)
{
    static const QRegularExpression vorverarbeitung(R"(^[ \t]*#.*$)"_L1, QRegularExpression::MultilineOption);
    const QString quelltext = ohneKommentare(roh).remove(vorverarbeitung);
    static const QRegularExpression aufruf(R"(\b(?:Sprache::text|QUILLMAR_TEXT)\b)"_L1);
    static const QRegularExpression argument(
        R"RX(\s*\((?:\s*/\*\s*QUILLMAR_TEXT\s*\*/|((?:\s*u?"(?:[^"\\\n]|\\.)*"(?:_s)?)+)\s*\)))RX"_L1);
    // A count first, then the text for one and the text for more.
    static const QRegularExpression paar(
        R"RX(\s*\((?:[^,"();{}]|\((?:[^()"]|\([^()"]*\))*\))+,((?:\s*u?"(?:[^"\\\n]|\\.)*"(?:_s)?)+)\s*,)RX"
        R"RX(((?:\s*u?"(?:[^"\\\n]|\\.)*"(?:_s)?)+)\s*\))RX"_L1);
    static const QRegularExpression literal(R"RX("((?:[^"\\\n]|\\.)*)")RX"_L1);
    for (auto stelle = aufruf.globalMatch(quelltext); stelle.hasNext();) {
        const qsizetype ende = stelle.next().capturedEnd();
        const auto ab = [&](const QRegularExpression &muster) {
            return muster.match(quelltext, ende, QRegularExpression::NormalMatch,
                                QRegularExpression::AnchorAtOffsetMatchOption);
        };
        const auto text = [&](const QString &teile) {
            QString ganzes;
            for (auto teil = literal.globalMatch(teile); teil.hasNext();)
                ganzes += entschluesselt(teil.next().captured(1));
            return ganzes;
        };
        const auto treffer = ab(argument);
        const auto formen = ab(paar);
        if (const QString eines = text(treffer.captured(1)); !eines.isEmpty())
            fund.texte << eines;
        else if (formen.hasMatch())
            fund.texte << text(formen.captured(1)) << text(formen.captured(2));
        else if (!treffer.hasMatch() && !QStringView(quelltext).mid(ende).trimmed().startsWith("*/"_L1))
            fund.verstoesse << datei + u": "_s + quelltext.mid(ende, 40).simplified();
    }
}

Fund ausAllenQuellen(const QString &ordner)
{
    Fund fund;
    QDirIterator lauf(ordner, {u"*.h"_s, u"*.cpp"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (lauf.hasNext()) {
        QFile datei(lauf.next());
        if (!datei.fileName().contains("/src/sprache/sprache."_L1) &&
            !datei.fileName().contains("/src/sprache/textkatalog."_L1) && datei.open(QIODevice::ReadOnly))
            ausQuelle(QString::fromUtf8(datei.readAll()), datei.fileName(), fund);
    }
    return fund;
}
