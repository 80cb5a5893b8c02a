#include "support/machine.h"

#include "runtime/message_box.h"

#include <gtest/gtest.h>

#include <chrono>
#include <map>
#include <random>
#include <sstream>
#include <string>
#include <utility>

namespace lookfar::testing {
namespace {

using std::chrono::hours;
using std::chrono::minutes;

/// The titles of the list file with their URLs.
std::map<std::string, std::string> listed_cameras() {
    std::map<std::string, std::string> cameras;
    std::istringstream list(content_of("Cams.inf"));
    const auto read_line = [&list](std::string& line) {
        return static_cast<bool>(std::getline(list, line, '\r')) && list.get() == '\n';
    };
    for (std::string title, url; read_line(title) && read_line(url);)
        cameras[title] = url;
    return cameras;
}

/// A program that is left on for a month: it refreshes and hops every minute while its cameras
/// fail, stall and come back, and while its user edits the list at any moment, in the midst of a
/// fetch too.
class LongLife : public ::testing::Test {
  protected:
    LongLife() {
        for (char camera = first; camera <= last; ++camera) {
            cameras_[std::string(1, camera)] = Machine::url_of(camera);
            machine.set_answer(camera, picture_file(16, 12));
        }
        machine.start();
        Form1->Text1.Text = "60";
        Form1->Text2.Text = "60";
        Form1->Check1.Value = 1;
        Form1->Combo1.Click.connect([this] { ++hops_; });
    }

    void live_an_hour() {
        machine.platform.after(seconds(draw(3600)), [this] { change_weather(); });
        if (draw(6) == 0)
            machine.platform.after(seconds(draw(3600)),
                                   [this] { machine.program.runtime.deliver([this] { edit(); }); });
        machine.platform.run_for(hours(1));
    }

    /// A camera starts to answer otherwise; none takes longer than a refresh is away.
    void change_weather() {
        const char camera = static_cast<char>(first + draw(last - first + 1));
        const milliseconds after(draw(50'000));
        switch (draw(4)) {
        case 0:
            machine.set_answer(camera, Failure(7, "Couldn't connect to server"), after);
            break;
        case 1:
            machine.set_answer(camera, Bytes{'n', 'o', ' ', 'p', 'i', 'c', 't', 'u', 'r', 'e'},
                               after);
            break;
        default:
            machine.set_answer(camera, picture_file(8 + draw(16), 8 + draw(16)), after);
        }
    }

    void edit() {
        if (cameras_.size() > 8 || (cameras_.size() > 3 && draw(2) == 0))
            remove(draw_title());
        else if (draw(2) == 0)
            save(editor_mode::add, "camera " + std::to_string(++added_));
        else
            rename(draw_title());
        ++edits_;
    }

    void remove(const std::string& title) {
        machine.platform.box_answers.emplace_back([] { return MessageBoxAnswer::yes; });
        machine.Form3->List1.Text = title;
        machine.Form3->Command2.Click.raise();
        cameras_.erase(title);
    }

    void rename(const std::string& title) {
        machine.Form3->List1.Text = title;
        save(editor_mode::edit, "camera " + std::to_string(++added_));
        cameras_.erase(title);
    }

    void save(const char* mode, const std::string& title) {
        const std::string url = Machine::url_of(static_cast<char>(first + draw(last - first + 1)));
        machine.Form4->Label3.Caption = std::string(mode);
        machine.Form4->Text1.Text = title;
        machine.Form4->Text2.Text = url;
        machine.Form4->Command1.Click.raise();
        cameras_[title] = url;
    }

    void heal_all_cameras() {
        for (char camera = first; camera <= last; ++camera)
            machine.set_answer(camera, picture_file(16, 12));
    }

    std::string draw_title() {
        return std::next(cameras_.begin(), draw(static_cast<int>(cameras_.size())))->first;
    }

    int draw(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

    static constexpr char first = 'a';
    static constexpr char last = 'e';

    Machine machine{last - first + 1};
    Window<MainWindow>& Form1 = machine.Form1;
    Window<FullscreenWindow>& Form2 = machine.Form2;
    std::map<std::string, std::string> cameras_;
    int added_ = 0;
    int edits_ = 0;
    int hops_ = 0;
    std::mt19937 random_{2002};
};

TEST_F(LongLife, OfAMonthLosesNoTickAndNoCamera) {
    constexpr int days = 30;
    constexpr int most_wake_ups_an_hour = 3600 * 3 + 600;
    for (int hour = 0; hour < days * 24; ++hour) {
        SCOPED_TRACE("hour " + std::to_string(hour));
        const int edits = std::exchange(edits_, 0);
        hops_ = 0;
        machine.platform.requests.clear();
        machine.platform.wake_ups = 0;
        live_an_hour();
        EXPECT_EQ(machine.platform.requests.size(), 60U);
        EXPECT_LT(machine.platform.wake_ups, most_wake_ups_an_hour);
        const bool is_undisturbed = edits_ == 0 && edits == 0;
        EXPECT_TRUE(hops_ == 60 || !is_undisturbed) << hops_;
        ASSERT_EQ(listed_cameras(), cameras_);
        ASSERT_LE(std::stoi(Form2->Label7.Caption), 50);
    }
    heal_all_cameras();
    machine.platform.run_for(minutes(2));
    EXPECT_TRUE(Form1->ImagNT1.Visible && Form2->Image3.Visible);
    EXPECT_FALSE(Form1->Label2.Visible || Form2->TestBild.Visible || Form1->Image1.Visible);
    EXPECT_EQ(Form1->Combo1.ListCount(), static_cast<int>(cameras_.size()));
    EXPECT_TRUE(machine.platform.untrapped.empty());
    EXPECT_THROW(Form1->request_close(), ProgramEnded);
    EXPECT_FALSE(exists("data.dat"));
    EXPECT_FALSE(exists("C1.DAT"));
}

} // namespace
} // namespace lookfar::testing
