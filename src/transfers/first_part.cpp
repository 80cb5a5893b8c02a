#include "transfers/first_part.h"

#include "transfers/ascii.h"

#include <charconv>
#include <string>

namespace lookfar {

namespace {

std::string_view text_of(std::span<const std::uint8_t> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
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

/// The line end before a delimiter belongs to the delimiter.
std::string_view without_line_end(std::string_view content) {
    if (content.ends_with("\r\n"))
        return content.substr(0, content.size() - 2);
    return content.ends_with('\n') ? content.substr(0, content.size() - 1) : content;
}

} // namespace

bool FirstPart::is_whole_in(std::span<const std::uint8_t> body) {
    while (stage_ != Stage::whole && take_step(text_of(body))) {
    }
    return stage_ == Stage::whole;
}

std::span<const std::uint8_t> FirstPart::part_of(std::span<const std::uint8_t> body) const {
    if (stage_ == Stage::whole)
        return body.subspan(begin_, end_ - begin_);
    return stage_ == Stage::content ? body.subspan(begin_) : body;
}

/// False where the body does not suffice.
bool FirstPart::take_step(std::string_view body) {
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
    if (!boundary_.is_known())
        boundary_.learn_from(*line);
    if (boundary_.is_delimiter(*line))
        stage_ = Stage::header;
    return true;
}

bool FirstPart::pass_header_line(std::string_view body) {
    const auto line = next_line(body);
    if (!line)
        return false;
    if (trimmed_of_blanks(*line).empty())
        stage_ = Stage::content;
    else if (boundary_.is_delimiter(*line))
        length_.reset();
    else if (const auto length = length_in(*line))
        length_ = length;
    return true;
}

bool FirstPart::end_by_length(std::string_view body, std::size_t length) {
    if (body.size() - begin_ < length)
        return false;
    if (boundary_.may_begin(body.substr(begin_ + length)))
        end_at(begin_ + length, begin_ + length);
    else
        length_.reset();
    return true;
}

bool FirstPart::end_by_delimiter(std::string_view body) {
    const std::string_view content = body.substr(begin_);
    const auto [place, is_found] = boundary_.find_delimiter(content, searched_ - begin_);
    searched_ = begin_ + place;
    if (is_found)
        end_at(begin_ + without_line_end(content.substr(0, place)).size(), searched_);
    return is_found;
}

void FirstPart::end_at(std::size_t end, std::size_t next) {
    end_ = end;
    stage_ = end > begin_ ? Stage::whole : Stage::before;
    if (stage_ == Stage::whole)
        return;
    begin_ = searched_ = next;
    length_.reset();
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

} // namespace lookfar
