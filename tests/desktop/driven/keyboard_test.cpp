#include "desktop/driven/driven_test.h"

#include <stdexcept>

namespace lookfar::driven {
namespace {

/// A user without a mouse.
class Keyboard : public DrivenTest {
  protected:
    void SetUp() override {
        cameras->answer("/Harbour", showing(colour::red));
        cameras->answer("/Tower", showing(colour::blue));
        start({"Harbour", "Tower"});
    }

    void press_space() { hands.type(QStringLiteral(" ")); }

    void tab_to(const char* title, const char* role, const char* name) {
        constexpr int more_than_there_are_stops = 12;
        const Element wanted = find(title, role, name);
        for (int count = 0; count < more_than_there_are_stops && !wanted.is_focused(); ++count) {
            const Element left = whatever_has_the_keyboard(title);
            hands.press(Key::tab);
            comes_true([&] { return focused(title) && !left.is_focused(); });
        }
        if (!wanted.is_focused())
            throw std::runtime_error(std::string("The tab key does not come to ") + name);
    }

    Element whatever_has_the_keyboard(const char* title) const {
        std::optional<Element> found;
        comes_true([&] { return (found = focused(title)).has_value(); });
        return found.value();
    }

    void press(const char* title, const char* role, const char* name) {
        tab_to(title, role, name);
        press_space();
    }

    void pick_from_menu(const char* access_key) {
        hands.press(Key::menu);
        ASSERT_TRUE(comes_true([this] { return screen.has_popup_of(program->process()); }));
        hands.type(QString::fromLatin1(access_key));
    }
};

TEST_F(Keyboard, OperatesTheMainWindow) {
    const auto requests = cameras->requests();
    press(title::main_window, role::button, "Reload");
    EXPECT_TRUE(comes_true([&] { return cameras->requests() == requests + 1; }));
    const Element blur = find(title::main_window, role::check_box, "Blur Effect");
    press(title::main_window, role::check_box, "Blur Effect");
    EXPECT_TRUE(comes_true([&] { return !blur.is_checked(); }));
    tab_to(title::main_window, role::selector, "");
    hands.press(Key::up);
    hands.press(Key::down);
    EXPECT_TRUE(comes_to_read(title::main_window, role::selector, "Tower"));
}

TEST_F(Keyboard, OpensAndLeavesTheOtherWindows) {
    press(title::main_window, role::button, "Camera list");
    ASSERT_TRUE(comes_up(title::list_window));
    press(title::list_window, role::button, "Edit...");
    ASSERT_TRUE(comes_up(title::editor));
    press(title::editor, role::button, "Cancel");
    ASSERT_TRUE(comes_up(title::list_window));
    press(title::list_window, role::button, "Ok");
    ASSERT_TRUE(comes_up(title::main_window));
    pick_from_menu("a");
    ASSERT_TRUE(comes_up(title::about_window));
    tab_to(title::about_window, role::link, "www.lookfar.example");
    tab_to(title::about_window, role::link, "mail@lookfar.example");
    press(title::about_window, role::button, "Ok");
    EXPECT_TRUE(goes(title::about_window));
}

TEST_F(Keyboard, OperatesTheFullscreenWindow) {
    pick_from_menu("f");
    ASSERT_TRUE(comes_up(title::fullscreen_window));
    const Element selector = find(title::fullscreen_window, role::selector, "");
    const int place = selector.place().left();
    press(title::fullscreen_window, role::button, "Camera selection panel");
    EXPECT_TRUE(comes_true([&] { return selector.place().left() >= screen.size().width(); }));
    press_space();
    EXPECT_TRUE(comes_true([&] { return selector.place().left() == place; }));
    tab_to(title::fullscreen_window, role::selector, "");
    hands.press(Key::up);
    hands.press(Key::down);
    EXPECT_TRUE(comes_to_read(title::fullscreen_window, role::selector, "Tower"));
}

} // namespace
} // namespace lookfar::driven
