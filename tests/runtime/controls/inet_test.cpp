#include "runtime/controls/inet.h"
#include "support/failure_of.h"
#include "support/scripted_platform.h"

#include <gtest/gtest.h>

namespace lookfar::testing {
namespace {

struct Transfers : ::testing::Test {
    ScriptedPlatform platform;
    Runtime runtime{platform};
    Form form{runtime, {}};
    Inet Inet1{form, {.RequestTimeout = 2}};

    /// 0 where the URL is fetched.
    int number_of(const std::string& url) {
        const auto failure = failure_of([&] { Inet1.OpenURL(url, DataType::icByteArray); });
        return failure ? failure->Number : 0;
    }
};

TEST_F(Transfers, AskProxiesUnlessTheAccessIsDirect) {
    EXPECT_EQ(Inet1.AccessType, 0);
    for (const short access : {short{0}, short{1}, short{2}}) {
        Inet1.AccessType = access;
        number_of("anywhere");
        EXPECT_EQ(platform.is_proxy_asked, access != 1) << access;
    }
}

TEST_F(Transfers, FailWhereTheyTakeTooLongOrComeSecondOrAreCancelled) {
    using std::chrono::milliseconds;
    platform.cameras = {{"good", {.outcome = Bytes{7}}},
                        {"slow", {.outcome = Bytes{7}, .after = milliseconds(2001)}}};
    EXPECT_EQ(number_of("slow"), 28) << "the whole wait is bounded by the time-out";
    platform.after(milliseconds(50), [&] {
        EXPECT_EQ(number_of("good"), 35764) << "only one at a time";
        Inet1.Cancel();
    });
    EXPECT_EQ(number_of("good"), 35766);
    EXPECT_EQ(platform.abandoned_transfers, 1);
    EXPECT_EQ(number_of("good"), 0);
}

} // namespace
} // namespace lookfar::testing
