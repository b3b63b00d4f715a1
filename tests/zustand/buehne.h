#pragma once

#include "datenbank.h"
#include "dokument.h"
#include "profil.h"

#include <QTemporaryDir>

using namespace quillmar::zustand;

/** A profile with source, target and catalogue in the test's own home, and documents that wait for review. */
class Buehne
{
public:
    explicit Buehne(const QString &name = QStringLiteral("Haushalt"));

    /** Saves the profile list with this stage's profile, behind those of @p davor. */
    void profilSichern(const QList<Profil> &davor = {}) const;

    /**
     * Writes a file into the source folder and takes it into the catalogue. Its counterpart is "Stadtwerke" and its
     * place Haushalt/Jahresablage/Strom unless @p aendern says otherwise.
     */
    qint64 dokument(const QString &dateiname, const std::function<void(Dokument &)> &aendern = {},
                    const QByteArray &inhalt = {});
    [[nodiscard]] Dokument lesen(qint64 id);
    void sql(const QString &anweisung, const QVariantList &werte = {});

    [[nodiscard]] QString quelle(const QString &name) const { return profil.quelle + u'/' + name; }
    [[nodiscard]] QString ziel(const QString &name) const { return profil.zielWurzel + u'/' + name; }
    [[nodiscard]] Datenbank &db();
    void schliessen() { m_db.reset(); }
    [[nodiscard]] QString ordner() const { return m_ordner.path(); }

    Profil profil;

private:
    QTemporaryDir m_ordner;
    std::unique_ptr<Datenbank> m_db;
};
