#include "pdf.h"

#include "schloss.h"

#include <QCryptographicHash>
#include <QMap>
#include <optional>

namespace vorfuehrung
{

namespace
{

constexpr int katalog = 1;
constexpr int seitenbaum = 2;
constexpr int schrift = 3;
constexpr int schriftFett = 4;
constexpr int angaben = 5;
constexpr int ersteFreie = 6;

/** Collects numbered objects and writes the file around them. */
class Datei
{
public:
    explicit Datei(std::optional<Schloss> schloss) : m_schloss(std::move(schloss)) {}

    void objekt(int nummer, const QByteArray &inhalt)
    {
        m_stellen.insert(nummer, m_bytes.size());
        m_bytes += QByteArray::number(nummer) + " 0 obj\n" + inhalt + "\nendobj\n";
    }

    void strom(int nummer, const QByteArray &eintraege, QByteArray inhalt)
    {
        if (m_schloss)
            inhalt = m_schloss->verschluesselt(inhalt, nummer);
        objekt(nummer, "<< " + eintraege + " /Length " + QByteArray::number(inhalt.size()) + " >>\nstream\n" + inhalt +
                           "\nendstream");
    }

    [[nodiscard]] QByteArray fertig(const QByteArray &kennung) const
    {
        QByteArray bytes = m_bytes;
        const qsizetype tafel = bytes.size();
        const QByteArray anzahl = QByteArray::number(m_stellen.size() + 1);
        bytes += "xref\n0 " + anzahl + "\n0000000000 65535 f \n";
        for (const qsizetype stelle : m_stellen)
            bytes += QByteArray::number(stelle).rightJustified(10, '0') + " 00000 n \n";
        bytes += "trailer\n<< /Size " + anzahl + " /Root 1 0 R /ID [<" + kennung + "> <" + kennung + ">]";
        bytes += m_schloss ? m_schloss->eintrag() : QByteArray(" /Info 5 0 R");
        return bytes + " >>\nstartxref\n" + QByteArray::number(tafel) + "\n%%EOF\n";
    }

private:
    std::optional<Schloss> m_schloss;
    QByteArray m_bytes = "%PDF-1.4\n%\xE2\xE3\xCF\xD3\n";
    QMap<int, qsizetype> m_stellen;
};

QByteArray verweis(int nummer) { return QByteArray::number(nummer) + " 0 R"; }

QByteArray schriftObjekt(const QByteArray &name)
{
    return "<< /Type /Font /Subtype /Type1 /BaseFont /" + name + " /Encoding /WinAnsiEncoding >>";
}

/** Deflated as PDF wants it: qCompress puts four bytes of length in front of the zlib stream. */
QByteArray gepackt(const QByteArray &inhalt) { return qCompress(inhalt, 9).mid(4); }

QByteArray seitenObjekt(int inhalt, const QByteArray &mittel, bool quer = false)
{
    const QByteArray mass = quer ? "842 595" : "595 842";
    return "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 " + mass + "] /Resources << " + mittel + " >> /Contents " +
           verweis(inhalt) + " >>";
}

/** Lays the unit square of a picture onto the page. */
QByteArray lage(int drehung)
{
    switch (drehung) {
    case 90:
        return "0 -595 842 0 0 595 cm";
    case 180:
        return "-595 0 0 -842 595 842 cm";
    case 270:
        return "0 595 -842 0 842 0 cm";
    default:
        return "595 0 0 842 0 0 cm";
    }
}

void textSeite(Datei &datei, int nummer, const Seite &seite, Schreibweise weise)
{
    datei.objekt(nummer, seitenObjekt(nummer + 1, "/Font << /F1 3 0 R /F2 4 0 R >>"));
    if (weise == Schreibweise::ungepackt)
        datei.strom(nummer + 1, {}, seite.inhalt);
    else
        datei.strom(nummer + 1, "/Filter /FlateDecode", gepackt(seite.inhalt));
}

void bildSeite(Datei &datei, int nummer, const Seite &seite)
{
    const QByteArray schriften = seite.inhalt.isEmpty() ? "" : "/Font << /F1 3 0 R /F2 4 0 R >> ";
    const QByteArray mittel = schriften + "/XObject << /Bild " + verweis(nummer + 2) + " >>";
    const QByteArray unsichtbar = seite.inhalt.isEmpty() ? QByteArray() : "\n3 Tr " + seite.inhalt;
    datei.objekt(nummer, seitenObjekt(nummer + 1, mittel, seite.drehung % 180 != 0));
    datei.strom(nummer + 1, {}, "q " + lage(seite.drehung) + " /Bild Do Q" + unsichtbar);
    datei.strom(nummer + 2,
                "/Type /XObject /Subtype /Image /Width " + QByteArray::number(seite.bildgroesse.width()) + " /Height " +
                    QByteArray::number(seite.bildgroesse.height()) +
                    " /ColorSpace /DeviceRGB /BitsPerComponent 8 /Filter /DCTDecode",
                seite.jpeg);
}

QByteArray kennungVon(const QList<Seite> &seiten, Schreibweise weise)
{
    QCryptographicHash summe(QCryptographicHash::Md5);
    summe.addData(QByteArray::number(static_cast<int>(weise)));
    for (const Seite &seite : seiten) {
        summe.addData(seite.inhalt);
        summe.addData(seite.jpeg);
    }
    return summe.result();
}

} // namespace

QByteArray pdf(const QList<Seite> &seiten, Schreibweise weise)
{
    const QByteArray kennung = kennungVon(seiten, weise);
    Datei datei(weise == Schreibweise::verschluesselt ? std::optional(Schloss(kennung)) : std::nullopt);
    datei.objekt(katalog, "<< /Type /Catalog /Pages 2 0 R >>");
    QByteArray kinder;
    for (qsizetype i = 0; i < seiten.size(); ++i)
        kinder += verweis(ersteFreie + 3 * static_cast<int>(i)) + ' ';
    datei.objekt(seitenbaum,
                 "<< /Type /Pages /Kids [" + kinder + "] /Count " + QByteArray::number(seiten.size()) + " >>");
    datei.objekt(schrift, schriftObjekt("Helvetica"));
    datei.objekt(schriftFett, schriftObjekt("Helvetica-Bold"));
    datei.objekt(angaben, weise == Schreibweise::ungepackt ? "<< /Producer (Zweiter Schreiber) >>" : "<< >>");
    int nummer = ersteFreie;
    for (const Seite &seite : seiten) {
        if (seite.jpeg.isEmpty()) {
            textSeite(datei, nummer, seite, weise);
            datei.objekt(nummer + 2, "null");
        } else {
            bildSeite(datei, nummer, seite);
        }
        nummer += 3;
    }
    return datei.fertig(kennung.toHex());
}

} // namespace vorfuehrung
