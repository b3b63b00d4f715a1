#pragma once

#include "anfrage.h"
#include "wortquelle.h"

#include <QMap>
#include <QTimer>
#include <optional>

namespace quillmar::zustand
{
/**
 * The words of the pages behind those that proposals are made of, to be searched and copied: of a text layer all of
 * them (of the first thirty pages), recognised ones page by page as one looks at them.
 */
class Weitereworte : public QObject
{
    Q_OBJECT

public:
    explicit Weitereworte(QObject *eltern);

    /** Of what document, and which of its pages are known without. What was read is forgotten. */
    void beginnen(const Wortquelle &quelle);
    /** Nothing is known of the document any more. */
    void vergessen();
    /** One looks at the pages @p gesehene of a document that has @p seiten. */
    void imBlick(const Seitenspanne &gesehene, int seiten);
    /** @p erste with the further pages behind them; those that are not known are without words. */
    [[nodiscard]] QList<Seitenworte> angehaengt(QList<Seitenworte> erste) const;

Q_SIGNALS:
    void geaendert();

private:
    void lesen();
    [[nodiscard]] std::optional<Seitenspanne> fehlende() const;
    [[nodiscard]] std::optional<Seitenspanne> naechsteGesehene() const;

    Wortspeicher m_speicher;
    std::optional<Wortquelle> m_quelle;
    Seitenspanne m_gesehene;
    int m_seiten = 0;
    QMap<int, Seitenworte> m_worte;      ///< by page from 1
    std::optional<Seitenspanne> m_liest; ///< on its way
    QTimer m_ruhe;                       ///< runs while one leafs through
    Anfrage m_frage;
};
} // namespace quillmar::zustand
