#include "runtime/runtime.h"

#include "runtime/element.h"
#include "runtime/form.h"
#include "runtime/scoped_value.h"
#include "runtime/window_system.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <exception>
#include <utility>

namespace lookfar {

namespace {

/// How many calls of `DoEvents` may be nested in one another. Each takes its part of the stack, and
/// holds up the handlers that called the outer ones.
constexpr int deepest_nesting = 4;

} // namespace

Runtime::Runtime(Platform& platform, IdleTicks idle_ticks)
    : platform_(platform),
      files_(platform.disk()),
      timers_([this] { return platform_.now(); },
              [this](std::optional<Instant> instant) { platform_.wake_at(instant); }, idle_ticks) {
    platform_.set_wake_handler([this] { timers_.serve_due(); });
}

Runtime::~Runtime() {
    platform_.wake_at(std::nullopt);
    platform_.set_wake_handler({});
}

void Runtime::DoEvents() {
    if (nested_do_events_ == deepest_nesting)
        return;
    const ScopedValue nested(nested_do_events_, nested_do_events_ + 1);
    platform_.deliver_pending();
    timers_.serve_due();
}

MessageBoxAnswer Runtime::MsgBox(const std::string& text, MessageBoxFlag flags,
                                 const std::string& title) {
    return platform_.ask({.text = text, .flags = flags, .title = title});
}

Size Runtime::Screen() const {
    return platform_.windows().screen_metrics().size;
}

short Runtime::ScreenColourDepth() const {
    return platform_.windows().screen_metrics().bits_per_pixel;
}

float Runtime::SecondsSinceMidnight() const {
    return std::chrono::duration<float>(platform_.time_of_day()).count();
}

std::string Runtime::TimeOfDay() const {
    const std::chrono::hh_mm_ss time(
        std::chrono::floor<std::chrono::seconds>(platform_.time_of_day()));
    std::array<char, 16> text{};
    const int length = std::snprintf(
        text.data(), text.size(), "%02d:%02d:%02d", static_cast<int>(time.hours().count()),
        static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()));
    return {text.data(), static_cast<std::size_t>(length)};
}

void Runtime::deliver(const std::function<void()>& handler) {
    run(handler);
    if (running_handlers_ == 0)
        retired_.clear();
}

void Runtime::run(const std::function<void()>& handler) {
    const ScopedValue running(running_handlers_, running_handlers_ + 1);
    try {
        handler();
    } catch (const Failure& failure) {
        platform_.report_untrapped(failure);
    } catch (const std::exception& other) {
        // Too little memory, above all. The platform's own loop is not made for it to pass.
        platform_.report_untrapped(Failure(0, other.what()));
    }
}

void Runtime::element_changed(Element& element) {
    timers_.count_change();
    platform_.windows().changed(element);
}

void Runtime::retire(std::unique_ptr<Form> form) {
    retired_.push_back(std::move(form));
}

} // namespace lookfar
