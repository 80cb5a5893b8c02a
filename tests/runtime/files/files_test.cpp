#include "runtime/files/files.h"
#include "runtime/files/posix_file.h"
#include "support/failure_of.h"
#include "support/faulty_disk.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <fcntl.h>
#include <new>
#include <sys/stat.h>
#include <tuple>
#include <unistd.h>
#include <utility>

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
};

TEST_F(Files, EndALineAtCarriageReturnWithOrWithoutLineFeed) {
    const std::string long_line(1 << 17, 'x');
    const std::pair<std::string, std::vector<std::string>> cases[] = {
        {"", {}},
        {"\r", {""}},
        {"a\r\nb\rc", {"a", "b", "c"}},
        {"a\nb\r\n", {"a\nb"}},
        {"a\r\rb\r\n\r\n", {"a", "", "b", ""}},
        {" \xFF\xFE \t\r\n", {" \xFF\xFE \t"}},
        {long_line + "\r\n" + long_line, {long_line, long_line}}};
    for (const std::size_t longest_read : {65536U, 5U}) {
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

TEST_F(Files, WithLostLinesNeverTakeAnothersPlace) {
    for (const char* operation : {"open-create copy", "write copy", "sync copy"}) {
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
    PosixFile full_disk("/dev/full", O_WRONLY);
    EXPECT_EQ(kind_of([&] { full_disk.write(Bytes{'x'}); }), FailureKind::other);
    files.OpenForOutput(2, "copy");
    files.Close(2);
    write_file("another's copy", "another's");
    std::filesystem::rename("another's copy", "copy");
    EXPECT_EQ(kind_of([&] { files.Replace("copy", "list"); }), FailureKind::file_in_use);
    EXPECT_EQ(content_of("list"), "new\r\n");
}

/// What the system says of the file itself, or of the link.
struct stat status_of(const std::string& path) {
    struct stat status{};
    EXPECT_EQ(::lstat(path.c_str(), &status), 0) << path;
    return status;
}

TEST_F(Files, AreNeverWrittenThroughALinkThatBearsTheirName) {
    const struct {
        const char* name;
        std::function<void()> plant;
    } plants[] = {
        {"a symbolic link", [] { std::filesystem::create_symlink("precious", "file"); }},
        {"a link to nothing", [] { std::filesystem::create_symlink("missing", "file"); }},
        {"a second name", [] { std::filesystem::create_hard_link("precious", "file"); }},
        {"a pipe", [] { ::mkfifo("file", 0666); }},
        {"a plain file", [] { write_file("file", "old"); }},
        {"nothing", [] {}},
    };
    write_file("precious", "precious");
    for (const auto& [name, plant] : plants) {
        for (const bool is_for_lines : {true, false}) {
            std::filesystem::remove("file");
            plant();
            if (is_for_lines) {
                files.OpenForOutput(1, "file");
                files.Print(1, "new");
            } else {
                files.OpenForBinary(1, "file");
                files.Put(1, Bytes{'n', 'e', 'w', '\r', '\n'});
            }
            files.Close(1);
            EXPECT_EQ(content_of("file"), "new\r\n") << name;
            EXPECT_EQ(content_of("precious"), "precious") << name;
            EXPECT_FALSE(exists("missing")) << name;
            EXPECT_EQ(status_of("file").st_mode, S_IFREG | 0600U) << name << ", the user's alone";
            EXPECT_EQ(status_of("file").st_nlink, 1U) << name;
        }
    }
}

TEST_F(Files, KeepModeAndOwnerAndLinkOfTheFileThatTheyReplace) {
    for (const mode_t mode : {0600U, 0640U, 0644U, 0444U}) {
        write_file("target", "old");
        ::chmod("target", mode);
        // Only an administrator may do this; a user's file is the user's own.
        std::ignore = ::chown("target", 1, 2);
        const auto old = status_of("target");
        std::filesystem::create_directory("folder");
        std::filesystem::create_symlink("../target", "folder/link");
        std::filesystem::create_symlink("folder/link", "list");
        EXPECT_EQ(disk.folder_of("list"), "folder/../");
        files.OpenForOutput(2, "copy");
        files.Print(2, "new");
        files.Close(2);
        EXPECT_EQ(status_of("copy").st_mode, S_IFREG | 0600U);
        files.Replace("copy", "list");
        EXPECT_TRUE(std::filesystem::is_symlink("list"));
        EXPECT_EQ(content_of("target"), "new\r\n");
        const auto now = status_of("target");
        EXPECT_EQ(now.st_mode, old.st_mode);
        EXPECT_EQ(now.st_uid, old.st_uid);
        EXPECT_EQ(now.st_gid, old.st_gid);
        std::filesystem::remove("list");
        std::filesystem::remove_all("folder");
        std::filesystem::remove("target");
    }
}

TEST_F(Files, ThatAreTooLargeAreRefused) {
    const std::string longest(NumberedFiles::longest_line, 'x');
    EXPECT_EQ(lines_of(longest + "\r\nb").size(), 2U);
    EXPECT_EQ(kind_of([&] { lines_of("x" + longest + "\r\nb"); }), FailureKind::too_large);
    std::filesystem::resize_file("lines", NumberedFiles::largest_file + 1);
    for (int attempt = 0; attempt < 2; ++attempt)
        EXPECT_EQ(kind_of([&] { files.OpenForInput(1, "lines"); }), FailureKind::too_large);
    write_file("lines", "a");
    files.OpenForInput(1, "lines");
    disk.before = [](const std::string&) { throw std::bad_alloc(); };
    EXPECT_EQ(kind_of([&] { files.LineInput(1); }), FailureKind::too_large);
}

TEST_F(Files, ThatAreNoRegularFilesAreRefusedAtOnce) {
    std::filesystem::create_directory("folder");
    ::mkfifo("pipe", 0600);
    const auto failure = failure_of([&] { files.OpenForInput(1, "folder"); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->Description, "folder: Is a directory");
    EXPECT_EQ(kind_of([&] { files.OpenForInput(1, "pipe"); }), FailureKind::other);
    EXPECT_EQ(kind_of([&] { files.OpenForInput(1, "missing"); }), FailureKind::file_not_found);
    EXPECT_EQ(kind_of([&] { files.Kill("missing"); }), FailureKind::file_not_found);
}

} // namespace
} // namespace lookfar::testing
