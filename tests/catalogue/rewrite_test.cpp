#include "catalogue/rewrite.h"

#include "support/faulty_disk.h"
#include "support/list_model.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <set>

namespace lookfar::testing {
namespace {

using catalogue::ChangeOutcome;

constexpr auto no_limit = static_cast<std::size_t>(-1);

/// A removal of the camera "a", or a saving of the camera "new".
struct Change {
    bool removes = false;
    std::optional<std::string> replaced_title = {};
    bool may_overwrite = true;
};

/// The list of these lines without the camera.
std::string without_camera(const std::string& list) {
    Lines kept;
    bool is_url = false;
    bool is_kept = true;
    for (const std::string& line : lines_of(list)) {
        if (!is_url)
            is_kept = !line.empty() && line != "a";
        if (is_kept)
            kept.push_back(line);
        is_url = !is_url && !line.empty();
    }
    return list_of(kept);
}

std::string with_camera(const std::string& list, const Change& change) {
    Lines lines = lines_of(list);
    if (lines.empty())
        lines.emplace_back();
    const std::string title = change.replaced_title.value_or("new");
    Lines copy;
    bool is_placed = false;
    for (std::size_t index = 0; index < lines.size(); ++index) {
        if (title.empty() || lines[index] != title || (is_placed && !change.replaced_title)) {
            copy.push_back(lines[index]);
            continue;
        }
        if (!change.may_overwrite)
            return list;
        copy.insert(copy.end(), {"new", "unew"});
        is_placed = true;
        ++index;
    }
    if (!is_placed && ends_at_title(copy))
        copy.emplace_back();
    if (!is_placed)
        copy.insert(copy.end(), {"new", "unew"});
    return list_of(copy);
}

struct Rewrite : ::testing::Test {
    TemporaryFolder folder;
    FaultyDisk disk;
    NumberedFiles files{disk};
    int questions = 0;
    /// What a process that is killed before an operation of the last change leaves.
    std::set<std::string> lists_on_the_way;

    ChangeOutcome make(const Change& change) {
        if (change.removes) {
            catalogue::remove_cameras(files, "a");
            return ChangeOutcome::done;
        }
        return catalogue::save_camera(files, {.camera = {"new", "unew"},
                                              .replaced_title = change.replaced_title,
                                              .may_overwrite =
                                                  [&] {
                                                      ++questions;
                                                      return change.may_overwrite;
                                                  },
                                              .lines_are_copied = [] {}});
    }
    /// The list after a change, of which so many operations go well and the next one fails.
    std::string after(const std::string& list, const Change& change,
                      std::size_t operations = no_limit, int error = EIO) {
        write_file("Cams.inf", list);
        disk.operations.clear();
        lists_on_the_way.clear();
        disk.before = [&](const std::string& operation) {
            lists_on_the_way.insert(content_of("Cams.inf"));
            if (disk.operations.size() == operations + 1)
                throw Failure(error, operation);
        };
        attempt([&] { make(change); });
        disk.mend();
        for (const int number : {1, 2}) {
            files.OpenForInput(number, "Cams.inf");
            files.Close(number);
        }
        return content_of("Cams.inf");
    }
};

TEST_F(Rewrite, MakesOfAListWhatAPlainModelMakesOfIt) {
    std::mt19937 random(3);
    for (int run = 0; run < 60; ++run) {
        const std::string list = random_list(random);
        for (const Change& change : {Change{.removes = true},
                                     {},
                                     {.may_overwrite = false},
                                     {.replaced_title = "a"},
                                     {.replaced_title = ""}}) {
            const std::string expected =
                change.removes ? without_camera(list) : with_camera(list, change);
            questions = 0;
            EXPECT_EQ(after(list, change), expected) << list;
            EXPECT_LE(questions, change.replaced_title ? 0 : 1);
            const std::string torn = after(list, change, random() % 18);
            EXPECT_TRUE(torn == list || torn == expected) << torn;
        }
    }
}

TEST_F(Rewrite, SavesIntoAListThatIsMissing) {
    EXPECT_EQ(make({}), ChangeOutcome::done);
    EXPECT_EQ(content_of("Cams.inf"), "\r\nnew\r\nunew\r\n");
}

TEST_F(Rewrite, LeavesTheWholeOldListOrTheWholeNewOneWhereverItFailsOrIsKilled) {
    Lines lines;
    for (int camera = 0; camera < 6000; ++camera)
        lines.insert(lines.end(), {camera == 7 ? "a" : "camera " + std::to_string(camera), "u"});
    const std::string old_list = list_of(lines);
    for (const Change& change : {Change{.removes = true}, {}}) {
        const std::string new_list = after(old_list, change);
        EXPECT_EQ(lists_on_the_way, (std::set{old_list, new_list}));
        const auto operations = disk.operations;
        ASSERT_GT(operations.size(), 8U);
        for (std::size_t failing = 0; failing < operations.size(); ++failing) {
            // Those of the system that are numbers of the runtime's own failures too.
            for (const int error : {EIO, EBADE, ENOANO, ETIME}) {
                const std::string list = after(old_list, change, failing, error);
                EXPECT_TRUE(list == old_list || list == new_list) << operations[failing];
            }
        }
    }
}

} // namespace
} // namespace lookfar::testing
