#pragma once

#include "seitenbelege.h"

#include <QObject>
#include <optional>

namespace quillmar::vorschau
{
class Vorschau;
} // namespace quillmar::vorschau

namespace quillmar::pruefung
{
class Angabenfeld;

/** Shows on the page where the values of the fields stand, and puts into the fields what is taken from the page. */
class Fundzeiger : public QObject
{
    Q_OBJECT

public:
    Fundzeiger(Pruefung *pruefung, Seitenbelege *belege, Angabenfeld *angaben, Vorschau *vorschau, QObject *eltern);

    /** Shows or hides the marks; that is kept. */
    void umschalten();

private:
    void worteZeigen();
    [[nodiscard]] QString pfad() const;
    void markenZeigen();
    void nehmenLassen();
    void hinsehen();
    void vormerken(const std::optional<Seitenmarke> &marke);

    Pruefung *m_pruefung;
    Seitenbelege *m_belege;
    Angabenfeld *m_angaben;
    Vorschau *m_vorschau;
    std::optional<Feld> m_imFokus;
    bool m_hingesehen = false; ///< the page was moved to the passage of that field, if it has one
    std::optional<Seitenmarke> m_vorgemerkt;
};
} // namespace quillmar::pruefung
