#pragma once

#include "auflage.h"
#include "marke.h"
#include "namensraeume.h"
#include "textkarte.h"
#include "textsuche.h"

#include <QHash>
#include <QMap>
#include <QObject>
#include <QSizeF>
#include <QStringList>

namespace quillmar::vorschau
{
/**
 * What is known of the text on the pages of the files, and for the file on show what is laid over its pages: marks,
 * what a search has found, what is selected. Without words nothing can be selected or found.
 */
class Textebene : public QObject
{
    Q_OBJECT

public:
    /** So many files are remembered besides the one on show; what was set longest ago goes first. */
    static constexpr qsizetype meisteDateien = 16;

    /** For each page as it lies; those without words, or that nothing is known of, are empty. */
    void setzeWorte(const QString &pfad, const QList<Seitenworte> &worte);
    void setzeMarken(const QString &pfad, const QList<Marke> &marken);
    void setzeMarkenSichtbar(bool sichtbar);
    [[nodiscard]] bool markenSichtbar() const { return m_markenSichtbar; }

    /** The file on show: sizes of its pages as they are seen, and by how much they are turned, by page from 1. */
    void zeigen(const QString &pfad, const QList<QSizeF> &groessen, const QMap<int, int> &drehungen);
    /** The words of the file on show, as its pages are seen. */
    [[nodiscard]] const Textkarte &karte() const { return m_karte; }
    /** Places of a page as it lies, as they are seen. */
    [[nodiscard]] QList<QRectF> gesehen(int seite, const QList<QRectF> &orte) const;

    [[nodiscard]] const std::optional<Wortspanne> &auswahl() const { return m_auswahl; }
    /** @p zumNehmen: it is about to be taken, and looks like an offer. */
    void auswaehlen(const std::optional<Wortspanne> &auswahl, bool zumNehmen = false);

    /** Empty: the search is over. The first find at or behind the present one, or from page @p abSeite on, is shown. */
    void suchen(const QString &anfrage, int abSeite);
    void weitersuchen(int schritt);
    [[nodiscard]] const Treffer &treffer() const { return m_treffer; }

    /** What lies over the page, the undermost first. */
    [[nodiscard]] QList<Auflage> auflagen(int seite) const;

Q_SIGNALS:
    void geaendert();        ///< of what is seen
    void trefferGeaendert(); ///< other finds, or another one of them

private:
    struct Datei {
        QList<Seitenworte> worte;
        QList<Marke> marken;
    };

    [[nodiscard]] Datei &datei(const QString &pfad);
    void karteBauen();
    void markenBauen();
    void finden(const Wortort &ab);

    QHash<QString, Datei> m_dateien;
    QStringList m_reihenfolge; ///< last set last
    QString m_pfad;
    QList<QSizeF> m_groessen;
    QMap<int, int> m_drehungen;
    Textkarte m_karte;
    QHash<int, QList<Auflage>> m_marken; ///< by page
    bool m_markenSichtbar = true;
    std::optional<Wortspanne> m_auswahl;
    bool m_zumNehmen = false;
    QString m_anfrage;
    std::optional<Textsuche> m_suche; ///< made when it is needed
    Treffer m_treffer;
};
} // namespace quillmar::vorschau
