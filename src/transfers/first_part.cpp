#include "transfers/first_part.h"

#include "transfers/ascii.h"
#include "transfers/content_type.h"

#include <algorithm>
#include <charconv>

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

/// The line end before a delimiter belongs to the delimiter.
std::string_view without_line_end(std::string_view content) {
    if (content.ends_with("\r\n"))
        return content.substr(0, content.size() - 2);
    return content.ends_with('\n') ? content.substr(0, content.size() - 1) : content;
}

/// The length that a header line tells, if it is the one that does. That there is nothing is not
/// believed.
std::optional<std::size_t> length_in(std::string_view line) {
    const std::size_t colon = line.find(':');
    if (in_small_letters(trimmed_of_blanks(line.substr(0, colon))) != "content-length")
        return std::nullopt;
    const std::string_view digits = trimmed_of_blanks(line.substr(colon + 1));
    std::size_t length = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), length);
    const bool is_number = error == std::errc() && end == digits.data() + digits.size();
    return is_number && length > 0 ? std::optional(length) : std::nullopt;
}

/// Whether nothing but the mark of the last delimiter or blanks stand between a boundary and the
/// end of its line; no answer where the text is too short to tell.
std::optional<bool> is_line_over(std::string_view text) {
    constexpr std::size_t max_blanks = 80;
    if (text.starts_with(end_of_stream))
        return true;
    if (end_of_stream.starts_with(text))
        return std::nullopt;
    const std::size_t end = text.substr(0, max_blanks).find_first_not_of(" \t");
    if (end == std::string_view::npos)
        return text.size() < max_blanks ? std::nullopt : std::optional(false);
    if (text.substr(end) == "\r")
        return std::nullopt;
    return text.substr(end).starts_with("\r\n") || text[end] == '\n';
}

} // namespace

FirstPart::FirstPart(std::string_view boundary) : boundary_(without_dashes_before(boundary)) {}

std::optional<FirstPart> FirstPart::of_answer(std::string_view content_type) {
    if (!media_type_of(content_type).starts_with("multipart/"))
        return std::nullopt;
    return FirstPart(parameter_of(content_type, "boundary"));
}

bool FirstPart::advance(std::span<const std::uint8_t> body) {
    const std::string_view text(reinterpret_cast<const char*>(body.data()), body.size());
    while (stage_ != Stage::whole && step(text)) {
    }
    return stage_ == Stage::whole;
}

std::span<const std::uint8_t> FirstPart::part_of(std::span<const std::uint8_t> body) const {
    if (stage_ == Stage::whole)
        return body.subspan(begin_, end_ - begin_);
    return stage_ == Stage::content ? body.subspan(begin_) : body;
}

/// False where the body does not suffice.
bool FirstPart::step(std::string_view body) {
    switch (stage_) {
    case Stage::before:
        return pass_line_before(body);
    case Stage::header:
        return pass_header_line(body);
    default:
        return length_ ? end_by_length(body, *length_) : end_by_delimiter(body);
    }
}

bool FirstPart::pass_line_before(std::string_view body) {
    const auto line = next_line(body);
    if (!line)
        return false;
    if (boundary_.empty() && line->starts_with("--"))
        boundary_ = without_dashes_before(trimmed_of_blanks(*line));
    if (is_delimiter(*line))
        stage_ = Stage::header;
    return true;
}

bool FirstPart::pass_header_line(std::string_view body) {
    const auto line = next_line(body);
    if (!line)
        return false;
    if (trimmed_of_blanks(*line).empty())
        stage_ = Stage::content;
    else if (is_delimiter(*line))
        length_.reset();
    else if (const auto length = length_in(*line))
        length_ = length;
    return true;
}

bool FirstPart::end_by_length(std::string_view body, std::size_t length) {
    if (body.size() - begin_ < length)
        return false;
    end_ = begin_ + length;
    if (may_begin_delimiter(body.substr(end_)))
        stage_ = Stage::whole;
    else
        length_.reset();
    return true;
}

/// A delimiter is the boundary at the start of a line, or behind two dashes wherever that stands,
/// if nothing else follows in the line. What may become one with more text is not passed.
bool FirstPart::end_by_delimiter(std::string_view body) {
    std::size_t found = searched_;
    for (; (found = body.find(boundary_, found)) != std::string_view::npos; ++found) {
        // A line end stands before the content, so there is a character that is no dash.
        const std::size_t delimiter = body.find_last_not_of('-', found - 1) + 1;
        const bool begins_line = body[delimiter - 1] == '\n';
        if (!begins_line && found - delimiter < 2)
            continue;
        const auto is_over = is_line_over(body.substr(found + boundary_.size()));
        if (is_over == false)
            continue;
        searched_ = found;
        if (is_over)
            end_before(delimiter, body);
        return is_over.has_value();
    }
    searched_ = std::max(searched_, body.size() - std::min(body.size(), boundary_.size() - 1));
    return false;
}

/// A part without a byte is passed.
void FirstPart::end_before(std::size_t delimiter, std::string_view body) {
    end_ = begin_ + without_line_end(body.substr(begin_, delimiter - begin_)).size();
    stage_ = end_ > begin_ ? Stage::whole : Stage::before;
    if (stage_ == Stage::before)
        begin_ = searched_ = delimiter;
}

/// The line from `begin_` on, which it passes, without its end.
std::optional<std::string_view> FirstPart::next_line(std::string_view body) {
    const std::size_t end = body.find('\n', searched_);
    if (end == std::string_view::npos) {
        searched_ = body.size();
        return std::nullopt;
    }
    const std::string_view line = body.substr(begin_, end - begin_);
    begin_ = searched_ = end + 1;
    return line;
}

bool FirstPart::is_delimiter(std::string_view line) const {
    const std::string_view text = without_dashes_before(trimmed_of_blanks(line));
    return !boundary_.empty() && text.starts_with(boundary_) &&
           (text.size() == boundary_.size() || text.substr(boundary_.size()) == end_of_stream);
}

/// Whether the text, and the line end that it may begin with, is a delimiter or becomes one with
/// more text.
bool FirstPart::may_begin_delimiter(std::string_view text) const {
    const std::string_view line = without_dashes_before(without_line_end_before(text));
    if (line.size() < boundary_.size())
        return boundary_.starts_with(line);
    return line.starts_with(boundary_) && is_line_over(line.substr(boundary_.size())) != false;
}

} // namespace lookfar
