#include "kleinespdf.h"

#include "rohpdf.h"

namespace Kleinespdf
{
namespace
{
using Rohpdf::strom;

const QByteArray katalog = "<</Type/Catalog/Pages 2 0 R>>";
const QByteArray eineSeite = "<</Type/Pages/Kids[3 0 R]/Count 1>>";
const QByteArray wort = "BT /F 60 Tf 72 600 Td (Brief) Tj ET";

QByteArray seite(const QByteArray &mittel)
{
    return "<</Type/Page/Parent 2 0 R/MediaBox[0 0 595 842]/Contents 4 0 R/Resources<<" + mittel + ">>>>";
}

const QByteArray schrift = "/Font<</F<</Type/Font/Subtype/Type1/BaseFont/Helvetica>>>>";
} // namespace

QByteArray brav(int seiten)
{
    const QByteArray baum =
        "<</Type/Pages/Kids[" + QByteArray("3 0 R ").repeated(seiten) + "]/Count " + QByteArray::number(seiten) + ">>";
    return Rohpdf::datei({katalog, baum, seite(schrift), strom(wort)});
}

QByteArray mitTrailer(const QByteArray &eintrag)
{
    return Rohpdf::datei({katalog, eineSeite, seite(schrift), strom(wort)}, eintrag);
}

QByteArray gezeichnet(const QByteArray &anweisungen)
{
    return Rohpdf::datei({katalog, eineSeite, seite(schrift), strom(anweisungen)});
}

QByteArray endloseStriche()
{
    QByteArray anweisungen = "[0.0001 0.0001] 0 d 1 w\n";
    for (int y = 0; y < 842; ++y)
        anweisungen += "0 " + QByteArray::number(y) + " m 595 " + QByteArray::number(y) + " l S\n";
    return gezeichnet(anweisungen);
}

QByteArray geschachtelteFormen()
{
    constexpr int tiefe = 12;
    const QByteArray zehnmal = QByteArray("/A Do ").repeated(10);
    QList<QByteArray> teile{katalog, eineSeite, seite("/XObject<</A 5 0 R>>"), strom(zehnmal)};
    for (int n = 1; n <= tiefe; ++n) {
        const QByteArray naechste = "/XObject<</A " + QByteArray::number(5 + n) + " 0 R>>";
        teile << strom(n < tiefe ? zehnmal : QByteArray("0 0 10 10 re f"),
                       "/Type/XObject/Subtype/Form/BBox[0 0 595 842]/Group<</S/Transparency/I true>>/Resources<<" +
                           (n < tiefe ? naechste : QByteArray()) + ">>");
    }
    return Rohpdf::datei(teile);
}
} // namespace Kleinespdf
