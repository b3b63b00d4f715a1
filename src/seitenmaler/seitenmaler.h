#pragma once

#include "dateigriff.h"
#include "namensraeume.h"
#include "seitenprotokoll.h"

#include <map>
#include <memory>

namespace quillmar::seitenmaler
{
struct OffenesDokument;

/** Does what comes over a socket (see Seitenprotokoll): opens documents and draws their pages, one after the other. */
class Seitenmaler
{
public:
    explicit Seitenmaler(int kanal);
    ~Seitenmaler();
    Seitenmaler(const Seitenmaler &) = delete;
    Seitenmaler &operator=(const Seitenmaler &) = delete;

    /** Until the other side closes, or says what cannot be understood. */
    void laufen();

private:
    void ausfuehren(const Seitenprotokoll::Oeffnen &auftrag, Dateigriff inhalt);
    void ausfuehren(const Seitenprotokoll::Malen &auftrag, const Dateigriff &bild);
    void ausfuehren(const Seitenprotokoll::Schliessen &auftrag, const Dateigriff &keiner);
    void antworten(const Seitenprotokoll::Antwort &antwort) const;

    int m_kanal;
    std::map<quint64, std::unique_ptr<OffenesDokument>> m_dokumente;
};
} // namespace quillmar::seitenmaler
