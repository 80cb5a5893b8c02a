#include "desktop/desktop_fixture.h"

#include "acquisition/main_window.h"
#include "demo/misbehaviour.h"
#include "program.h"
#include "support/temporary_folder.h"

#include <sys/resource.h>

namespace lookfar::desktop {
namespace {

/// The most memory that the process had so far.
long peak_megabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

/// The picture area within its frame.
constexpr QRect picture_area(QPoint(5, 9), QSize(319, 239));

/// A camera and what the user sees of it.
struct Camera {
    /// Its path, after a user name and a password where it asks for them.
    std::string address;
    /// The number of the error in place of a picture; 0 for a picture.
    int error = 0;
    std::string error_text = {};
    /// Far longer than any fetch here takes.
    short timeout_seconds = 60;
    /// How many of the window's pixels the picture covers.
    QSize covered = picture_area.size();
};

/// The whole program in real windows.
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

    void expect(const Camera& camera) {
        SCOPED_TRACE(camera.address);
        list(camera.address);
        program.Form1->Inet1.RequestTimeout = camera.timeout_seconds;
        QTest::mouseClick(&widget(program.Form1->Command2), Qt::LeftButton);
        EXPECT_EQ(program.Form1->Label2.Visible, camera.error != 0)
            << program.Form1->Label3.Caption.get();
        if (camera.error != 0)
            expect_error(camera);
        else
            expect_picture(camera);
    }

    void expect_error(const Camera& camera) {
        EXPECT_EQ(program.Form1->Label2.Caption.get(),
                  "Error #" + std::to_string(camera.error) + " ");
        EXPECT_NE(program.Form1->Label3.Caption.get().find(camera.error_text), std::string::npos)
            << program.Form1->Label3.Caption.get();
    }

    void expect_picture(const Camera& camera) {
        const QRect lit = lit_rectangle(pixels(*program.Form1).copy(picture_area));
        const QPoint middle = QRect(QPoint(), picture_area.size()).center();
        EXPECT_EQ(lit.size(), camera.covered);
        EXPECT_LE((lit.center() - middle).manhattanLength(), 1);
    }

    lookfar::testing::TemporaryFolder folder;
    demo::CameraServer cameras;
    Program program{platform};
};

TEST_F(HostileCameras, ShowAPictureOrAnErrorAndLeaveTheNextOneAlone) {
    constexpr long max_megabytes = 1024;
    const std::vector<Camera> all{
        {"/stall", 28, "The wait for the camera's picture has timed out.", 1},
        {"/slow-drip", 28, "The wait for the camera's picture has timed out.", 1},
        {"/stream-stall", 28, "The wait for the camera's picture has timed out.", 1},
        {"/cut-short", 18, "The camera's answer ends too early."},
        {"/bad-chunk", 56, "The camera's answer can't be received."},
        {"/short-length", 481, "The picture ends too early."},
        {"/endless", 63, "The answer is larger than 64 MiB."},
        {"/long-header", 27, "The answer's header is too large."},
        {"/hang-up", 52, "The camera has hung up without an answer."},
        {"/not-http", 1, "The camera's answer is not HTTP."},
        {"/redirect-circle", 47, "The camera redirects too many times."},
        {"/redirect-to-file", 1, "The camera redirects to no address of http or https."},
        {"/redirect-nowhere", 3, "The camera redirects to no address of http or https."},
        {"/page", 481, "The camera's answer is a web page, not a picture."},
        {"/gone", 481, "The camera answered 404 Not Found."},
        {"/busy", 35765, "The camera answered 503 Service Unavailable."},
        {"/unknown-format", 481, "The camera calls it image/avif."},
        {"/nothing", 35765, "The camera's answer holds no bytes."},
        {"/huge-picture", 481, "The picture is too large: 60000 x 60000 pixels."},
        {"/pixel-bomb", 481, "The picture is too large: 20000 x 20000 pixels."},
        {"/many-scans", 481, "The picture is stored in too many scans."},
        {"/deflate-bomb", 63, "The answer is larger than 64 MiB."},
        {"/basic", 481, "The camera asks for a user name and a password (401)."},
        {"/long-length"},
        {"/stream"},
        {"/gone-with-picture"},
        {"/redirect-once"},
        {"/drip"},
        {"/broken-promise"},
        {"/large-metadata"},
        {"/animation"},
        {"/text-bomb"},
        {"guest:secret@/basic"},
        {"guest:secret@/digest"},
        {.address = "/one-pixel", .covered = {241, 239}},
        {.address = "/one-row", .covered = {319, 1}},
        {.address = "/one-column", .covered = {1, 239}},
    };
    for (const Camera& camera : all) {
        expect(camera);
        EXPECT_LT(peak_megabytes(), max_megabytes) << camera.address;
        expect({"/good"});
    }
}

} // namespace
} // namespace lookfar::desktop
