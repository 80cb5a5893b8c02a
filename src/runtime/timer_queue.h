#pragma once

#include "runtime/platform.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace lookfar {

/// What a timer's due tick waits for.
enum class TickRule {
    /// Nothing: it is served as soon as it is due.
    when_due,
    /// A property that has changed since the timer's last tick began. For a timer that ticks at
    /// the next opportunity, for ever, and whose handler is a function of property values alone:
    /// without a change such a tick has nothing to do, and a process at rest sleeps.
    after_a_change,
};

/// Whether ticks that wait for a change are held back, or come blindly all the while.
enum class IdleTicks { held_back, blind };

/// The due times of all timers.
///
/// Due ticks are served one by one in the order of their due times, first come first served on
/// ties. A tick that was missed many times comes once. A timer is given its next due time before
/// its handler is called, since the handler may wait, and may restart or stop any timer.
///
/// Timers that wait for a change tick in the order of their start, after all others that are due
/// with them: the order that ticking all the while would give.
class TimerQueue {
  public:
    using Identity = const void*;

    /// `arm` is told the instant of the next wake-up whenever it moves.
    TimerQueue(std::function<Instant()> now, std::function<void(std::optional<Instant>)> arm,
               IdleTicks idle_ticks = IdleTicks::held_back);

    /// Starts the count of a timer, or starts it over.
    void start(Identity timer, std::chrono::milliseconds interval, TickRule rule,
               std::function<void()> tick);
    /// Takes a timer out; unknown ones are ignored.
    void stop(Identity timer);

    /// Serves every tick that is due now, each timer at most once. What follows from them comes
    /// with the next wake-up, so that the loop can answer the system between two that take long.
    void serve_due();
    /// Serves the ticks that a change has made due, each timer at most once, unless another timer's
    /// tick is due before them. Called after a handler, so that its changes are not shown without
    /// what follows from them.
    void serve_following();

    /// Releases the ticks that are held back.
    void count_change();

  private:
    struct Entry {
        Identity timer;
        std::chrono::milliseconds interval;
        TickRule rule;
        std::function<void()> tick;
        Instant due;
        std::uint64_t order;
        std::optional<std::uint64_t> changes_at_last_tick;
    };

    static bool is_before(const Entry& left, const Entry& right);
    bool is_held(const Entry& entry) const;
    void release_held();
    Entry* next();
    void serve(Entry& entry, Instant now);
    void settle(Entry& entry, Instant now);
    void arm();

    std::function<Instant()> now_;
    std::function<void(std::optional<Instant>)> arm_;
    IdleTicks idle_ticks_;
    std::vector<Entry> entries_;
    std::optional<Instant> armed_;
    /// Whether the platform has a wake-up set for `armed_`. A wake-up that comes is used up.
    bool wake_up_is_set_ = false;
    std::uint64_t order_ = 0;
    std::uint64_t changes_ = 0;
    bool some_are_held_ = false;
};

} // namespace lookfar
