#pragma once

#include "namensraeume.h"

#include <curl/curl.h>

namespace quillmar::analyse
{
/**
 * libcurl, loaded at its first use. It brings some thirty libraries along: linked, they would make up a third of the
 * start of every console command, most of which ask nobody.
 */
class Curlbibliothek
{
public:
    /** Throws Fehler when it is not there. */
    [[nodiscard]] static const Curlbibliothek &geladen();

    decltype(&curl_global_init) globalInit = nullptr;
    decltype(&curl_easy_init) easyInit = nullptr;
    decltype(&curl_easy_setopt) easySetopt = nullptr;
    decltype(&curl_easy_getinfo) easyGetinfo = nullptr;
    decltype(&curl_easy_cleanup) easyCleanup = nullptr;
    decltype(&curl_multi_init) multiInit = nullptr;
    decltype(&curl_multi_add_handle) multiAddHandle = nullptr;
    decltype(&curl_multi_remove_handle) multiRemoveHandle = nullptr;
    decltype(&curl_multi_perform) multiPerform = nullptr;
    decltype(&curl_multi_poll) multiPoll = nullptr;
    decltype(&curl_multi_wakeup) multiWakeup = nullptr;
    decltype(&curl_multi_info_read) multiInfoRead = nullptr;
    decltype(&curl_multi_cleanup) multiCleanup = nullptr;
    decltype(&curl_slist_append) slistAppend = nullptr;
    decltype(&curl_slist_free_all) slistFreeAll = nullptr;

private:
    Curlbibliothek();
};
} // namespace quillmar::analyse
