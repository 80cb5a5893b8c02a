#include "catalogue/list_file.h"
#include "runtime/failure.h"
#include "support/faulty_disk.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>

namespace lookfar::testing {
namespace {

struct ListFile : ::testing::Test {
    TemporaryFolder folder;
    FaultyDisk disk;
    NumberedFiles files{disk};

    std::string titles_at_start() {
        std::string titles;
        catalogue::read_at_start(files, [&](const std::string& title) { titles += title + ";"; });
        return titles;
    }
    void expect_nothing_open() {
        write_file("any", "");
        files.OpenForInput(1, "any");
        files.Close(1);
    }
};

const std::string default_list =
    "Eiffeltower\r\nhttp://" LOOKFAR_DEFAULT_CAMERA_HOST "/eiffel1.jpg?1011467343523\r\n";

TEST_F(ListFile, IsReadInPairsAtTheStart) {
    const struct {
        std::string content;
        std::string titles;
    } cases[] = {
        {"a\r\nua\r\nb\r\nub\r\n", "a;b;"},
        {"a\rua\rb\rub", "a;b;"},
        {"\r\na\r\nua\r\n\r\n\r\nb\r\nub\r\n\r\n", "a;b;"},
        {"a\r\n\r\nua\r\nb\r\n", "a;ua;"},
        {"\r", ""},
        {"a\r\nua\r\nb\r\n", "a;"},
        {"a\r\nua\r\nb", "a;"},
        {"a", ""},
        {"a\nua\n", ""},
        {"a\r\nua\r\na\r\nub\r\n", "a;a;"},
    };
    for (const auto& [content, titles] : cases) {
        write_file("Cams.inf", content);
        EXPECT_EQ(titles_at_start(), titles) << content;
        EXPECT_EQ(content_of("Cams.inf"), content) << "a list with a line is left alone";
        expect_nothing_open();
    }
}

TEST_F(ListFile, IsMadeAnewWhereItIsMissingOrHasNoLine) {
    EXPECT_EQ(titles_at_start(), "Eiffeltower;");
    EXPECT_EQ(content_of("Cams.inf"), default_list);
    write_file("Cams.inf", "");
    EXPECT_EQ(titles_at_start(), "Eiffeltower;");
    EXPECT_EQ(content_of("Cams.inf"), default_list);
    EXPECT_FALSE(exists("C1.DAT"));
}

TEST_F(ListFile, IsNeverReplacedBecauseOfADiskThatFails) {
    const std::string content = "a\r\nua\r\nb\r\nub\r\n";
    write_file("Cams.inf", content);
    // The last one has the number that the end of a file has here.
    for (const int error : {EIO, ETIME}) {
        disk.fail("read Cams.inf", error);
        EXPECT_EQ(titles_at_start(), "");
        EXPECT_EQ(content_of("Cams.inf"), content);
    }
    disk.fail("open-read Cams.inf", EACCES);
    EXPECT_THROW(titles_at_start(), Failure);
    EXPECT_EQ(content_of("Cams.inf"), content);
    disk.mend();
    EXPECT_EQ(titles_at_start(), "a;b;");
}

TEST_F(ListFile, ThatCantBeMadeIsAFailureAndNoEndlessTry) {
    for (const char* operation : {"open-write Cams.inf", "write Cams.inf", "sync Cams.inf"}) {
        disk.fail(operation, ENOSPC);
        EXPECT_THROW(titles_at_start(), Failure) << operation;
        disk.mend();
        expect_nothing_open();
    }
}

TEST_F(ListFile, LooksUpTheFirstLineThatEqualsATitle) {
    write_file("Cams.inf", "a\r\nb\r\nb\r\nub\r\nB\r\nuB\r\nb\r\nlater\r\nlast\r\n");
    EXPECT_EQ(catalogue::find_url(files, "b"), "b") << "a URL line counts like any other";
    EXPECT_EQ(catalogue::find_url(files, "B"), "uB");
    EXPECT_EQ(catalogue::find_url(files, "missing"), std::nullopt);
    EXPECT_THROW(catalogue::find_url(files, "last"), Failure);
    expect_nothing_open();
}

} // namespace
} // namespace lookfar::testing
