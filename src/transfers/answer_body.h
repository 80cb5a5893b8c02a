#pragma once

#include "runtime/bytes.h"
#include "runtime/failure.h"
#include "transfers/first_part.h"

#include <optional>
#include <span>
#include <string_view>

namespace lookfar {

/// Gathers the body of an answer while that comes. The first part of a multipart answer is the
/// body.
class AnswerBody {
  public:
    /// Appends the next bytes. False where no more are wanted: the first part is whole, or the
    /// answer is refused.
    bool append(std::span<const char> bytes, std::string_view content_type);

    /// Whether it is the first part of a multipart answer, and all of it is there.
    bool is_whole_part() const { return is_whole_part_; }
    bool is_empty() const { return bytes_.empty(); }
    const std::optional<Failure>& refusal() const { return refusal_; }

    /// What has come of it, which is the whole body where the transfer has ended well. Needs no
    /// memory.
    Bytes collect();

  private:
    bool refuse(Failure failure);

    Bytes bytes_;
    std::optional<FirstPart> first_part_;
    bool is_whole_part_ = false;
    std::optional<Failure> refusal_;
};

} // namespace lookfar
