#include "runtime/files/files.h"

#include "runtime/failure.h"

#include <new>
#include <utility>

namespace lookfar {

namespace {
constexpr std::size_t block_size = 65536;
constexpr char carriage_return = '\r';
constexpr char line_feed = '\n';
} // namespace

struct NumberedFiles::OpenFile {
    std::string path;
    OpenMode mode;
    std::unique_ptr<DiskFile> file;
    /// Bytes read and not yet delivered, from `position` on; or bytes not yet written.
    std::string buffer = {};
    std::size_t position = 0;
    bool has_lost_lines = false;

    bool is_for_lines() const { return mode == OpenMode::create || mode == OpenMode::create_new; }
};

NumberedFiles::NumberedFiles(Disk& disk) : disk_(disk) {}

NumberedFiles::~NumberedFiles() = default;

void NumberedFiles::OpenForInput(int number, const std::string& path) {
    open(number, path, OpenMode::read);
    if (slot(number)->file->state().size <= largest_file)
        return;
    slot(number).reset();
    throw Failure(FailureKind::too_large, path + " is too large.");
}

void NumberedFiles::OpenForOutput(int number, const std::string& path, OpenMode mode) {
    complete_.erase(path);
    open(number, path, mode);
}

void NumberedFiles::OpenForBinary(int number, const std::string& path) {
    open(number, path, OpenMode::overwrite);
}

std::string NumberedFiles::LineInput(int number) {
    OpenFile& file = open_file(number);
    try {
        return read_line(file);
    } catch (const std::bad_alloc&) {
        throw Failure(FailureKind::too_large,
                      "There is not enough memory for a line of " + file.path + ".");
    }
}

std::string NumberedFiles::read_line(OpenFile& file) {
    if (!fill(file))
        throw Failure(FailureKind::past_end_of_file, "Input past end of file: " + file.path);
    std::string line;
    do {
        const std::size_t end = file.buffer.find(carriage_return, file.position);
        const bool line_ends = end != std::string::npos;
        line.append(file.buffer, file.position, line_ends ? end - file.position : end);
        file.position = line_ends ? end + 1 : file.buffer.size();
        if (line.size() > longest_line)
            throw Failure(FailureKind::too_large, "A line of " + file.path + " is too long.");
        if (line_ends) {
            if (fill(file) && file.buffer[file.position] == line_feed)
                ++file.position;
            return line;
        }
    } while (fill(file));
    return line;
}

bool NumberedFiles::EndOfFile(int number) {
    return !fill(open_file(number));
}

void NumberedFiles::Print(int number, std::string_view line) {
    OpenFile& file = open_file(number);
    file.buffer.append(line).append({carriage_return, line_feed});
    if (file.buffer.size() >= block_size)
        flush(file);
}

void NumberedFiles::Put(int number, std::span<const std::uint8_t> bytes) {
    open_file(number).file->write(bytes);
}

void NumberedFiles::Close(int number) {
    const std::unique_ptr<OpenFile> closing = std::move(slot(number));
    if (!closing || !closing->is_for_lines())
        return;
    flush(*closing);
    closing->file->sync();
    if (!closing->has_lost_lines)
        complete_[closing->path] = closing->file->state();
}

void NumberedFiles::CloseAll() {
    Close(1);
    Close(2);
}

void NumberedFiles::Kill(const std::string& path) {
    disk_.remove(path);
}

void NumberedFiles::Replace(const std::string& from, const std::string& to) {
    const auto written = complete_.find(from);
    if (written == complete_.end())
        throw Failure(FailureKind::incomplete_file, from + " was not written completely.");
    if (!leads_to(from, written->second))
        throw Failure(FailureKind::file_in_use, from + " was replaced by another program.");
    try {
        disk_.replace(from, to);
    } catch (const Failure&) {
        if (!leads_to(to, written->second))
            throw;
    }
}

/// Whether the path leads to what was written.
bool NumberedFiles::leads_to(const std::string& path, const FileState& written) {
    const auto found = disk_.state(path);
    return found && found->equals_but_for_time(written);
}

NumberedFiles::OpenFile& NumberedFiles::open_file(int number) {
    const auto& file = slot(number);
    if (!file)
        throw Failure(FailureKind::bad_file_number,
                      "No file is open under the number " + std::to_string(number) + ".");
    return *file;
}

std::unique_ptr<NumberedFiles::OpenFile>& NumberedFiles::slot(int number) {
    if (number < 1 || number > static_cast<int>(open_.size()))
        throw Failure(FailureKind::bad_file_number,
                      "There is no file number " + std::to_string(number) + ".");
    return open_[static_cast<std::size_t>(number - 1)];
}

void NumberedFiles::open(int number, const std::string& path, OpenMode mode) {
    auto& place = slot(number);
    if (place)
        throw Failure(FailureKind::file_already_open,
                      "The file number " + std::to_string(number) + " is open already.");
    place = std::make_unique<OpenFile>(
        OpenFile{.path = path, .mode = mode, .file = disk_.open(path, mode)});
}

/// Reads on where all bytes of the buffer are delivered. Gives false at the end of the file.
bool NumberedFiles::fill(OpenFile& file) {
    if (file.position < file.buffer.size())
        return true;
    if (file.mode != OpenMode::read)
        throw Failure(FailureKind::bad_file_number, file.path + " is not open for reading.");
    std::array<std::uint8_t, block_size> block{};
    const std::size_t count = file.file->read(block);
    file.buffer.assign(block.begin(), block.begin() + static_cast<std::ptrdiff_t>(count));
    file.position = 0;
    return count > 0;
}

void NumberedFiles::flush(OpenFile& file) {
    const std::string lines = std::exchange(file.buffer, {});
    try {
        file.file->write({reinterpret_cast<const std::uint8_t*>(lines.data()), lines.size()});
    } catch (const Failure&) {
        file.has_lost_lines = true;
        throw;
    }
}

FileRemover::~FileRemover() {
    attempt([this] { files_.Kill(path_); });
}

FileCloser::~FileCloser() {
    attempt([this] { files_.Close(number_); });
}

} // namespace lookfar
