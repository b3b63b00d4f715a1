#pragma once

#include "namensraeume.h"

#include <QList>
#include <QMetaObject>
#include <QString>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

class QObject;

namespace quillmar::grundlage
{
/**
 * The one way from any thread to an object on the main thread: what is thrown in is called there, in order. May outlive
 * its receiver; nothing is delivered any more once that is gone.
 */
class Briefkasten : public std::enable_shared_from_this<Briefkasten>
{
public:
    using Brief = std::function<void()>;

    /** Made on the thread of @p empfaenger. */
    [[nodiscard]] static std::shared_ptr<Briefkasten> fuer(QObject *empfaenger);
    ~Briefkasten();
    Briefkasten(const Briefkasten &) = delete;
    Briefkasten &operator=(const Briefkasten &) = delete;

    /** From any thread: has @p brief called on the receiver's thread. */
    void einwerfen(Brief brief);
    /** The same for news of @p sache, which take the place of the last ones as long as those wait to be delivered. */
    void fortschreiben(Brief brief, const QString &sache = {});

private:
    explicit Briefkasten(QObject *empfaenger) : m_empfaenger(empfaenger) {}
    void einlegen(std::optional<QString> sache, Brief brief);
    void leeren();
    [[nodiscard]] Brief naechster();
    void schliessen();

    std::mutex m_schloss;
    QObject *m_empfaenger;
    QMetaObject::Connection m_ende;
    QList<std::pair<std::optional<QString>, Brief>> m_briefe;
    bool m_unterwegs = false; ///< the receiver's thread has been asked to empty it
};
} // namespace quillmar::grundlage
