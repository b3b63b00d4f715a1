#pragma once

#include "malbetrieb.h"
#include "marke.h"
#include "seitenwort.h"
#include "teile.h"

#include <QWidget>
#include <array>

namespace quillmar::vorschau
{
class Fokushalter;
class PDFAnsicht;
class Suchleiste;

/**
 * The preview side: a tool row and below it the document's pages, or a sentence where there is nothing to show. Another
 * document, one that is similar, may take the document's place for a while; the row then has the selection's ground.
 */
class Vorschau : public QWidget
{
    Q_OBJECT

public:
    explicit Vorschau(QWidget *eltern = nullptr, const Malgrenzen &grenzen = {});

    /** Shows the document @p pfad (empty: there is none) and ends the look at another one. The same again: nothing. */
    void zeigen(const QString &pfad);
    /** See PDFAnsicht::setzeDrehungen(). To be told before the file is shown. */
    void setzeDrehungen(const QHash<QString, QMap<int, int>> &drehungen);
    /** Turns the page on show by @p grad to the right. */
    void drehen(int grad);
    /** Has @p pfad read and its first page drawn, so that zeigen() shows it within a frame. Empty: nothing. */
    void vorausladen(const QString &pfad);
    /** The first page of @p pfad is drawn, or it is known why it cannot be. */
    [[nodiscard]] bool istBereit(const QString &pfad) const;
    /** The document on show, once it has been painted; empty until then. */
    [[nodiscard]] const QString &gesehen() const { return m_gesehen; }

    /** Shows @p pfad under @p name in place of the document; empty: the document. */
    void partnerZeigen(const QString &pfad, const QString &name);
    void partnerBeenden();

    /**
     * The words of the file @p pfad, for each page as it lies, and what is marked on its pages. They are kept until
     * they are set anew, for the last few files; only those of the file on show are seen.
     */
    void setzeWorte(const QString &pfad, const QList<Seitenworte> &worte);
    void setzeMarken(const QString &pfad, const QList<Marke> &marken);
    void setzeMarkenSichtbar(bool sichtbar);
    [[nodiscard]] bool markenSichtbar() const;
    /** Scrolls to @p marke of the file on show, unless it is wholly in sight. */
    void hinsehen(const Marke &marke);
    /**
     * A field has the focus: a click on a word takes it, dragging over words takes them, and no click here takes the
     * focus away from it. Without, dragging over words selects them.
     */
    void setzeNehmen(bool nehmen);

    [[nodiscard]] bool sucheOffen() const;
    /** Opens the search of the text, for what is selected if that is one line; its end gives the focus back. */
    void sucheZeigen();

    /**
     * Scrolls by the page keys, Home, End and Space, wherever the focus is; opens the search, goes through its finds
     * and closes it; copies what is selected, selects all or nothing. False for any other key.
     */
    bool taste(QKeyEvent *ereignis);

Q_SIGNALS:
    /** "Zurück zum Dokument" was pressed; the document is back already. */
    void zurueckZumDokument();
    /** The page @p seite (from 1) of @p pfad was turned by hand, to @p drehung degrees clockwise. */
    void gedreht(const QString &pfad, int seite, int drehung);
    /** The first page of @p pfad, or the sentence in its place, has been painted; once per showing. */
    void seiteSichtbar(const QString &pfad);
    /** The pages from @p erste to @p letzte (from 1) of the document, which has @p seiten, are in sight. */
    void seitenImBlick(const QString &pfad, int erste, int letzte, int seiten);
    /** A word was clicked on, or words were dragged over, while they are taken. */
    void genommen(const Wortgriff &griff);
    void markenSichtbarGeaendert(bool sichtbar);

protected:
    bool event(QEvent *ereignis) override;
    void keyPressEvent(QKeyEvent *ereignis) override;

private:
    [[nodiscard]] QWidget *zeile();
    void verbinden();
    void textVerbinden();
    void nachgeben(int stufe);
    void zeileFaerben();
    void befundZeigen();
    void standZeigen();
    void suchstandZeigen();
    void seitenMelden();
    [[nodiscard]] bool alleSeitenBekannt() const;
    bool suchtaste(const QKeyEvent *ereignis);

    PDFAnsicht *m_ansicht;
    Leeransicht *m_leer;
    QList<QToolButton *> m_zoom; ///< smaller, larger, fit width, whole page, turn left, turn right, marks
    QToolButton *m_zurueck;
    Textschild *m_partnerName;
    QLabel *m_seiten;
    QWidget *m_zeile;
    Suchleiste *m_suche;
    Fokushalter *m_fokus;
    QStackedLayout *m_stapel;
    QString m_pfad;
    QString m_partnerPfad;
    QString m_gesehen;
    bool m_satzGemeldet = false;
    std::array<int, 3> m_gemeldet{}; ///< first and last page in sight and how many there are, as told last
};
} // namespace quillmar::vorschau
