#include "messung.h"
#include "probe.h"
#include "rechnungsrichtung.h"
#include "reihen.h"

#include <QRegularExpression>
#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;

namespace
{
/** The rule written down step by step, with compiled expressions. */
QString schrittweise(const QString &name)
{
    static const QRegularExpression fremd(u"[^a-z0-9 ]"_s);
    static const QRegularExpression luecke(u" +"_s);
    QString text = name.normalized(QString::NormalizationForm_C).toLower();
    text.replace(u'ä', u'a').replace(u'ö', u'o').replace(u'ü', u'u').replace(u"ß"_s, u"ss"_s);
    text.replace(u"ae"_s, u"a"_s).replace(u"oe"_s, u"o"_s).replace(u"ue"_s, u"u"_s).replace(u'-', u' ');
    return text.replace(fremd, u""_s).replace(luecke, u" "_s).trimmed();
}

template <typename Arbeit>
double alle(const QStringList &namen, Arbeit arbeit)
{
    return Messung::dauer([&] {
        qsizetype zeichen = 0;
        for (const QString &name : namen)
            zeichen += arbeit(name).size();
        if (zeichen == 0)
            throw std::runtime_error("nothing was left of the names");
    });
}
} // namespace

void Reihen::namen()
{
    const QStringList namen = Probe::namen(100000);
    for (const QString &name : namen) {
        if (Rechnungsrichtung::vereinheitlichen(name) != schrittweise(name))
            throw std::runtime_error("the two ways differ");
    }
    const auto paar = Messung::paarweise(
        11, [&] { return alle(namen, Rechnungsrichtung::vereinheitlichen); },
        [&] { return alle(namen, schrittweise); });
    Messung::drucken("100,000 names normalised", paar, 0.15);
}
