#include "demo/camera_server.h"

#include "demo/misbehaviour.h"
#include "tests/demo/raw_client.h"

#include <gtest/gtest.h>

#include <optional>
#include <system_error>

namespace lookfar::demo {
namespace {

TEST(CameraServer, OutlivesOddRequestsAndResponders) {
    CameraServer server;
    server.answer("/a", [](const Request&) { return Answer{.body = "a"}; });
    server.answer("/throws", [](const Request&) -> Reply { throw std::runtime_error("broken"); });
    const std::string bad = "HTTP/1.1 400 ";
    const std::pair<std::string, std::string> cases[] = {
        {"POST /a HTTP/1.1\r\nContent-Length: 3\r\n\r\nabc", bad},
        {"GET a HTTP/1.1\r\n\r\n", bad},
        {"GET /a\r\n\r\n", bad},
        {"\r\n\r\n", bad},
        {std::string(100'000, 'x'), ""},
        {"GET /throws HTTP/1.1\r\n\r\n", ""},
        {"GET /a HTTP/1.1\r\nConnection: close\r\n\r\n", "HTTP/1.1 200 "}};
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
