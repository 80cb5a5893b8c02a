#pragma once

#include "transfers/exchange_failures.h"
#include "transfers/limits.h"

#include <cstddef>
#include <string_view>

namespace lookfar {

/// Reads the heads of an exchange's answers while they come, those of redirects and of questions
/// for a password among them.
class AnswerHeads {
  public:
    void begin_request() { stage_ = ExchangeStage::reading_head; }
    /// Reads the next line, with its end. False where all lines so far are too large.
    bool append(std::string_view line);

    ExchangeStage stage() const { return stage_; }
    bool is_too_large() const { return size_ > max_heads_size; }
    /// How many of the answers have the status 401.
    int unauthorized() const { return unauthorized_; }
    /// Whether one asks for the password by a Digest of SHA-512/256, which some versions of libcurl
    /// mistake for SHA-256. Of several Digests libcurl answers the first.
    bool asks_for_wrong_digest() const { return digest_ == Digest::wrong; }

  private:
    enum class Digest { none, good, wrong };

    void look_for_digest(std::string_view line);

    std::size_t size_ = 0;
    ExchangeStage stage_ = ExchangeStage::connecting;
    int unauthorized_ = 0;
    Digest digest_ = Digest::none;
};

} // namespace lookfar
