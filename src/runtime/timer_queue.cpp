#include "runtime/timer_queue.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace lookfar {

TimerQueue::TimerQueue(std::function<Instant()> now,
                       std::function<void(std::optional<Instant>)> arm, IdleTicks idle_ticks)
    : now_(std::move(now)), arm_(std::move(arm)), idle_ticks_(idle_ticks) {}

void TimerQueue::start(Identity timer, std::chrono::milliseconds interval, TickRule rule,
                       std::function<void()> tick) {
    std::erase_if(entries_, [timer](const Entry& entry) { return entry.timer == timer; });
    entries_.push_back({.timer = timer,
                        .interval = interval,
                        .rule = rule,
                        .tick = std::move(tick),
                        .due = now_() + interval,
                        .order = ++order_,
                        .changes_at_last_tick = std::nullopt});
    arm();
}

void TimerQueue::stop(Identity timer) {
    if (std::erase_if(entries_, [timer](const Entry& entry) { return entry.timer == timer; }) > 0)
        arm();
}

void TimerQueue::serve_due() {
    wake_up_is_set_ = false;
    const Instant now = now_();
    for (Entry* entry = next(); entry && entry->due <= now; entry = next())
        serve(*entry, now);
    arm();
}

void TimerQueue::serve_following() {
    const Instant now = now_();
    const auto follows = [now](const Entry* entry) {
        return entry && entry->rule == TickRule::after_a_change && entry->due <= now;
    };
    for (Entry* entry = next(); follows(entry); entry = next())
        serve(*entry, now);
    arm();
}

void TimerQueue::serve(Entry& entry, Instant now) {
    settle(entry, now);
    arm();
    const auto tick = entry.tick;
    tick();
}

void TimerQueue::count_change() {
    if (some_are_held_)
        release_held();
    ++changes_;
    if (std::exchange(some_are_held_, false))
        arm();
}

bool TimerQueue::is_held(const Entry& entry) const {
    return idle_ticks_ == IdleTicks::held_back && entry.rule == TickRule::after_a_change &&
           entry.changes_at_last_tick == changes_;
}

/// Makes the ticks that were held back due now, as if they had come all the while.
void TimerQueue::release_held() {
    const Instant now = now_();
    for (Entry& entry : entries_)
        if (is_held(entry))
            entry.due = std::max(entry.due, now);
}

bool TimerQueue::is_before(const Entry& left, const Entry& right) {
    const auto rank = [](const Entry& entry) {
        return std::tuple(entry.due, entry.rule, entry.order);
    };
    return rank(left) < rank(right);
}

TimerQueue::Entry* TimerQueue::next() {
    Entry* first = nullptr;
    for (Entry& entry : entries_) {
        if (is_held(entry))
            continue;
        if (!first || is_before(entry, *first))
            first = &entry;
    }
    return first;
}

void TimerQueue::settle(Entry& entry, Instant now) {
    entry.due += entry.interval;
    if (entry.due <= now)
        entry.due = now + entry.interval;
    if (entry.rule == TickRule::when_due)
        entry.order = ++order_;
    entry.changes_at_last_tick = changes_;
}

void TimerQueue::arm() {
    const Entry* const first = next();
    some_are_held_ = std::ranges::any_of(entries_, [this](const Entry& e) { return is_held(e); });
    const auto instant = first ? std::optional(first->due) : std::nullopt;
    if (wake_up_is_set_ && instant == armed_)
        return;
    wake_up_is_set_ = true;
    armed_ = instant;
    arm_(instant);
}

} // namespace lookfar
