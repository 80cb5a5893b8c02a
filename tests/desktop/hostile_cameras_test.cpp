#include "desktop/program_fixture.h"

#include "demo/misbehaviour.h"
#include "desktop/self_signed_server.h"
#include "pipeline/fullscreen_window.h"

#include <sys/resource.h>

#include <chrono>
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

/// The smallest rectangle that holds every pixel of the image that is not black.
QRect lit_rectangle(const QImage& image) {
    QRect lit;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if ((image.pixel(x, y) & 0xFFFFFFU) != 0)
                lit |= QRect(x, y, 1, 1);
    return lit;
}

/// What the user sees instead of a picture.
struct ErrorCase {
    std::string url;
    int number;
    std::string text;
    short timeout_seconds = patience_seconds;
};

/// What the user sees: a picture of that many pixels, and how many of the window's it covers.
struct PictureCase {
    std::string url;
    QSize natural;
    QSize on_screen;
};

/// The picture area within its frame.
constexpr QRect picture_area(QPoint(5, 9), QSize(319, 239));

/// Each camera is tried in turn with a good one.
class HostileCameras : public ProgramTest {
  protected:
    HostileCameras() {
        demo::install_misbehaviour(*cameras, std::chrono::milliseconds(0));
        start({"/good"});
    }

    std::string with_password(const std::string& account, const std::string& path) const {
        return "http://" + account + "@127.0.0.1:" + std::to_string(cameras->port()) + path;
    }

    void refresh(const std::string& url, short timeout_seconds = patience_seconds) {
        lookfar::testing::write_file("Cams.inf", "/good\r\n" + url + "\r\n");
        program.Form1->Inet1.RequestTimeout = timeout_seconds;
        reload();
        settle();
    }

    void expect_error(const ErrorCase& expected) {
        SCOPED_TRACE(expected.url);
        refresh(expected.url, expected.timeout_seconds);
        const std::string number = "Error #" + std::to_string(expected.number) + " ";
        EXPECT_TRUE(program.Form1->Label2.Visible);
        EXPECT_TRUE(program.Form1->Label3.Visible);
        EXPECT_FALSE(program.Form1->ImagNT1.Visible);
        EXPECT_EQ(program.Form1->Label2.Caption.get(), number);
        EXPECT_NE(program.Form1->Label3.Caption.get().find(expected.text), std::string::npos)
            << program.Form1->Label3.Caption.get();
        EXPECT_TRUE(program.Form2->TestBild.Visible);
        EXPECT_EQ(program.Form2->Label2.Caption.get(), number);
        EXPECT_EQ(program.Form2->Label3.Caption.get(), program.Form1->Label3.Caption.get());
        expect_good_camera();
    }

    void expect_picture(const PictureCase& expected) {
        SCOPED_TRACE(expected.url);
        refresh(expected.url);
        EXPECT_FALSE(program.Form1->Label2.Visible) << program.Form1->Label3.Caption.get();
        const PictureReference picture = program.Form1->ImagNT1.Picture;
        ASSERT_TRUE(picture);
        EXPECT_EQ(QSize(picture->width(), picture->height()), expected.natural);
        const QRect lit = lit_rectangle(pixels(*program.Form1).copy(picture_area));
        EXPECT_EQ(lit.size(), expected.on_screen);
        EXPECT_LE((lit.center() - QRect({0, 0}, picture_area.size()).center()).manhattanLength(),
                  1);
        EXPECT_FALSE(program.Form2->TestBild.Visible);
        EXPECT_FALSE(program.Form2->Label3.Visible);
    }

    void expect_good_camera() {
        expect_picture({cameras->url("/good"), {160, 120}, picture_area.size()});
    }
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
        {"/many-scans", 481, "The picture is stored in too many scans."},
        {"/gzip-bomb", 481, "The camera's answer is not a picture."},
    };
    for (ErrorCase expected : cases) {
        expected.url = cameras->url(expected.url);
        expect_error(expected);
    }
}

TEST_F(HostileCameras, ShowWhatIsAPictureAllTheSame) {
    constexpr long most_megabytes = 1024;
    constexpr QSize small(160, 120);
    const std::vector<PictureCase> cases{
        {"/redirect-once", small, picture_area.size()},
        {"/drip", small, picture_area.size()},
        {"/broken-promise", small, picture_area.size()},
        {"/large-metadata", small, picture_area.size()},
        {"/animation", small, picture_area.size()},
        {"/text-bomb", small, picture_area.size()},
        {"/one-pixel", {1, 1}, {241, 239}},
        {"/one-row", {30'000, 1}, {319, 1}},
        {"/one-column", {1, 30'000}, {1, 239}},
    };
    for (PictureCase expected : cases) {
        expected.url = cameras->url(expected.url);
        expect_picture(expected);
        EXPECT_LT(peak_megabytes(), most_megabytes) << expected.url;
        expect_good_camera();
    }
}

TEST_F(HostileCameras, OpenToTheRightPasswordOnly) {
    for (const char* const path : {"/basic", "/digest"}) {
        const std::string no_picture = "The camera's answer is not a picture.";
        expect_error({cameras->url(path), 481, no_picture});
        expect_error({with_password("guest:wrong", path), 481, no_picture});
        expect_picture({with_password("guest:secret", path), {160, 120}, picture_area.size()});
    }
}

TEST_F(HostileCameras, AreNotTrustedWithASelfSignedCertificate) {
    const SelfSignedServer server;
    expect_error({server.url(), 60, "certificate"});
}

TEST_F(HostileCameras, ShowAThinPictureAsALineOverTheScreen) {
    program.Form1->GoToFull.Click.raise();
    FullscreenWindow& form = *program.Form2;
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window(form)));
    const QSize screen = pixels(form).size();
    const QRect across(screen.width() / 4, screen.height() / 2 - 5, 1, 10);
    const QRect down(screen.width() / 2 - 5, screen.height() / 4, 10, 1);
    refresh(cameras->url("/one-row"));
    EXPECT_EQ(lit_rectangle(pixels(form).copy(across)).size(), QSize(1, 1));
    refresh(cameras->url("/one-column"));
    EXPECT_EQ(lit_rectangle(pixels(form).copy(down)).size(), QSize(1, 1));
}

} // namespace
} // namespace lookfar::desktop
