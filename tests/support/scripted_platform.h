#pragma once

#include "runtime/form.h"
#include "runtime/platform.h"
#include "runtime/runtime.h"
#include "runtime/window_system.h"
#include "support/faulty_disk.h"

#include <chrono>
#include <deque>
#include <map>
#include <optional>
#include <utility>
#include <variant>

namespace lookfar::testing {

/// Thrown where the program ends, so that a test goes on behind it.
struct ProgramEnded {};

/// The body that a camera sends, or why there is none.
using Answer = std::variant<Bytes, Failure>;

/// How a scripted camera answers.
struct ScriptedAnswer {
    Answer outcome = Bytes();
    std::chrono::milliseconds after{100};
};

/// A machine made of virtual time and scripted answers: an hour passes as quickly as its events
/// are run. Time moves only while the program waits or the test lets it run.
class ScriptedPlatform : public Platform, public WindowSystem {
  public:
    // The script.

    /// Lets the message loop run for some virtual time.
    void run_for(std::chrono::milliseconds duration);
    /// Lets time pass that a handler takes, so that nothing happens meanwhile.
    void pass(std::chrono::milliseconds duration) { now_ += duration; }
    /// Has an action come from the user or the machine after some virtual time.
    void after(std::chrono::milliseconds delay, std::function<void()> action);
    void set_time_of_day(std::chrono::milliseconds time);

    ScreenMetrics metrics{.size = {15360, 11520}, .bits_per_pixel = 32};
    FaultyDisk faulty_disk;

    /// Answers by URL; a URL without one has no host. Every transfer ends at its time-out.
    std::map<std::string, ScriptedAnswer> cameras;
    /// The URLs that were asked for, in order.
    std::vector<std::string> requests;
    /// Whether the last one was to go through the proxies of the environment.
    bool is_proxy_asked = false;
    int abandoned_transfers = 0;

    /// Answers message boxes, in order; runs while the box is up.
    std::deque<std::function<MessageBoxAnswer()>> box_answers;
    /// What each message box said: its flags, title and text.
    std::vector<std::string> boxes;

    std::vector<std::string> links;
    /// What the user keeps of pictures: the pixels that were copied, and the files dragged out.
    std::vector<Bytes> copies;
    std::vector<OriginalFile> dragged;
    std::vector<Failure> untrapped;
    std::vector<const PopupMenu*> menus;
    const MenuItem* default_menu_entry = nullptr;
    std::vector<const Form*> brought_forward;
    const Control* focus = nullptr;
    std::vector<std::pair<const Control*, std::string>> hints;
    std::vector<std::string> announced;
    /// How often the wake handler was called.
    int wake_ups = 0;

    RemoteAccessService* remote_access_service = nullptr;

    // The platform.

    Instant now() const override { return now_; }
    std::chrono::milliseconds time_of_day() const override;
    std::chrono::local_seconds local_time() const override;
    void set_wake_handler(std::function<void()> handler) override;
    void wake_at(std::optional<Instant> instant) override { wake_ = instant; }
    void run() override;
    void deliver_pending() override;
    void wait_until(const std::function<bool()>& done) override;
    [[noreturn]] void end() override { throw ProgramEnded{}; }
    WindowSystem& windows() override { return *this; }
    Disk& disk() override { return faulty_disk; }
    std::unique_ptr<Transfer> start_transfer(TransferRequest request, TransferDone done) override;
    void open_link(const std::string& address) override { links.push_back(address); }
    void copy_picture(const Picture& picture) override {
        copies.emplace_back(picture.bytes().begin(), picture.bytes().end());
    }
    void drag_picture(PictureReference picture) override {
        dragged.push_back(*picture->original());
    }
    RemoteAccessService* remote_access() override { return remote_access_service; }
    MessageBoxAnswer ask(const MessageBox& box) override;
    void report_untrapped(const Failure& failure) override { untrapped.push_back(failure); }

    // The windows.

    ScreenMetrics screen_metrics() const override { return metrics; }
    void changed(Element& /*element*/) override {}
    void forget(Element& /*element*/) override {}
    void bring_forward(Form& form) override { brought_forward.push_back(&form); }
    void set_focus(Control& control) override { focus = &control; }
    void show_hint(Control& control, const std::string& text) override {
        if (control.form.Visible)
            hints.emplace_back(&control, text);
    }
    void announce(Control& /*control*/, const std::string& text) override {
        announced.push_back(text);
    }
    void pop_up(Form& form, PopupMenu& menu, const MenuItem* default_entry) override;
    Size text_size(const std::string& text, const Font& font,
                   std::optional<float> wrap_width) const override;

  private:
    std::optional<Instant> next_event() const;
    void run_next_event();
    /// What equals the body before is not decoded again.
    TransferOutcome decoded(Answer answer);

    DecodedBodyReference last_body_;
    Instant now_{std::chrono::hours(1)};
    std::chrono::milliseconds time_of_day_at_start_{std::chrono::hours(12)};
    std::optional<Instant> wake_;
    std::function<void()> wake_handler_;
    std::multimap<Instant, std::function<void()>> events_;
};

} // namespace lookfar::testing
