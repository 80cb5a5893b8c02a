#include "transfers/curl_handles.h"

#include <tuple>

namespace lookfar {

Failure failure_of(CURLcode code) {
    return Failure(code, curl_easy_strerror(code));
}

CurlLibrary::CurlLibrary() {
    if (const CURLcode code = curl_global_init(CURL_GLOBAL_DEFAULT); code != CURLE_OK)
        throw failure_of(code);
}

CurlLibrary::~CurlLibrary() {
    curl_global_cleanup();
}

std::string final_url(CURL* handle) {
    const char* url = nullptr;
    curl_easy_getinfo(handle, CURLINFO_EFFECTIVE_URL, &url);
    return url ? url : "";
}

void append(HeaderLines& lines, const std::string& line) {
    curl_slist* const all = curl_slist_append(lines.get(), line.c_str());
    if (!all)
        throw failure_of(CURLE_OUT_OF_MEMORY);
    std::ignore = lines.release();
    lines.reset(all);
}

} // namespace lookfar
