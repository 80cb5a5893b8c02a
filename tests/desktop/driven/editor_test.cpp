#include "desktop/driven/camera_list_fixture.h"

namespace lookfar::driven {
namespace {

class Editor : public CameraListTest {
  protected:
    /// Opens the editor, whose title box has the keyboard then.
    void open(const char* button) {
        press_button(button);
        ASSERT_TRUE(comes_up(title::editor));
        ASSERT_TRUE(comes_true([this] { return title_box().is_focused(); }));
    }

    Element title_box() const { return find(title::editor, role::entry, "Title"); }

    void type_camera(const QString& title, const std::string& path) {
        hands.type(title);
        hands.press(Key::tab);
        hands.type(QString::fromStdString(cameras->url(path)));
    }
};

TEST_F(Editor, AddsACameraThatIsTypedOnTheKeyboard) {
    const std::string before = file();
    cameras->answer("/quay", showing(colour::green));
    open("Add...");
    type_camera(QStringLiteral("Große Brücke, Köln"), "/quay");
    hands.press(Key::enter);
    EXPECT_TRUE(goes(title::editor));
    EXPECT_TRUE(comes_to_select("Große Brücke, Köln"));
    EXPECT_EQ(file(), before + record("Große Brücke, Köln", "/quay"));
    EXPECT_TRUE(comes_to_read(title::main_window, role::selector, "Große Brücke, Köln"));
    click(title::main_window, role::button, "Reload");
    EXPECT_TRUE(comes_to_show(picture(title::main_window), colour::green));
}

TEST_F(Editor, ChangesNothingWhenItIsCancelled) {
    const std::string before = file();
    pick("Tower");
    open("Edit...");
    EXPECT_EQ(title_box().text(), "Tower");
    EXPECT_EQ(find(title::editor, role::entry, "URL").text(), cameras->url("/Tower"));
    hands.type("s of the town");
    hands.press(Key::escape);
    click(title::editor, role::button, "Cancel");
    EXPECT_TRUE(goes(title::editor));
    EXPECT_TRUE(comes_to_select("Tower"));
    EXPECT_EQ(file(), before);
}

TEST_F(Editor, AsksBeforeItOverwritesACamera) {
    const std::string before = file();
    open("Add...");
    type_camera("Tower", "/other");
    click(title::editor, role::button, "Ok");
    EXPECT_TRUE(comes_to_read(title::overwrite_question, role::any,
                              "A cam with this description already exists!"));
    answer(title::overwrite_question, "No");
    EXPECT_EQ(file(), before);
    EXPECT_TRUE(comes_true([this] { return title_box().is_focused(); }));

    click(title::editor, role::button, "Ok");
    answer(title::overwrite_question, "Yes");
    EXPECT_TRUE(goes(title::editor));
    EXPECT_TRUE(comes_to_select("Tower"));
    EXPECT_EQ(file(), record("Harbour", "/Harbour") + record("Tower", "/other"));
}

} // namespace
} // namespace lookfar::driven
