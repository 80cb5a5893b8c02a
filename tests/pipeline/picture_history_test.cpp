#include "pictures/decode_pixels.h"
#include "support/literal_blur.h"
#include "support/machine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace lookfar::testing {
namespace {

using PictureBytes = std::vector<std::uint8_t>;

/// The picture that the windows have, told by the rules alone: which answer it came from, and how
/// often it was blurred since.
class Model {
  public:
    void begin_refresh(bool is_gif) {
        address_is_gif_ = is_gif;
        hand_over();
    }
    void succeed(const Bytes& answer) {
        shown_ = decode_pixels(answer);
        blurs_ = 0;
        is_pending_ = true;
        has_failed_ = false;
        hand_over();
    }
    void fail() {
        has_failed_ = true;
        is_pending_ = true;
    }
    void set_blur(bool on) {
        blur_is_on_ = on;
        hand_over();
    }
    PictureBytes bytes() const {
        const auto count = static_cast<std::ptrdiff_t>(shown_.stride) * shown_.height;
        PictureBytes result(shown_.bytes.get(), shown_.bytes.get() + count);
        for (int pass = 0; pass < blurs_; ++pass)
            blur_literally(result, shown_.height, shown_.stride);
        return result;
    }

  private:
    void hand_over() {
        if (has_failed_ || address_is_gif_ || !is_pending_ || !blur_is_on_)
            return;
        ++blurs_;
        is_pending_ = false;
    }

    Pixels shown_;
    int blurs_ = 0;
    bool is_pending_ = false;
    bool has_failed_ = false;
    bool blur_is_on_ = true;
    bool address_is_gif_ = false;
};

/// A JPEG and a GIF address on one machine, and what its user and its cameras do to them.
class PictureHistory {
  public:
    explicit PictureHistory(unsigned seed) : random_(seed) {
        const std::string list = "a\r\n" + urls_[0] + "\r\nb\r\n" + urls_[1] + "\r\n";
        write_file("Cams.inf", list);
        answer_with(answers_[0]);
        machine_.start();
        machine_.Form1->Timer1.Enabled = false;
        machine_.platform.run_for(milliseconds(50));
        model_.begin_refresh(machine_.Form1->Combo1.ListIndex == 1);
        model_.succeed(answers_[0]);
    }

    void step() {
        const unsigned draw = random_() % 8;
        if (draw < 3)
            switch_blur(draw == 0);
        else
            refresh(draw == 3 ? Bytes{'<', 'p', '>'} : answers_[draw % 3], draw == 3);
        machine_.platform.run_for(milliseconds(50));
    }

    void expect_pictures_of_the_model() {
        const PictureBytes expected = model_.bytes();
        for (const PictureReference& picture :
             {machine_.Form1->ImagNT1.Picture.get(), machine_.Form2->Image3.Picture.get(),
              machine_.Form2->Picture1.Picture.get()})
            ASSERT_TRUE(std::ranges::equal(picture->bytes(), expected));
    }

  private:
    void answer_with(const Bytes& body) {
        for (const std::string& url : urls_)
            machine_.platform.cameras[url] = {.outcome = body};
    }
    void switch_blur(bool on) {
        machine_.Form1->Check2.Value = short{on};
        model_.set_blur(on);
    }
    void refresh(const Bytes& body, bool fails) {
        const auto camera = static_cast<short>(random_() % 2);
        answer_with(body);
        machine_.pick(camera);
        model_.begin_refresh(camera == 1);
        fails ? model_.fail() : model_.succeed(body);
    }

    const std::string urls_[2] = {"http://cameras.example/a.jpg", "http://cameras.example/b.gif"};
    const Bytes answers_[3] = {detailed_jpeg(24, 16), detailed_jpeg(24, 16, 2),
                               detailed_jpeg(40, 30)};
    std::mt19937 random_;
    Machine machine_{2};
    Model model_;
};

TEST(Pictures, OfRandomHistoriesAreThoseOfTheRules) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
        PictureHistory history(seed);
        for (int step = 0; step < 40; ++step) {
            SCOPED_TRACE("history " + std::to_string(seed) + ", step " + std::to_string(step));
            history.step();
            history.expect_pictures_of_the_model();
            if (HasFatalFailure())
                return;
        }
    }
}

} // namespace
} // namespace lookfar::testing
