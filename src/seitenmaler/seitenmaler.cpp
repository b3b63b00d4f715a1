#include "seitenmaler.h"

#include "sandkasten.h"

#include <QFile>
#include <QImage>
#include <QPdfDocument>
#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <utility>

namespace quillmar::seitenmaler
{
using namespace Seitenprotokoll;

/** With the file that it is read from. */
struct OffenesDokument {
    explicit OffenesDokument(Dateigriff griff) : inhalt(std::move(griff))
    {
        // Read piece by piece: mapped it would count against the address space.
        ::lseek(inhalt.nummer(), 0, SEEK_SET);
        if (datei.open(inhalt.nummer(), QIODevice::ReadOnly))
            dokument.load(&datei);
    }

    Dateigriff inhalt;
    QFile datei;
    QPdfDocument dokument{nullptr};
};

namespace
{
constexpr std::chrono::seconds rechenzeit(10);
constexpr std::chrono::seconds messzeit(1);
constexpr int bytesJePixel = 4;
constexpr QSizeF a4(595, 842); // for a page without a usable size

struct Paket {
    QByteArray bytes; ///< empty: the other side has closed
    Dateigriff beilage;
};

Paket empfangen(int kanal)
{
    std::array<char, 256> platz = {};
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> beilage = {};
    iovec stueck{platz.data(), platz.size()};
    msghdr nachricht = {};
    nachricht.msg_iov = &stueck;
    nachricht.msg_iovlen = 1;
    nachricht.msg_control = beilage.data();
    nachricht.msg_controllen = beilage.size();
    ssize_t laenge = -1;
    do {
        laenge = ::recvmsg(kanal, &nachricht, MSG_CMSG_CLOEXEC);
    } while (laenge < 0 && errno == EINTR);
    Paket paket{QByteArray(platz.data(), std::max<ssize_t>(laenge, 0)), Dateigriff()};
    const cmsghdr *kopf = CMSG_FIRSTHDR(&nachricht);
    if (laenge > 0 && kopf && kopf->cmsg_type == SCM_RIGHTS) {
        int griff = -1;
        std::memcpy(&griff, CMSG_DATA(kopf), sizeof griff);
        paket.beilage = Dateigriff(griff);
    }
    return paket;
}

Ergebnis ergebnis(const QPdfDocument &dokument)
{
    using Fehler = QPdfDocument::Error;
    if (dokument.status() == QPdfDocument::Status::Ready && dokument.pageCount() > 0)
        return Ergebnis::Offen;
    const bool gesichert =
        dokument.error() == Fehler::IncorrectPassword || dokument.error() == Fehler::UnsupportedSecurityScheme;
    return gesichert ? Ergebnis::Gesichert : Ergebnis::Beschaedigt;
}

/** Of the first pages; fewer where looking at them takes its time, at least one. */
QList<QSizeF> seitengroessen(const QPdfDocument &dokument)
{
    const auto ende = std::chrono::steady_clock::now() + messzeit;
    QList<QSizeF> groessen;
    for (int seite = 0; seite < std::min(dokument.pageCount(), meisteGemessene); ++seite) {
        const QSizeF groesse = dokument.pagePointSize(seite);
        const bool brauchbar = groesse.width() >= 1 && groesse.height() >= 1 && groesse.width() <= groessteSeite &&
                               groesse.height() <= groessteSeite;
        groessen << (brauchbar ? groesse : a4);
        if (std::chrono::steady_clock::now() > ende)
            break;
    }
    return groessen;
}

QRgb aufWeiss(QRgb farbe)
{
    const int deckung = qAlpha(farbe);
    if (deckung == 0)
        return 0xffffffff;
    if (deckung == 255)
        return farbe;
    const auto gemischt = [deckung](int anteil) { return 255 - (255 - anteil) * deckung / 255; };
    return qRgb(gemischt(qRed(farbe)), gemischt(qGreen(farbe)), gemischt(qBlue(farbe)));
}

/** Draws @p seite on white into the memory @p bild of that size. False when the page or the memory is not to be had. */
bool zeichnen(QPdfDocument &dokument, int seite, const QSize &pixel, const Dateigriff &bild)
{
    const auto laenge = size_t(pixel.width()) * size_t(pixel.height()) * bytesJePixel;
    struct stat auskunft = {};
    if (::fstat(bild.nummer(), &auskunft) != 0 || size_t(auskunft.st_size) != laenge)
        return false;
    const QImage gemalt = dokument.render(seite, pixel);
    if (gemalt.size() != pixel || gemalt.format() != QImage::Format_ARGB32)
        return false;
    void *ort = ::mmap(nullptr, laenge, PROT_READ | PROT_WRITE, MAP_SHARED, bild.nummer(), 0);
    if (ort == MAP_FAILED)
        return false;
    // Not by QPainter, which would do it with threads; none can be started here.
    const auto *farben = reinterpret_cast<const QRgb *>(gemalt.constBits());
    std::transform(farben, farben + gemalt.sizeInBytes() / bytesJePixel, static_cast<QRgb *>(ort), aufWeiss);
    ::munmap(ort, laenge);
    return true;
}
} // namespace

Seitenmaler::Seitenmaler(int kanal) : m_kanal(kanal) {}

Seitenmaler::~Seitenmaler() = default;

void Seitenmaler::laufen()
{
    antworten(Bereit{});
    for (;;) {
        Paket paket = empfangen(m_kanal);
        const auto auftrag = auftragAus(paket.bytes);
        if (!auftrag)
            return;
        Sandkasten::fristSetzen(rechenzeit);
        std::visit([this, &paket](const auto &a) { ausfuehren(a, std::move(paket.beilage)); }, *auftrag);
    }
}

void Seitenmaler::ausfuehren(const Oeffnen &auftrag, Dateigriff inhalt)
{
    m_dokumente.erase(auftrag.kennung);
    auto offenes = std::make_unique<OffenesDokument>(std::move(inhalt));
    Geoeffnet antwort{auftrag.kennung, ergebnis(offenes->dokument), 0, false, {}};
    if (antwort.ergebnis == Ergebnis::Offen) {
        antwort.seiten = std::min(offenes->dokument.pageCount(), meisteSeiten);
        antwort.weitere = offenes->dokument.pageCount() > meisteSeiten;
        antwort.groessen = seitengroessen(offenes->dokument);
        m_dokumente.emplace(auftrag.kennung, std::move(offenes));
    }
    antworten(antwort);
}

void Seitenmaler::ausfuehren(const Malen &auftrag, const Dateigriff &bild)
{
    const auto offenes = m_dokumente.find(auftrag.kennung);
    const bool gelungen =
        offenes != m_dokumente.end() && zeichnen(offenes->second->dokument, auftrag.seite, auftrag.pixel, bild);
    antworten(Gemalt{auftrag.kennung, auftrag.seite, gelungen});
}

void Seitenmaler::ausfuehren(const Schliessen &auftrag, const Dateigriff &) { m_dokumente.erase(auftrag.kennung); }

void Seitenmaler::antworten(const Antwort &antwort) const
{
    QByteArray bytes = verpackt(antwort);
    iovec stueck{bytes.data(), size_t(bytes.size())};
    msghdr nachricht = {};
    nachricht.msg_iov = &stueck;
    nachricht.msg_iovlen = 1;
    // Nobody listens any more: that shows at the next order.
    while (::sendmsg(m_kanal, &nachricht, MSG_NOSIGNAL) < 0 && errno == EINTR) {}
}
} // namespace quillmar::seitenmaler
