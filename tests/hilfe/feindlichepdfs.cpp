#include "feindlichepdfs.h"

#include "rohpdf.h"

namespace
{
using FeindlichePdfs::Fall;
using Rohpdf::Seite;

QByteArray zahl(qsizetype n) { return QByteArray::number(n); }

// ---- the tree of the pages ----

QByteArray kreisUeberZwei()
{
    return Rohpdf::datei({"<</Type/Catalog/Pages 2 0 R>>", "<</Type/Pages/Kids[3 0 R]/Count 1/Parent 3 0 R>>",
                          "<</Type/Pages/Kids[2 0 R]/Count 1/Parent 2 0 R>>"});
}

QByteArray tieferBaum(int ebenen)
{
    QList<QByteArray> objekte = {"<</Type/Catalog/Pages 2 0 R>>"};
    for (int n = 2; n < ebenen + 2; ++n)
        objekte << "<</Type/Pages/Count 1/Kids[" + zahl(n + 1) + " 0 R]/Parent " + zahl(std::max(2, n - 1)) + " 0 R>>";
    return Rohpdf::gepackteDatei(objekte << "<</Type/Page/MediaBox[0 0 200 200]/Parent " + zahl(ebenen + 1) + " 0 R>>");
}

QByteArray millionFlach()
{
    return Rohpdf::gepackteDatei({"<</Type/Catalog/Pages 2 0 R>>",
                                  "<</Type/Pages/Count 1000000/Kids[" + QByteArray("3 0 R ").repeated(1000000) + "]>>",
                                  "<</Type/Page/Parent 2 0 R/MediaBox[0 0 200 200]>>"});
}

// ---- what a page draws ----

/** @p ebenen forms that each draw the next one @p mal times; @p eintraege of each. */
QByteArray schachtel(int ebenen, int mal, const QByteArray &eintraege)
{
    constexpr int erste = 6;
    const QByteArray kopf = "/Type/XObject/Subtype/Form/BBox[0 0 200 200]" + eintraege;
    QList<QByteArray> formen;
    for (int n = 1; n <= ebenen; ++n)
        formen << Rohpdf::strom(QByteArray("/A Do ").repeated(mal),
                                kopf + "/Resources<</XObject<</A " + zahl(erste + n) + " 0 R>>>>");
    formen << Rohpdf::strom("0 0 10 10 re f", kopf);
    return Rohpdf::seite({.inhalt = "/A Do", .mittel = "/XObject<</A 6 0 R>>", .weitere = formen});
}

QByteArray formInSich()
{
    return Rohpdf::seite({.inhalt = "/A Do",
                          .mittel = "/XObject<</A 6 0 R>>",
                          .weitere = {Rohpdf::strom("/A Do /A Do", "/Type/XObject/Subtype/Form/BBox[0 0 200 200]"
                                                                   "/Resources<</XObject<</A 6 0 R>>>>")}});
}

QByteArray maskeInSich()
{
    return Rohpdf::seite(
        {.inhalt = "/G gs 0 0 200 200 re f",
         .mittel = "/ExtGState<</G 6 0 R>>",
         .weitere = {"<</Type/ExtGState/SMask<</S/Luminosity/G 7 0 R>>>>",
                     Rohpdf::strom("/G gs 0 0 100 100 re f",
                                   "/Type/XObject/Subtype/Form/BBox[0 0 200 200]/Group<</S/Transparency/CS/DeviceGray>>"
                                   "/Resources<</ExtGState<</G 6 0 R>>>>")}});
}

QByteArray musterInSich()
{
    return Rohpdf::seite({.inhalt = "/Pattern cs /M scn 0 0 200 200 re f",
                          .mittel = "/Pattern<</M 6 0 R>>",
                          .weitere = {Rohpdf::strom("/Pattern cs /M scn 0 0 1 1 re f",
                                                    "/Type/Pattern/PatternType 1/PaintType 1/TilingType 1"
                                                    "/BBox[0 0 1 1]/XStep 0.001/YStep 0.001"
                                                    "/Resources<</Pattern<</M 6 0 R>>>>")}});
}

QByteArray feineSchattierung()
{
    return Rohpdf::seite({.inhalt = "/S sh",
                          .mittel = "/Shading<</S 6 0 R>>",
                          .weitere = {"<</ShadingType 1/ColorSpace/DeviceRGB/Domain[0 1e6 0 1e6]/Function 7 0 R>>",
                                      Rohpdf::strom("{ mul sin dup dup }", "/FunctionType 4/Domain[0 1e6 0 1e6]"
                                                                           "/Range[0 1 0 1 0 1]")}});
}

QByteArray riesigesBild(int kante)
{
    const QByteArray mass = zahl(kante);
    const QByteArray nullen = qCompress(QByteArray(20 * 1000 * 1000, '\0'), 9).mid(4);
    return Rohpdf::seite(
        {.inhalt = "200 0 0 200 0 0 cm /B Do",
         .mittel = "/XObject<</B 6 0 R>>",
         .weitere = {Rohpdf::strom(nullen, "/Type/XObject/Subtype/Image/Width " + mass + "/Height " + mass +
                                               "/ColorSpace/DeviceRGB/BitsPerComponent 8"
                                               "/Filter/FlateDecode")}});
}

QByteArray kaputtesJpeg()
{
    return Rohpdf::seite(
        {.inhalt = "200 0 0 200 0 0 cm /B Do",
         .mittel = "/XObject<</B 6 0 R>>",
         .weitere = {Rohpdf::strom(QByteArray("\xFF\xD8\xFF\xC0\x00\x11\x08\xFF\xFF\xFF\xFF\x03\x01", 13) +
                                       QByteArray(500, '\x5A'),
                                   "/Type/XObject/Subtype/Image/Width 65535/Height 65535"
                                   "/ColorSpace/DeviceRGB/BitsPerComponent 8/Filter/DCTDecode")}});
}

// ---- fonts ----

QByteArray cmapInSich()
{
    return Rohpdf::seite({.inhalt = "BT /X 20 Tf 20 100 Td <00410042> Tj ET",
                          .mittel = "/XObject<<>>/Font<</X 6 0 R>>",
                          .weitere = {"<</Type/Font/Subtype/Type0/BaseFont/X/Encoding 8 0 R/DescendantFonts[7 0 R]"
                                      "/ToUnicode 8 0 R>>",
                                      "<</Type/Font/Subtype/CIDFontType2/BaseFont/X/CIDSystemInfo<</Registry(A)"
                                      "/Ordering(I)/Supplement 0>>>>",
                                      Rohpdf::strom("/X usecmap 1 begincodespacerange <0000> <FFFF> "
                                                    "endcodespacerange 1 begincidrange <0000> <FFFF> 0 endcidrange",
                                                    "/Type/CMap/CMapName/X/UseCMap 8 0 R")}});
}

QByteArray schriftInSich()
{
    return Rohpdf::seite({.inhalt = "BT /X 20 Tf 20 100 Td (AB) Tj ET",
                          .mittel = "/XObject<<>>/Font<</X 6 0 R>>",
                          .weitere = {"<</Type/Font/Subtype/Type0/BaseFont/X/Encoding/Identity-H"
                                      "/DescendantFonts[6 0 R]>>"}});
}

QByteArray buchstabeSchreibtSich()
{
    return Rohpdf::seite(
        {.inhalt = "BT /X 20 Tf 20 100 Td (aaaa) Tj ET",
         .mittel = "/XObject<<>>/Font<</X 6 0 R>>",
         .weitere = {"<</Type/Font/Subtype/Type3/FontBBox[0 0 1 1]/FontMatrix[1 0 0 1 0 0]/FirstChar 97"
                     "/LastChar 97/Widths[1]/Encoding<</Differences[97/a]>>/CharProcs<</a 7 0 R>>"
                     "/Resources<</Font<</X 6 0 R>>>>>>",
                     Rohpdf::strom("1 0 d0 BT /X 1 Tf (aaaa) Tj ET")}});
}

// ---- streams ----

QByteArray filterkette(int mal)
{
    return Rohpdf::seite(
        {.inhaltsobjekt = Rohpdf::strom("q Q", "/Filter[" + QByteArray("/ASCIIHexDecode").repeated(mal) + ']')});
}

// ---- tables of places ----

QByteArray prevAufSich()
{
    QByteArray bytes = Rohpdf::seite({.imTrailer = "/Prev 0000000000"});
    const QByteArray stelle = bytes.mid(bytes.indexOf("startxref") + 10).split('\n').first();
    return bytes.replace("/Prev 0000000000", "/Prev " + stelle.rightJustified(10, '0'));
}

/** The stream of objects claims to hold itself and to extend itself. */
QByteArray objektstromInSich()
{
    const QByteArray inhalt = "1 0 2 40 3 80 ";
    const QByteArray objekte = QByteArray("<</Type/Catalog/Pages 2 0 R>>").leftJustified(40) +
                               QByteArray("<</Type/Pages/Kids[3 0 R]/Count 1>>").leftJustified(40) + "3 0 R";
    const QByteArray kopf = "%PDF-1.5\n";
    const QByteArray strom =
        "4 0 obj\n" + Rohpdf::strom(inhalt + objekte, "/Type/ObjStm/N 3/Extends 4 0 R/First " + zahl(inhalt.size())) +
        "\nendobj\n";
    const QByteArray tafel("\0\0\0\0\2\0\4\0\2\0\4\1\2\0\4\2\2\0\4\3\1\0\0\0", 24);
    return kopf + strom + "5 0 obj\n" + Rohpdf::strom(tafel, "/Type/XRef/W[1 2 1]/Size 6/Root 1 0 R") +
           "\nendobj\nstartxref\n" + zahl(kopf.size() + strom.size()) + "\n%%EOF\n";
}

// ---- encrypted, with passwords that nobody knows ----

QByteArray verschluesselt(const QByteArray &eintraege, int laenge)
{
    const QByteArray schloss(laenge * 2, '7');
    return Rohpdf::seite({.imTrailer = "/ID[<01020304><01020304>]/Encrypt<</Filter/Standard/P -44/O<" + schloss +
                                       ">/U<" + schloss + '>' + eintraege + ">>"});
}

QByteArray aes256(const QByteArray &fassung)
{
    const QByteArray schluessel =
        "/OE<" + QByteArray(64, '5') + ">/UE<" + QByteArray(64, '5') + ">/Perms<" + QByteArray(32, '5') + '>';
    return verschluesselt("/V 5/R " + fassung +
                              "/Length 256/CF<</StdCF<</CFM/AESV3/Length 32>>>>/StmF/StdCF/StrF/StdCF" + schluessel,
                          48);
}

QList<Fall> seitenbaum()
{
    return {
        {"kreis", "the page tree is its own child",
         Rohpdf::seite({.seitenbaum = "<</Type/Pages/Kids[2 0 R]/Count 1>>"})},
        {"kreis-zwei", "two nodes of the page tree are each other's children", kreisUeberZwei()},
        {"eigener-vater", "a page is its own parent",
         Rohpdf::datei({"<</Type/Catalog/Pages 2 0 R>>", "<</Type/Pages/Kids[3 0 R]/Count 1/Parent 2 0 R>>",
                        "<</Type/Page/Parent 3 0 R>>"})},
        {"tiefer-baum", "10,000 nodes of the page tree, each in the other", tieferBaum(10000)},
        {"million-behauptet", "claims a million pages and has one",
         Rohpdf::seite({.seitenbaum = "<</Type/Pages/Kids[3 0 R]/Count 1000000>>"})},
        {"million-flach", "a million pages in one list", millionFlach()},
        {"minus-seiten", "claims a negative number of pages",
         Rohpdf::seite({.seitenbaum = "<</Type/Pages/Kids[3 0 R]/Count -5>>"})},
        {"zu-viele-seiten", "claims more pages than a number holds",
         Rohpdf::seite({.seitenbaum = "<</Type/Pages/Kids[3 0 R]/Count 99999999999999999999>>"})},
        {"kein-katalog", "its root is not there", Rohpdf::datei({"null", "<</Type/Pages/Kids[]/Count 0>>"})},
    };
}

QList<Fall> zeichnungen()
{
    const QByteArray gruppe = "/Group<</S/Transparency/I true/K true/CS/DeviceRGB>>";
    return {
        {"formen", "forms in forms, four to the power of twenty drawings", schachtel(20, 4, {})},
        {"speicherfresser", "the same as transparency groups, each with a bitmap of its own", schachtel(60, 2, gruppe)},
        {"form-in-sich", "a form that draws itself", formInSich()},
        {"maske-in-sich", "a soft mask that is masked by itself", maskeInSich()},
        {"muster-in-sich", "a pattern of a thousandth of a point that is filled with itself", musterInSich()},
        {"schattierung", "a shading that is computed for a domain of a million by a million", feineSchattierung()},
        {"striche", "lines dashed by a ten thousandth of a point",
         Rohpdf::seite({.inhalt = "[0.0001 0.0001] 0 d 1 w " + QByteArray("0 0 m 200 200 l S ").repeated(50)})},
        {"striche-null", "lines whose dashes have no length",
         Rohpdf::seite({.inhalt = "[0 0] 0 d [0 0 0] 1 d 0 0 m 200 200 l S [1e-30] 0 d 0 0 m 9e9 9e9 l S"})},
        {"kurven", "half a million curves over the page",
         Rohpdf::seite(
             {.inhaltsobjekt = Rohpdf::gepackterStrom(
                  "5 w 0 0 m " + QByteArray("0 400 200 -400 200 200 c 9 9 0 0 200 0 c ").repeated(250000) + 'S')})},
        {"zahlen", "numbers beyond every range",
         Rohpdf::seite(
             {.inhalt = "1e308 w 1e308 0 0 1e308 1e308 1e308 cm 99999999999999999999 -1e99 m 1e300 1e300 l S"})},
        {"gestapelt", "a million states put on the stack",
         Rohpdf::seite({.inhaltsobjekt = Rohpdf::gepackterStrom(QByteArray("q ").repeated(1000000))})},
        {"bild-im-text", "an image in the drawing itself that claims ten thousand megapixels",
         Rohpdf::seite({.inhalt = "BI /W 100000 /H 100000 /BPC 8 /CS /RGB ID xyz EI"})},
        {"riesiges-bild", "an image of 3600 megapixels", riesigesBild(60000)},
        {"kaputtes-jpeg", "a JPEG whose header promises what does not follow", kaputtesJpeg()},
    };
}

QList<Fall> schriften()
{
    return {
        {"cmap-in-sich", "a character map that uses itself", cmapInSich()},
        {"schrift-in-sich", "a composed font that is its own descendant", schriftInSich()},
        {"buchstabe-in-sich", "a letter that is drawn by writing it", buchstabeSchreibtSich()},
        {"name-mit-null", "names with a zero byte",
         Rohpdf::seite({.inhalt = "/F#00#00 gs BT /F#00 9 Tf (A) Tj ET", .eintraege = QByteArray("/A\0B/C#00 1", 11)})},
    };
}

QList<Fall> kaesten()
{
    return {
        {"kasten-200000", "a page of seventy metres", Rohpdf::seite({.kasten = "0 0 200000 200000"})},
        {"kasten-milliarde", "a page of 350 kilometres", Rohpdf::seite({.kasten = "0 0 1000000000 1000000000"})},
        {"kasten-band", "a page of seventy metres by an inch", Rohpdf::seite({.kasten = "0 0 200000 72"})},
        {"kasten-null", "a page without extent", Rohpdf::seite({.kasten = "0 0 0 0"})},
        {"kasten-verkehrt", "a page from right to left in the negative", Rohpdf::seite({.kasten = "-5 -5 -205 -205"})},
        {"kasten-nan", "a page whose extent is no number", Rohpdf::seite({.kasten = "nan inf 0 -inf"})},
        {"kasten-ueberlauf", "a page beyond every range", Rohpdf::seite({.kasten = "-1e308 -1e308 1e308 1e308"})},
        {"masseinheit", "a unit of a million points", Rohpdf::seite({.eintraege = "/UserUnit 1000000"})},
    };
}

QList<Fall> stroeme()
{
    const QByteArray ganz = Rohpdf::seite({.inhaltsobjekt = Rohpdf::gepackterStrom(QByteArray("q Q ").repeated(99))});
    return {
        {"bombe", "100 MB of blanks, deflated twice",
         Rohpdf::seite({.inhaltsobjekt = Rohpdf::gepackterStrom(QByteArray(100 * 1000 * 1000, ' '), 2)})},
        {"filterkette", "a thousand filters one after the other", filterkette(1000)},
        {"laenge-zu-gross", "a stream that is shorter than it says",
         Rohpdf::seite({.inhaltsobjekt = "<</Length 999999999>>stream\nq Q\nendstream"})},
        {"laenge-negativ", "a stream of negative length",
         Rohpdf::seite({.inhaltsobjekt = "<</Length -1>>stream\nq Q\nendstream"})},
        {"laenge-in-sich", "a stream whose length is the stream",
         Rohpdf::seite({.inhaltsobjekt = "<</Length 4 0 R>>stream\nq Q\nendstream"})},
        {"abgeschnitten", "ends in the midst of a stream", ganz.first(ganz.indexOf("stream\n") + 15)},
        {"verweis-auf-sich", "an object that is a reference to itself", Rohpdf::seite({.inhaltsobjekt = "4 0 R"})},
        {"klammern", "a hundred thousand lists, each in the other",
         Rohpdf::gepackteDatei({"<</Type/Catalog/Pages 2 0 R>>", "<</Type/Pages/Kids[3 0 R]/Count 1>>",
                                "<</Type/Page/Parent 2 0 R/MediaBox[0 0 200 200]/X" + QByteArray(100000, '[') +
                                    QByteArray(100000, ']') + ">>"})},
    };
}

QList<Fall> tafeln()
{
    return {
        {"prev-minus-eins", "the table of places before this one lies before the file",
         Rohpdf::seite({.imTrailer = "/Prev -1"})},
        {"prev-in-sich", "the table of places before this one is this one", prevAufSich()},
        {"prev-dahinter", "the table of places before this one lies behind the file",
         Rohpdf::seite({.imTrailer = "/Prev 4000000000"})},
        {"objektstrom-in-sich", "a stream of objects that holds and extends itself", objektstromInSich()},
        {"anzahl", "a table of places for two thousand million objects",
         Rohpdf::seite({}).replace("/Size 6", "/Size 2147483647")},
    };
}

QList<Fall> verschluesselte()
{
    return {
        {"rc4-40", "encrypted with RC4 of 40 bits", verschluesselt("/V 1/R 2", 32)},
        {"rc4-128", "encrypted with RC4 of 128 bits", verschluesselt("/V 2/R 3/Length 128", 32)},
        {"aes-128", "encrypted with AES of 128 bits",
         verschluesselt("/V 4/R 4/Length 128/CF<</StdCF<</CFM/AESV2/Length 16>>>>/StmF/StdCF/StrF/StdCF", 32)},
        {"aes-256-r5", "encrypted with AES of 256 bits, the first way", aes256("5")},
        {"aes-256-r6", "encrypted with AES of 256 bits, the second way", aes256("6")},
    };
}
} // namespace

QList<Fall> FeindlichePdfs::alle()
{
    // Deflating what is to be inflated takes a second or two.
    static const QList<Fall> faelle =
        seitenbaum() + zeichnungen() + schriften() + kaesten() + stroeme() + tafeln() + verschluesselte();
    return faelle;
}

QByteArray FeindlichePdfs::bytesVon(const QByteArray &name)
{
    for (const Fall &fall : alle()) {
        if (fall.name == name)
            return fall.bytes;
    }
    return {};
}
