#pragma once

#include "support/machine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <set>

namespace lookfar::testing {

/// A test of a started program with so many cameras.
template <int cameras>
struct Started : ::testing::Test, Machine {
    Started() : Machine(cameras) { start(); }

    /// In both windows; the number in the fullscreen window blinks while it is shown.
    void expect_error_display(bool is_shown) {
        for (const Label* label : {&Form1->Label2, &Form1->Label3, &Form2->Label3})
            EXPECT_EQ(label->Visible, is_shown);
        EXPECT_EQ(Form2->Timer2.Enabled, is_shown);
        EXPECT_TRUE(is_shown || !Form2->Label2.Visible);
        EXPECT_EQ(Form1->ImagNT1.Visible, !is_shown);
        EXPECT_EQ(Form2->Image3.Visible, !is_shown);
    }
};

} // namespace lookfar::testing
