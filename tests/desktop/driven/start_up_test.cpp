#include "desktop/driven/driven_test.h"
#include "desktop/driven/held_camera.h"

namespace lookfar::driven {
namespace {

using StartUp = DrivenTest;

TEST_F(StartUp, ShowsTheSplashWindowUntilTheFirstPictureIsThere) {
    HeldCamera camera(plain_picture(colour::red));
    cameras->answer("/Harbour", camera.responder());
    write_list({"Harbour"});
    launch();
    EXPECT_TRUE(comes_to_read(title::splash_window, role::any, "Loading..."));
    EXPECT_TRUE(comes_to_read(title::splash_window, role::any, "ding...")) << "the text runs";
    const QRect splash = find(title::splash_window, role::window, title::splash_window).place();
    EXPECT_EQ(splash.size(), QSize(320, 240));
    const QPoint off_centre = splash.center() - QRect(QPoint(), screen.size()).center();
    EXPECT_LE(off_centre.manhattanLength(), 2);
    ASSERT_TRUE(comes_true([this] { return cameras->requests() == 1; }));
    EXPECT_EQ(screen.windows_of(program->process()).size(), 1U);

    camera.let_go();
    ASSERT_TRUE(comes_up(title::main_window));
    EXPECT_EQ(screen.windows_of(program->process()).size(), 1U) << "the splash window is gone";
    EXPECT_TRUE(comes_to_show(picture(title::main_window), colour::red));
    EXPECT_TRUE(comes_to_read(title::main_window, role::any, "Screenshot taken: "));
    EXPECT_TRUE(comes_to_read(title::main_window, role::selector, "Harbour"));
    EXPECT_LT(window(title::main_window)->place.topLeft().manhattanLength(), 50)
        << "the frame is in the corner of the screen";
}

TEST_F(StartUp, MakesAListInAnEmptyFolder) {
    // The camera that a new list starts with lives elsewhere; this proxy stands for all the world.
    const std::string proxy = cameras->url("");
    cameras->answer("/eiffel1.jpg", showing(colour::green));
    QProcessEnvironment variables;
    variables.insert("http_proxy", QString::fromStdString(proxy));
    launch(variables);
    ASSERT_TRUE(comes_up(title::main_window));
    EXPECT_EQ(lookfar::testing::content_of("Cams.inf"),
              "Eiffeltower\r\nhttp://" LOOKFAR_DEFAULT_CAMERA_HOST
              "/eiffel1.jpg?1011467343523\r\n");
    EXPECT_TRUE(comes_to_read(title::main_window, role::selector, "Eiffeltower"));
    EXPECT_TRUE(comes_to_show(picture(title::main_window), colour::green));
}

} // namespace
} // namespace lookfar::driven
