#include "desktop/desktop_fixture.h"

#include "acquisition/main_window.h"
#include "demo/misbehaviour.h"
#include "program.h"
#include "support/temporary_folder.h"

#include <sys/resource.h>

#include <chrono>
#include <stdexcept>
#include <string>
#include <vector>

namespace lookfar::desktop {
namespace {

/// Far longer than any fetch here takes.
constexpr short patience_seconds = 60;

/// The most memory that the process had so far.
long peak_megabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

/// What the user sees instead of a picture.
struct ErrorCase {
    std::string address;
    int number;
    std::string text;
    short timeout_seconds = patience_seconds;
};

/// What the user sees: a picture, and how many of the window's pixels it covers.
struct PictureCase {
    std::string address;
    QSize on_screen;
};

/// The picture area within its frame.
constexpr QRect picture_area(QPoint(5, 9), QSize(319, 239));

/// The whole program in real windows. Each camera is tried in turn with a good one; its address is
/// its path, after a user name and a password where it asks for them.
class HostileCameras : public DesktopTest {
  protected:
    HostileCameras() {
        demo::install_misbehaviour(cameras, std::chrono::milliseconds(0));
        list("/good");
        program.start();
        if (!comes_true([&] { return program.Form1.is_loaded() && program.Form1->Visible; }))
            throw std::runtime_error("The main window does not come up.");
    }

    void list(const std::string& address) {
        const auto path = address.find('/');
        const std::string host = "127.0.0.1:" + std::to_string(cameras.port());
        lookfar::testing::write_file("Cams.inf", "Camera\r\nhttp://" + address.substr(0, path) +
                                                     host + address.substr(path) + "\r\n");
    }

    void refresh(const std::string& address, short timeout_seconds = patience_seconds) {
        list(address);
        program.Form1->Inet1.RequestTimeout = timeout_seconds;
        QTest::mouseClick(&widget(program.Form1->Command2), Qt::LeftButton);
    }

    void expect_error(const ErrorCase& expected) {
        SCOPED_TRACE(expected.address);
        refresh(expected.address, expected.timeout_seconds);
        EXPECT_TRUE(program.Form1->Label2.Visible);
        EXPECT_EQ(program.Form1->Label2.Caption.get(),
                  "Error #" + std::to_string(expected.number) + " ");
        EXPECT_NE(program.Form1->Label3.Caption.get().find(expected.text), std::string::npos)
            << program.Form1->Label3.Caption.get();
        expect_picture({"/good", picture_area.size()});
    }

    void expect_picture(const PictureCase& expected) {
        SCOPED_TRACE(expected.address);
        refresh(expected.address);
        EXPECT_FALSE(program.Form1->Label2.Visible) << program.Form1->Label3.Caption.get();
        const QRect lit = lit_rectangle(pixels(*program.Form1).copy(picture_area));
        EXPECT_EQ(lit.size(), expected.on_screen);
        EXPECT_LE((lit.center() - QRect({0, 0}, picture_area.size()).center()).manhattanLength(),
                  1);
    }

    lookfar::testing::TemporaryFolder folder;
    demo::CameraServer cameras;
    Program program{platform};
};

TEST_F(HostileCameras, ShowAnErrorInPlaceOfAPicture) {
    constexpr short short_timeout = 1;
    const std::vector<ErrorCase> cases{
        {"/stall", 28, "timed out", short_timeout},
        {"/slow-drip", 28, "timed out", short_timeout},
        {"/cut-short", 18, "bytes remaining to read"},
        {"/long-length", 18, "1000 bytes remaining to read"},
        {"/short-length", 481, "The picture ends too early."},
        {"/endless", 63, "The answer is larger than 64 MiB."},
        {"/long-header", 27, "The answer's header is too large."},
        {"/many-headers", 27, "The answer's header is too large."},
        {"/hang-up", 52, "Empty reply from server"},
        {"/not-http", 1, "HTTP/0.9"},
        {"/redirect-circle", 47, "Maximum (10) redirects followed"},
        {"/redirect-chain", 47, "Maximum (10) redirects followed"},
        {"/redirect-to-file", 1, "file"},
        {"/page", 481, "The camera's answer is not a picture."},
        {"/nothing", 35765, "The camera's answer holds no bytes."},
        {"/huge-picture", 481, "The picture is too large: 60000 x 60000 pixels."},
        {"/pixel-bomb", 481, "The picture is too large: 20000 x 20000 pixels."},
        {"/truncated", 481, "The picture ends too early."},
        {"/many-scans", 481, "Progressive JPEG image has more than 500 scans"},
        {"/gzip-bomb", 481, "The camera's answer is not a picture."},
        {"/basic", 481, "The camera's answer is not a picture."},
        {"guest:wrong@/basic", 481, "The camera's answer is not a picture."},
        {"/digest", 481, "The camera's answer is not a picture."},
        {"guest:wrong@/digest", 481, "The camera's answer is not a picture."},
    };
    for (const ErrorCase& expected : cases)
        expect_error(expected);
}

TEST_F(HostileCameras, ShowWhatIsAPictureAllTheSame) {
    constexpr long most_megabytes = 1024;
    const std::vector<PictureCase> cases{
        {"/redirect-once", picture_area.size()},
        {"/drip", picture_area.size()},
        {"/broken-promise", picture_area.size()},
        {"/large-metadata", picture_area.size()},
        {"/animation", picture_area.size()},
        {"/text-bomb", picture_area.size()},
        {"guest:secret@/basic", picture_area.size()},
        {"guest:secret@/digest", picture_area.size()},
        {"/one-pixel", {241, 239}},
        {"/one-row", {319, 1}},
        {"/one-column", {1, 239}},
    };
    for (const PictureCase& expected : cases) {
        expect_picture(expected);
        EXPECT_LT(peak_megabytes(), most_megabytes) << expected.address;
        expect_picture({"/good", picture_area.size()});
    }
}

} // namespace
} // namespace lookfar::desktop
