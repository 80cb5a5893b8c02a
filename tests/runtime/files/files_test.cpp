#include "runtime/failure.h"
#include "runtime/files/files.h"
#include "support/faulty_disk.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <optional>
#include <sys/stat.h>
#include <vector>

namespace lookfar::testing {
namespace {

struct Files : ::testing::Test {
    TemporaryFolder folder;
    FaultyDisk disk;
    NumberedFiles files{disk};

    std::vector<std::string> lines_of(const std::string& content) {
        write_file("lines", content);
        files.OpenForInput(1, "lines");
        const FileCloser closer(files, 1);
        std::vector<std::string> lines;
        while (!files.EndOfFile(1))
            lines.push_back(files.LineInput(1));
        return lines;
    }

    static std::optional<FailureKind> kind_of(const std::function<void()>& statement) {
        try {
            statement();
        } catch (const Failure& failure) {
            EXPECT_FALSE(failure.Description.empty());
            return failure.Kind;
        }
        return std::nullopt;
    }
};

TEST_F(Files, EndALineAtCarriageReturnWithOrWithoutLineFeed) {
    const std::string long_line(1 << 17, 'x');
    const struct {
        std::string content;
        std::vector<std::string> lines;
    } cases[] = {{"", {}},
                 {"\r", {""}},
                 {"a\r\nb\rc", {"a", "b", "c"}},
                 {"a\nb\r\n", {"a\nb"}},
                 {"a\r\rb\r\n\r\n", {"a", "", "b", ""}},
                 {" \xFF\xFE \t\r\n", {" \xFF\xFE \t"}},
                 {long_line + "\r\n" + long_line, {long_line, long_line}}};
    for (const std::size_t longest_read : {65536, 5}) {
        disk.longest_read = longest_read;
        for (const auto& [content, lines] : cases)
            EXPECT_EQ(lines_of(content), lines) << content.substr(0, 20);
    }
}

TEST_F(Files, RefuseNumbersThatAreOpenOrAreNot) {
    write_file("lines", "a");
    files.OpenForInput(1, "lines");
    EXPECT_EQ(kind_of([&] { files.OpenForInput(1, "lines"); }), FailureKind::file_already_open);
    EXPECT_EQ(kind_of([&] {
                  files.Print(1, "x");
                  files.Close(1);
                  files.Print(1, "x");
              }),
              FailureKind::bad_file_number);
    for (const int number : {1, 2})
        files.OpenForInput(number, "lines");
    files.CloseAll();
    for (const int number : {1, 2})
        EXPECT_EQ(kind_of([&] { files.LineInput(number); }), FailureKind::bad_file_number);
    EXPECT_EQ(kind_of([&] { files.OpenForInput(3, "lines"); }), FailureKind::bad_file_number);
    EXPECT_EQ(content_of("lines"), "a") << "a file that is read is not written";
}

TEST_F(Files, WriteLinesWithBothLineEndCharacters) {
    files.OpenForOutput(2, "lines");
    files.Print(2, "a");
    files.Print(2, "");
    files.Close(2);
    EXPECT_EQ(content_of("lines"), "a\r\n\r\n");
    EXPECT_EQ(disk.operations.back(), "sync lines") << "the lines are on the disk after the close";
}

TEST_F(Files, WriteBytesOverTheStartAndKeepTheTail) {
    const std::string old = std::string(200'000, 'x') + "y";
    write_file("bytes", old);
    files.OpenForBinary(1, "bytes");
    files.Put(1, Bytes{'a', 'b', 'c'});
    files.Close(1);
    EXPECT_EQ(content_of("bytes"), "abc" + old.substr(3));
}

TEST_F(Files, WithLostLinesNeverTakeAnothersPlace) {
    for (const char* operation : {"open-write copy", "write copy", "sync copy"}) {
        write_file("list", "old");
        write_file("copy", "stale");
        disk.fail(operation, ENOSPC);
        attempt([&] { files.OpenForOutput(2, "copy"); });
        attempt([&] { files.Print(2, "new"); });
        attempt([&] { files.Close(2); });
        disk.mend();
        EXPECT_EQ(kind_of([&] { files.Replace("copy", "list"); }), FailureKind::incomplete_file)
            << operation;
        EXPECT_EQ(content_of("list"), "old") << operation;

        files.OpenForOutput(2, "copy");
        files.Print(2, "new");
        files.Close(2);
        files.Replace("copy", "list");
        EXPECT_EQ(content_of("list"), "new\r\n") << "a copy made anew is whole";
        EXPECT_FALSE(exists("copy"));
    }
}

TEST_F(Files, ThatAreNoRegularFilesAreRefusedAtOnce) {
    std::filesystem::create_directory("folder");
    ::mkfifo("pipe", 0600);
    EXPECT_EQ(kind_of([&] { files.OpenForInput(1, "folder"); }), FailureKind::other);
    EXPECT_EQ(kind_of([&] { files.OpenForInput(1, "pipe"); }), FailureKind::other);
    EXPECT_EQ(kind_of([&] { files.OpenForInput(1, "missing"); }), FailureKind::file_not_found);
    EXPECT_EQ(kind_of([&] { files.Kill("missing"); }), FailureKind::file_not_found);
}

} // namespace
} // namespace lookfar::testing
