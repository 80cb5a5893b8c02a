#include "transfers/complaint.h"

#include "transfers/ascii.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace lookfar {

namespace {

constexpr int unauthorized = 401;
constexpr int proxy_authentication_required = 407;

struct Reason {
    int status;
    std::string_view phrase;
};

/// The phrases of the standard that cameras have use for, since hosts send any or none.
constexpr std::array reasons{
    Reason{400, "Bad Request"},
    Reason{403, "Forbidden"},
    Reason{404, "Not Found"},
    Reason{405, "Method Not Allowed"},
    Reason{410, "Gone"},
    Reason{429, "Too Many Requests"},
    Reason{500, "Internal Server Error"},
    Reason{502, "Bad Gateway"},
    Reason{503, "Service Unavailable"},
    Reason{504, "Gateway Timeout"},
};

std::string with_reason(long status) {
    const auto* const found = std::ranges::find(reasons, status, &Reason::status);
    const std::string number = std::to_string(status);
    return found == reasons.end() ? number : number + " " + std::string(found->phrase);
}

std::string complaint_about_credentials(Credentials credentials) {
    switch (credentials) {
    case Credentials::none:
        return "The camera asks for a user name and a password (401).";
    case Credentials::untold:
        return "The camera asks for the password in a way that isn't known (401).";
    default:
        return "The camera refuses the user name or the password (401).";
    }
}

std::string complaint_about_status(const Answer& answer) {
    if (answer.status == unauthorized)
        return complaint_about_credentials(answer.credentials);
    if (answer.status == proxy_authentication_required)
        return "The proxy asks for a user name and a password (407).";
    return "The camera answered " + with_reason(answer.status) + ".";
}

bool begins_web_page(const Bytes& body) {
    constexpr std::size_t far_enough = 1024;
    const std::string start = in_small_letters(
        {reinterpret_cast<const char*>(body.data()), std::min(body.size(), far_enough)});
    const std::size_t first =
        std::min(start.find_first_not_of(" \t\r\n\xEF\xBB\xBF"), start.size());
    const std::string_view text = std::string_view(start).substr(first);
    return text.starts_with("<!doctype html") || text.starts_with("<html");
}

bool is_web_page(const Answer& answer) {
    return answer.media_type == "text/html" || answer.media_type == "application/xhtml+xml" ||
           begins_web_page(answer.body);
}

} // namespace

std::string complaint_about(const Answer& answer) {
    constexpr long successes = 200;
    constexpr long redirects = 300;
    if (answer.status < successes || answer.status >= redirects)
        return complaint_about_status(answer);
    if (answer.body.empty())
        return "The camera's answer holds no bytes.";
    if (is_web_page(answer))
        return "The camera's answer is a web page, not a picture.";
    if (answer.media_type.empty())
        return "The camera's answer is not a picture.";
    return "The camera's answer is not a picture that can be shown. The camera calls it " +
           answer.media_type + ".";
}

} // namespace lookfar
