#include "demo/locked_camera.h"

#include <QByteArray>
#include <QCryptographicHash>

namespace lookfar::demo {

namespace {

std::string md5(const std::string& text) {
    const QByteArray bytes = QByteArray::fromStdString(text);
    return QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex().toStdString();
}

Answer challenge(const std::string& how) {
    Answer answer = status_page(401);
    answer.headers = {{"WWW-Authenticate", how}};
    return answer;
}

std::string key_of(const Request& request) {
    return request.header("Authorization").value_or("");
}

} // namespace

Responder locked_by_basic(const Answer& inside) {
    const std::string key = "Basic " + QByteArray("guest:secret").toBase64().toStdString();
    return [inside, key](const Request& request) {
        return key_of(request) == key ? inside : challenge(R"(Basic realm="camera")");
    };
}

Responder locked_by_digest(const Answer& inside) {
    return [inside](const Request& request) {
        const std::string response =
            md5(md5("guest:camera:secret") + ":60d1e5c0:" + md5("GET:" + request.path));
        const bool is_open = key_of(request).find("\"" + response + "\"") != std::string::npos;
        return is_open ? inside : challenge(R"(Digest realm="camera", nonce="60d1e5c0")");
    };
}

} // namespace lookfar::demo
