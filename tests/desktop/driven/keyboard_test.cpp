#include "desktop/driven/driven_test.h"

namespace lookfar::driven {
namespace {

/// A user with a keyboard and a screen reader, and without a mouse.
class Keyboard : public DrivenTest {
  protected:
    void SetUp() override {
        cameras->answer("/Harbour", showing(colour::red));
        cameras->answer("/Tower", showing(colour::blue));
        start({"Harbour", "Tower"});
        camera = find(title::main_window, role::selector, "").name();
    }

    struct Stop {
        const char* role;
        std::string name;
    };

    void expect_focus(const char* title, const Stop& stop) {
        const Element element = find(title, stop.role, stop.name);
        ASSERT_TRUE(comes_true([&] { return element.is(State::focused); })) << stop.name;
    }

    /// Expects the keyboard at the first of the stops, and at the next ones as the tab key is
    /// pressed.
    void tab_along(const char* title, const std::vector<Stop>& stops) {
        expect_focus(title, stops.front());
        for (std::size_t index = 1; index < stops.size(); ++index) {
            hands.press(Key::tab);
            expect_focus(title, stops[index]);
        }
    }

    void press_space() { hands.type(" "); }

    void pick_from_menu(const char* access_key) {
        hands.press(Key::menu);
        ASSERT_TRUE(opens_a_menu());
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
                "image 'Camera picture'", "label 'Seconds until Refresh'"});
    const auto requests = cameras->requests();
    tab_along(title::main_window,
              {{role::selector, ""}, {role::button, "Camera list"}, {role::button, "Reload"}});
    press_space();
    EXPECT_TRUE(comes_true([&] { return cameras->requests() == requests + 1; }));
    tab_along(title::main_window, {{role::button, "Reload"},
                                   {role::entry, "Seconds until Refresh"},
                                   {role::check_box, "Change every seconds"},
                                   {role::entry, "Seconds until the camera changes"},
                                   {role::check_box, "Blur Effect"}});
    press_space();
    const Element blur = find(title::main_window, role::check_box, "Blur Effect");
    EXPECT_TRUE(comes_true([&] { return !blur.is(State::checked); }));
    tab_along(title::main_window, {{role::check_box, "Blur Effect"}, {role::selector, ""}});
    hands.press(Key::up);
    hands.press(Key::down);
    EXPECT_TRUE(comes_to_read(title::main_window, role::selector, "Tower"));
}

TEST_F(Keyboard, OpensAndLeavesTheOtherWindows) {
    tab_along(title::main_window, {{role::selector, ""}, {role::button, "Camera list"}});
    press_space();
    ASSERT_TRUE(comes_up(title::list_window));
    expect_all(title::list_window,
               {"frame 'Skyglass list'", "push button 'Ok'", "push button 'Remove'",
                "push button 'Edit...'", "push button 'Add...'", "list 'Cameras'",
                "list item 'Harbour'", "list item 'Tower'"});
    tab_along(title::list_window,
              {{role::list_item, camera}, {role::button, "Add..."}, {role::button, "Edit..."}});
    press_space();
    ASSERT_TRUE(comes_up(title::editor));
    expect_all(title::editor, {"frame 'Skyglass'", "push button 'Cancel'", "push button 'Ok'",
                               "text 'URL' holding 'http://127.0.0.1:",
                               "text 'Title' holding '" + camera, "label 'Title'", "label 'URL'"});
    tab_along(title::editor, {{role::entry, "Title"},
                              {role::entry, "URL"},
                              {role::button, "Ok"},
                              {role::button, "Cancel"}});
    press_space();
    ASSERT_TRUE(comes_up(title::list_window));
    tab_along(title::list_window,
              {{role::button, "Edit..."}, {role::button, "Remove"}, {role::button, "Ok"}});
    press_space();
    ASSERT_TRUE(comes_up(title::main_window));
    pick_from_menu("a");
    ASSERT_TRUE(comes_up(title::about_window));
    expect_all(title::about_window,
               {"frame 'About Lookfar 2.2.2002'", "push button 'Ok'", "link 'mail@lookfar.example'",
                "link 'www.lookfar.example'", "label 'Lookfar'", "label '2.2.2002'",
                "label '2002 The Lookfar founders'", "label 'If you need any help",
                "label 'For questions", "label 'Special Thanks"});
    tab_along(title::about_window, {{role::button, "Ok"},
                                    {role::link, "www.lookfar.example"},
                                    {role::link, "mail@lookfar.example"},
                                    {role::button, "Ok"}});
    press_space();
    EXPECT_TRUE(goes(title::about_window));
}

TEST_F(Keyboard, OperatesTheFullscreenWindow) {
    pick_from_menu("f");
    ASSERT_TRUE(comes_up(title::fullscreen_window));
    expect_all(title::fullscreen_window,
               {"frame 'Lookfar Fullscreen Window'", "push button 'Camera selection panel'",
                "combo box '" + camera, "label 'Screenshot taken: ", "label '" + camera,
                "image 'Camera picture'"});
    const Element selector = find(title::fullscreen_window, role::selector, "");
    const int place = selector.place().left();
    tab_along(title::fullscreen_window,
              {{role::selector, ""}, {role::button, "Camera selection panel"}});
    press_space();
    EXPECT_TRUE(comes_true([&] { return selector.place().left() >= screen::whole().width(); }));
    press_space();
    EXPECT_TRUE(comes_true([&] { return selector.place().left() == place; }));
    tab_along(title::fullscreen_window,
              {{role::button, "Camera selection panel"}, {role::selector, ""}});
    hands.press(Key::up);
    hands.press(Key::down);
    EXPECT_TRUE(comes_to_read(title::fullscreen_window, role::selector, "Tower"));
}

} // namespace
} // namespace lookfar::driven
