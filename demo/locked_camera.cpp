#include "demo/locked_camera.h"

#include <QByteArray>
#include <QCryptographicHash>
#include <string_view>
#include <utility>

namespace lookfar::demo {
namespace {

constexpr std::string_view realm = "camera";
constexpr std::string_view nonce = "60d1e5c0";

Answer challenge(std::string how) {
    Answer answer = status_page(401);
    answer.headers.push_back({"WWW-Authenticate", std::move(how)});
    return answer;
}

std::string base64(const std::string& text) {
    return QByteArray::fromStdString(text).toBase64().toStdString();
}

std::string md5(const std::string& text) {
    const QByteArray bytes = QByteArray::fromStdString(text);
    return QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex().toStdString();
}

/// The quoted value of a field, or nothing.
std::string_view field(std::string_view header, const std::string& name) {
    const std::string start = name + "=\"";
    const std::size_t found = header.find(start);
    if (found == std::string_view::npos) {
        return {};
    }
    header.remove_prefix(found + start.size());
    return header.substr(0, header.find('"'));
}

std::string expected_digest(const Account& account, const Request& request) {
    const std::string secret =
        md5(account.user + ":" + std::string(realm) + ":" + account.password);
    const std::string question = md5("GET:" + request.path);
    return md5(secret + ":" + std::string(nonce) + ":" + question);
}

} // namespace

Responder locked_by_basic(Answer inside, const Account& account) {
    const std::string key = "Basic " + base64(account.user + ":" + account.password);
    return [inside = std::move(inside), key](const Request& request) {
        const bool is_open = request.header("Authorization") == key;
        return is_open ? inside : challenge("Basic realm=\"" + std::string(realm) + "\"");
    };
}

Responder locked_by_digest(Answer inside, Account account) {
    return [inside = std::move(inside), account = std::move(account)](const Request& request) {
        const std::string key = request.header("Authorization").value_or("");
        const bool is_open = field(key, "username") == account.user &&
                             field(key, "response") == expected_digest(account, request);
        return is_open ? inside
                       : challenge("Digest realm=\"" + std::string(realm) + "\", nonce=\"" +
                                   std::string(nonce) + "\"");
    };
}

} // namespace lookfar::demo
