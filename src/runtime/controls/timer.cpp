#include "runtime/controls/timer.h"

#include "runtime/failure.h"
#include "runtime/form.h"
#include "runtime/runtime.h"

#include <chrono>

namespace lookfar {

namespace {
constexpr long longest_interval = 65535;
}

Timer::Timer(Form& owner, const TimerDesign& design)
    : Element(owner.runtime),
      Enabled(*this, design.Enabled, {.changed = [this] { restart(); }}),
      Interval([this] { return interval_; },
               [this](const long& milliseconds) { set_interval(milliseconds); }),
      Design(design),
      form_(owner),
      interval_(design.Interval) {
    form_.timers_.push_back(this);
}

Timer::~Timer() {
    runtime.timers().stop(this);
    std::erase(form_.timers_, this);
}

void Timer::set_interval(long milliseconds) {
    if (milliseconds < 0 || milliseconds > longest_interval)
        throw Failure(FailureKind::invalid_property_value,
                      "A timer's interval lies between 0 and 65535 milliseconds.");
    interval_ = milliseconds;
    changed();
    restart();
}

void Timer::restart() {
    if (form_.runs_timers_ && Enabled && interval_ > 0)
        runtime.timers().start(this, std::chrono::milliseconds(interval_), Design.Ticks,
                               [this] { runtime.deliver([this] { Tick.raise(); }); });
    else
        runtime.timers().stop(this);
}

} // namespace lookfar
