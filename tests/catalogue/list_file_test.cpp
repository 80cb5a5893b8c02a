#include "catalogue/list_file.h"
#include "catalogue/selector_lists.h"
#include "runtime/controls/lists.h"
#include "support/list_model.h"
#include "support/scripted_platform.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <set>
#include <strings.h>

namespace lookfar::testing {
namespace {

const std::string default_list =
    "Eiffeltower\r\nhttp://" LOOKFAR_DEFAULT_CAMERA_HOST "/eiffel1.jpg?1011467343523\r\n";

struct ListFile : ::testing::Test {
    TemporaryFolder folder;
    ScriptedPlatform platform;
    FaultyDisk& disk = platform.faulty_disk;
    Runtime runtime{platform};
    NumberedFiles& files = runtime.files();

    Lines titles_at_start() {
        Lines titles;
        catalogue::read_at_start(files, [&](const std::string& title) { titles.push_back(title); });
        return titles;
    }
    Lines scanned_lines() {
        Lines lines;
        catalogue::scan_lines(files, [&](const std::string& line) { lines.push_back(line); });
        return lines;
    }
    static Lines entries_of(const ListControl& list) {
        Lines entries;
        for (short index = 0; index < list.ListCount(); ++index)
            entries.push_back(list.List(index));
        return entries;
    }
    static long files_in_folder() {
        return std::distance(std::filesystem::directory_iterator("."), {});
    }
    void expect_nothing_open() {
        write_file("any", "");
        files.OpenForInput(1, "any");
        files.Close(1);
    }
};

/// In the order of a list that sorts itself.
Lines sorted(const Lines& titles) {
    const auto precedes = [](const std::string& left, const std::string& right) {
        return ::strcasecmp(left.c_str(), right.c_str()) < 0;
    };
    const std::multiset in_order(titles.begin(), titles.end(), precedes);
    return {in_order.begin(), in_order.end()};
}

TEST_F(ListFile, GivesEveryPassWhatAPlainModelReads) {
    Form form(runtime, {});
    ListBox master(form, {.Sorted = true});
    ComboBox selectors[] = {{form, {}}, {form, {.Sorted = true}}};
    const catalogue::SelectorLists lists{master, selectors[0], selectors[1]};
    std::mt19937 random(1);
    for (int run = 0; run < 300; ++run) {
        disk.longest_read = 1 + random() % 8;
        const std::string list = random_list(random);
        SCOPED_TRACE(list);
        write_file("Cams.inf", list);
        const Lines lines = lines_of(list);
        if (lines.empty()) {
            EXPECT_THROW(scanned_lines(), Failure);
            EXPECT_THROW(catalogue::refill(files, lists), Failure);
            EXPECT_EQ(entries_of(master), Lines{});
            continue;
        }
        Lines titles = titles_of(lines);
        if (titles.empty() && ends_at_title(lines))
            EXPECT_THROW(titles_at_start(), Failure);
        else
            EXPECT_EQ(titles_at_start(), titles);
        EXPECT_EQ(scanned_lines(), lines);
        const auto found = std::ranges::find(lines, "a");
        if (lines.end() - found == 1)
            EXPECT_THROW(catalogue::find_url(files, "a"), Failure);
        else
            EXPECT_EQ(catalogue::find_url(files, "a").value_or("none"),
                      found == lines.end() ? "none" : *(found + 1));
        // The refill takes a title in before it looks for the line of its URL.
        if (ends_at_title(lines))
            titles.push_back(lines.back());
        catalogue::refill(files, lists);
        EXPECT_EQ(entries_of(master), sorted(titles));
        for (const ComboBox& selector : selectors)
            EXPECT_EQ(entries_of(selector), sorted(titles));
        expect_nothing_open();
        EXPECT_EQ(content_of("Cams.inf"), list);
    }
}

TEST_F(ListFile, IsMadeAnewWhereItIsMissingOrHasNoLine) {
    write_file("C1.DAT", "perhaps the only copy");
    for (const bool is_missing : {true, false}) {
        if (!is_missing)
            write_file("Cams.inf", "");
        EXPECT_EQ(titles_at_start(), Lines{"Eiffeltower"});
        EXPECT_EQ(content_of("Cams.inf"), default_list);
    }
    EXPECT_EQ(content_of("C1.DAT"), "perhaps the only copy");
    EXPECT_EQ(files_in_folder(), 2);
}

TEST_F(ListFile, IsNeverReplacedBecauseOfADiskThatFails) {
    const std::string content = "a\r\nua\r\nb\r\nub\r\n";
    write_file("Cams.inf", content);
    // The last one has the number that the end of a file has here.
    for (const int error : {EIO, ETIME}) {
        disk.fail("read Cams.inf", error);
        EXPECT_THROW(titles_at_start(), Failure);
        EXPECT_EQ(content_of("Cams.inf"), content);
    }
    disk.fail("open-read Cams.inf", EACCES);
    EXPECT_THROW(titles_at_start(), Failure);
    EXPECT_EQ(content_of("Cams.inf"), content);
    disk.mend();
    EXPECT_EQ(titles_at_start(), (Lines{"a", "b"}));
    disk.longest_read = 10;
    int operations = 0;
    disk.before = [&](const std::string& operation) {
        if (++operations == 3)
            throw disk_failure(operation, EIO);
    };
    EXPECT_EQ(titles_at_start(), Lines{"a"}) << "those before the failure";
}

TEST_F(ListFile, IsMadeWholeOrNotAtAll) {
    for (const char* operation :
         {"open-create-new Cams.inf.", "write Cams.inf.", "sync Cams.inf.", "replace Cams.inf"}) {
        for (const bool is_missing : {true, false}) {
            std::filesystem::remove("Cams.inf");
            if (!is_missing)
                write_file("Cams.inf", "");
            disk.fail(operation, ENOSPC);
            EXPECT_THROW(titles_at_start(), Failure) << operation;
            disk.mend();
            expect_nothing_open();
            EXPECT_EQ(exists("Cams.inf"), !is_missing) << operation;
            EXPECT_EQ(content_of("Cams.inf"), "") << operation;
            EXPECT_EQ(files_in_folder(), is_missing ? 1 : 2) << operation;
        }
    }
}

TEST_F(ListFile, ThatAnotherProgramMakesAtTheSameTimeIsLeftToIt) {
    for (const char* moment : {"lock Cams.inf", "write Cams.inf.", "sync Cams.inf."}) {
        std::filesystem::remove("Cams.inf");
        disk.before = [&](const std::string& operation) {
            if (operation.starts_with(moment))
                write_file("Cams.inf", "a\r\nua\r\n");
        };
        EXPECT_EQ(titles_at_start(), Lines{"a"}) << moment;
        EXPECT_EQ(files_in_folder(), 1) << moment;
    }
}

} // namespace
} // namespace lookfar::testing
