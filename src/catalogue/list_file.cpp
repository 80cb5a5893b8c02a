#include "catalogue/list_file.h"

#include "runtime/failure.h"

namespace lookfar::catalogue {

namespace {

enum class Found { lines, no_line };

void read_titles(NumberedFiles& files, const std::function<void(const std::string&)>& add_title,
                 Found& found) {
    do {
        const std::string title = files.LineInput(list_number);
        found = Found::lines;
        if (!title.empty()) {
            files.LineInput(list_number);
            add_title(title);
        }
    } while (!files.EndOfFile(list_number));
}

bool open_existing_list(NumberedFiles& files) {
    try {
        files.OpenForInput(list_number, list_name);
        return true;
    } catch (const Failure& failure) {
        if (failure.Kind == FailureKind::file_not_found)
            return false;
        throw;
    }
}

Found read_list(NumberedFiles& files, const std::function<void(const std::string&)>& add_title) {
    if (!open_existing_list(files))
        return Found::no_line;
    const FileCloser closer(files, list_number);
    Found found = Found::no_line;
    try {
        read_titles(files, add_title, found);
    } catch (const Failure& failure) {
        // Only the end of the file before the first line speaks of an empty list; a disk that
        // can't be read must not have it replaced.
        if (failure.Kind != FailureKind::past_end_of_file)
            return Found::lines;
    }
    return found;
}

void write_default_camera(NumberedFiles& files) {
    files.OpenForOutput(list_number, list_name);
    const FileCloser closer(files, list_number);
    files.Print(list_number, "Eiffeltower");
    files.Print(list_number, "http://" LOOKFAR_DEFAULT_CAMERA_HOST "/eiffel1.jpg?1011467343523");
    files.Close(list_number);
}

} // namespace

void read_at_start(NumberedFiles& files, const std::function<void(const std::string&)>& add_title) {
    if (read_list(files, add_title) == Found::lines)
        return;
    write_default_camera(files);
    read_list(files, add_title);
}

void scan_lines(NumberedFiles& files, const std::function<void(const std::string&)>& step) {
    files.OpenForInput(list_number, list_name);
    const FileCloser closer(files, list_number);
    do
        step(files.LineInput(list_number));
    while (!files.EndOfFile(list_number));
}

std::optional<std::string> find_url(NumberedFiles& files, const std::string& title) {
    files.OpenForInput(list_number, list_name);
    const FileCloser closer(files, list_number);
    do {
        if (files.LineInput(list_number) == title)
            return files.LineInput(list_number);
    } while (!files.EndOfFile(list_number));
    return std::nullopt;
}

} // namespace lookfar::catalogue
