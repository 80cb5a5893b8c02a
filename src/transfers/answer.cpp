#include "transfers/answer.h"

#include "transfers/ascii.h"
#include "transfers/content_type.h"

namespace lookfar {

namespace {

/// The value of the last header of that name; empty where there is none.
std::string header(CURL* handle, const char* name) {
    constexpr int last_answer = -1;
    curl_header* header = nullptr;
    const bool is_there =
        curl_easy_header(handle, name, 0, CURLH_HEADER, last_answer, &header) == CURLHE_OK;
    return is_there ? header->value : "";
}

long status(CURL* handle) {
    long code = 0;
    curl_easy_getinfo(handle, CURLINFO_RESPONSE_CODE, &code);
    return code;
}

/// A weak tag begins with a letter. Hosts refuse a request whose head is too long, and a long tag
/// would be in every request from then on.
bool is_usable_tag(const std::string& tag) {
    constexpr std::size_t two_quotes = 2;
    constexpr std::size_t longest = 512;
    return tag.size() > two_quotes && tag.size() <= longest && tag.starts_with('"') &&
           tag.ends_with('"');
}

std::string entity_tag(CURL* handle) {
    const std::string tag = header(handle, "ETag");
    return is_usable_tag(tag) ? tag : std::string();
}

} // namespace

Answer answer_head(CURL* handle, const Address& asked, bool are_credentials_told) {
    const std::string rules = in_small_letters(header(handle, "Cache-Control"));
    const bool is_redirected = final_url(handle) != asked.url;
    return {.status = status(handle),
            .media_type = media_type_of(header(handle, "Content-Type")),
            .entity_tag = entity_tag(handle),
            .forbids_storing = rules.find("no-store") != std::string::npos,
            .is_packed = !header(handle, "Content-Encoding").empty(),
            .credentials = !asked.has_credentials() || is_redirected ? Credentials::none
                           : are_credentials_told                    ? Credentials::told
                                                                     : Credentials::untold};
}

} // namespace lookfar
