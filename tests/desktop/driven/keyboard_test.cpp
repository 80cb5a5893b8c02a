#include "desktop/driven/driven_test.h"

namespace lookfar::driven {
namespace {

/// A user with a keyboard and a screen reader, and without a mouse.
class Keyboard : public DrivenTest {
  protected:
    void SetUp() override {
        start({"Harbour", "Tower"});
        camera = selected_camera();
    }

    /// Expects the keyboard at the first of the stops, and at the next ones as the tab key is
    /// pressed.
    void tab_along(const char* title, const std::vector<std::string>& stops) {
        for (const std::string& stop : stops) {
            if (&stop != &stops.front())
                hands.press(Key::tab);
            ASSERT_TRUE(comes_to_be(State::focused, title, stop)) << stop;
        }
    }

    void press_space() { hands.type(" "); }

    void pick_the_other_camera(const char* title) {
        const bool is_first = camera == "Harbour";
        hands.press(is_first ? Key::down : Key::up);
        EXPECT_TRUE(comes_to_read(title, is_first ? "combo box 'Tower'" : "combo box 'Harbour'"));
    }

    void pick_from_menu(const char* access_key) {
        open_menu([this] { hands.press(Key::menu); });
        hands.type(access_key);
    }

    /// Expects things whose descriptions begin so, in this order, and nothing else.
    void expect_all(const char* title, const std::vector<std::string>& beginnings) {
        std::vector<std::string> found;
        for (const Element& element : elements(title)) {
            const std::size_t index = found.size();
            const bool is_extra = index >= beginnings.size();
            found.push_back(element.description().substr(0, is_extra ? std::string::npos
                                                                     : beginnings[index].size()));
        }
        EXPECT_EQ(found, beginnings);
    }

    /// The one that the program starts with; either can be.
    std::string camera;
};

TEST_F(Keyboard, OperatesTheMainWindow) {
    expect_all(title::main_window,
               {"frame 'Lookfar'", "combo box '" + camera,
                "text 'Seconds until Refresh' holding '10'", "push button 'Camera list'",
                "spin button 'Seconds until Refresh'", "push button 'Seconds until Refresh +'",
                "push button 'Seconds until Refresh -'", "check box 'Change every seconds'",
                "text 'Seconds until the camera changes' holding '60'",
                "status bar 'Screenshot taken: ", "check box 'Blur Effect'", "push button 'Reload'",
                "image 'Camera picture: " + camera, "label 'Seconds until Refresh'"});
    const auto requests = cameras->requests();
    tab_along(title::main_window,
              {"combo box '", "push button 'Camera list'", "push button 'Reload'"});
    press_space();
    EXPECT_TRUE(comes_true([&] { return cameras->requests() == requests + 1; }));
    tab_along(title::main_window,
              {"push button 'Reload'", "text 'Seconds until Refresh",
               "check box 'Change every seconds'", "text 'Seconds until the camera changes",
               "check box 'Blur Effect'"});
    press_space();
    EXPECT_TRUE(stops_being(State::checked, title::main_window, "check box 'Blur Effect'"));
    tab_along(title::main_window, {"check box 'Blur Effect'", "combo box '"});
    pick_the_other_camera(title::main_window);
}

TEST_F(Keyboard, OpensAndLeavesTheOtherWindows) {
    tab_along(title::main_window, {"combo box '", "push button 'Camera list'"});
    press_space();
    ASSERT_TRUE(comes_up(title::list_window));
    expect_all(title::list_window,
               {"frame 'Skyglass list'", "push button 'Ok'", "push button 'Remove'",
                "push button 'Edit...'", "push button 'Add...'", "list 'Cameras'",
                "list item 'Harbour'", "list item 'Tower'"});
    tab_along(title::list_window,
              {"list item '" + camera, "push button 'Add...'", "push button 'Edit...'"});
    press_space();
    ASSERT_TRUE(comes_up(title::editor));
    expect_all(title::editor, {"frame 'Skyglass'", "push button 'Cancel'", "push button 'Ok'",
                               "text 'URL' holding 'http://127.0.0.1:",
                               "text 'Title' holding '" + camera, "label 'Title'", "label 'URL'"});
    tab_along(title::editor,
              {"text 'Title", "text 'URL", "push button 'Ok'", "push button 'Cancel'"});
    press_space();
    ASSERT_TRUE(comes_up(title::list_window));
    tab_along(title::list_window,
              {"push button 'Edit...'", "push button 'Remove'", "push button 'Ok'"});
    press_space();
    ASSERT_TRUE(comes_up(title::main_window));
    pick_from_menu("a");
    ASSERT_TRUE(comes_up(title::about_window));
    expect_all(title::about_window,
               {"frame 'About Lookfar 2.2.2002'", "push button 'Ok'", "link 'mail@lookfar.example'",
                ("link '" LOOKFAR_HOMEPAGE "'"), "label 'Lookfar'", "label '2.2.2002'",
                ("label '" LOOKFAR_VERSION ", " LOOKFAR_RELEASE_YEAR " founders'"),
                "label 'If you need any help", "label 'For questions", "label 'Special Thanks"});
    tab_along(title::about_window, {"push button 'Ok'", "link '" LOOKFAR_HOMEPAGE "'",
                                    "link 'mail@lookfar.example'", "push button 'Ok'"});
    press_space();
    EXPECT_TRUE(goes(title::about_window));
}

TEST_F(Keyboard, OperatesTheFullscreenWindow) {
    constexpr const char* arrow = "push button 'Camera selection panel'";
    pick_from_menu("f");
    ASSERT_TRUE(comes_up(title::fullscreen_window));
    expect_all(title::fullscreen_window, {"frame 'Lookfar Fullscreen Window'", arrow,
                                          "combo box '" + camera, "label 'Screenshot taken: ",
                                          "label '" + camera, "image 'Camera picture: " + camera});
    const QRect open = place(title::fullscreen_window, "combo box");
    tab_along(title::fullscreen_window, {"combo box '", arrow});
    press_space();
    EXPECT_TRUE(stops_reading(title::fullscreen_window, "combo box"));
    EXPECT_TRUE(comes_to_be(State::collapsed, title::fullscreen_window, arrow));
    EXPECT_TRUE(comes_true([this] { return reader.heard("state-changed:expanded"); }));
    tab_along(title::fullscreen_window, {arrow, arrow});
    press_space();
    EXPECT_TRUE(comes_to_be(State::expanded, title::fullscreen_window, arrow));
    EXPECT_TRUE(comes_true([&] { return place(title::fullscreen_window, "combo box") == open; }));
    tab_along(title::fullscreen_window, {arrow, "combo box '"});
    pick_the_other_camera(title::fullscreen_window);
}

} // namespace
} // namespace lookfar::driven
