#include "desktop/driven/driven_test.h"

#include "demo/misbehaviour.h"

#include <xcb/xcb.h>

#include <cstring>
#include <thread>

namespace lookfar::driven {
namespace {

/// The colours that a point shows until it is stopped, as 0x00RRGGBB, by a connection of its own.
std::vector<QRgb> colours_at(const QPoint& point, const std::stop_token& stop) {
    const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> server(
        xcb_connect(nullptr, nullptr), xcb_disconnect);
    const auto root = xcb_setup_roots_iterator(xcb_get_setup(server.get())).data->root;
    std::vector<QRgb> seen;
    while (!stop.stop_requested()) {
        const auto request = xcb_get_image(server.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, root,
                                           static_cast<std::int16_t>(point.x()),
                                           static_cast<std::int16_t>(point.y()), 1, 1, 0xFFFFFF);
        const std::unique_ptr<xcb_get_image_reply_t, decltype(&std::free)> image(
            xcb_get_image_reply(server.get(), request, nullptr), std::free);
        std::memcpy(&seen.emplace_back(), xcb_get_image_data(image.get()), sizeof(QRgb));
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return seen;
}

class Fullscreen : public DrivenTest {
  protected:
    /// Starts the program on cameras that are asked every second.
    void SetUp() override {
        start({"Harbour", "Tower"});
        fill_in(title::main_window, "Seconds until Refresh", "1");
    }

    void open() {
        hands.double_click(picture());
        ASSERT_TRUE(comes_up(title::fullscreen_window));
    }

    /// Opens the selector's list and picks from it.
    void pick(const std::string& camera) {
        click(title::fullscreen_window, "combo box");
        click(title::fullscreen_window, "list item '" + camera + "'");
        EXPECT_TRUE(comes_to_read(title::fullscreen_window, "combo box '" + camera + "'"));
        EXPECT_TRUE(comes_to_read(title::fullscreen_window, "label '" + camera + "'"));
    }
};

TEST_F(Fullscreen, OpensAndLeavesOnADoubleClickAndHasAPanelThatPicksCameras) {
    const QRect before = place(title::main_window, "frame");
    const QPoint in_both_pictures = picture() - QPoint(60, 0);
    ASSERT_TRUE(comes_to_show(in_both_pictures, colour_of.at(selected_camera())));
    std::vector<QRgb> seen;
    std::jthread watch(
        [&](const std::stop_token& stop) { seen = colours_at(in_both_pictures, stop); });
    open();
    EXPECT_TRUE(
        comes_true([this] { return place(title::fullscreen_window, "frame") == whole_screen(); }));
    EXPECT_TRUE(goes(title::main_window));
    EXPECT_TRUE(comes_to_read(title::fullscreen_window, "label 'Screenshot taken: "));
    pick("Tower");
    EXPECT_TRUE(comes_to_show(whole_screen().center(), colour::blue));
    pick("Harbour");
    EXPECT_TRUE(comes_to_show(whole_screen().center(), colour::red));

    hands.double_click(whole_screen().center());
    ASSERT_TRUE(comes_up(title::main_window));
    EXPECT_TRUE(goes(title::fullscreen_window));
    EXPECT_EQ(place(title::main_window, "frame"), before);
    EXPECT_TRUE(comes_to_read(title::main_window, "combo box 'Harbour'"));
    EXPECT_TRUE(comes_to_show(picture(), colour::red));
    watch.request_stop();
    watch.join();
    for (const QRgb colour : std::set(seen.begin(), seen.end()))
        EXPECT_TRUE(is_like(colour, colour::red) || is_like(colour, colour::blue))
            << "a gap between the windows shows " << std::hex << colour;
}

TEST_F(Fullscreen, IsLaidOutAnewWhenTheScreenGetsAnotherSize) {
    const QColor shown = colour_of.at(selected_camera());
    open();
    click(title::fullscreen_window, "push button");
    EXPECT_TRUE(stops_reading(title::fullscreen_window, "combo box"));
    for (const char* const camera : {"/Harbour", "/Tower"})
        cameras->answer(camera, demo::stall());
    ASSERT_EQ(std::system("xrandr --newmode small 0 800 0 0 0 600 0 0 0 && "
                          "xrandr --addmode screen small && xrandr --output screen --mode small"),
              0);
    EXPECT_TRUE(comes_true(
        [this] { return place(title::fullscreen_window, "frame") == QRect(0, 0, 800, 600); }));
    EXPECT_TRUE(comes_to_show({400, 1}, shown)) << "the picture fills the screen";
    EXPECT_TRUE(comes_true(
        [this] { return place(title::fullscreen_window, "push button").left() == 772; }));
}

} // namespace
} // namespace lookfar::driven
