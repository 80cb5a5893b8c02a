#pragma once

#include "desktop/driven/driven_test.h"

#include <stdexcept>

namespace lookfar::driven {

/// The list window, open on two cameras.
class CameraListTest : public DrivenTest {
  protected:
    void SetUp() override {
        cameras->answer("/Harbour", showing(colour::red));
        cameras->answer("/Tower", showing(colour::blue));
        start({"Harbour", "Tower"});
        click(title::main_window, role::button, "Camera list");
        ASSERT_TRUE(comes_up(title::list_window));
    }

    void press_button(const char* name) { click(title::list_window, role::button, name); }

    void pick(const char* camera) {
        click(title::list_window, role::list_item, camera);
        EXPECT_TRUE(comes_to_select(camera));
    }

    ::testing::AssertionResult comes_to_select(const std::string& camera) const {
        return comes_true(
                   [&] { return find(title::list_window, role::list_item, camera).is_selected(); })
                   ? ::testing::AssertionSuccess()
                   : ::testing::AssertionFailure() << camera << " is not selected";
    }

    /// Answers a question, which goes then.
    void answer(const char* question, const char* button) {
        click(question, role::button, button);
        EXPECT_TRUE(stops_reading(question, role::button, button));
    }

    /// What the list file holds of a camera.
    std::string record(const std::string& title, const std::string& path) const {
        return title + "\r\n" + cameras->url(path) + "\r\n";
    }
    static std::string file() { return lookfar::testing::content_of("Cams.inf"); }
};

} // namespace lookfar::driven
