#pragma once

#include "runtime/element.h"
#include "runtime/event.h"
#include "runtime/property.h"
#include "runtime/timer_queue.h"

namespace lookfar {

class Form;

/// The design values of a timer.
struct TimerDesign {
    bool Enabled = true;
    /// Milliseconds.
    long Interval = 0;
    TickRule Ticks = TickRule::when_due;
};

/// Raises its event at an interval while it is enabled. It runs as long as its window is loaded,
/// whether the window is shown or not.
class Timer : public Element {
  public:
    Timer(Form& owner, const TimerDesign& design);
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;
    ~Timer() override;

    /// Writing the present value again does not restart the count.
    Property<bool> Enabled;
    /// Milliseconds from 0 to 65535; anything else is refused. Every write restarts the count,
    /// even of the present value. At 0 nothing ticks.
    DerivedProperty<long> Interval;

    Event<> Tick;

    const TimerDesign Design;

  private:
    friend class Form;

    void set_interval(long milliseconds);
    void restart();

    Form& form_;
    long interval_;
};

} // namespace lookfar
