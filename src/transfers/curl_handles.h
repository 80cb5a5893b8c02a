#pragma once

#include "runtime/failure.h"

#include <curl/curl.h>

#include <memory>

namespace lookfar {

/// The library's own number and text.
Failure failure_of(CURLcode code);

/// Keeps the library started while it lives. The library counts its starts, so every user of it may
/// have one of these.
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
using EasyHandle = std::unique_ptr<CURL, EasyCleanup>;
using MultiHandle = std::unique_ptr<CURLM, MultiCleanup>;

/// Both throw a Failure if the library gives no handle.
EasyHandle make_easy_handle();
MultiHandle make_multi_handle();

} // namespace lookfar
