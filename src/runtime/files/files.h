#pragma once

#include "runtime/bytes.h"
#include "runtime/files/disk.h"

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace lookfar {

/// The files of the handlers, under the numbers 1 and 2: opened, used and closed inside one
/// handler. Opening a number that is open fails, and so does using one that is not.
///
/// Lines are bytes. A read ends a line at CR or CR LF and delivers it without; a lone LF does
/// not end a line; a last line needs no line end. Lines are written with CR LF. Lines and files
/// that are too large are failures, and so is a lack of memory for a line.
///
/// `Replace` accepts only a file that was written here, was closed with all its lines on the disk,
/// and is still that file. So neither a half-written copy nor another program's ever replaces a
/// whole file, even where the failure that cut the copy short was dropped.
class NumberedFiles {
  public:
    explicit NumberedFiles(Disk& disk);
    ~NumberedFiles();

    Disk& disk() { return disk_; }

    /// Bytes of a line, and of a file, that is read.
    static constexpr std::size_t longest_line = 1 << 24;
    static constexpr std::size_t largest_file = 1 << 28;

    void OpenForInput(int number, const std::string& path);
    /// For lines, into a new file (`OpenMode::create` or `OpenMode::create_new`).
    void OpenForOutput(int number, const std::string& path, OpenMode mode = OpenMode::create);
    /// For bytes from offset 0, into a file that is kept as it is (`OpenMode::overwrite`).
    void OpenForBinary(int number, const std::string& path);

    /// Throws a `Failure` at the end of the file.
    std::string LineInput(int number);
    bool EndOfFile(int number);
    void Print(int number, std::string_view line);
    void Put(int number, std::span<const std::uint8_t> bytes);

    /// All lines that were written are on the disk afterwards. Closing a number that is not open
    /// does nothing.
    void Close(int number);
    void CloseAll();

    void Kill(const std::string& path);
    /// Has `from` replace `to` in one step, as `Disk::replace` does. Once it has, what fails after
    /// that is no failure.
    void Replace(const std::string& from, const std::string& to);

  private:
    struct OpenFile;

    OpenFile& open_file(int number);
    std::unique_ptr<OpenFile>& slot(int number);
    void open(int number, const std::string& path, OpenMode mode);
    bool fill(OpenFile& file);
    std::string read_line(OpenFile& file);
    bool leads_to(const std::string& path, const FileState& written);
    void flush(OpenFile& file);

    Disk& disk_;
    std::array<std::unique_ptr<OpenFile>, 2> open_;
    /// The files whose lines are all on the disk, by path.
    std::map<std::string, FileState> complete_;
};

/// Removes a file at the end of its life, unless it has replaced another one.
class FileRemover {
  public:
    FileRemover(NumberedFiles& files, std::string path) : files_(files), path_(std::move(path)) {}
    FileRemover(const FileRemover&) = delete;
    FileRemover& operator=(const FileRemover&) = delete;
    ~FileRemover();

  private:
    NumberedFiles& files_;
    std::string path_;
};

/// Closes a file number at the end of its life, so that a pass which fails leaves nothing open.
class FileCloser {
  public:
    FileCloser(NumberedFiles& files, int number) : files_(files), number_(number) {}
    FileCloser(const FileCloser&) = delete;
    FileCloser& operator=(const FileCloser&) = delete;
    ~FileCloser();

  private:
    NumberedFiles& files_;
    int number_;
};

} // namespace lookfar
