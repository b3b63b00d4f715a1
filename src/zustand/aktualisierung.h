#pragma once

#include "namensraeume.h"

#include <QObject>
#include <QSslConfiguration>
#include <QTimer>
#include <QUrl>
#include <chrono>
#include <optional>

class QNetworkAccessManager;
class QNetworkReply;

namespace quillmar::zustand
{
/**
 * Asks the maker's site whether there is a newer version: one public file, over HTTPS only. Beyond what every request
 * carries the site learns the program's version and nothing else.
 */
class Aktualisierung : public QObject
{
    Q_OBJECT

public:
    struct Ergebnis {
        enum class Art { Aktuell, NeuereDa, Fehlgeschlagen };
        Art art = Art::Fehlgeschlagen;
        QString fassung; ///< the own one, or the newer one; empty after a failure
        bool operator==(const Ergebnis &) const = default;
    };
    /** Where to ask, whom to trust, how long to wait for the whole answer. */
    struct Quelle {
        QUrl datei = manifest();
        QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
        std::chrono::milliseconds frist = std::chrono::seconds(10);
    };

    explicit Aktualisierung(QObject *vater = nullptr);
    Aktualisierung(const Quelle &quelle, QObject *vater);
    ~Aktualisierung() override;

    /** Runs one check; nothing while one is under way. */
    void pruefen();
    /** One check, if the user wants it at every start. */
    void beimStart();
    [[nodiscard]] bool laeuft() const { return m_antwort != nullptr; }
    /** None until the first check has ended. */
    [[nodiscard]] const std::optional<Ergebnis> &ergebnis() const { return m_ergebnis; }
    /** What is to be said of a result, in the user's language. */
    [[nodiscard]] static QString satz(const Ergebnis &ergebnis);

    [[nodiscard]] static bool beimStartPruefen();
    static void setzeBeimStartPruefen(bool pruefen);

    [[nodiscard]] static QString eigeneFassung();
    /** Version @p a comes after @p b: their numeric parts one by one, missing ones count as 0. */
    [[nodiscard]] static bool istNeuer(const QString &a, const QString &als);
    [[nodiscard]] static QUrl manifest();
    /** Page where a new version can be had. */
    [[nodiscard]] static QUrl ladeseite();

Q_SIGNALS:
    void geaendert(); ///< a check has begun or ended

private:
    [[nodiscard]] static QList<quint64> teile(const QString &fassung);
    void einlesen();
    void beenden();
    [[nodiscard]] Ergebnis auswerten() const;

    Quelle m_quelle;
    QNetworkAccessManager *m_netz;
    QNetworkReply *m_antwort = nullptr;
    QByteArray m_rumpf;
    QTimer m_frist;
    std::optional<Ergebnis> m_ergebnis;
};
} // namespace quillmar::zustand
