#pragma once

#include "namensraeume.h"

#include <QWidget>

class QLabel;
class QStackedLayout;

namespace quillmar::bedienteile
{
class Elidiertext;
class Flachknopf;
class Leeransicht;
} // namespace quillmar::bedienteile

namespace quillmar::vorschau
{
class PDFAnsicht;

/**
 * The preview side: a tool row and below it the document's pages, or a sentence where there is nothing to show. Another
 * document, one that is similar, may take the document's place for a while; the row then has the selection's ground.
 */
class Vorschau : public QWidget
{
    Q_OBJECT

public:
    explicit Vorschau(QWidget *eltern = nullptr);

    /** Shows the document @p pfad (empty: there is none) and ends the look at another one. The same again: nothing. */
    void zeigen(const QString &pfad);

    /** Has @p pfad read and its first page drawn, so that zeigen() shows it within a frame. Empty: nothing. */
    void vorausladen(const QString &pfad);

    /** The first page of @p pfad is drawn, or it is known why it cannot be. */
    [[nodiscard]] bool istBereit(const QString &pfad) const;

    /** The document on show, once it has been painted; empty until then. */
    [[nodiscard]] const QString &gesehen() const { return m_gesehen; }

    /** Shows @p pfad under @p name in place of the document. */
    void partnerZeigen(const QString &pfad, const QString &name);
    void partnerBeenden();

    /** Scrolls by the page keys, Home, End and Space, wherever the focus is. False for any other key. */
    bool taste(QKeyEvent *ereignis);

Q_SIGNALS:
    /** "Zurück zum Dokument" was pressed; the document is back already. */
    void zurueckZumDokument();

    /** The first page of @p pfad, or the sentence in its place, has been painted; once per showing. */
    void seiteSichtbar(const QString &pfad);

protected:
    void changeEvent(QEvent *ereignis) override;
    void resizeEvent(QResizeEvent *ereignis) override;

private:
    [[nodiscard]] QList<Flachknopf *> zoomknoepfe() const;
    void zeileAufbauen();
    void partnerAufbauen();
    void verbinden();
    void beschriften();
    void setzeReihenfarbe();
    void platzVerteilen();
    void anzeigen(const QString &pfad);
    void befundZeigen();
    void standZeigen();

    PDFAnsicht *m_ansicht;
    Leeransicht *m_leer;
    QWidget *m_zeile;
    Flachknopf *m_kleiner;
    Flachknopf *m_groesser;
    Flachknopf *m_breite;
    Flachknopf *m_ganzeSeite;
    QWidget *m_partner;
    Elidiertext *m_partnerName;
    Flachknopf *m_zurueck;
    QLabel *m_seiten;
    QStackedLayout *m_stapel;
    QString m_pfad;
    QString m_partnerPfad;
    QString m_gesehen;
    bool m_satzGemeldet = false;
};
} // namespace quillmar::vorschau
