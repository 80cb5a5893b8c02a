#include "demo/misbehaviour.h"

#include "demo/compression_bombs.h"
#include "demo/hostile_pictures.h"

#include "tests/demo/raw_client.h"

#include <QBuffer>
#include <QByteArray>
#include <QImageReader>
#include <array>
#include <gtest/gtest.h>
#include <string>

namespace lookfar::demo {
namespace {

class Misbehaviour : public testing::Test {
  protected:
    Misbehaviour() { install_misbehaviour(server_, std::chrono::milliseconds(0)); }

    std::string get(const std::string& path) { return demo::get(server_.port(), path); }

    static std::size_t announced_length(const std::string& answer) {
        const std::string name = "Content-Length: ";
        return std::stoul(answer.substr(answer.find(name) + name.size()));
    }

    CameraServer server_;
    const std::string good_ = small_picture().body;
};

/// What a decoder learns of a picture file.
struct Traits {
    QSize size;
    int frames = 0;
    std::size_t bytes = 0;
};

Traits traits_of(const Answer& answer) {
    QByteArray data = QByteArray::fromStdString(answer.body);
    QBuffer buffer(&data);
    QImageReader reader(&buffer);
    return {reader.size(), reader.imageCount(), answer.body.size()};
}

TEST_F(Misbehaviour, AnnouncesAnotherLengthThanItSends) {
    struct Case {
        std::string path;
        std::size_t announced;
        std::size_t sent;
    };
    const std::array cases{
        Case{"/good", good_.size(), good_.size()},
        Case{"/drip", good_.size(), good_.size()},
        Case{"/cut-short", good_.size(), good_.size() / 2},
        Case{"/long-length", good_.size() + 1000, good_.size()},
        Case{"/short-length", good_.size() - good_.size() / 4, good_.size()},
        Case{"/truncated", good_.size() / 2, good_.size() / 2},
        Case{"/nothing", 0, 0},
    };
    for (const Case& expected : cases) {
        const std::string answer = get(expected.path);
        EXPECT_EQ(announced_length(answer), expected.announced) << expected.path;
        EXPECT_EQ(body_of(answer), good_.substr(0, expected.sent)) << expected.path;
    }
}

TEST_F(Misbehaviour, RedirectsWhereNobodyShouldGo) {
    const std::array<std::array<std::string, 2>, 6> locations{
        {{"/redirect-once", "/good"},
         {"/redirect-circle", "/redirect-circle-back"},
         {"/redirect-circle-back", "/redirect-circle"},
         {"/redirect-chain", "/redirect-chain?99"},
         {"/redirect-chain?1", "/good"},
         {"/redirect-to-file", "file:///etc/hostname"}}};
    for (const auto& [path, location] : locations) {
        EXPECT_NE(get(path).find("\r\nLocation: " + location + "\r\n"), std::string::npos) << path;
    }
}

TEST(HostilePictures, AreWhatTheyClaim) {
    constexpr QSize small(160, 120);
    constexpr std::size_t megabyte = 1'000'000;
    EXPECT_EQ(traits_of(small_picture()).size, small);
    EXPECT_EQ(traits_of(huge_picture()).size, QSize(60'000, 60'000));
    EXPECT_EQ(traits_of(plain_picture({30'000, 1})).size, QSize(30'000, 1));
    EXPECT_EQ(traits_of(long_animation()).size, small);
    EXPECT_EQ(traits_of(long_animation()).frames, 10'000);
    EXPECT_EQ(traits_of(picture_with_large_metadata()).size, small);
    EXPECT_GT(traits_of(picture_with_large_metadata()).bytes, 10 * megabyte);
    EXPECT_EQ(traits_of(pixel_bomb()).size, QSize(20'000, 20'000));
    EXPECT_LT(traits_of(pixel_bomb()).bytes, megabyte / 10);
    EXPECT_LT(text_bomb().body.size(), megabyte);
    EXPECT_LT(gzip_bomb().body.size(), 3 * megabyte);
}

TEST_F(Misbehaviour, SendsWhatIsNoPictureAtAll) {
    EXPECT_EQ(get("/hang-up"), "");
    EXPECT_FALSE(get("/not-http").starts_with("HTTP"));
    EXPECT_NE(get("/page").find("Content-Type: text/html"), std::string::npos);
}

TEST_F(Misbehaviour, NeverEndsABody) {
    const RawClient client(server_.port(), "GET /endless HTTP/1.1\r\n\r\n");
    const std::string received = client.receive(2'000'000);
    EXPECT_GE(received.size(), 2'000'000U);
    EXPECT_EQ(received.find("Content-Length"), std::string::npos);
}

} // namespace
} // namespace lookfar::demo
