#include "runtime/controls/lists.h"
#include "runtime/failure.h"
#include "runtime/form.h"
#include "runtime/runtime.h"
#include "support/scripted_platform.h"

#include <gtest/gtest.h>

#include <string>

namespace lookfar::testing {
namespace {

struct Lists : ::testing::Test {
    ScriptedPlatform platform;
    Runtime runtime{platform};
    Form form{runtime, {}};
    ListBox sorted{form, {.Sorted = true}};
    ComboBox unsorted{form, {}};
    int clicks = 0;

    Lists() {
        sorted.Click.connect([this] { ++clicks; });
    }
    void fill(ListControl& list) {
        for (const char* entry : {"pear", "Apple", "fig", "apple", "Pear"})
            list.AddItem(entry);
    }
    static std::string entries(const ListControl& list) {
        std::string all;
        for (short index = 0; index < list.ListCount(); ++index)
            all += list.List(index) + " ";
        return all;
    }
};

TEST_F(Lists, SortWithoutRegardToCaseAndKeepTheOrderOfAddingOtherwise) {
    fill(sorted);
    fill(unsorted);
    EXPECT_EQ(entries(sorted), "Apple apple fig pear Pear ");
    EXPECT_EQ(entries(unsorted), "pear Apple fig apple Pear ");
}

TEST_F(Lists, AnswerAnIndexWithoutEntryByAnEmptyText) {
    fill(sorted);
    EXPECT_EQ(sorted.List(-1), "");
    EXPECT_EQ(sorted.List(5), "");
    EXPECT_EQ(sorted.ListIndex, -1);
    EXPECT_EQ(sorted.Text.get(), "");
}

TEST_F(Lists, SelectByIndexOrByExactTextAndClickOnAChangeOnly) {
    fill(sorted);
    sorted.ListIndex = 1;
    sorted.ListIndex = 1;
    sorted.Text = "apple";
    EXPECT_EQ(clicks, 1);
    sorted.Text = "Pear";
    EXPECT_EQ(sorted.ListIndex, 4);
    EXPECT_EQ(clicks, 2);
    EXPECT_THROW(sorted.Text = "PEAR", Failure);
    EXPECT_THROW(sorted.ListIndex = 5, Failure);
    EXPECT_THROW(sorted.ListIndex = -2, Failure);
    EXPECT_EQ(sorted.ListIndex, 4);
    EXPECT_EQ(clicks, 2);
}

TEST_F(Lists, KeepTheSelectedEntryWhenOneIsAddedBeforeIt) {
    fill(sorted);
    sorted.Text = "fig";
    sorted.AddItem("banana");
    EXPECT_EQ(sorted.Text.get(), "fig");
    EXPECT_EQ(clicks, 1);
}

TEST_F(Lists, LoseTheirSelectionWithTheirEntriesInSilence) {
    fill(sorted);
    sorted.ListIndex = 2;
    sorted.Clear();
    EXPECT_EQ(sorted.ListIndex, -1);
    EXPECT_EQ(sorted.ListCount(), 0);
    EXPECT_EQ(clicks, 1);
}

TEST_F(Lists, HoldAsManyEntriesAsTheirIndexCanCount) {
    for (int entry = 0; entry < 32767; ++entry)
        sorted.AddItem(std::to_string(entry * 7919 % 32767));
    EXPECT_THROW(sorted.AddItem("one more"), Failure);
    EXPECT_EQ(sorted.ListCount(), 32767);
    for (short index = 1; index < sorted.ListCount(); ++index)
        ASSERT_LE(sorted.List(static_cast<short>(index - 1)), sorted.List(index));
}

} // namespace
} // namespace lookfar::testing
