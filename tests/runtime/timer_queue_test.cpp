#include "runtime/timer_queue.h"

#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <string>

namespace lookfar::testing {
namespace {

using std::chrono::milliseconds;

struct TimerTicks : ::testing::Test {
    Instant now{};
    std::optional<Instant> armed;
    TimerQueue queue{[this] { return now; }, [this](std::optional<Instant> at) { armed = at; }};
    std::string ticks;
    const char* const names = "ABC";

    void start(int timer, int interval, const std::function<void()>& more = {},
               TickRule rule = TickRule::when_due) {
        queue.start(&names[timer], milliseconds(interval), rule, [this, timer, more] {
            ticks += names[timer];
            if (more)
                more();
        });
    }
    void serve_after(int passed) {
        now += milliseconds(passed);
        queue.serve_due();
    }
    std::optional<long long> armed_in() const {
        if (!armed)
            return std::nullopt;
        return std::chrono::duration_cast<milliseconds>(*armed - now).count();
    }
};

TEST_F(TimerTicks, ComeInTheOrderOfTheirDueTimesAndFirstComeFirstServedOnTies) {
    start(0, 300);
    start(1, 200);
    start(2, 300);
    EXPECT_EQ(armed_in(), 200);
    serve_after(300);
    EXPECT_EQ(ticks, "BAC");
    serve_after(300);
    EXPECT_EQ(ticks, "BACBAC");
}

TEST_F(TimerTicks, TakeTheirTurnAnewWithEveryCount) {
    start(0, 200);
    start(1, 300);
    for (const int passed : {200, 100, 100, 200})
        serve_after(passed);
    EXPECT_EQ(ticks, "ABABA") << "at 600 the count of B is the older one";
}

TEST_F(TimerTicks, KeepTheirPaceWhenTheyComeALittleLateAndComeOnceWhenMissedOften) {
    start(0, 100);
    armed.reset();
    serve_after(99);
    EXPECT_EQ(armed_in(), 1) << "the wake-up came early";
    serve_after(31);
    EXPECT_EQ(armed_in(), 70);
    serve_after(1050);
    EXPECT_EQ(ticks, "AA");
    EXPECT_EQ(armed_in(), 100);
}

TEST_F(TimerTicks, OfEveryTimerComeInsideAHandlerThatWaits) {
    start(0, 100, [this] {
        if (ticks.size() == 1)
            serve_after(250);
    });
    start(1, 120);
    serve_after(100);
    EXPECT_EQ(ticks, "ABA") << "its own tick comes in its midst too";
}

TEST_F(TimerTicks, FollowAHandlerThatStopsOrRestartsTimers) {
    start(0, 100, [this] {
        queue.stop(&names[1]);
        start(0, 50);
    });
    start(1, 100);
    serve_after(100);
    EXPECT_EQ(ticks, "A");
    EXPECT_EQ(armed_in(), 50);
    serve_after(50);
    EXPECT_EQ(ticks, "AA");
    queue.stop(&names[0]);
    EXPECT_EQ(armed_in(), std::nullopt);
}

TEST_F(TimerTicks, FollowASlowHandlersChangesUnlessAnotherIsDueBefore) {
    start(0, 100, [this] {
        now += milliseconds(30);
        queue.count_change();
    });
    start(1, 1, {}, TickRule::after_a_change);
    start(2, 205);
    serve_after(1);
    serve_after(99);
    EXPECT_EQ(ticks, "BA") << "What the system asks comes between two that take long.";
    queue.serve_following();
    EXPECT_EQ(ticks, "BAB");
    serve_after(70);
    queue.serve_following();
    EXPECT_EQ(ticks, "BABA") << "C has been due for longer";
}

TEST_F(TimerTicks, ComeAgainAfterAChangeThatTheyMadeThemselves) {
    int changes = 2;
    const auto change = [&] {
        if (changes-- > 0)
            queue.count_change();
    };
    start(0, 1, change, TickRule::after_a_change);
    for (int tick = 0; tick < 10; ++tick)
        serve_after(1);
    EXPECT_EQ(ticks, "AAA");
}

} // namespace
} // namespace lookfar::testing
