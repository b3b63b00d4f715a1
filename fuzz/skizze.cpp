#include "skizze.h"
#include "pruefziel.h"

using namespace quillmar::analyse;

/** A stored sketch of any text, and the sketch of any text: at most 64 values, the same after storing. */
void pruefen(const QByteArray &eingabe)
{
    const QString text = QString::fromUtf8(eingabe);
    static_cast<void>(Skizze::ausJson(text));
    const Skizze skizze(text);
    const QList<quint64> werte = skizze.werte();
    verlangen(werte.size() <= Skizze::umfang);
    const auto noch = Skizze::ausJson(Skizze::json(werte));
    // Qt compares empty lists by memcmp with null pointers, which the sanitizer does not like.
    verlangen(noch && noch->size() == werte.size() && (werte.isEmpty() || *noch == werte));
    static_cast<void>(skizze.textHash());
}
