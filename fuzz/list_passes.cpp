// What the passes over the list file read of it, in pieces of any size, is what a plain model
// reads; and the three lists of the windows show it in step.
#include "catalogue/list_file.h"
#include "catalogue/selector_lists.h"
#include "fuzz/support/expect.h"
#include "fuzz/support/list_model.h"
#include "fuzz/support/memory_platform.h"
#include "runtime/controls/lists.h"
#include "runtime/failure.h"
#include "runtime/form.h"
#include "runtime/runtime.h"
#include "runtime/text.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace lookfar::fuzz {
namespace {

using Lines = std::vector<std::string>;

void check_start(NumberedFiles& files, MemoryDisk& disk, const std::string& list) {
    const Lines lines = lines_of(list);
    Lines titles;
    catalogue::read_at_start(files, [&](const std::string& title) { titles.push_back(title); });
    expect(titles == (lines.empty() ? Lines{"Eiffeltower"} : titles_of(lines)),
           "the start reads the model's titles");
    expect(lines.empty() || disk.content_of(catalogue::list_name) == list,
           "a list with a line stays as it is");
    disk.put(catalogue::list_name, list);
}

void check_start_on_failing_disk(NumberedFiles& files, MemoryDisk& disk, const std::string& list,
                                 std::size_t operations_before_failure) {
    disk.operations_before_failure = operations_before_failure;
    attempt([&] { catalogue::read_at_start(files, [](const std::string&) {}); });
    disk.operations_before_failure.reset();
    expect(lines_of(list).empty() || disk.content_of(catalogue::list_name) == list,
           "a list with a line survives a failing disk");
    disk.put(catalogue::list_name, list);
}

void check_scan(NumberedFiles& files, const Lines& lines) {
    Lines scanned;
    const bool went_well = goes_well([&] {
        catalogue::scan_lines(files, [&](const std::string& line) { scanned.push_back(line); });
    });
    expect(went_well == !lines.empty(), "a scan needs a line");
    expect(scanned == lines, "a scan gives every line");
}

void check_look_up(NumberedFiles& files, const Lines& lines, const std::string& title) {
    const auto found = std::ranges::find(lines, title);
    const bool has_url = lines.end() - found >= 2;
    std::optional<std::string> url;
    const bool went_well = goes_well([&] { url = catalogue::find_url(files, title); });
    expect(went_well == (has_url || (found == lines.end() && !lines.empty())),
           "only a missing URL line or an empty list fails the look-up");
    expect(url == (has_url ? std::optional(*(found + 1)) : std::nullopt),
           "the look-up gives the line behind the title");
}

/// Titles that sort alike keep the order of the file.
Lines sorted(const Lines& titles) {
    std::multimap<std::u32string, std::string> by_key;
    for (const std::string& title : titles)
        by_key.emplace(caseless_key(title), title);
    Lines result;
    for (const auto& [key, title] : by_key)
        result.push_back(title);
    return result;
}

Lines entries_of(const ListControl& list) {
    Lines entries;
    for (short index = 0; index < list.ListCount(); ++index)
        entries.push_back(list.List(index));
    return entries;
}

void check_lists(Runtime& runtime, const Lines& lines) {
    Form form(runtime, {});
    ListBox titles(form, {.Sorted = true});
    ComboBox main_selector(form, {});
    ComboBox fullscreen_selector(form, {.Sorted = true});
    attempt([&] {
        catalogue::refill(runtime.files(), {titles, main_selector, fullscreen_selector});
    });
    Lines expected = titles_of(lines);
    // The refill takes a title in before it looks for the line of its URL.
    if (ends_at_title(lines))
        expected.push_back(lines.back());
    expected = sorted(expected);
    expect(entries_of(titles) == expected, "the list has every title, sorted");
    expect(entries_of(main_selector) == expected, "the main window shows the same");
    expect(entries_of(fullscreen_selector) == expected, "the fullscreen window shows the same");
}

void check(FuzzedDataProvider& input) {
    MemoryPlatform platform;
    Runtime runtime(platform);
    platform.disk().longest_read = input.ConsumeIntegralInRange<std::size_t>(1, 64);
    const auto operations_before_failure = input.ConsumeIntegralInRange<std::size_t>(0, 32);
    const std::string title = input.ConsumeRandomLengthString(64);
    const std::string list = input.ConsumeRemainingBytesAsString();
    const Lines lines = lines_of(list);
    platform.disk().put(catalogue::list_name, list);
    check_start(runtime.files(), platform.disk(), list);
    check_start_on_failing_disk(runtime.files(), platform.disk(), list, operations_before_failure);
    check_scan(runtime.files(), lines);
    check_look_up(runtime.files(), lines, title);
    check_lists(runtime, lines);
}

} // namespace
} // namespace lookfar::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    lookfar::fuzz::check(input);
    return 0;
}
