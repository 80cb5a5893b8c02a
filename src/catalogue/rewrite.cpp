#include "catalogue/rewrite.h"

#include "catalogue/list_file.h"
#include "file_numbers.h"
#include "runtime/failure.h"

namespace lookfar::catalogue {

namespace {

void print_camera(NumberedFiles& files, const Camera& camera) {
    files.Print(file_number::list_copy, camera.title);
    files.Print(file_number::list_copy, camera.url);
}

void copy_without(NumberedFiles& files, const std::string& title) {
    do {
        const std::string line = files.LineInput(file_number::list);
        if (line.empty())
            continue;
        const std::string url = files.LineInput(file_number::list);
        if (line != title)
            print_camera(files, {.title = line, .url = url});
    } while (!files.EndOfFile(file_number::list));
}

/// The copy that an editor makes, each failing step skipped.
class EditorCopy {
  public:
    EditorCopy(NumberedFiles& files, const Save& save) : files_(files), save_(save) {}

    SaveOutcome run() {
        attempt_reading([&] { files_.OpenForInput(file_number::list, list_name); });
        attempt([&] { files_.OpenForOutput(file_number::list_copy, copy_name); });
        do {
            if (copy_line() == SaveOutcome::refused)
                return SaveOutcome::refused;
        } while (more_lines_follow());
        attempt([&] { files_.Close(file_number::list); });
        if (!is_placed_)
            print_record();
        attempt([&] { files_.Close(file_number::list_copy); });
        if (!has_lost_input_)
            attempt([&] { files_.Replace(copy_name, list_name); });
        return SaveOutcome::done;
    }

  private:
    SaveOutcome copy_line() {
        std::string line;
        attempt_reading([&] { line = files_.LineInput(file_number::list); });
        // No record has a blank title: with nothing selected no line is replaced.
        if (save_.replaced_title && !line.empty() && line == *save_.replaced_title) {
            place_record();
        } else if (!save_.replaced_title && line == save_.camera.title && !is_placed_) {
            if (!save_.may_overwrite())
                return SaveOutcome::refused;
            place_record();
        } else {
            attempt([&] { files_.Print(file_number::list_copy, line); });
        }
        return SaveOutcome::done;
    }

    void place_record() {
        attempt_reading([&] { files_.LineInput(file_number::list); });
        print_record();
        is_placed_ = true;
    }

    void print_record() {
        attempt_each({
            [&] { files_.Print(file_number::list_copy, save_.camera.title); },
            [&] { files_.Print(file_number::list_copy, save_.camera.url); },
        });
    }

    bool more_lines_follow() {
        bool follow = false;
        attempt_reading([&] { follow = !files_.EndOfFile(file_number::list); });
        return follow;
    }

    /// Drops a failing step, but remembers that a part of the old list is lost with it. Nothing is
    /// lost where the list is missing or at its end.
    template <class Step>
    void attempt_reading(Step step) {
        try {
            step();
        } catch (const Failure& failure) {
            const bool nothing_is_lost = failure.Kind == FailureKind::file_not_found ||
                                         failure.Kind == FailureKind::past_end_of_file ||
                                         failure.Kind == FailureKind::bad_file_number;
            has_lost_input_ = has_lost_input_ || !nothing_is_lost;
        }
    }

    NumberedFiles& files_;
    const Save& save_;
    bool is_placed_ = false;
    bool has_lost_input_ = false;
};

} // namespace

void remove_cameras(NumberedFiles& files, const std::string& title) {
    files.OpenForInput(file_number::list, list_name);
    const FileCloser list_closer(files, file_number::list);
    files.OpenForOutput(file_number::list_copy, copy_name);
    const FileCloser copy_closer(files, file_number::list_copy);
    copy_without(files, title);
    files.CloseAll();
    files.Replace(copy_name, list_name);
}

SaveOutcome save_camera(NumberedFiles& files, const Save& save) {
    const FileCloser list_closer(files, file_number::list);
    const FileCloser copy_closer(files, file_number::list_copy);
    return EditorCopy(files, save).run();
}

} // namespace lookfar::catalogue
