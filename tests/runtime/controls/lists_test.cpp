#include "runtime/controls/lists.h"
#include "runtime/failure.h"
#include "support/scripted_platform.h"

#include <gtest/gtest.h>

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
        for (const char* entry : {"pear", "Apple", "fig", "apple", "Pear"}) {
            sorted.AddItem(entry);
            unsorted.AddItem(entry);
        }
        sorted.Click.connect([this] { ++clicks; });
    }
    static std::string entries(const ListControl& list) {
        std::string all;
        for (short index = 0; index < list.ListCount(); ++index)
            all += list.List(index) + " ";
        return all;
    }
};

TEST_F(Lists, SortWithoutRegardToCaseAndKeepTheOrderOfAddingOtherwise) {
    EXPECT_EQ(entries(sorted), "Apple apple fig pear Pear ");
    EXPECT_EQ(entries(unsorted), "pear Apple fig apple Pear ");
    EXPECT_EQ(sorted.List(-1) + sorted.List(5) + sorted.Text.get(), "") << "no entry, no text";
}

TEST_F(Lists, SelectByIndexOrByExactTextAndClickOnAChangeOnly) {
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
    sorted.AddItem("Pear");
    sorted.ListIndex = 5;
    sorted.Text = "Pear";
    EXPECT_EQ(sorted.ListIndex, 5) << "the text that is selected stays, not the first one like it";
}

TEST_F(Lists, KeepOrLoseTheirSelectionWithTheirEntriesInSilence) {
    sorted.Text = "fig";
    sorted.AddItem("banana");
    EXPECT_EQ(sorted.Text.get(), "fig");
    sorted.AddItem("orange");
    EXPECT_EQ(sorted.Text.get(), "fig");
    sorted.Clear();
    EXPECT_EQ(sorted.ListIndex, -1);
    EXPECT_EQ(sorted.ListCount(), 0);
    EXPECT_EQ(clicks, 1);
}

} // namespace
} // namespace lookfar::testing
