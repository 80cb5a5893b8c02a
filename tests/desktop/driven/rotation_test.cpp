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
    bool comes_to_be_asked_again(const std::string& camera) const {
        const auto before = cameras->requests("/" + camera);
        return comes_true([&] { return cameras->requests("/" + camera) > before; });
    }

    std::size_t requests_of_others(const std::string& camera) const {
        std::size_t count = 0;
        for (const auto& [other, its_colour] : colour_of)
            if (other != camera)
                count += cameras->requests("/" + other);
        return count;
    }

    QColor shown() const { return screen::colour_at(picture(title::main_window)); }
};

TEST_F(Rotation, HopsAmongTheCamerasWhileItsBoxIsTicked) {
    start({"Harbour", "Quay", "Tower"});
    fill_in(title::main_window, "Seconds until Refresh", "1");
    fill_in(title::main_window, "Seconds until the camera changes", "1");
    click(title::main_window, role::check_box, "Change every");
    const Element box = find(title::main_window, role::check_box, "Change every");
    EXPECT_TRUE(comes_true([&] { return box.is(State::checked); }));
    std::set<std::string> seen;
    EXPECT_TRUE(comes_true([&] {
        for (const auto& [camera, its_colour] : colour_of)
            if (is_like(shown(), its_colour))
                seen.insert(camera);
        return seen.size() == colour_of.size();
    })) << "every camera has its turn";

    click(title::main_window, role::check_box, "Change every");
    EXPECT_TRUE(comes_true([&] { return !box.is(State::checked); }));
    // A fetch of the camera before may still be under way.
    const std::string left = selected();
    ASSERT_TRUE(comes_to_be_asked_again(left));
    const auto others = requests_of_others(left);
    for (int count = 0; count < 2; ++count)
        ASSERT_TRUE(comes_to_be_asked_again(left));
    EXPECT_EQ(requests_of_others(left), others) << "the camera stays";
    EXPECT_EQ(selected(), left);
}

} // namespace
} // namespace lookfar::driven
