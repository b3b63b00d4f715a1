#include "rechtsform.h"

#include "text.h"

#include <QRegularExpression>
#include <QSet>
#include <QStringList>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::regeln
{
namespace
{
/** Folded; looked for in this order, each once. */
const QStringList &formen()
{
    static const QStringList alle = {u"gmbh co kg"_s, u"gmbh und co kg"_s,
                                     u"gmbh"_s,       u"mbh"_s,
                                     u"ag"_s,         u"kg"_s,
                                     u"ohg"_s,        u"se"_s,
                                     u"ev"_s,         u"e v"_s,
                                     u"ug"_s,         u"gbr"_s,
                                     u"ltd"_s,        u"inc"_s,
                                     u"co"_s,         u"aktiengesellschaft"_s};
    return alle;
}
} // namespace

QString Rechtsform::ohne(QString gefaltet)
{
    for (const QString &form : formen()) {
        if (gefaltet.endsWith(u' ' + form))
            gefaltet.chop(form.size() + 1);
    }
    return gefaltet.trimmed();
}

QString Rechtsform::ausgeschriebenOhne(const QString &name)
{
    static const QRegularExpression luecke(u"\\s+"_s);
    static const QRegularExpression rest(u"[\\s,;&+-]+$"_s);
    const QString eigentlich = ohne(grundlage::gefaltet(name, Faltung::Namen));
    QStringList worte = name.split(luecke, Qt::SkipEmptyParts);
    // As long as what is left still says all that the name says.
    while (worte.size() > 1) {
        const QString kuerzer = grundlage::gefaltet(worte.first(worte.size() - 1).join(u' '), Faltung::Namen);
        if (!kuerzer.startsWith(eigentlich))
            break;
        worte.removeLast();
    }
    return worte.join(u' ').remove(rest);
}

bool Rechtsform::istTeil(const QString &wort)
{
    static const QSet<QString> teile = [] {
        QSet<QString> alle;
        for (const QString &form : formen()) {
            for (const QString &teil : form.split(u' '))
                alle.insert(teil);
        }
        return alle;
    }();
    return teile.contains(wort);
}
} // namespace quillmar::regeln
