#include "satz.h"

#include "fehlschlag.h"

#include <QHash>
#include <array>

using namespace Qt::StringLiterals;

namespace vorfuehrung
{

namespace
{

constexpr double rand = 68;
constexpr double satzbreite = seitenbreite - 2 * rand;

struct Schnitt {
    QByteArray schrift;
    double grad;
    double abstand;
};

/** Advance widths of Helvetica from the blank to the tilde, in thousandths. */
constexpr std::array<int, 95> breiten{278,  278, 355, 556, 556, 889, 667, 191, 333, 333, 389, 584, 278, 333, 278, 278,
                                      556,  556, 556, 556, 556, 556, 556, 556, 556, 556, 278, 278, 584, 584, 584, 556,
                                      1015, 667, 667, 722, 722, 667, 611, 778, 722, 278, 500, 667, 556, 833, 722, 778,
                                      667,  778, 722, 667, 611, 722, 667, 944, 667, 667, 611, 278, 278, 278, 469, 556,
                                      333,  556, 556, 500, 556, 556, 278, 556, 556, 222, 222, 500, 222, 833, 556, 556,
                                      556,  556, 333, 500, 278, 556, 500, 722, 500, 500, 500, 334, 260, 334, 584};

double breite(const QString &text, const Schnitt &schnitt)
{
    double summe = 0;
    for (const QChar zeichen : text) {
        const int stelle = zeichen.unicode() - u' ';
        summe += stelle >= 0 && stelle < static_cast<int>(breiten.size()) ? breiten[static_cast<size_t>(stelle)] : 600;
    }
    return summe * schnitt.grad / 1000;
}

char winAnsi(QChar zeichen)
{
    static const QHash<char16_t, char> sonder{{u'€', '\x80'}, {u'„', '\x84'}, {u'–', '\x96'}, {u'“', '\x93'}};
    if (sonder.contains(zeichen.unicode()))
        return sonder.value(zeichen.unicode());
    const char byte = zeichen.toLatin1();
    if (byte == 0)
        throw Fehlschlag(u"Zeichen ist nicht im Zeichensatz: "_s + zeichen);
    return byte;
}

QByteArray zeichenkette(const QString &text)
{
    QByteArray kette = "(";
    for (const QChar zeichen : text) {
        const char byte = winAnsi(zeichen);
        if (byte == '(' || byte == ')' || byte == '\\')
            kette += '\\';
        kette += byte;
    }
    return kette + ')';
}

QByteArray zahl(double wert) { return QByteArray::number(wert, 'f', 2); }

class Blatt
{
public:
    void zeile(const QString &roh)
    {
        if (roh.isEmpty()) {
            m_hoehe -= 11;
            return;
        }
        const Schnitt schnitt = schnittVon(roh);
        const QString text =
            roh.startsWith(u"# "_s) || roh.startsWith(u"* "_s) || roh.startsWith(u"~ "_s) ? roh.mid(2) : roh;
        const qsizetype sprung = text.indexOf(u'\t');
        if (sprung >= 0)
            spalten(text.left(sprung), text.mid(sprung + 1), schnitt);
        else
            umbrochen(text, schnitt);
    }

    [[nodiscard]] QByteArray inhalt() const { return m_inhalt; }

private:
    static Schnitt schnittVon(const QString &roh)
    {
        if (roh.startsWith(u"# "_s))
            return {"F2", 17, 25};
        if (roh.startsWith(u"* "_s))
            return {"F2", 11, 16};
        if (roh.startsWith(u"~ "_s))
            return {"F1", 9.5, 16};
        return {"F1", 11, 14.5};
    }

    void setzen(const QString &text, double x, const Schnitt &schnitt)
    {
        m_inhalt += "BT /" + schnitt.schrift + ' ' + zahl(schnitt.grad) + " Tf 1 0 0 1 " + zahl(x) + ' ' +
                    zahl(m_hoehe) + " Tm " + zeichenkette(text) + " Tj ET\n";
    }

    void weiter(const Schnitt &schnitt)
    {
        m_hoehe -= schnitt.abstand;
        if (m_hoehe < rand - 20)
            throw Fehlschlag(u"Die Seite ist voll."_s);
    }

    void spalten(const QString &links, const QString &rechts, const Schnitt &schnitt)
    {
        setzen(links, rand, schnitt);
        setzen(rechts, seitenbreite - rand - breite(rechts, schnitt), schnitt);
        weiter(schnitt);
    }

    void umbrochen(const QString &text, const Schnitt &schnitt)
    {
        QString reihe;
        for (const QString &wort : text.split(u' ')) {
            const QString laenger = reihe.isEmpty() ? wort : reihe + u' ' + wort;
            if (breite(laenger, schnitt) > satzbreite) {
                setzen(reihe, rand, schnitt);
                weiter(schnitt);
                reihe = wort;
            } else {
                reihe = laenger;
            }
        }
        setzen(reihe, rand, schnitt);
        weiter(schnitt);
    }

    QByteArray m_inhalt;
    double m_hoehe = seitenhoehe - 75;
};

} // namespace

QByteArray seitenSatz(const QStringList &zeilen)
{
    Blatt blatt;
    for (const QString &zeile : zeilen)
        blatt.zeile(zeile);
    return blatt.inhalt();
}

} // namespace vorfuehrung
