#include "catalogue/rewrite.h"

#include "catalogue/list_file.h"
#include "file_numbers.h"
#include "runtime/failure.h"

#include <utility>
#include <vector>

namespace lookfar::catalogue {

namespace {

/// A title on which the list ends has no URL to copy along.
void copy_without(NumberedFiles& files, const std::string& title) {
    do {
        std::vector<std::string> record{files.LineInput(file_number::list)};
        if (record.front().empty())
            continue;
        if (!files.EndOfFile(file_number::list))
            record.push_back(files.LineInput(file_number::list));
        if (record.front() == title)
            continue;
        for (const std::string& line : record)
            files.Print(file_number::list_copy, line);
    } while (!files.EndOfFile(file_number::list));
}

/// The copy that an editor makes, each failing step skipped.
class EditorCopy {
  public:
    EditorCopy(NumberedFiles& files, const Save& save) : files_(files), save_(save) {}

    /// Throws the first failure for which the copy lacks something.
    ChangeOutcome make(const std::string& copy_path) {
        attempt_step([&] { files_.OpenForInput(file_number::list, list_name); });
        attempt_step([&] { files_.OpenForOutput(file_number::list_copy, copy_path); });
        do {
            if (copy_line() == ChangeOutcome::refused)
                return ChangeOutcome::refused;
        } while (has_more_lines());
        attempt(save_.lines_are_copied);
        attempt([&] { files_.Close(file_number::list); });
        if (!is_placed_)
            append_record();
        attempt_step([&] { files_.Close(file_number::list_copy); });
        if (first_failure_)
            throw Failure(*first_failure_);
        return ChangeOutcome::done;
    }

  private:
    ChangeOutcome copy_line() {
        std::string line;
        attempt_step([&] { line = files_.LineInput(file_number::list); });
        // No record has a blank title: with nothing selected no line is replaced.
        if (save_.replaced_title && !line.empty() && line == *save_.replaced_title) {
            place_record();
        } else if (!save_.replaced_title && line == save_.camera.title && !is_placed_) {
            if (!save_.may_overwrite())
                return ChangeOutcome::refused;
            place_record();
        } else {
            print(line);
        }
        return ChangeOutcome::done;
    }

    void place_record() {
        attempt_step([&] { files_.LineInput(file_number::list); });
        print_record();
        is_placed_ = true;
    }

    void append_record() {
        // Behind a title without a URL, the record's title would become that URL.
        if (awaits_url_)
            print("");
        print_record();
    }

    void print_record() {
        print(save_.camera.title);
        print(save_.camera.url);
    }

    void print(const std::string& line) {
        awaits_url_ = !awaits_url_ && !line.empty();
        attempt_step([&] { files_.Print(file_number::list_copy, line); });
    }

    bool has_more_lines() {
        bool has_more = false;
        attempt_step([&] { has_more = !files_.EndOfFile(file_number::list); });
        return has_more;
    }

    /// Drops a failing step, but remembers that the copy lacks something for that. It lacks nothing
    /// where the old list is missing or at its end.
    template <class Step>
    void attempt_step(Step step) {
        try {
            step();
        } catch (const Failure& failure) {
            const bool nothing_is_lost = failure.Kind == FailureKind::file_not_found ||
                                         failure.Kind == FailureKind::past_end_of_file ||
                                         failure.Kind == FailureKind::bad_file_number;
            if (!nothing_is_lost && !first_failure_)
                first_failure_ = failure;
        }
    }

    NumberedFiles& files_;
    const Save& save_;
    bool is_placed_ = false;
    /// Whether the copy so far ends on a title.
    bool awaits_url_ = false;
    std::optional<Failure> first_failure_;
};

/// The question, which goes out once however often the copy is made. The lock is not held
/// meanwhile, so that no other program waits for the user; it is locked again for a yes.
std::function<bool()> asked_once(std::function<bool()> question, ListLock& lock) {
    return [question = std::move(question), &lock, answer = std::optional<bool>()]() mutable {
        if (answer)
            return *answer;
        lock.release();
        answer = question();
        if (*answer)
            lock.lock();
        return *answer;
    };
}

} // namespace

void remove_cameras(NumberedFiles& files, const std::string& title) {
    const ListLock lock(files.disk());
    change_list(files, [&](const std::string& copy_path) {
        files.OpenForInput(file_number::list, list_name);
        const FileCloser list_closer(files, file_number::list);
        files.OpenForOutput(file_number::list_copy, copy_path);
        const FileCloser copy_closer(files, file_number::list_copy);
        copy_without(files, title);
        files.CloseAll();
        return ChangeOutcome::done;
    });
}

ChangeOutcome save_camera(NumberedFiles& files, Save save) {
    ListLock lock(files.disk());
    save.may_overwrite = asked_once(std::move(save.may_overwrite), lock);
    return change_list(files, [&](const std::string& copy_path) {
        const FileCloser list_closer(files, file_number::list);
        const FileCloser copy_closer(files, file_number::list_copy);
        return EditorCopy(files, save).make(copy_path);
    });
}

} // namespace lookfar::catalogue
