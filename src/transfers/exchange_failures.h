#pragma once

#include "runtime/failure.h"

#include <curl/curl.h>

#include <string_view>

namespace lookfar {

/// How far an exchange with a host has come.
enum class ExchangeStage {
    connecting,
    /// The host is asked, and has not sent the whole head of its answer.
    reading_head,
    reading_body
};

/// How libcurl has ended an exchange.
struct ExchangeEnd {
    CURLcode code = CURLE_OK;
    ExchangeStage stage = ExchangeStage::connecting;
    /// What a proxy has answered to the wish for a tunnel to the host; zero without one.
    long tunnel_status = 0;
    /// The host was to be asked through a proxy.
    bool is_by_proxy = false;
    /// What libcurl tells of it; may be empty.
    std::string_view words = {};
};

/// What the user is told of an exchange that has failed. All that a host or a proxy can cause has a
/// number and a text here that are the same with every version of libcurl. The rest has libcurl's.
Failure failure_of(const ExchangeEnd& end);

Failure answer_too_large();
Failure answer_head_too_large();
Failure too_little_memory_for_answer();

} // namespace lookfar
