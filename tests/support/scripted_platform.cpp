#include "support/scripted_platform.h"

#include "pictures/decode_pixels.h"
#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace lookfar::testing {

namespace {

constexpr int could_not_resolve_host = 6;
constexpr int timed_out = 28;

class ScriptedTransfer : public Transfer {
  public:
    ScriptedTransfer(std::shared_ptr<bool> is_wanted, int& abandoned)
        : is_wanted_(std::move(is_wanted)), abandoned_(abandoned) {}
    ScriptedTransfer(const ScriptedTransfer&) = delete;
    ScriptedTransfer& operator=(const ScriptedTransfer&) = delete;
    ~ScriptedTransfer() override {
        if (*is_wanted_)
            ++abandoned_;
        *is_wanted_ = false;
    }

  private:
    std::shared_ptr<bool> is_wanted_;
    int& abandoned_;
};

} // namespace

void ScriptedPlatform::run_for(std::chrono::milliseconds duration) {
    const Instant end = now_ + duration;
    for (auto next = next_event(); next && *next <= end; next = next_event())
        run_next_event();
    now_ = std::max(now_, end);
}

void ScriptedPlatform::after(std::chrono::milliseconds delay, std::function<void()> action) {
    events_.emplace(now_ + delay, std::move(action));
}

void ScriptedPlatform::set_time_of_day(std::chrono::milliseconds time) {
    time_of_day_at_start_ += time - time_of_day();
}

std::chrono::milliseconds ScriptedPlatform::time_of_day() const {
    constexpr std::chrono::milliseconds day = std::chrono::hours(24);
    const auto running = std::chrono::duration_cast<std::chrono::milliseconds>(
        now_ - Instant(std::chrono::hours(1)));
    return ((time_of_day_at_start_ + running) % day + day) % day;
}

std::chrono::local_seconds ScriptedPlatform::local_time() const {
    using namespace std::chrono;
    return local_days(2026y / November / 26) + floor<seconds>(time_of_day());
}

void ScriptedPlatform::set_wake_handler(std::function<void()> handler) {
    wake_handler_ = std::move(handler);
}

void ScriptedPlatform::run() {
    while (next_event())
        run_next_event();
}

void ScriptedPlatform::deliver_pending() {
    while (!events_.empty() && events_.begin()->first <= now_)
        events_.extract(events_.begin()).mapped()();
}

void ScriptedPlatform::wait_until(const std::function<bool()>& done) {
    while (!done()) {
        if (!next_event())
            throw std::logic_error("The program would wait for ever.");
        run_next_event();
    }
}

std::unique_ptr<Transfer> ScriptedPlatform::start_transfer(TransferRequest request,
                                                           TransferDone done) {
    requests.push_back(request.url);
    is_proxy_asked = request.uses_proxies;
    const auto camera = cameras.find(request.url);
    ScriptedAnswer answer =
        camera != cameras.end()
            ? camera->second
            : ScriptedAnswer{.outcome = Failure(could_not_resolve_host, "Could not resolve host")};
    if (answer.after > request.timeout)
        answer = {.outcome = Failure(timed_out, "Timeout was reached"), .after = request.timeout};
    const auto is_wanted = std::make_shared<bool>(true);
    after(answer.after,
          [this, is_wanted, outcome = std::move(answer.outcome), done = std::move(done)]() mutable {
              if (std::exchange(*is_wanted, false))
                  done(decoded(std::move(outcome)));
          });
    return std::make_unique<ScriptedTransfer>(is_wanted, abandoned_transfers);
}

TransferOutcome ScriptedPlatform::decoded(Answer answer) {
    if (const auto* const failure = std::get_if<Failure>(&answer))
        return *failure;
    auto& body = std::get<Bytes>(answer);
    const std::string complaint = body.empty() ? "The camera's answer holds no bytes."
                                               : "The camera's answer is not a picture.";
    if (!last_body_ || *last_body_->bytes != body) {
        auto picture = decoded_picture(body);
        last_body_ = decoded_body(std::move(body), std::move(picture), complaint);
    }
    return last_body_;
}

MessageBoxAnswer ScriptedPlatform::ask(const MessageBox& box) {
    boxes.push_back(std::to_string(static_cast<int>(box.flags)) + " " + box.title + ": " +
                    box.text);
    if (box_answers.empty())
        return MessageBoxAnswer::ok;
    const auto answer = std::move(box_answers.front());
    box_answers.pop_front();
    return answer();
}

void ScriptedPlatform::pop_up(Form& /*form*/, PopupMenu& menu, const MenuItem* default_entry) {
    menus.push_back(&menu);
    default_menu_entry = default_entry;
}

Size ScriptedPlatform::text_size(const std::string& text, const Font& font,
                                 std::optional<float> wrap_width) const {
    const float line_height = font.Size * 20;
    const float width = static_cast<float>(text.size()) * line_height / 2;
    if (!wrap_width)
        return {.Width = width, .Height = line_height};
    return {.Width = *wrap_width, .Height = std::ceil(width / *wrap_width) * line_height};
}

std::optional<Instant> ScriptedPlatform::next_event() const {
    const auto event = events_.empty() ? std::nullopt : std::optional(events_.begin()->first);
    if (event && wake_)
        return std::min(*event, *wake_);
    return event ? event : wake_;
}

void ScriptedPlatform::run_next_event() {
    const Instant due = *next_event();
    now_ = std::max(now_, due);
    if (!events_.empty() && events_.begin()->first == due) {
        events_.extract(events_.begin()).mapped()();
        return;
    }
    wake_.reset();
    ++wake_ups;
    wake_handler_();
}

} // namespace lookfar::testing
