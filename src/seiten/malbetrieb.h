#pragma once

#include "auftragsreihe.h"
#include "bildspeicher.h"
#include "malprozess.h"
#include "namensraeume.h"

#include <QElapsedTimer>
#include <QImage>
#include <QObject>
#include <QSet>
#include <QTimer>

namespace quillmar::seiten
{
/** What the process that draws is granted. */
struct Malgrenzen {
    QString programm{};                           ///< empty: the one beside this program
    std::chrono::milliseconds rechenzeit{10'000}; ///< of the processor, for one order
    std::chrono::milliseconds wanduhr{30'000};    ///< for one order, and for the start
    std::chrono::milliseconds geduld{300};        ///< of an order that is more urgent than the one in hand
};

/**
 * Has orders done by a process of their own, one at a time. It is there from the beginning and started anew whenever it
 * has ended; documents that are open are opened in the new one when they are needed. An order that takes too long, or
 * that ends the process, is told of and not tried again, but for two cases: what was given up for something more urgent
 * (see Auftragsreihe::spaeter), and what ended a process in which another document may have done the damage.
 */
class Malbetrieb : public QObject
{
    Q_OBJECT

public:
    explicit Malbetrieb(const Malgrenzen &grenzen, QObject *eltern = nullptr);
    ~Malbetrieb() override;

    /** Each order is told of once, unless it is replaced, dropped or given up. */
    void auftragen(const Malauftrag &auftrag);
    void vorziehen(quint64 kennung, int seite, Vorrang vorrang);
    /** The opening of the document gives way to what is more urgent. */
    void zuruecksetzen(quint64 kennung);
    /** Drops the orders of the document; from @p abSeite 0 on: the pages alone. One that is begun may still be told of.
     */
    void verwerfen(quint64 kennung, int abSeite);
    /** The document is needed no more. */
    void schliessen(quint64 kennung);

Q_SIGNALS:
    void geoeffnet(const Seitenprotokoll::Geoeffnet &ergebnis);
    /** @p bild has the size that was asked for; it is null when the page cannot be drawn. */
    void gemalt(quint64 kennung, int seite, const QImage &bild);
    void gescheitert(quint64 kennung, int seite, Malfehler grund);

private:
    struct Laufendes {
        Malauftrag auftrag;
        std::optional<Bildspeicher> bild;  ///< none while the document is being opened
        std::chrono::nanoseconds vorher{}; ///< processor time of the process at the beginning
        QElapsedTimer uhr;
        bool verworfen = false;
    };

    void starten();
    void weiter();
    void beginnen(const Malauftrag &auftrag);
    [[nodiscard]] bool absenden();
    void hoeren(const Seitenprotokoll::Antwort &antwort);
    [[nodiscard]] bool verstehen(const Seitenprotokoll::Bereit &);
    [[nodiscard]] bool verstehen(const Seitenprotokoll::Geoeffnet &ergebnis);
    [[nodiscard]] bool verstehen(const Seitenprotokoll::Gemalt &ergebnis);
    [[nodiscard]] Laufendes erledigt();
    void verloren(Malfehler grund);
    void scheitern(const Laufendes &laufendes, Malfehler grund, bool schuldFraglich);
    void aufgeben();
    void fristPruefen();
    void fristSetzen();
    void vorlassen();
    void vortrittPruefen();

    Malgrenzen m_grenzen;
    Auftragsreihe m_reihe;
    std::unique_ptr<Malprozess> m_prozess;
    std::optional<Laufendes> m_laufendes;
    QSet<quint64> m_offene; ///< documents that the process has open
    int m_geoeffnete = 0;   ///< how many the process has had
    bool m_bereit = false;
    int m_fruehtode = 0; ///< processes in a row that ended without having done anything
    QTimer m_frist;
    QTimer m_vortritt; ///< runs while something more urgent waits than what is being done
};
} // namespace quillmar::seiten
