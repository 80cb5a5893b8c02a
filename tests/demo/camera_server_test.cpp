#include "demo/camera_server.h"

#include "tests/demo/raw_client.h"

#include <array>
#include <chrono>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

namespace lookfar::demo {
namespace {

using namespace std::chrono_literals;

Responder greeting(const std::string& text) {
    return [text](const Request& request) {
        Answer answer;
        answer.body = text + request.query;
        return answer;
    };
}

TEST(CameraServer, KeepsTheConnectionOpenAndCounts) {
    CameraServer server;
    server.answer("/one.jpg", greeting("one"));
    RawClient client(server.port());
    client.send_text("GET /one.jpg HTTP/1.1\r\n\r\nGET /one.jpg?1011467343523 HTTP/1.1\r\n\r\n");
    EXPECT_EQ(body_of(client.receive_answer()), "one");
    EXPECT_EQ(body_of(client.receive_answer()), "one1011467343523");
    client.send_text("GET /other HTTP/1.1\r\n\r\n");
    EXPECT_TRUE(client.receive_answer().starts_with("HTTP/1.1 404 "));
    client.send_text("GET /one.jpg HTTP/1.1\r\nconnection: Close\r\n\r\n");
    EXPECT_EQ(body_of(client.receive_all()), "one");
    EXPECT_EQ(server.connections(), 1U);
    EXPECT_EQ(server.requests(), 4U);
    EXPECT_EQ(server.requests("/one.jpg"), 3U);
}

TEST(CameraServer, AnswersOddRequestsWithAStatusAndLivesOn) {
    struct Case {
        std::string sent;
        std::string status;
    };
    const std::string end = " HTTP/1.1\r\nConnection: close\r\n\r\n";
    const std::array cases{
        Case{"POST /a" + end, "405"},
        Case{"POST /a HTTP/1.1\r\nContent-Length: 3\r\n\r\nabc", "405"},
        Case{"GET http://127.0.0.1/a" + end, "200"},
        Case{"GET /a HTTP/1.0\r\n\r\n", "200"},
        Case{"GET a" + end, "400"},
        Case{"GET /a\r\n\r\n", "400"},
        Case{"GET /a HTTP/1.1\r\nno colon\r\n\r\n", "400"},
        Case{"\r\n\r\n", "400"},
        Case{"GET /a HTTP/1.1\r\nLong: " + std::string(longest_request_head, 'x') + "\r\n\r\n",
             "431"},
        Case{std::string(2 * longest_request_head, 'x'), "431"},
        Case{"GET /throws" + end, "500"},
    };
    CameraServer server;
    server.answer("/a", greeting("a"));
    server.answer("/throws", [](const Request&) -> Reply { throw std::runtime_error("broken"); });
    for (const Case& tried : cases) {
        RawClient client(server.port());
        client.send_text(tried.sent);
        EXPECT_EQ(client.receive_all().substr(9, 3), tried.status) << tried.sent.substr(0, 40);
    }
}

TEST(CameraServer, SurvivesClientsThatVanishInTheMiddleOfAnAnswer) {
    CameraServer server;
    server.answer("/large", greeting(std::string(4'000'000, 'x')));
    for (int attempt = 0; attempt < 5; ++attempt) {
        RawClient client(server.port());
        client.send_text("GET /large HTTP/1.1\r\n\r\n");
        client.receive(1);
    }
    EXPECT_EQ(body_of(get_once(server.port(), "/large")).size(), 4'000'000U);
}

TEST(CameraServer, StopsAtOnceInTheMiddleOfAnswersAndFreesItsPort) {
    const auto wait_for_ever = [](ReplyStream& stream) {
        stream.write("x");
        stream.wait_until_closed();
    };
    const auto write_for_ever = [](ReplyStream& stream) {
        while (stream.write(std::string(10'000, 'x'))) {
        }
    };
    std::optional<CameraServer> server(std::in_place);
    const std::uint16_t port = server->port();
    server->answer("/wait", [&](const Request&) { return RawAnswer(wait_for_ever); });
    server->answer("/write", [&](const Request&) { return RawAnswer(write_for_ever); });
    server->answer("/delay", [&](const Request&) {
        Answer late;
        late.delay = 1h;
        return late;
    });
    RawClient idle(port);
    RawClient waiting(port);
    RawClient reading_nothing(port);
    RawClient delayed(port);
    delayed.send_text("GET /delay HTTP/1.1\r\n\r\n");
    waiting.send_text("GET /wait HTTP/1.1\r\n\r\n");
    reading_nothing.send_text("GET /write HTTP/1.1\r\n\r\n");
    EXPECT_EQ(waiting.receive(1), "x");
    EXPECT_EQ(reading_nothing.receive(1), "x");
    while (server->requests("/delay") == 0) {
        std::this_thread::yield();
    }

    const auto before = std::chrono::steady_clock::now();
    server.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - before, 500ms);
    EXPECT_EQ(idle.receive_all(), "");
    EXPECT_EQ(delayed.receive_all(), "");
    EXPECT_THROW(RawClient late(port), std::runtime_error);

    server.emplace(port);
    EXPECT_TRUE(get_once(port, "/").starts_with("HTTP/1.1 404 "));
    EXPECT_THROW(CameraServer second(port), std::system_error);
}

TEST(CameraServer, AnswersManyClientsAtATime) {
    CameraServer server;
    server.answer("/a", greeting("a"));
    std::atomic<int> good = 0;
    {
        std::vector<std::jthread> clients;
        clients.reserve(8);
        for (int client = 0; client < 8; ++client) {
            clients.emplace_back([&] {
                for (int round = 0; round < 20; ++round) {
                    good += body_of(get_once(server.port(), "/a")) == "a" ? 1 : 0;
                }
            });
        }
    }
    EXPECT_EQ(good, 160);
    EXPECT_EQ(server.connections(), 160U);
    EXPECT_EQ(server.requests("/a"), 160U);
}

} // namespace
} // namespace lookfar::demo
