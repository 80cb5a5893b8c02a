#include "demo/camera_server.h"

#include "demo/misbehaviour.h"
#include "tests/demo/raw_client.h"

#include <QRegularExpression>
#include <QString>

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <system_error>

namespace lookfar::demo {
namespace {

Responder greeting(const std::string& text) {
    return [text](const Request& request) { return Answer{.body = text + request.query}; };
}

TEST(CameraServer, KeepsTheConnectionOpenAndCounts) {
    CameraServer server;
    server.answer("/one", greeting("one"));
    const RawClient client(
        server.port(),
        "GET /one HTTP/1.1\r\n\r\nGET /one?2 HTTP/1.1\r\n\r\nGET /no HTTP/1.1\r\n\r\n"
        "GET http://h/one?last HTTP/1.1\r\nConnection: close\r\n\r\n"
        "GET /one HTTP/1.1\r\n\r\n");
    const QRegularExpression head("HTTP/1.1 [^<]*?\r\n\r\n");
    EXPECT_EQ(QString::fromStdString(client.receive()).replace(head, "|").toStdString(),
              "|one|one2|" + status_page(404).body + "|onelast");
    EXPECT_EQ(server.requests(), 4U);
}

TEST(CameraServer, OutlivesOddRequestsAndResponders) {
    CameraServer server;
    server.answer("/a", greeting("a"));
    server.answer("/throws", [](const Request&) -> Reply { throw std::runtime_error("broken"); });
    const std::string bad = "HTTP/1.1 400 ";
    const std::array<std::array<std::string, 2>, 7> cases{
        {{"POST /a HTTP/1.1\r\nContent-Length: 3\r\n\r\nabc", bad},
         {"GET a HTTP/1.1\r\n\r\n", bad},
         {"GET /a\r\n\r\n", bad},
         {"\r\n\r\n", bad},
         {std::string(100'000, 'x'), ""},
         {"GET /throws HTTP/1.1\r\n\r\n", ""},
         {"GET /a HTTP/1.1\r\nConnection: close\r\n\r\n", "HTTP/1.1 200 "}}};
    for (const auto& [sent, status] : cases)
        EXPECT_EQ(RawClient(server.port(), sent).receive().substr(0, 13), status)
            << sent.substr(0, 40);
}

TEST(CameraServer, StopsInTheMiddleOfAnswersAndFreesItsPort) {
    std::optional<CameraServer> server(std::in_place);
    const std::uint16_t port = server->port();
    install_misbehaviour(*server);
    server->answer("/late", [](const Request&) { return Answer{.delay = std::chrono::hours(1)}; });
    const RawClient idle(port);
    const RawClient stalled(port, "GET /stall HTTP/1.1\r\n\r\n");
    const RawClient reading_nothing(port, "GET /endless HTTP/1.1\r\n\r\n");
    const RawClient late(port, "GET /late HTTP/1.1\r\n\r\n");
    while (server->requests() < 3)
        std::this_thread::yield();
    server.reset();
    EXPECT_EQ(idle.receive() + stalled.receive() + late.receive(), "");
    EXPECT_THROW(RawClient too_late(port), std::runtime_error);

    server.emplace(port);
    EXPECT_TRUE(get(port, "/").starts_with("HTTP/1.1 404 "));
    EXPECT_THROW(CameraServer second(port), std::system_error);
}

} // namespace
} // namespace lookfar::demo
