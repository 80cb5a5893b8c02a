#include "transfers/address.h"

#include "runtime/failure.h"
#include "transfers/curl_handles.h"
#include "transfers/typed_address.h"

#include <clocale>

namespace lookfar {

namespace {

const char* fault_of(CURLUcode code) {
    switch (code) {
    case CURLUE_BAD_PORT_NUMBER:
        return "The port in the address is not a number from 0 to 65535.";
    case CURLUE_NO_HOST:
        return "The address has no host name.";
    case CURLUE_BAD_HOSTNAME:
    case CURLUE_BAD_IPV6:
    case CURLUE_OUT_OF_MEMORY: // libcurl's answer to a name that IDNA refuses.
        return "The host name in the address is not a valid one.";
    default:
        return "The address is not a valid one.";
    }
}

void require(CURLUcode code) {
    if (code != CURLUE_OK)
        throw Failure(CURLE_URL_MALFORMAT, fault_of(code));
}

/// Has libcurl read host names as UTF-8 on this thread, whatever the user's locale is.
class Utf8HostNames {
  public:
    Utf8HostNames()
        : utf8_(newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr)), before_(uselocale(utf8_)) {}
    Utf8HostNames(const Utf8HostNames&) = delete;
    Utf8HostNames& operator=(const Utf8HostNames&) = delete;
    ~Utf8HostNames() {
        uselocale(before_);
        if (utf8_)
            freelocale(utf8_);
    }

  private:
    locale_t utf8_;
    locale_t before_;
};

/// Cuts the part out of the URL. It is empty where the URL has none.
std::string extract(CURLU* url, CURLUPart part) {
    char* text = nullptr;
    const CURLUcode code = curl_url_get(url, part, &text, CURLU_URLDECODE);
    if (code == CURLUE_NO_USER || code == CURLUE_NO_PASSWORD)
        return {};
    require(code);
    const CurlText owner(text);
    require(curl_url_set(url, part, nullptr, 0));
    return text;
}

std::string whole(CURLU* url) {
    const Utf8HostNames host_names;
    char* text = nullptr;
    require(curl_url_get(url, CURLUPART_URL, &text, CURLU_PUNYCODE));
    const CurlText owner(text);
    return text;
}

} // namespace

Address address_of(std::string_view text) {
    if (text.size() > longest_address)
        throw Failure(CURLE_URL_MALFORMAT, "The address is too long.");
    const auto url = owned<UrlHandle>(curl_url(), CURLE_OUT_OF_MEMORY);
    require(curl_url_set(url.get(), CURLUPART_URL, url_text_of(text).c_str(), 0));
    require(curl_url_set(url.get(), CURLUPART_FRAGMENT, nullptr, 0));
    Address address;
    address.user_name = extract(url.get(), CURLUPART_USER);
    address.password = extract(url.get(), CURLUPART_PASSWORD);
    address.url = whole(url.get());
    return address;
}

} // namespace lookfar
