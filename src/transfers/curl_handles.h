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

/// Hands an object back to libcurl by a function of its own.
template <auto clean_up>
struct Cleanup {
    template <class Object>
    void operator()(Object* object) const {
        clean_up(object);
    }
};
using EasyHandle = std::unique_ptr<CURL, Cleanup<curl_easy_cleanup>>;
using MultiHandle = std::unique_ptr<CURLM, Cleanup<curl_multi_cleanup>>;
using UrlHandle = std::unique_ptr<CURLU, Cleanup<curl_url_cleanup>>;
/// A text that libcurl has handed out.
using CurlText = std::unique_ptr<char, Cleanup<curl_free>>;
using HeaderLines = std::unique_ptr<curl_slist, Cleanup<curl_slist_free_all>>;

/// Takes over what libcurl has made. Throws a Failure with the code if that is nothing.
template <class Handle>
Handle owned(typename Handle::pointer made, CURLcode code = CURLE_FAILED_INIT) {
    if (!made)
        throw failure_of(code);
    return Handle(made);
}

/// The URL that was asked last, behind all redirects.
std::string final_url(CURL* handle);

/// Adds a line behind the others. Throws a Failure where there is no memory for it.
void append(HeaderLines& lines, const std::string& line);

} // namespace lookfar
