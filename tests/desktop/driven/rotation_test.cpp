#include "desktop/driven/driven_test.h"

#include <map>
#include <set>

namespace lookfar::driven {
namespace {

const std::map<std::string, QColor> colour_of{
    {"Harbour", colour::red}, {"Quay", colour::green}, {"Tower", colour::blue}};

class Rotation : public DrivenTest {
  protected:
    Rotation() {
        for (const auto& [camera, its_colour] : colour_of)
            cameras->answer("/" + camera, showing(its_colour));
    }

    std::string selected() const { return find(title::main_window, role::selector, "").name(); }
    QColor shown() const { return screen.colour_at(picture(title::main_window)); }
};

TEST_F(Rotation, HopsAmongTheCamerasWhileItsBoxIsTicked) {
    start({"Harbour", "Quay", "Tower"});
    fill_in(title::main_window, "Seconds until Refresh", "1");
    fill_in(title::main_window, "Seconds until the camera changes", "1");
    click(title::main_window, role::check_box, "Change every");
    EXPECT_TRUE(comes_true(
        [this] { return find(title::main_window, role::check_box, "Change every").is_checked(); }));
    std::set<std::string> seen;
    EXPECT_TRUE(comes_true([&] {
        for (const auto& [camera, its_colour] : colour_of)
            if (is_like(shown(), its_colour))
                seen.insert(camera);
        return seen.size() == colour_of.size();
    })) << "every camera has its turn";

    click(title::main_window, role::check_box, "Change every");
    EXPECT_TRUE(comes_true([this] {
        return !find(title::main_window, role::check_box, "Change every").is_checked();
    }));
    const std::string left = selected();
    const auto before = cameras->requests("/" + left);
    EXPECT_TRUE(comes_true([&] { return cameras->requests("/" + left) >= before + 2; }));
    EXPECT_EQ(selected(), left);
    EXPECT_TRUE(is_like(shown(), colour_of.at(left)));
}

} // namespace
} // namespace lookfar::driven
