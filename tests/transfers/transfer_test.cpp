#include "transfers/transfers_fixture.h"

#include "demo/stream.h"
#include "transfers/limits.h"

namespace lookfar {
namespace {

TEST_F(Transfers, HandOverTheBodyWhateverTheStatus) {
    const std::string with_zero("a\0b", 3);
    server.answer("/gone", always(404, "no such picture"));
    server.answer("/empty", always(200, ""));
    server.answer("/zero", always(200, with_zero));
    server.answer("/just-not-too-large", always(200, std::string(max_body_size, 'a')));
    EXPECT_EQ(text_at("/gone"), "no such picture");
    EXPECT_EQ(text_at("/empty"), "");
    EXPECT_EQ(text_at("/zero"), with_zero);
    EXPECT_EQ(text_at("/just-not-too-large").size(), max_body_size);
    EXPECT_EQ(text_from(host() + "/hello"), "hello") << "A URL without a scheme is http.";
    EXPECT_NE(decoding_thread, std::this_thread::get_id()) << "The loop waits for no decode.";
}

TEST_F(Transfers, EndBeforeABodyThatIsAnnouncedTooLargeAndInNoTime) {
    server.answer("/huge-announced", [](const demo::Request&) {
        return demo::RawAnswer([](const demo::Socket& socket) {
            socket.write("HTTP/1.1 200 OK\r\nContent-Length: 67108865\r\n\r\n");
        });
    });
    server.answer("/stall", demo::stall());
    EXPECT_EQ(text_at("/huge-announced"), "failure 63: The answer is larger than 64 MiB.");
    EXPECT_TRUE(text_from(server.url("/stall"), 0ms).starts_with("failure 28: "));
}

TEST_F(Transfers, BlameAProxyOnlyForTheHostsThatAreAskedThroughIt) {
    const EnvironmentVariable dead_proxy("http_proxy", "http://127.0.0.1:2");
    const std::pair<std::string, std::string> cases[] = {
        {"", "proxy"},
        {"*", "camera"},
        {"cam.example 127.0.0.1", "camera"},
        {"10.0.0.0/8,127.0.0.0/8", "camera"},
        {"127.128.0.0/9,::/0,127.0.0.2", "proxy"},
        {".localhost", "camera"},
        {"host,xlocalhost", "proxy"},
    };
    for (const auto& [exceptions, culprit] : cases) {
        const EnvironmentVariable no_proxy("no_proxy", exceptions);
        const std::string host =
            exceptions.find("host") == std::string::npos ? "127.0.0.1" : "LocalHost";
        EXPECT_EQ(text_from("http://" + host + ":1/"),
                  "failure 7: The " + culprit + " can't be reached.")
            << exceptions;
    }
    const EnvironmentVariable proxy("https_proxy", server.url(""));
    EXPECT_EQ(text_from("https://cam.example/"),
              "failure 56: The proxy does not connect to the camera (400).");
}

TEST_F(Transfers, FailWhereTheirBodyIsTooMuchForTheMemory) {
    decode = []() -> Pixels { throw std::bad_alloc(); };
    EXPECT_EQ(text_at("/hello"), "failure 27: There is not enough memory for the camera's answer.");
    decode = [] { return Pixels(); };
    EXPECT_EQ(text_at("/hello"), "hello");
}

TEST_F(Transfers, TellHostsWhoAsksAndForWhatOverOneConnection) {
    for (int count = 0; count < 3; ++count)
        EXPECT_EQ(text_at("/hello"), "hello");
    EXPECT_EQ(server.connections(), 1U);
    EXPECT_EQ(server.last_request().header("User-Agent"), LOOKFAR_USER_AGENT);
    EXPECT_EQ(server.last_request().header("Accept"),
              "image/jpeg,image/gif,multipart/x-mixed-replace;q=0.5,*/*;q=0.1");
}

const std::string
    gzipped_hello("\x1F\x8B\x08\0\0\0\0\0\x02\x03\xCBH\xCD\xC9\xC9\x07\0\x86\xA6\x10\x36\x05\0\0\0",
                  25);

TEST_F(Transfers, UnpackCompressedBodies) {
    const std::pair<std::string, std::string> packed[] = {
        {"gzip", gzipped_hello},
        {"deflate", {"\x78\x9C\xCBH\xCD\xC9\xC9\x07\0\x06\x2C\x02\x15", 13}},
        {"br", "\x0B\x02\x80hello\x03"},
        {"zstd", {"\x28\xB5\x2F\xFD\0\x58\x29\0\0hello", 14}},
    };
    for (const auto& [encoding, body] : packed) {
        server.answer("/packed", [&](const demo::Request& request) {
            EXPECT_NE(request.header("Accept-Encoding").value_or("").find(encoding),
                      std::string::npos);
            return demo::Answer{.body = body, .headers = {{"Content-Encoding", encoding}}};
        });
        EXPECT_EQ(text_at("/packed"), "hello") << encoding;
    }
}

TEST_F(Transfers, ShowAPictureThatIsWholeHoweverItsTransferEnds) {
    const std::string too_early = "failure 18: The camera's answer ends too early.";
    const std::string not_unpacked =
        "failure 61: The camera's answer is compressed in a way that can't be unpacked.";
    const struct {
        std::string head;
        std::string body;
        std::string failure;
    } cases[] = {
        {"Content-Length: 9", "hello", too_early},
        {"Transfer-Encoding: chunked", "5\r\nhello\r\n", too_early},
        {"Transfer-Encoding: chunked",
         "5\r\nhello\r\n0\r\nTrailer: " + std::string(180'000, 'a') + "\r\n\r\n",
         "failure 56: The camera's answer can't be received."},
        {"Content-Encoding: gzip", gzipped_hello + std::string(500'000, 'a'), not_unpacked},
        {"Content-Encoding: gzip", gzipped_hello.substr(0, gzipped_hello.size() - 8) + "?1234567",
         not_unpacked},
        {"Content-Encoding: gzip", "hello", not_unpacked},
        {"Content-Encoding: utf-8", "hello", not_unpacked},
    };
    const auto answer = [this](const std::string& head, const std::string& body) {
        server.answer("/odd", [head, body](const demo::Request&) {
            return demo::RawAnswer([head, body](const demo::Socket& socket) {
                socket.write("HTTP/1.1 200 OK\r\nETag: \"a\"\r\n" + head + "\r\n\r\n" + body);
            });
        });
    };
    for (const bool is_picture : {false, true})
        for (const auto& [head, body, failure] : cases) {
            decode = [is_picture]() -> Pixels {
                return is_picture ? Pixels() : throw Failure(FailureKind::invalid_picture, "cut");
            };
            answer(head, body);
            for (int count = 0; count < 2; ++count)
                EXPECT_EQ(text_at("/odd"), is_picture ? "hello" : failure) << head << body[0];
            EXPECT_EQ(server.last_request().header("If-None-Match"), std::nullopt);
        }
}

TEST_F(Transfers, EndAStreamBehindItsFirstPicture) {
    server.answer("/stream", [this](const demo::Request&) {
        return demo::RawAnswer([this](const demo::Socket& socket) {
            const auto picture = [number = 0]() mutable {
                return demo::Answer{.body = "picture " + std::to_string(++number)};
            };
            demo::stream(picture, {.tells_length = false})(socket);
            loop.post([this] { was_left = true; });
        });
    });
    for (int count = 0; count < 2; ++count) {
        EXPECT_EQ(text_at("/stream"), "picture 1");
        expect_left();
    }
    server.answer("/flood", [](const demo::Request&) {
        return demo::stream([] { return demo::Answer{.body = std::string(1'000'000, 'a')}; },
                            {.boundary = "another", .pause = 0ms});
    });
    EXPECT_EQ(text_at("/flood"), "failure 63: The answer is larger than 64 MiB.");
}

TEST_F(Transfers, NeverReportOnceAbandoned) {
    bool is_reported = false;
    const auto note = [&](const TransferOutcome&) { is_reported = true; };
    start_stall(note).reset();
    expect_left();

    auto posted_already = start(server.url("/hello"), note);
    ASSERT_TRUE(loop.wait_for_work());
    posted_already.reset();
    start(server.url("/hello"), note).reset();
    EXPECT_EQ(text_at("/hello"), "hello");
    EXPECT_FALSE(is_reported);
}

TEST_F(Transfers, RunSideBySideAndMayBeDroppedFromTheirReport) {
    const auto stalled = start_stall([](const TransferOutcome&) { FAIL(); });
    std::vector<std::unique_ptr<Transfer>> started(20);
    std::size_t arrived = 0;
    for (auto& transfer : started)
        transfer = start(server.url("/hello"), [&](const TransferOutcome& outcome) {
            transfer.reset();
            arrived += text_of(outcome) == "hello" ? 1 : 0;
        });
    loop.run_until([&] { return arrived == started.size(); });
    EXPECT_EQ(arrived, started.size());
}

TEST_F(Transfers, EndPromptlyInTheMiddleOfAStall) {
    const auto stalled = start_stall([](const TransferOutcome&) { FAIL(); });
    transfers.reset();
    expect_left();
}

} // namespace
} // namespace lookfar
