// The list after a camera was removed, added or edited is what a plain model makes of it, byte for
// byte; and it is the whole old list or the whole new one where a file operation fails on the way.
#include "catalogue/list_file.h"
#include "catalogue/rewrite.h"
#include "fuzz/support/expect.h"
#include "fuzz/support/list_model.h"
#include "fuzz/support/memory_disk.h"
#include "runtime/failure.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <optional>
#include <string>
#include <vector>

namespace lookfar::fuzz {
namespace {

using List = std::optional<std::string>;
using Lines = std::vector<std::string>;

enum class Change { remove, add, edit };

struct Script {
    std::string title;
    catalogue::Camera camera;
    Change change = Change::remove;
    bool may_overwrite = false;
    std::size_t longest_read = 1;
    std::size_t operations_before_failure = 0;
    /// Nothing for a list file that is missing.
    List list;
};

Script read_script(FuzzedDataProvider& input) {
    Script script;
    script.change = input.PickValueInArray({Change::remove, Change::add, Change::edit});
    script.may_overwrite = input.ConsumeBool();
    script.longest_read = input.ConsumeIntegralInRange<std::size_t>(1, 64);
    script.operations_before_failure = input.ConsumeIntegralInRange<std::size_t>(0, 32);
    const bool is_missing = input.ConsumeProbability<float>() > 0.95F;
    script.title = input.ConsumeRandomLengthString(64);
    script.camera.title = input.ConsumeRandomLengthString(64);
    script.camera.url = input.ConsumeRandomLengthString(64);
    script.list = input.ConsumeRemainingBytesAsString();
    if (is_missing)
        script.list.reset();
    return script;
}

/// A list that has no line, or that ends at a title, stays as it is.
List list_after_removal(const Script& script) {
    const Lines lines = lines_of(script.list.value_or(""));
    if (lines.empty() || ends_at_title(lines))
        return script.list;
    Lines kept;
    for (std::size_t index = 0; index < lines.size(); ++index) {
        if (lines[index].empty())
            continue;
        if (lines[index] != script.title)
            kept.insert(kept.end(), {lines[index], lines[index + 1]});
        ++index;
    }
    return list_of(kept);
}

List list_after_saving(const Script& script) {
    Lines lines = lines_of(script.list.value_or(""));
    if (lines.empty())
        lines.emplace_back();
    Lines copy;
    bool is_placed = false;
    for (std::size_t index = 0; index < lines.size(); ++index) {
        const std::string& line = lines[index];
        const bool is_replaced = script.change == Change::edit
                                     ? !line.empty() && line == script.title
                                     : !is_placed && line == script.camera.title;
        if (!is_replaced) {
            copy.push_back(line);
            continue;
        }
        if (script.change == Change::add && !script.may_overwrite)
            return script.list;
        copy.insert(copy.end(), {script.camera.title, script.camera.url});
        is_placed = true;
        ++index;
    }
    if (!is_placed)
        copy.insert(copy.end(), {script.camera.title, script.camera.url});
    return list_of(copy);
}

List list_after(const Script& script) {
    return script.change == Change::remove ? list_after_removal(script) : list_after_saving(script);
}

void run(const Script& script, NumberedFiles& files) {
    if (script.change == Change::remove) {
        attempt([&] { catalogue::remove_cameras(files, script.title); });
        return;
    }
    catalogue::Save save{.camera = script.camera,
                         .replaced_title = std::nullopt,
                         .may_overwrite = [&] { return script.may_overwrite; }};
    if (script.change == Change::edit)
        save.replaced_title = script.title;
    catalogue::save_camera(files, save);
}

void expect_nothing_open(NumberedFiles& files, MemoryDisk& disk) {
    disk.put("any", "");
    for (const int number : {1, 2}) {
        expect(goes_well([&] { files.OpenForInput(number, "any"); }), "both numbers are free");
        files.Close(number);
    }
}

void check(const Script& script) {
    MemoryDisk disk;
    disk.longest_read = script.longest_read;
    if (script.list)
        disk.put(catalogue::list_name, *script.list);
    NumberedFiles files(disk);
    const List after = list_after(script);

    disk.operations_before_failure = script.operations_before_failure;
    run(script, files);
    disk.operations_before_failure.reset();
    const List list = disk.content_of(catalogue::list_name);
    expect(list == script.list || list == after, "a failure leaves the old list or the new one");
    expect_nothing_open(files, disk);
    if (list != script.list)
        return;

    run(script, files);
    expect(disk.content_of(catalogue::list_name) == after, "the new list is the model's");
    expect_nothing_open(files, disk);
}

} // namespace
} // namespace lookfar::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    lookfar::fuzz::check(lookfar::fuzz::read_script(input));
    return 0;
}
