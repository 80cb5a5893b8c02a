#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace lookfar {

/// What stands between the parts of a multipart answer. Cameras put dashes before it or leave them
/// away, in the answer's head as well as in the body; so dashes before it don't count.
class MultipartBoundary {
  public:
    /// Nothing unless the content type is a multipart one. It is unknown where the type names none.
    static std::optional<MultipartBoundary> of_answer(std::string_view content_type);

    bool is_known() const { return !text_.empty(); }
    /// Takes it from a delimiter, a line of the body with two dashes and more before it. Other
    /// lines change nothing.
    void learn_from(std::string_view line);

    /// Whether a line, without its end, is a delimiter.
    bool is_delimiter(std::string_view line) const;

    /// Whether the text begins with a delimiter and the line end that belongs to it, or may do so
    /// with more text.
    bool may_begin(std::string_view text) const;

    /// Where in a text a delimiter is, or how far there is none.
    struct Place {
        std::size_t begin;
        bool is_found;
    };
    /// Looks from `start` on for a delimiter: the start of a line with the boundary, or the
    /// boundary behind two dashes wherever that stands, if nothing follows in the line. What may
    /// become one with more text is not passed.
    Place find_delimiter(std::string_view text, std::size_t start) const;

  private:
    explicit MultipartBoundary(std::string_view text);

    std::string text_;
};

} // namespace lookfar
