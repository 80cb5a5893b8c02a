#include "desktop/driven/camera_list_fixture.h"

namespace lookfar::driven {
namespace {

using CameraList = CameraListTest;

TEST_F(CameraList, PicksTheCameraOfTheMainWindow) {
    EXPECT_TRUE(comes_to_select(find(title::main_window, role::selector, "").name()));
    for (const char* const camera : {"Tower", "Harbour"}) {
        pick(camera);
        EXPECT_TRUE(comes_to_read(title::main_window, role::selector, camera));
    }
    press_button("Ok");
    EXPECT_TRUE(goes(title::list_window));
    ASSERT_TRUE(comes_up(title::main_window));
    click(title::main_window, role::button, "Reload");
    EXPECT_TRUE(comes_to_show(picture(title::main_window), colour::red));
}

TEST_F(CameraList, LosesACameraOnceTheQuestionIsAnsweredByYes) {
    const std::string whole = file();
    pick("Tower");
    press_button("Remove");
    EXPECT_TRUE(
        comes_to_read(title::removal_question, role::any, "Do you really want to remove 'Tower'"));
    answer(title::removal_question, "No");
    EXPECT_EQ(file(), whole);
    press_button("Remove");
    answer(title::removal_question, "Yes");
    EXPECT_TRUE(stops_reading(title::list_window, role::list_item, "Tower"));
    EXPECT_TRUE(comes_to_select("Harbour"));
    EXPECT_EQ(file(), record("Harbour", "/Harbour"));
    EXPECT_TRUE(comes_to_read(title::main_window, role::selector, "Harbour"));
}

} // namespace
} // namespace lookfar::driven
