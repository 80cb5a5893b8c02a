#include "desktop/driven/driven_test.h"

namespace lookfar::driven {
namespace {

class Fullscreen : public DrivenTest {
  protected:
    /// Opens the window on cameras that are asked every second.
    void open(const Titles& titles) {
        start(titles);
        fill_in(title::main_window, "Seconds until Refresh", "1");
        hands.double_click(picture(title::main_window));
        if (!comes_up(title::fullscreen_window))
            throw std::runtime_error("There is no fullscreen window.");
    }

    QRect whole_screen() const { return {QPoint(), screen.size()}; }

    QRect panel_selector() const {
        return find(title::fullscreen_window, role::selector, "").place();
    }

    /// Opens the selector's list and picks from it.
    void pick(const std::string& camera) {
        hands.click(panel_selector().center());
        click(title::fullscreen_window, role::list_item, camera);
        EXPECT_TRUE(comes_to_read(title::fullscreen_window, role::selector, camera));
    }

    /// The arrow that moves the panel stands at its left end, in front of the selector.
    void click_arrow() {
        const QRect selector = panel_selector();
        hands.click({selector.left() - 22, selector.center().y()});
    }
};

TEST_F(Fullscreen, OpensAndLeavesOnADoubleClick) {
    cameras->answer("/Harbour", showing(colour::red));
    start({"Harbour"});
    fill_in(title::main_window, "Seconds until Refresh", "1");
    const QRect place = window(title::main_window)->place;
    hands.double_click(picture(title::main_window));
    ASSERT_TRUE(comes_up(title::fullscreen_window));
    EXPECT_TRUE(comes_true([this] {
        const auto large = window(title::fullscreen_window);
        return large->is_fullscreen && large->place == whole_screen();
    }));
    EXPECT_TRUE(goes(title::main_window));
    EXPECT_TRUE(comes_to_show(whole_screen().center(), colour::red));
    EXPECT_TRUE(comes_to_read(title::fullscreen_window, role::label, "Harbour"));
    EXPECT_TRUE(comes_to_read(title::fullscreen_window, role::any, "Screenshot taken: "));
    cameras->answer("/Harbour", showing(colour::blue));
    EXPECT_TRUE(comes_to_show(whole_screen().center(), colour::blue));

    hands.double_click(whole_screen().center());
    ASSERT_TRUE(comes_up(title::main_window));
    EXPECT_TRUE(goes(title::fullscreen_window));
    EXPECT_EQ(window(title::main_window)->place, place);
    EXPECT_TRUE(comes_to_show(picture(title::main_window), colour::blue));
}

TEST_F(Fullscreen, GivesWayToTheMainWindowWhenItIsClosed) {
    cameras->answer("/Harbour", showing(colour::red));
    open({"Harbour"});
    close(title::fullscreen_window);
    ASSERT_TRUE(comes_up(title::main_window));
    EXPECT_TRUE(goes(title::fullscreen_window));
    EXPECT_FALSE(program->has_ended());
    EXPECT_TRUE(comes_to_show(picture(title::main_window), colour::red));
}

TEST_F(Fullscreen, HasAPanelThatPicksCameras) {
    cameras->answer("/Harbour", showing(colour::red));
    cameras->answer("/Tower", showing(colour::blue));
    open({"Harbour", "Tower"});
    for (const auto& [camera, its_colour] :
         {std::pair("Tower", colour::blue), std::pair("Harbour", colour::red)}) {
        pick(camera);
        EXPECT_TRUE(comes_to_show(whole_screen().center(), its_colour));
        EXPECT_TRUE(comes_to_read(title::fullscreen_window, role::label, camera));
    }
    hands.double_click(whole_screen().center());
    ASSERT_TRUE(comes_up(title::main_window));
    EXPECT_TRUE(comes_to_read(title::main_window, role::selector, "Harbour"));
}

TEST_F(Fullscreen, HasAPanelThatSlidesOutOfTheWay) {
    cameras->answer("/Harbour", showing(colour::red));
    open({"Harbour"});
    const QRect open_place = panel_selector();
    const QPoint under_panel = open_place.topLeft() - QPoint(2, 0);
    const QColor nothing = screen.colour_at({under_panel.y(), under_panel.y()});
    ASSERT_TRUE(whole_screen().contains(open_place));
    EXPECT_FALSE(is_like(screen.colour_at(under_panel), nothing));

    click_arrow();
    EXPECT_TRUE(comes_true([this] { return !whole_screen().intersects(panel_selector()); }));
    EXPECT_TRUE(comes_to_show(under_panel, nothing));
    hands.double_click(whole_screen().center());
    ASSERT_TRUE(comes_up(title::main_window));
    hands.double_click(picture(title::main_window));
    ASSERT_TRUE(comes_up(title::fullscreen_window));
    EXPECT_FALSE(whole_screen().intersects(panel_selector())) << "it stays as it was left";

    click_arrow();
    EXPECT_TRUE(comes_true([&] { return panel_selector() == open_place; }));
}

} // namespace
} // namespace lookfar::driven
