#include "ausgabe.h"

#include "text.h"

#include <QStringList>
#include <algorithm>
#include <cstdio>
#include <sys/ioctl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quillmar::app
{
namespace
{
constexpr int balkenBreite = 20;

int terminalBreite()
{
    struct winsize groesse = {};
    return ::ioctl(STDERR_FILENO, TIOCGWINSZ, &groesse) == 0 && groesse.ws_col > 0 ? groesse.ws_col : 80;
}

void schreiben(std::FILE *ziel, const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), ziel);
    std::fflush(ziel);
}
} // namespace

QString Ausgabe::sichtbar(const QString &text)
{
    constexpr char16_t bilder = 0x2400; // pictures of the control characters below 0x20, in their order
    QString ergebnis;
    ergebnis.reserve(text.size());
    for (const char32_t c : text.toUcs4()) {
        const auto art = QChar::category(c);
        if (c == U'\n' || c == U'\t' || (art != QChar::Other_Control && art != QChar::Other_Format))
            ergebnis += QStringView(QChar::fromUcs4(c));
        else
            ergebnis += c < 0x20 ? QChar(char16_t(bilder + c)) : QChar(c == 0x7F ? char16_t(0x2421) : u'\uFFFD');
    }
    return ergebnis;
}

QString Ausgabe::einzeilig(const QString &text)
{
    return sichtbar(QString(text).replace(u'\n', u'\u240A').replace(u'\t', u'\u2409'));
}

void Ausgabe::drucken(const QString &text) { schreiben(stdout, sichtbar(text) + u'\n'); }

void Ausgabe::melden(const QString &text) { schreiben(stderr, sichtbar(text) + u'\n'); }

Ausgabe::Statuszeile::Statuszeile() : m_terminal(::isatty(STDERR_FILENO) == 1) {}

Ausgabe::Statuszeile::~Statuszeile() { loeschen(); }

QString Ausgabe::Statuszeile::zeile(const QString &stufe, double anteil, const QString &meldung,
                                    const QString &restzeit, int breite)
{
    const int voll = int(std::clamp(anteil, 0.0, 1.0) * balkenBreite);
    QStringList teile = {stufe, u'[' + QString(voll, u'#') + QString(balkenBreite - voll, u'.') + u']', meldung,
                         restzeit};
    teile.removeAll(QString());
    return ersteZeichen(sichtbar(teile.join(u"  "_s)), breite - 1);
}

void Ausgabe::Statuszeile::zeigen(const QString &stufe, double anteil, const QString &meldung, const QString &restzeit)
{
    if (!m_terminal || stufe.isEmpty())
        return;
    const QString neu = zeile(stufe, anteil, meldung, restzeit, terminalBreite());
    if (neu == m_gezeigt)
        return;
    m_gezeigt = neu;
    schreiben(stderr, u"\r"_s + neu + u"\x1b[K"_s);
}

void Ausgabe::Statuszeile::loeschen()
{
    if (m_gezeigt.isEmpty())
        return;
    m_gezeigt.clear();
    schreiben(stderr, u"\r\x1b[K"_s);
}
} // namespace quillmar::app
