#include "pruefhinweis.h"

#include "fehlertext.h"
#include "pfade.h"
#include "sprache.h"
#include "text.h"

using namespace Qt::StringLiterals;

namespace quillmar::zustand
{
namespace
{
using Art = Pruefhinweis::Art;

QString herkunftssatz(const Lernspeicher::Herkunft &h)
{
    using Herkunft = Lernspeicher::Herkunft;
    const QString zahl = QString::number(h.dokumente);
    switch (h.art) {
    case Herkunft::Art::Bestaetigt:
        return gefuellt(Sprache::text(h.dokumente, u"Vorschlag wie bei %@ bestätigten Dokument dieses Gegenübers."_s,
                                      u"Vorschlag wie bei %@ bestätigten Dokumenten dieses Gegenübers."_s),
                        {zahl});
    case Herkunft::Art::Baum:
        return gefuellt(Sprache::text(h.dokumente, u"Vorschlag wie %@ Dokument in deiner Ablage."_s,
                                      u"Vorschlag wie %@ Dokumente in deiner Ablage."_s),
                        {zahl});
    case Herkunft::Art::Text:
        return gefuellt(Sprache::text(h.dokumente, u"Vorschlag wie %@ Dokument mit „%@“."_s,
                                      u"Vorschlag wie %@ Dokumente mit „%@“."_s),
                        {zahl, h.wort});
    case Herkunft::Art::Korrektur:
        break;
    }
    return Sprache::text(u"Vorschlag stammt aus deiner eigenen Korrektur bei diesem Gegenüber. "
                         "Änderst du ihn hier, lernt das Programm um."_s);
}

class Sammlung
{
public:
    Sammlung(const Pruefstueck &stueck, const Profil &profil)
        : m_stueck(stueck), m_dokument(stueck.dokument), m_profil(profil)
    {
    }

    QList<Pruefhinweis> alle()
    {
        zumText();
        zumGegenueber();
        zumOrt();
        zurHerkunft();
        zumAehnlichen();
        return m_hinweise;
    }

private:
    void dazu(Art art, const QString &text) { m_hinweise << Pruefhinweis{.art = art, .text = text}; }

    void zumText()
    {
        if (m_dokument.fehler && !m_dokument.fehler->isEmpty())
            dazu(Art::Fehler, Fehlertext::anzeige(*m_dokument.fehler));
        if (!m_stueck.hatText)
            dazu(Art::KeinText, Sprache::text(u"Kein Text erkannt. Bitte von Hand ausfüllen."_s));
        else if (m_stueck.ebeneVerworfen)
            dazu(Art::Texterkennung, Sprache::text(u"Die Textebene der Datei ist kein lesbarer Text. Gelesen wurde das "
                                                   "Bild der Seiten, Schreibweisen bitte prüfen."_s));
        else if (!m_dokument.hatTextebene)
            dazu(Art::Texterkennung, Sprache::text(u"Per Texterkennung gelesen. Schreibweisen bitte prüfen."_s));
    }

    void zumGegenueber()
    {
        if (m_stueck.ohneGegenueber && m_dokument.angaben.gegenueber.isEmpty() && m_stueck.hatText &&
            !m_dokument.fehler)
            dazu(Art::KeinGegenueber, Sprache::text(u"Kein Gegenüber gefunden. Im Dokument stand nur dein eigener "
                                                    "Name, die andere Seite ließ sich nicht bestimmen."_s));
    }

    void zumOrt()
    {
        const auto heute = heutigerOrt(m_dokument, m_profil);
        if (heute && *heute != m_dokument.angaben.ort)
            dazu(Art::AndererOrt, gefuellt(Sprache::text(u"Vorschlag weicht vom heutigen Ort ab. Bisher: %@/%@/%@"_s),
                                           {heute->zweig, heute->ablage, heute->rubrik}));
    }

    void zurHerkunft()
    {
        if (m_stueck.gelernt)
            dazu(Art::Gelernt, herkunftssatz(*m_stueck.gelernt));
        if (m_dokument.zweitmeinung && m_stueck.nachgeprueft)
            dazu(Art::Nachgeprueft, Sprache::text(u"Vom großen Modell nachgeprüft."_s));
    }

    void zumAehnlichen()
    {
        if (m_stueck.aehnlich)
            dazu(Art::Aehnlich,
                 gefuellt(Sprache::text(u"Sehr ähnlich zu %@, %@ Prozent Übereinstimmung."_s),
                          {nameVon(m_stueck.aehnlich->pfad), QString::number(qRound(m_dokument.aehnlichkeit * 100))}));
    }

    const Pruefstueck &m_stueck;
    const Dokument &m_dokument;
    const Profil &m_profil;
    QList<Pruefhinweis> m_hinweise;
};
} // namespace

QList<Pruefhinweis> pruefhinweise(const Pruefstueck &stueck, const Profil &profil)
{
    return Sammlung(stueck, profil).alle();
}

std::optional<Ort> heutigerOrt(const Dokument &dokument, const Profil &profil)
{
    const Ort heute = profil.zerlegen(dokument.altOrdner);
    return profil.kennt(heute) ? std::optional(heute) : std::nullopt;
}
} // namespace quillmar::zustand
