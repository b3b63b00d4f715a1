#include "skizze.h"

#include "messung.h"
#include "probe.h"
#include "reihen.h"

#include <openssl/evp.h>
#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;

namespace
{
constexpr qsizetype runs = 300;
constexpr int wiederholungen = 300;

/** What is digested for the sketch of @p worte. */
QList<QByteArray> wortfolgen(const QStringList &worte)
{
    QList<QByteArray> folgen;
    for (qsizetype i = 0; i + 5 <= worte.size(); ++i)
        folgen << worte.mid(i, 5).join(u' ').toUtf8();
    return folgen;
}

double unser(const QString &text)
{
    return Messung::dauer([&] {
        for (int i = 0; i < wiederholungen; ++i) {
            if (Skizze(text).werte().size() != Skizze::umfang)
                throw std::runtime_error("the sketch is not full");
        }
    });
}

double blank(const QString &text, const QList<QByteArray> &folgen)
{
    EVP_MD *verfahren = EVP_MD_fetch(nullptr, "SHA256", nullptr);
    EVP_MD_CTX *lauf = EVP_MD_CTX_new();
    unsigned summe = 0; // keeps the compiler from leaving the work out
    const double dauer = Messung::dauer([&] {
        for (int i = 0; i < wiederholungen; ++i) {
            summe += unsigned(text.toLower().normalized(QString::NormalizationForm_C).size());
            for (const QByteArray &folge : folgen) {
                unsigned char wert[EVP_MAX_MD_SIZE];
                EVP_DigestInit_ex2(lauf, verfahren, nullptr);
                EVP_DigestUpdate(lauf, folge.constData(), size_t(folge.size()));
                EVP_DigestFinal_ex(lauf, wert, nullptr);
                summe += wert[0];
            }
        }
    });
    EVP_MD_CTX_free(lauf);
    EVP_MD_free(verfahren);
    return summe == 0 ? 0 : dauer;
}
} // namespace

void Reihen::skizzen()
{
    Probe::Zufall zufall{1};
    const QString text = Probe::worte(zufall, runs + 4).join(u' ');
    const QList<QByteArray> folgen = wortfolgen(Skizze::normalisiert(text));
    if (folgen.size() != runs)
        throw std::runtime_error("the text has not 300 runs of words");
    const auto paar = Messung::paarweise(
        25, [&] { return unser(text); }, [&] { return blank(text, folgen); });
    Messung::drucken("300 sketches of 300 runs of words", paar, 1.2);
}
