#pragma once

#include "dateigriff.h"
#include "namensraeume.h"
#include "seitenprotokoll.h"

#include <QObject>
#include <QSocketNotifier>
#include <QString>
#include <chrono>
#include <functional>
#include <memory>

namespace quillmar::seiten
{
/** Why an order came to nothing. */
enum class Malfehler { NichtGestartet, ZuLange, ZuVielSpeicher, Abgestuerzt };

/**
 * A running quillmar-seiten: takes orders, tells the answers, ends with this object at the latest. Nothing here blocks;
 * a thread of its own starts it and waits for its end.
 */
class Malprozess : public QObject
{
    Q_OBJECT

public:
    /** The program beside this one, where it is in the build tree as well as once installed. */
    [[nodiscard]] static QString programm();

    explicit Malprozess(const QString &programm, QObject *eltern = nullptr);
    ~Malprozess() override;

    /** Ends it; nothing is told any more. */
    void toeten();

    /** False when the process does not take it: then it is as good as dead. */
    [[nodiscard]] bool senden(const Seitenprotokoll::Auftrag &auftrag, const Dateigriff *dazu = nullptr);

    /** What the process has used of the processor by now; nothing when it does not run. */
    [[nodiscard]] std::chrono::nanoseconds rechenzeit() const;

Q_SIGNALS:
    void gehoert(const Seitenprotokoll::Antwort &antwort);

    /** Once: it has ended, or what it says cannot be understood. Nothing else comes afterwards. */
    void beendet(Malfehler grund);

private:
    struct Kind;

    static void begleiten(const std::shared_ptr<Kind> &kind, const QByteArray &programm, Dateigriff kanal,
                          const std::function<void(Malfehler)> &melden);
    void hoeren();
    void schluss(Malfehler grund);

    std::shared_ptr<Kind> m_kind;
    Dateigriff m_kanal;
    std::unique_ptr<QSocketNotifier> m_waechter;
    bool m_aus = false;
};
} // namespace quillmar::seiten
