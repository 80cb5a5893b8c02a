#pragma once

#include "runtime/bytes.h"
#include "runtime/files/disk.h"

#include <array>
#include <cstdint>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <string_view>

namespace lookfar {

/// The files of the handlers, under the numbers 1 and 2: opened, used and closed inside one
/// handler. Opening a number that is open fails, and so does using one that is not.
///
/// Lines are bytes. A read ends a line at CR or CR LF and delivers it without; a lone LF does
/// not end a line; a last line needs no line end. Lines are written with CR LF.
///
/// A file that was opened for writing lines counts as incomplete until it is closed with all its
/// lines on the disk, and `Replace` refuses an incomplete file. So a half-written copy never takes
/// the place of a whole file, even where the failure that cut it short was dropped.
class NumberedFiles {
  public:
    explicit NumberedFiles(Disk& disk);
    ~NumberedFiles();

    void OpenForInput(int number, const std::string& path);
    /// Creates or empties the file, for lines.
    void OpenForOutput(int number, const std::string& path);
    /// Creates the file or keeps it as it is, for bytes from offset 0.
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
    /// Gives `from` the name `to` in one step; a file of that name is replaced.
    void Replace(const std::string& from, const std::string& to);

  private:
    struct OpenFile;

    OpenFile& open_file(int number);
    std::unique_ptr<OpenFile>& slot(int number);
    void open(int number, const std::string& path, OpenMode mode);
    bool fill(OpenFile& file);
    void flush(OpenFile& file);

    Disk& disk_;
    std::array<std::unique_ptr<OpenFile>, 2> open_;
    std::set<std::string> incomplete_;
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
