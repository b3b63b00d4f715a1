#include "portionen.h"

#include "einordner.h"
#include "lauf.h"
#include "texte.h"
#include "textleser.h"
#include "vorschlaege.h"

#include <QScopeGuard>
#include <QSet>
#include <algorithm>

namespace quillmar::analyse
{
namespace
{
/** The documents of one run that have not been in hand yet. */
class Vorrat
{
public:
    Vorrat(Datenbank &db, const Portionsgroesse &groesse) : m_db(db), m_groesse(groesse) {}

    /** The next ones; with nothing left an empty portion. Without the model: all that are to be read. */
    [[nodiscard]] Portion naechste(bool mitModell)
    {
        const QList<qint64> zuLesende = Texte(m_db).zuLesende();
        QList<qint64> offene = zuLesende;
        if (mitModell)
            offene += Vorschlaege(m_db).einzuordnende();
        ordnen(offene);
        const qsizetype umfang = mitModell ? umfangVon(offene.size()) : offene.size();
        Portion portion{.dokumente = offene.first(umfang),
                        .offene = offene.size(),
                        .zuLesende =
                            std::count_if(zuLesende.begin(), zuLesende.end(), [&](qint64 id) { return steht(id); }),
                        .istTeil = mitModell && (m_begonnen || umfang < offene.size())};
        m_genommene.unite({portion.dokumente.begin(), portion.dokumente.end()});
        m_begonnen = true;
        return portion;
    }

private:
    /** By number, each once. What came behind the last one of the beginning waits for the next run. */
    void ordnen(QList<qint64> &offene)
    {
        std::sort(offene.begin(), offene.end());
        offene.erase(std::unique(offene.begin(), offene.end()), offene.end());
        if (!m_begonnen && !offene.isEmpty())
            m_letztes = offene.last();
        offene.removeIf([this](qint64 id) { return !steht(id); });
    }

    [[nodiscard]] bool steht(qint64 id) const { return id <= m_letztes && !m_genommene.contains(id); }

    [[nodiscard]] qsizetype umfangVon(qsizetype offene) const
    {
        const bool gross = !m_begonnen && offene > m_groesse.weitere;
        return std::min(offene, gross ? m_groesse.erste : m_groesse.weitere);
    }

    Datenbank &m_db;
    Portionsgroesse m_groesse;
    QSet<qint64> m_genommene;
    qint64 m_letztes = 0; ///< number of the last document that was open at the beginning
    bool m_begonnen = false;
};

/** Instead of what the last portion came to: what all of them did. */
void zusammenfassen(Lauf &lauf, const Textfunde &funde)
{
    const Stufenmass gelesen = lauf.mass(Stufenart::Lesen);
    const Stufenmass eingeordnet = lauf.mass(Stufenart::Einordnen);
    if (gelesen.fertig > 0)
        lauf.ergebnis(Textleser::stufe(), Textleser::lesesatz(gelesen.fertig, gelesen.fertig + gelesen.offen));
    if (eingeordnet.fertig < 1)
        return; // stopped before
    lauf.ergebnis(Textleser::vergleichsstufe(), Textleser::fundsatz(funde));
    lauf.ergebnis(Einordner::stufe(), Einordner::satz(eingeordnet.fertig, eingeordnet.fertig + eingeordnet.offen));
}
} // namespace

void Portionen::durchlaufen(Lauf &lauf, const Laufauftrag &auftrag)
{
    Vorrat vorrat(lauf.db(), auftrag.portionen);
    Textfunde funde;
    bool mitModell = !auftrag.nurLesen;
    bool inTeilen = false;
    const auto amEnde = qScopeGuard([&] { // also where a stage throws
        if (inTeilen)
            zusammenfassen(lauf, funde);
    });
    Portion portion = vorrat.naechste(mitModell);
    do {
        inTeilen = inTeilen || portion.istTeil;
        lauf.portionBeginnen(portion);
        funde += Textleser::textLesen(lauf, auftrag.grenzen);
        if (mitModell && !lauf.sollHalten())
            mitModell = Einordner::einordnen(lauf);
        portion = lauf.sollHalten() ? Portion() : vorrat.naechste(mitModell);
    } while (!portion.dokumente.isEmpty());
}
} // namespace quillmar::analyse
