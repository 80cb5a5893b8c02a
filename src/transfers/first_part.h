#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace lookfar {

/// Finds the first part of a multipart answer in the body while that comes, so that a stream of
/// pictures gives its current one.
///
/// It reads what cameras really send: parts with a Content-Length, which need not be true, and
/// without, text before the first delimiter, a delimiter right behind a picture, lines that end in
/// LF alone, and a boundary that has dashes before it or not, in the answer's head as well as in
/// the body. A part without a byte counts for none. Where no delimiter stands behind the length
/// that a part tells, the part goes on to the next delimiter; where nothing has come behind that
/// length, it is whole.
class FirstPart {
  public:
    /// Nothing unless the content type is a multipart one. Where that names no boundary, the first
    /// line of the body that begins with two dashes does.
    static std::optional<FirstPart> of_answer(std::string_view content_type);

    /// Reads on in what has come of the body, and gives true once the part is whole. Each call is
    /// given all that the call before was given, and what came since.
    bool advance(std::span<const std::uint8_t> body);

    /// The part in the body that `advance` was given last. Where the part isn't whole, that is what
    /// has come of it, and where it hasn't begun, all of the body.
    std::span<const std::uint8_t> part_of(std::span<const std::uint8_t> body) const;

  private:
    enum class Stage { before, header, content, whole };

    explicit FirstPart(std::string_view boundary);

    bool step(std::string_view body);
    bool pass_line_before(std::string_view body);
    bool pass_header_line(std::string_view body);
    bool end_by_length(std::string_view body, std::size_t length);
    bool end_by_delimiter(std::string_view body);
    void end_before(std::size_t delimiter, std::string_view body);
    std::optional<std::string_view> next_line(std::string_view body);
    bool is_delimiter(std::string_view line) const;
    bool may_begin_delimiter(std::string_view text) const;

    /// Without dashes before it; empty as long as it isn't known.
    std::string boundary_;
    Stage stage_ = Stage::before;
    /// Where the line or the content begins that is being read.
    std::size_t begin_ = 0;
    /// Where to look on for its end.
    std::size_t searched_ = 0;
    std::size_t end_ = 0;
    std::optional<std::size_t> length_;
};

} // namespace lookfar
