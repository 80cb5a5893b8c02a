#include "transfers/answer_body.h"

#include "transfers/exchange_failures.h"
#include "transfers/limits.h"

#include <cstddef>
#include <new>
#include <utility>

namespace lookfar {

bool AnswerBody::append(std::span<const char> bytes, std::string_view content_type) {
    if (bytes.size() > max_body_size - bytes_.size())
        return refuse(answer_too_large());
    try {
        if (bytes_.empty())
            first_part_ = FirstPart::of_answer(content_type);
        bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
        is_whole_part_ = first_part_ && first_part_->advance(bytes_);
    } catch (const std::bad_alloc&) {
        return refuse(too_little_memory_for_answer());
    }
    return !is_whole_part_;
}

Bytes AnswerBody::collect() {
    if (first_part_) {
        const auto part = first_part_->part_of(bytes_);
        const auto head = part.data() - bytes_.data();
        bytes_.resize(static_cast<std::size_t>(head) + part.size());
        bytes_.erase(bytes_.begin(), bytes_.begin() + head);
    }
    return std::move(bytes_);
}

bool AnswerBody::refuse(Failure failure) {
    refusal_ = std::move(failure);
    return false;
}

} // namespace lookfar
