#include "catalogue/list_change.h"

#include "catalogue/rewrite.h"
#include "support/failure_of.h"
#include "support/faulty_disk.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <future>
#include <optional>
#include <thread>

namespace lookfar::testing {
namespace {

const std::string old_list = "a\r\nua\r\nnew\r\nuold\r\n";

/// The camera "new" is saved over the one of that name, or "a" is removed.
struct ListChange : ::testing::Test {
    TemporaryFolder folder;
    FaultyDisk disk;
    NumberedFiles files{disk};
    std::function<void()> under_the_question = [] {};
    int questions = 0;

    ListChange() { write_file("Cams.inf", old_list); }

    void save() {
        catalogue::save_camera(files, {.camera = {"new", "unew"},
                                       .replaced_title = std::nullopt,
                                       .may_overwrite =
                                           [&] {
                                               ++questions;
                                               under_the_question();
                                               return true;
                                           },
                                       .lines_are_copied = [] {}});
    }
    void remove() { catalogue::remove_cameras(files, "a"); }

    std::optional<FailureKind> kind_of(void (ListChange::*change)()) {
        return testing::kind_of([&] { (this->*change)(); });
    }
};

/// Puts another list in the place of the old one, as another program does.
void replace_list(const std::string& list) {
    write_file("theirs", list);
    std::filesystem::rename("theirs", "Cams.inf");
}

TEST_F(ListChange, StartsAnewFromWhateverListItFindsInTheEnd) {
    const std::string theirs = "b\r\nub\r\na\r\nua\r\nnew\r\nu\r\n";
    const struct {
        void (ListChange::*make)();
        std::string changed;
    } changes[] = {{&ListChange::save, "b\r\nub\r\na\r\nua\r\nnew\r\nunew\r\n"},
                   {&ListChange::remove, "b\r\nub\r\nnew\r\nu\r\n"}};
    for (const auto& [make, changed] : changes) {
        replace_list(old_list);
        disk.operations.clear();
        (this->*make)();
        const auto copied = std::ranges::find(disk.operations, "replace Cams.inf");
        const auto count = static_cast<std::size_t>(copied - disk.operations.begin());
        // The last two look at the list and the copy: what comes between them comes too late.
        for (std::size_t operation = 0; operation + 1 < count; ++operation) {
            for (const auto& come_between :
                 {replace_list, +[](const std::string& list) { write_file("Cams.inf", list); }}) {
                replace_list(old_list);
                disk.operations.clear();
                disk.before = [&](const std::string&) {
                    if (disk.operations.size() == operation + 1)
                        come_between(theirs);
                };
                questions = 0;
                (this->*make)();
                disk.mend();
                EXPECT_EQ(content_of("Cams.inf"), changed) << disk.operations[operation];
                EXPECT_LE(questions, 1) << "the answer is kept";
            }
        }
    }
}

TEST_F(ListChange, LetsAnotherProgramInWhileItAsks) {
    NumberedFiles another(disk);
    const struct {
        std::function<void()> work;
        std::string list;
    } cases[] = {
        {[&] { catalogue::remove_cameras(another, "a"); }, "new\r\nunew\r\n"},
        {[&] {
             catalogue::save_camera(another, {.camera = {"a", ""},
                                              .replaced_title = std::nullopt,
                                              .may_overwrite = [] { return false; },
                                              .lines_are_copied = [] {}});
         },
         "a\r\nua\r\nnew\r\nunew\r\n"},
    };
    disk.before = [](const std::string& operation) {
        if (operation == "replace Cams.inf") {
            EXPECT_THROW(make_posix_disk({})->lock_folder_of("Cams.inf"), Failure);
        }
    };
    for (const auto& [work, list] : cases) {
        replace_list(old_list);
        under_the_question = work;
        questions = 0;
        save();
        EXPECT_EQ(questions, 1);
        EXPECT_EQ(content_of("Cams.inf"), list);
    }
}

TEST_F(ListChange, FailsWhileAnotherProgramGoesOnChangingTheList) {
    int changes = 0;
    disk.before = [&](const std::string& operation) {
        if (operation == "sync C1.DAT")
            replace_list(old_list + std::string(static_cast<std::size_t>(++changes), ' '));
    };
    for (const auto change : {&ListChange::save, &ListChange::remove})
        EXPECT_EQ(kind_of(change), FailureKind::file_in_use);
    EXPECT_TRUE(content_of("Cams.inf").starts_with(old_list));
    disk.mend();
    const auto lock = make_posix_disk()->lock_folder_of("Cams.inf");
    for (const auto change : {&ListChange::save, &ListChange::remove})
        EXPECT_EQ(kind_of(change), FailureKind::file_in_use);
}

TEST_F(ListChange, WaitsForAnotherProgramThatIsDoneSoon) {
    const auto holders = [] {
        const std::filesystem::directory_iterator descriptors("/proc/self/fd");
        return std::ranges::count_if(descriptors, [](const auto& each) {
            std::error_code is_gone;
            return std::filesystem::read_symlink(each, is_gone) == std::filesystem::current_path();
        });
    };
    auto theirs = make_posix_disk()->lock_folder_of("Cams.inf");
    auto ours = std::async(std::launch::async, [] {
        return make_posix_disk(std::chrono::minutes(1))->lock_folder_of("Cams.inf");
    });
    while (holders() < 2 && ours.wait_for(std::chrono::seconds(0)) != std::future_status::ready)
        std::this_thread::yield();
    theirs.reset();
    EXPECT_TRUE(ours.get());
}

TEST_F(ListChange, DoesWithoutLocksWhereThereAreNone) {
    for (const int error : {ENOLCK, EOPNOTSUPP, EACCES}) {
        replace_list(old_list);
        disk.fail("lock", error);
        remove();
        EXPECT_EQ(content_of("Cams.inf"), "new\r\nuold\r\n");
    }
}

TEST_F(ListChange, IsMadeWhereTheListLies) {
    std::filesystem::create_directory("elsewhere");
    std::filesystem::rename("Cams.inf", "elsewhere/list");
    std::filesystem::create_symlink("elsewhere/list", "Cams.inf");
    std::filesystem::create_hard_link("elsewhere/list", "elsewhere/C1.DAT");
    std::filesystem::create_symlink("elsewhere/list", "C1.DAT");
    remove();
    EXPECT_TRUE(std::filesystem::is_symlink("Cams.inf"));
    EXPECT_EQ(content_of("elsewhere/list"), "new\r\nuold\r\n");
    EXPECT_FALSE(exists("elsewhere/C1.DAT"));
    const auto lock = make_posix_disk()->lock_folder_of("elsewhere/list");
    EXPECT_EQ(kind_of(&ListChange::remove), FailureKind::file_in_use);
}

TEST_F(ListChange, LeavesAListAloneThatItCantReadWhole) {
    const std::string long_line(NumberedFiles::longest_line + 1, 'x');
    const std::string lists[] = {long_line, old_list + long_line + "\r\n" + old_list};
    for (const std::string& list : lists) {
        replace_list(list);
        for (const auto change : {&ListChange::save, &ListChange::remove})
            EXPECT_EQ(kind_of(change), FailureKind::too_large);
        EXPECT_TRUE(content_of("Cams.inf") == list);
    }
    constexpr std::uintmax_t three_gigabytes = 3'000'000'000;
    std::filesystem::resize_file("Cams.inf", three_gigabytes);
    for (const auto change : {&ListChange::save, &ListChange::remove})
        EXPECT_EQ(kind_of(change), FailureKind::too_large);
    EXPECT_EQ(std::filesystem::file_size("Cams.inf"), three_gigabytes);
}

} // namespace
} // namespace lookfar::testing
