#include "transfers/exchange_failures.h"

#include "runtime/text.h"
#include "transfers/curl_handles.h"

#include <algorithm>
#include <array>
#include <string>

namespace lookfar {

namespace {

/// Since libcurl 8.6, which names it CURLE_TOO_LARGE. Before, a line of a header or a trailer that
/// is too long ended as if there were no memory for it.
constexpr auto value_too_large = static_cast<CURLcode>(100);

constexpr const char* not_received = "The camera's answer can't be received.";
constexpr const char* not_unpacked =
    "The camera's answer is compressed in a way that can't be unpacked.";

struct Sentence {
    CURLcode code;
    const char* text;
};

constexpr std::array sentences{
    Sentence{CURLE_COULDNT_RESOLVE_PROXY, "The host name of the proxy isn't known."},
    Sentence{CURLE_COULDNT_RESOLVE_HOST, "The host name of the camera isn't known."},
    Sentence{CURLE_COULDNT_CONNECT, "The camera can't be reached."},
    Sentence{CURLE_HTTP2, not_received},
    Sentence{CURLE_PARTIAL_FILE, "The camera's answer ends too early."},
    Sentence{CURLE_OUT_OF_MEMORY, "There is not enough memory for the camera's answer."},
    Sentence{CURLE_OPERATION_TIMEDOUT, "The wait for the camera's picture has timed out."},
    Sentence{CURLE_SSL_CONNECT_ERROR, "No secure connection to the camera can be made."},
    Sentence{CURLE_TOO_MANY_REDIRECTS, "The camera redirects too many times."},
    Sentence{CURLE_GOT_NOTHING, "The camera has hung up without an answer."},
    Sentence{CURLE_SEND_ERROR, "The camera has hung up before it was asked."},
    Sentence{CURLE_RECV_ERROR, not_received},
    Sentence{CURLE_PEER_FAILED_VERIFICATION, "The camera's certificate can't be trusted."},
    Sentence{CURLE_BAD_CONTENT_ENCODING, not_unpacked},
    Sentence{CURLE_FILESIZE_EXCEEDED, "The answer is larger than 64 MiB."},
    Sentence{CURLE_HTTP2_STREAM, not_received},
    Sentence{CURLE_AUTH_ERROR, "The camera asks for a password in a way that isn't known."},
    Sentence{CURLE_PROXY, "The proxy does not connect to the camera."},
};

Failure libcurls_own(const ExchangeEnd& end) {
    return end.words.empty() ? failure_of(end.code) : Failure(end.code, as_utf8(end.words));
}

Failure sentence_for(const ExchangeEnd& end) {
    const auto* const found = std::ranges::find(sentences, end.code, &Sentence::code);
    return found == sentences.end() ? libcurls_own(end) : Failure(end.code, found->text);
}

bool is_of_another_protocol(const ExchangeEnd& end) {
    return end.code == CURLE_WEIRD_SERVER_REPLY ||
           (end.code == CURLE_UNSUPPORTED_PROTOCOL && end.stage == ExchangeStage::reading_head);
}

bool is_of_too_long_line(const ExchangeEnd& end) {
    return end.code == value_too_large || end.code == CURLE_OUT_OF_MEMORY;
}

bool is_refused_tunnel(const ExchangeEnd& end) {
    constexpr long lowest_refusal = 300;
    return end.tunnel_status >= lowest_refusal;
}

} // namespace

Failure failure_of(const ExchangeEnd& end) {
    if (is_refused_tunnel(end))
        return {CURLE_RECV_ERROR, "The proxy does not connect to the camera (" +
                                      std::to_string(end.tunnel_status) + ")."};
    if (end.code == CURLE_COULDNT_CONNECT && end.is_by_proxy)
        return {end.code, "The proxy can't be reached."};
    if (is_of_another_protocol(end))
        return {CURLE_UNSUPPORTED_PROTOCOL, "The camera's answer is not HTTP."};
    if (end.stage == ExchangeStage::reading_head && is_of_too_long_line(end))
        return answer_head_too_large();
    if (end.stage == ExchangeStage::reading_body && is_of_too_long_line(end))
        return sentence_for({.code = CURLE_RECV_ERROR});
    if (end.code == CURLE_UNSUPPORTED_PROTOCOL || end.code == CURLE_URL_MALFORMAT)
        return {end.code, "The camera redirects to no address of http or https."};
    // What can't be unpacked can fail to be written, too.
    if (end.code == CURLE_WRITE_ERROR)
        return {CURLE_BAD_CONTENT_ENCODING, not_unpacked};
    return sentence_for(end);
}

Failure answer_too_large() {
    return sentence_for({.code = CURLE_FILESIZE_EXCEEDED});
}

Failure answer_head_too_large() {
    return {CURLE_OUT_OF_MEMORY, "The answer's header is too large."};
}

Failure too_little_memory_for_answer() {
    return sentence_for({.code = CURLE_OUT_OF_MEMORY});
}

} // namespace lookfar
