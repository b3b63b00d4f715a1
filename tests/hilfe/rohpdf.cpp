#include "rohpdf.h"

#include <QtEndian>

namespace
{
const QByteArray kopf = "%PDF-1.5\n";
const QByteArray schrift = "<</Type/Font/Subtype/Type1/BaseFont/Helvetica>>";

QByteArray zahl(qsizetype n) { return QByteArray::number(n); }

QByteArray schluss(qsizetype tafel) { return "startxref\n" + zahl(tafel) + "\n%%EOF\n"; }

QByteArray objekt(qsizetype nummer, const QByteArray &inhalt)
{
    return zahl(nummer) + " 0 obj\n" + inhalt + "\nendobj\n";
}

QByteArray seitenobjekt(const Rohpdf::Seite &s, qsizetype inhalt, qsizetype schriftnummer)
{
    return "<</Type/Page/Parent 2 0 R/MediaBox[" + s.kasten + "]/Contents " + zahl(inhalt) +
           " 0 R/Resources<</Font<</F " + zahl(schriftnummer) + " 0 R>>" + s.mittel + ">>" + s.eintraege + ">>";
}

/** Deflated as PDF wants it: qCompress puts four bytes of length in front. */
QByteArray gepackt(const QByteArray &bytes) { return qCompress(bytes, 9).mid(4); }

/** A row of the table of places: kind, place or stream, number in the stream. */
QByteArray eintrag(char art, quint32 stelle, quint16 nummer)
{
    QByteArray bytes(7, art);
    qToBigEndian(stelle, bytes.data() + 1);
    qToBigEndian(nummer, bytes.data() + 5);
    return bytes;
}
} // namespace

QByteArray Rohpdf::datei(const QList<QByteArray> &objekte, const QByteArray &imTrailer)
{
    QByteArray bytes = kopf;
    QByteArray tafel;
    for (qsizetype i = 0; i < objekte.size(); ++i) {
        tafel += zahl(bytes.size()).rightJustified(10, '0') + " 00000 n \n";
        bytes += objekt(i + 1, objekte.at(i));
    }
    const QByteArray anzahl = zahl(objekte.size() + 1);
    return bytes + "xref\n0 " + anzahl + "\n0000000000 65535 f \n" + tafel + "trailer\n<</Size " + anzahl +
           "/Root 1 0 R" + imTrailer + ">>\n" + schluss(bytes.size());
}

QByteArray Rohpdf::gepackteDatei(const QList<QByteArray> &objekte)
{
    QByteArray verzeichnis;
    QByteArray inhalte;
    const auto stromnummer = quint32(objekte.size() + 1);
    QByteArray tafel = eintrag(0, 0, 65535);
    for (qsizetype i = 0; i < objekte.size(); ++i) {
        verzeichnis += zahl(i + 1) + ' ' + zahl(inhalte.size()) + ' ';
        inhalte += objekte.at(i) + '\n';
        tafel += eintrag(2, stromnummer, quint16(i));
    }
    tafel += eintrag(1, quint32(kopf.size()), 0);
    const QByteArray bytes =
        kopf + objekt(stromnummer, strom(gepackt(verzeichnis + inhalte), "/Type/ObjStm/Filter/FlateDecode/N " +
                                                                             zahl(objekte.size()) + "/First " +
                                                                             zahl(verzeichnis.size())));
    tafel += eintrag(1, quint32(bytes.size()), 0);
    return bytes +
           objekt(stromnummer + 1, strom(gepackt(tafel), "/Type/XRef/Filter/FlateDecode/W[1 4 2]/Root 1 0 R/Size " +
                                                             zahl(stromnummer + 2))) +
           schluss(bytes.size());
}

QByteArray Rohpdf::strom(const QByteArray &inhalt, const QByteArray &eintraege)
{
    return "<<" + eintraege + "/Length " + zahl(inhalt.size()) + ">>stream\n" + inhalt + "\nendstream";
}

QByteArray Rohpdf::gepackterStrom(QByteArray inhalt, int mal)
{
    for (int n = 0; n < mal; ++n)
        inhalt = gepackt(inhalt);
    return strom(inhalt, "/Filter[" + QByteArray("/FlateDecode").repeated(mal) + ']');
}

QByteArray Rohpdf::seite(const Seite &s)
{
    QList<QByteArray> objekte = {
        "<</Type/Catalog/Pages 2 0 R>>",
        s.seitenbaum.isEmpty() ? QByteArray("<</Type/Pages/Kids[3 0 R]/Count 1>>") : s.seitenbaum,
        seitenobjekt(s, 4, 5),
        s.inhaltsobjekt.isEmpty() ? strom(s.inhalt) : s.inhaltsobjekt,
        schrift,
    };
    return datei(objekte + s.weitere, s.imTrailer);
}

QByteArray Rohpdf::seiten(const QList<Seite> &seiten)
{
    QByteArray kinder;
    QList<QByteArray> objekte = {"<</Type/Catalog/Pages 2 0 R>>", {}, schrift};
    for (const Seite &s : seiten) {
        kinder += zahl(objekte.size() + 1) + " 0 R ";
        objekte << seitenobjekt(s, objekte.size() + 2, 3) << strom(s.inhalt);
    }
    objekte[1] = "<</Type/Pages/Kids[" + kinder + "]/Count " + zahl(seiten.size()) + ">>";
    return datei(objekte);
}
