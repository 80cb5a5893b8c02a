#include "demo/misbehaviour.h"

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

    std::string get(std::string_view path) { return get_once(server_.port(), path); }

    static std::size_t announced_length(const std::string& answer) {
        const std::string name = "Content-Length: ";
        return std::stoul(answer.substr(answer.find(name) + name.size()));
    }

    CameraServer server_;
    const std::string good_ = small_picture().body;
};

QSize claimed_size(const std::string& bytes) {
    QByteArray data = QByteArray::fromStdString(bytes);
    QBuffer buffer(&data);
    return QImageReader(&buffer, "jpeg").size();
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
    const std::array<std::array<std::string, 2>, 4> locations{
        {{"/redirect-once", "/good"},
         {"/redirect-circle", "/redirect-circle-back"},
         {"/redirect-circle-back", "/redirect-circle"},
         {"/redirect-to-file", "file:///etc/hostname"}}};
    for (const auto& [path, location] : locations) {
        EXPECT_NE(get(path).find("\r\nLocation: " + location + "\r\n"), std::string::npos) << path;
    }
}

TEST_F(Misbehaviour, ClaimsAHugePicture) {
    EXPECT_EQ(claimed_size(good_), QSize(160, 120));
    EXPECT_EQ(claimed_size(body_of(get("/huge-picture"))), QSize(60000, 60000));
}

TEST_F(Misbehaviour, SendsWhatIsNoPictureAtAll) {
    EXPECT_EQ(get("/hang-up"), "");
    EXPECT_FALSE(get("/not-http").starts_with("HTTP"));
    EXPECT_NE(get("/page").find("Content-Type: text/html"), std::string::npos);
}

TEST_F(Misbehaviour, NeverEndsABody) {
    RawClient client(server_.port());
    client.send_text("GET /endless HTTP/1.1\r\n\r\n");
    const std::string received = client.receive(2'000'000);
    EXPECT_EQ(received.size(), 2'000'000U);
    EXPECT_EQ(received.find("Content-Length"), std::string::npos);
}

} // namespace
} // namespace lookfar::demo
