#pragma once

#include <QTest>

namespace lookfar::desktop {

/// Waits for a condition, message loop running. False only after a time that no working program
/// takes, however busy the machine is; it is shorter than the program's own patience with a camera.
template <class Condition>
bool comes_true(Condition condition) {
    constexpr int longest_milliseconds = 40'000;
    return QTest::qWaitFor(condition, longest_milliseconds);
}

} // namespace lookfar::desktop
