#include "transfers/multipart_boundary.h"

#include "transfers/ascii.h"
#include "transfers/content_type.h"

#include <algorithm>

namespace lookfar {

namespace {

constexpr std::string_view end_of_stream = "--";

std::string_view without_dashes_before(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of('-'), text.size()));
}

std::string_view without_line_end_before(std::string_view text) {
    text.remove_prefix(text.starts_with('\r') ? 1 : 0);
    text.remove_prefix(text.starts_with('\n') ? 1 : 0);
    return text;
}

std::size_t begin_of_dashes(std::string_view text, std::size_t end) {
    const std::size_t before = text.substr(0, end).find_last_not_of('-');
    return before == std::string_view::npos ? 0 : before + 1;
}

/// Whether nothing but the mark of the last delimiter and blanks follow in the line; no answer
/// where the text is too short to tell.
std::optional<bool> is_line_over(std::string_view text) {
    constexpr std::size_t most_blanks = 80;
    if (text.starts_with(end_of_stream))
        return true;
    if (end_of_stream.starts_with(text))
        return std::nullopt;
    const std::size_t end = text.substr(0, most_blanks).find_first_not_of(" \t");
    if (end == std::string_view::npos)
        return text.size() < most_blanks ? std::nullopt : std::optional(false);
    if (text.substr(end) == "\r")
        return std::nullopt;
    return text.substr(end).starts_with("\r\n") || text[end] == '\n';
}

} // namespace

MultipartBoundary::MultipartBoundary(std::string_view text) : text_(without_dashes_before(text)) {}

std::optional<MultipartBoundary> MultipartBoundary::of_answer(std::string_view content_type) {
    if (!media_type_of(content_type).starts_with("multipart/"))
        return std::nullopt;
    return MultipartBoundary(parameter_of(content_type, "boundary"));
}

void MultipartBoundary::learn_from(std::string_view line) {
    if (line.starts_with("--"))
        text_ = without_dashes_before(trimmed_of_blanks(line));
}

bool MultipartBoundary::is_delimiter(std::string_view line) const {
    const std::string_view text = without_dashes_before(trimmed_of_blanks(line));
    return is_known() && text.starts_with(text_) &&
           (text.size() == text_.size() || text.substr(text_.size()) == end_of_stream);
}

bool MultipartBoundary::may_begin(std::string_view text) const {
    const std::string_view line = without_dashes_before(without_line_end_before(text));
    if (line.size() < text_.size())
        return text_.starts_with(line);
    return line.starts_with(text_) && is_line_over(line.substr(text_.size())) != false;
}

MultipartBoundary::Place MultipartBoundary::find_delimiter(std::string_view text,
                                                           std::size_t start) const {
    std::size_t found = start;
    for (; (found = text.find(text_, found)) != std::string_view::npos; ++found) {
        const std::size_t begin = begin_of_dashes(text, found);
        const bool begins_line = begin == 0 || text[begin - 1] == '\n';
        if (!begins_line && found - begin < 2)
            continue;
        const auto is_delimiter = is_line_over(text.substr(found + text_.size()));
        if (is_delimiter == false)
            continue;
        return {.begin = is_delimiter ? begin : found, .is_found = is_delimiter.has_value()};
    }
    return {.begin = std::max(start, text.size() - std::min(text.size(), text_.size() - 1)),
            .is_found = false};
}

} // namespace lookfar
