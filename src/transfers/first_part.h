#pragma once

#include "transfers/multipart_boundary.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

namespace lookfar {

/// Finds the first part of a multipart answer in the body while that comes, so that a stream of
/// pictures gives its current one.
///
/// It reads what cameras really send: parts with a Content-Length, which need not be true, and
/// without, text before the
/// first delimiter, a delimiter right behind a picture, lines that end in LF alone. A part without
/// a byte counts for none. Where no delimiter follows on the length that a part tells, it goes on
/// to the next delimiter; where nothing has come behind that length, the part is whole.
class FirstPart {
  public:
    explicit FirstPart(MultipartBoundary boundary) : boundary_(std::move(boundary)) {}

    /// Whether the part is whole in what has come of the body. Each call is given all that the call
    /// before was given, and what came since.
    bool is_whole_in(std::span<const std::uint8_t> body);

    /// The part in the body that `is_whole_in` was given last. Where the part isn't whole, that is
    /// what has come of it, and where it hasn't begun, all of the body.
    std::span<const std::uint8_t> part_of(std::span<const std::uint8_t> body) const;

  private:
    enum class Stage { before, header, content, whole };

    bool take_step(std::string_view body);
    bool pass_line_before(std::string_view body);
    bool pass_header_line(std::string_view body);
    bool end_by_length(std::string_view body, std::size_t length);
    bool end_by_delimiter(std::string_view body);
    void end_at(std::size_t end, std::size_t next);
    std::optional<std::string_view> next_line(std::string_view body);

    MultipartBoundary boundary_;
    Stage stage_ = Stage::before;
    /// Where the line or the content begins that is being read.
    std::size_t begin_ = 0;
    /// Where to look on for its end.
    std::size_t searched_ = 0;
    std::size_t end_ = 0;
    std::optional<std::size_t> length_;
};

} // namespace lookfar
