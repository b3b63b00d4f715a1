#pragma once

#include "namensraeume.h"

#include <QObject>
#include <QStringList>

namespace quillmar::zustand
{
/** What was done last and what is to be said. Failures never leave the models: they are told here. */
class Meldestelle : public QObject
{
    Q_OBJECT

public:
    enum class Ton { Ruhig, Gut, Warnung };

    using QObject::QObject;

    [[nodiscard]] const QString &hinweis() const { return m_hinweis; }
    /** The last deed: what happened to which document. Empty after one that failed. */
    [[nodiscard]] const QString &geschehen() const { return m_geschehen; }
    [[nodiscard]] Ton ton() const { return m_ton; }
    /** Deed and notice, the newer one first, without what is empty; ton() is the first one's. */
    [[nodiscard]] QStringList meldungen() const;

    void melden(const QString &hinweis, Ton ton = Ton::Warnung);
    /** Says @p satz behind what is said already, which weighs more; nothing if it is said. */
    void anhaengen(const QString &satz);
    /** Says @p satz in place of @p bisheriger, also where the language was changed since; nothing if that is gone. */
    void ersetzen(const QString &bisheriger, const QString &satz);
    /** A deed and what is to be said of it; @p hinweisZuerst: that weighs more than the deed. */
    void berichten(const QString &geschehen, const QString &hinweis, Ton ton, bool hinweisZuerst = true);
    /** The last deed is nothing to speak of any more; the notice stays. */
    void vergessen();
    /** Another language was chosen: says again what was said. */
    void nachsprechen();

Q_SIGNALS:
    void hinweisGeaendert(); ///< notice or deed

private:
    QString m_hinweis;
    QString m_geschehen;
    bool m_hinweisIstNeuer = false; ///< than the deed
    Ton m_ton = Ton::Ruhig;
};
} // namespace quillmar::zustand
