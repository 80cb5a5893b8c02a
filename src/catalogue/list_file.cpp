#include "catalogue/list_file.h"

#include "catalogue/list_change.h"
#include "file_numbers.h"
#include "runtime/failure.h"

#include <random>

namespace lookfar::catalogue {

namespace {

enum class Found { no_line, no_title, titles };

/// What is wrong with a list that ends on this title.
std::string complaint_about_last(const std::string& title) {
    const std::string list = list_name;
    // Since a lone line feed ends no line, a list without carriage returns is a single one.
    if (title.find('\n') != std::string::npos)
        return "The lines of " + list + " must end in CR LF.";
    return "'" + title + "', the last title in " + list + ", has no address.";
}

/// A title counts once its URL is read: a title on which the list ends is no camera yet. The
/// refill after a change (`catalogue::refill`) shows that one too.
void add_titles_of_whole_cameras(NumberedFiles& files,
                                 const std::function<void(const std::string&)>& add_title,
                                 Found& found) {
    do {
        const std::string title = files.LineInput(file_number::list);
        if (found == Found::no_line)
            found = Found::no_title;
        if (!title.empty()) {
            if (files.EndOfFile(file_number::list))
                throw Failure(FailureKind::past_end_of_file, complaint_about_last(title));
            files.LineInput(file_number::list);
            add_title(title);
            found = Found::titles;
        }
    } while (!files.EndOfFile(file_number::list));
}

bool open_existing_list(NumberedFiles& files) {
    try {
        files.OpenForInput(file_number::list, list_name);
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
    const FileCloser closer(files, file_number::list);
    Found found = Found::no_line;
    try {
        add_titles_of_whole_cameras(files, add_title, found);
    } catch (const Failure& failure) {
        // Only the end of the file before the first line means that the list is empty. A list on a
        // disk that can't be read must not be replaced.
        const bool is_empty =
            failure.Kind == FailureKind::past_end_of_file && found == Found::no_line;
        if (!is_empty && found != Found::titles)
            throw;
    }
    return found;
}

bool has_a_line(NumberedFiles& files) {
    if (!open_existing_list(files))
        return false;
    const FileCloser closer(files, file_number::list);
    return !files.EndOfFile(file_number::list);
}

void write_default_camera(NumberedFiles& files) {
    const ListLock lock(files.disk());
    // What bears the copy's usual name may be all that is left of a list.
    const std::string path = files.disk().folder_of(list_name) + list_name + '.' +
                             std::to_string(std::random_device()());
    files.OpenForOutput(file_number::list_copy, path, OpenMode::create_new);
    const FileRemover remover(files, path);
    const FileCloser closer(files, file_number::list_copy);
    files.Print(file_number::list_copy, "Eiffeltower");
    files.Print(file_number::list_copy,
                "http://" LOOKFAR_DEFAULT_CAMERA_HOST "/eiffel1.jpg?1011467343523");
    files.Close(file_number::list_copy);
    // Another program may have written a list since this one looked for it.
    if (!has_a_line(files))
        files.Replace(path, list_name);
}

} // namespace

void read_at_start(NumberedFiles& files, const std::function<void(const std::string&)>& add_title) {
    if (read_list(files, add_title) != Found::no_line)
        return;
    write_default_camera(files);
    read_list(files, add_title);
}

void scan_lines(NumberedFiles& files, const std::function<void(const std::string&)>& step) {
    files.OpenForInput(file_number::list, list_name);
    const FileCloser closer(files, file_number::list);
    do
        step(files.LineInput(file_number::list));
    while (!files.EndOfFile(file_number::list));
}

std::optional<std::string> complaint_about_end(NumberedFiles& files) {
    std::string title;
    bool awaits_url = false;
    scan_lines(files, [&](const std::string& line) {
        awaits_url = !awaits_url && !line.empty();
        if (awaits_url)
            title = line;
    });
    return awaits_url ? std::optional(complaint_about_last(title)) : std::nullopt;
}

std::optional<std::string> find_url(NumberedFiles& files, const std::string& title) {
    files.OpenForInput(file_number::list, list_name);
    const FileCloser closer(files, file_number::list);
    do {
        if (files.LineInput(file_number::list) == title)
            return files.LineInput(file_number::list);
    } while (!files.EndOfFile(file_number::list));
    return std::nullopt;
}

} // namespace lookfar::catalogue
