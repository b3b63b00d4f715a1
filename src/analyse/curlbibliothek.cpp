#include "curlbibliothek.h"

#include "fehler.h"
#include "sprache.h"

#include <QLibrary>

using namespace Qt::StringLiterals;

namespace quillmar::analyse
{
namespace
{
constexpr int fassung = 4; // of its binary interface

template <typename Funktion>
void holen(QLibrary &bibliothek, const char *name, Funktion &funktion)
{
    funktion = reinterpret_cast<Funktion>(bibliothek.resolve(name));
    if (!funktion)
        throw Fehler(Sprache::text(u"Die Programmbibliothek libcurl lässt sich nicht laden"_s));
}
} // namespace

Curlbibliothek::Curlbibliothek()
{
    QLibrary bibliothek(u"curl"_s, fassung); // stays loaded when this object goes
    holen(bibliothek, "curl_global_init", globalInit);
    holen(bibliothek, "curl_easy_init", easyInit);
    holen(bibliothek, "curl_easy_setopt", easySetopt);
    holen(bibliothek, "curl_easy_getinfo", easyGetinfo);
    holen(bibliothek, "curl_easy_cleanup", easyCleanup);
    holen(bibliothek, "curl_multi_init", multiInit);
    holen(bibliothek, "curl_multi_add_handle", multiAddHandle);
    holen(bibliothek, "curl_multi_remove_handle", multiRemoveHandle);
    holen(bibliothek, "curl_multi_perform", multiPerform);
    holen(bibliothek, "curl_multi_poll", multiPoll);
    holen(bibliothek, "curl_multi_wakeup", multiWakeup);
    holen(bibliothek, "curl_multi_info_read", multiInfoRead);
    holen(bibliothek, "curl_multi_cleanup", multiCleanup);
    holen(bibliothek, "curl_slist_append", slistAppend);
    holen(bibliothek, "curl_slist_free_all", slistFreeAll);
    globalInit(CURL_GLOBAL_NOTHING);
}

const Curlbibliothek &Curlbibliothek::geladen()
{
    static const Curlbibliothek einzige;
    return einzige;
}
} // namespace quillmar::analyse
