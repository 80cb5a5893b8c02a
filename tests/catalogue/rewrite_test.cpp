#include "catalogue/rewrite.h"
#include "catalogue/selector_lists.h"
#include "runtime/controls/lists.h"
#include "runtime/failure.h"
#include "runtime/form.h"
#include "runtime/runtime.h"
#include "support/scripted_platform.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <optional>
#include <string>

namespace lookfar::testing {
namespace {

using catalogue::Save;
using catalogue::SaveOutcome;

const std::string two_cameras = "b\r\nub\r\na\r\nua\r\n";

struct Rewrite : ::testing::Test {
    TemporaryFolder folder;
    ScriptedPlatform platform;
    Runtime runtime{platform};
    NumberedFiles& files = runtime.files();
    int questions = 0;

    Save saved(std::optional<std::string> replaced, bool may_overwrite = true) {
        return {.camera = {"new", "unew"},
                .replaced_title = std::move(replaced),
                .may_overwrite = [this, may_overwrite] {
                    ++questions;
                    return may_overwrite;
                }};
    }
    /// The list after something was done to it.
    std::string after(const std::string& before, const std::function<void()>& change) {
        write_file("Cams.inf", before);
        change();
        EXPECT_FALSE(exists("C1.DAT"));
        return content_of("Cams.inf");
    }
};

TEST_F(Rewrite, LeavesEveryRecordWithTheRemovedTitleOut) {
    const auto remove = [this](const char* title) {
        return [this, title] { catalogue::remove_cameras(files, title); };
    };
    EXPECT_EQ(after("a\r\nua\r\nb\r\nub\r\na\r\nu2", remove("a")), "b\r\nub\r\n");
    EXPECT_EQ(after("\r\nb\r\na\r\n\r\na\r\nua\r\n", remove("a")), "b\r\na\r\n")
        << "URL lines are no titles, blank lines go";
    EXPECT_EQ(after(two_cameras, remove("B")), two_cameras) << "case counts";
    EXPECT_EQ(after("a\r\nua\r\n", remove("a")), "");
    write_file("C1.DAT", "left over from a kill");
    EXPECT_EQ(after(two_cameras, remove("b")), "a\r\nua\r\n");
}

TEST_F(Rewrite, PutsTheSavedCameraInItsPlace) {
    const auto save = [this](const std::optional<std::string>& replaced) {
        return [this, replaced] {
            EXPECT_EQ(catalogue::save_camera(files, saved(replaced)), SaveOutcome::done);
        };
    };
    EXPECT_EQ(after(two_cameras, save({})), two_cameras + "new\r\nunew\r\n");
    EXPECT_EQ(after("b\rub", save({})), "b\r\nub\r\nnew\r\nunew\r\n");
    EXPECT_EQ(after("\r\nb\r\nub\r\n\r\n", save({})), "\r\nb\r\nub\r\n\r\nnew\r\nunew\r\n");
    EXPECT_EQ(after(two_cameras, save("b")), "new\r\nunew\r\na\r\nua\r\n");
    EXPECT_EQ(after("b\r\n1\r\nb\r\n2\r\n", save("b")), "new\r\nunew\r\nnew\r\nunew\r\n");
    EXPECT_EQ(after("new\r\n1\r\nb\r\nub\r\n", save("b")), "new\r\n1\r\nnew\r\nunew\r\n");
    EXPECT_EQ(after(two_cameras, save("missing")), two_cameras + "new\r\nunew\r\n");
    EXPECT_EQ(after("a\r\nua\r\nb", save("b")), "a\r\nua\r\nnew\r\nunew\r\n");
    EXPECT_EQ(questions, 0);
    EXPECT_EQ(after("new\r\n1\r\nnew\r\n2\r\n", save({})), "new\r\nunew\r\nnew\r\n2\r\n");
    EXPECT_EQ(questions, 1) << "asked once; the later record is copied";
}

TEST_F(Rewrite, StopsWhereTheUserKeepsTheOldCamera) {
    write_file("Cams.inf", "a\r\nua\r\nnew\r\n1\r\n");
    EXPECT_EQ(catalogue::save_camera(files, saved({}, false)), SaveOutcome::refused);
    EXPECT_EQ(content_of("Cams.inf"), "a\r\nua\r\nnew\r\n1\r\n");
    EXPECT_TRUE(exists("C1.DAT"));
    files.OpenForInput(1, "Cams.inf");
    files.OpenForInput(2, "C1.DAT");
}

TEST_F(Rewrite, SavesIntoAListThatIsMissing) {
    EXPECT_EQ(catalogue::save_camera(files, saved({})), SaveOutcome::done);
    EXPECT_EQ(content_of("Cams.inf"), "\r\nnew\r\nunew\r\n");
}

TEST_F(Rewrite, LeavesTheWholeOldListOrTheWholeNewOneWhicheverOperationFails) {
    const std::string long_list = [] {
        std::string list;
        for (int camera = 0; camera < 6000; ++camera)
            list += "camera " + std::to_string(camera) + "\r\nu\r\n";
        return list;
    }();
    const auto save = [this] { catalogue::save_camera(files, saved({})); };
    const auto remove = [this] { attempt([&] { catalogue::remove_cameras(files, "camera 7"); }); };
    for (const std::function<void()>& change : {std::function<void()>(save), {remove}}) {
        platform.faulty_disk.operations.clear();
        const std::string new_list = after(long_list, change);
        ASSERT_NE(new_list, long_list);
        const std::size_t operations = platform.faulty_disk.operations.size();
        ASSERT_GT(operations, 8U);
        for (std::size_t failing = 0; failing < operations; ++failing) {
            write_file("Cams.inf", long_list);
            std::size_t count = 0;
            platform.faulty_disk.before = [&](const std::string& operation) {
                if (count++ == failing)
                    throw Failure(EIO, operation);
            };
            change();
            platform.faulty_disk.mend();
            const std::string list = content_of("Cams.inf");
            EXPECT_TRUE(list == long_list || list == new_list)
                << platform.faulty_disk.operations[failing];
            files.OpenForInput(1, "Cams.inf");
            files.CloseAll();
        }
    }
}

TEST_F(Rewrite, RefillsTheThreeListsInStep) {
    Form form(runtime, {});
    ListBox titles(form, {.Sorted = true});
    ComboBox main_selector(form, {});
    ComboBox fullscreen_selector(form, {.Sorted = true});
    const catalogue::SelectorLists lists{titles, main_selector, fullscreen_selector};
    for (const char* content :
         {"b\r\nub\r\n\r\nA\r\nua\r\nc", "b\r\nub\r\nA\r\nua\r\na\r\nu\r\n"}) {
        write_file("Cams.inf", content);
        catalogue::refill(files, lists);
        ASSERT_EQ(titles.ListCount(), 3);
        for (short index = 0; index < 3; ++index) {
            EXPECT_EQ(main_selector.List(index), titles.List(index));
            EXPECT_EQ(fullscreen_selector.List(index), titles.List(index));
        }
    }
    EXPECT_EQ(titles.List(0) + titles.List(1) + titles.List(2), "Aab");
    write_file("Cams.inf", "");
    EXPECT_THROW(catalogue::refill(files, lists), Failure);
    EXPECT_EQ(titles.ListCount() + main_selector.ListCount() + fullscreen_selector.ListCount(), 0);
}

} // namespace
} // namespace lookfar::testing
