#pragma once

#include "runtime/failure.h"

#include <curl/curl.h>

#include <memory>
#include <string>

namespace lookfar {

/// libcurl's own number and text.
Failure failure_of(CURLcode code);

/// Keeps libcurl started while it lives. libcurl counts its starts, so every user of it may have
/// one of these.
class CurlLibrary {
  public:
    CurlLibrary();
    CurlLibrary(const CurlLibrary&) = delete;
    CurlLibrary& operator=(const CurlLibrary&) = delete;
    ~CurlLibrary();
};

struct EasyCleanup {
    void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
};
struct MultiCleanup {
    void operator()(CURLM* handle) const { curl_multi_cleanup(handle); }
};
struct UrlCleanup {
    void operator()(CURLU* handle) const { curl_url_cleanup(handle); }
};
struct TextCleanup {
    void operator()(char* text) const { curl_free(text); }
};
struct LinesCleanup {
    void operator()(curl_slist* lines) const { curl_slist_free_all(lines); }
};
using EasyHandle = std::unique_ptr<CURL, EasyCleanup>;
using MultiHandle = std::unique_ptr<CURLM, MultiCleanup>;
using UrlHandle = std::unique_ptr<CURLU, UrlCleanup>;
/// A text that libcurl has handed out.
using CurlText = std::unique_ptr<char, TextCleanup>;

using HeaderLines = std::unique_ptr<curl_slist, LinesCleanup>;

/// They throw a Failure if libcurl gives no handle.
EasyHandle make_easy_handle();
MultiHandle make_multi_handle();
UrlHandle make_url_handle();

/// The URL that was asked last, behind all redirects.
std::string final_url(CURL* handle);

/// Adds a line behind the others. Throws a Failure where there is no memory for it.
void append(HeaderLines& lines, const std::string& line);

} // namespace lookfar
