#include "runtime/pictures/pixel_memory.h"

#include <algorithm>
#include <list>
#include <mutex>
#include <new>
#include <optional>
#include <utility>

namespace lookfar {

namespace {

struct Buffer {
    std::unique_ptr<std::uint8_t[]> bytes;
    std::size_t size = 0;
};

Buffer new_buffer(std::size_t size) {
    try {
        return {.bytes = std::make_unique_for_overwrite<std::uint8_t[]>(size), .size = size};
    } catch (const std::bad_alloc&) {
        throw no_memory_for_a_picture();
    }
}

} // namespace

Failure no_memory_for_a_picture() {
    return Failure(FailureKind::invalid_picture, "There is not enough memory for the picture.");
}

/// The buffers that nobody uses, the one that came back first in front.
class PixelMemory::Idle {
  public:
    /// One that fits without wasting half of it, if there is one.
    std::optional<Buffer> take(std::size_t size) {
        const std::lock_guard lock(mutex_);
        const auto fitting = std::ranges::find_if(buffers_, [size](const Buffer& buffer) {
            return buffer.size >= size && buffer.size / 2 <= size;
        });
        if (fitting == buffers_.end())
            return std::nullopt;
        Buffer buffer = std::move(*fitting);
        buffers_.erase(fitting);
        byte_count_ -= buffer.size;
        return buffer;
    }

    void give_back(Buffer buffer) {
        if (buffer.size > most_idle_bytes)
            return;
        const std::lock_guard lock(mutex_);
        byte_count_ += buffer.size;
        buffers_.push_back(std::move(buffer));
        while (byte_count_ > most_idle_bytes) {
            byte_count_ -= buffers_.front().size;
            buffers_.pop_front();
        }
    }

  private:
    std::mutex mutex_;
    std::list<Buffer> buffers_;
    std::size_t byte_count_ = 0;
};

/// A buffer in use.
struct PixelMemory::Loan {
    Loan(Buffer taken, std::shared_ptr<Idle> owner)
        : buffer(std::move(taken)), idle(std::move(owner)) {}
    Loan(const Loan&) = delete;
    Loan& operator=(const Loan&) = delete;
    ~Loan() { idle->give_back(std::move(buffer)); }

    Buffer buffer;
    std::shared_ptr<Idle> idle;
};

PixelMemory::PixelMemory() : idle_(std::make_shared<Idle>()) {}

std::shared_ptr<std::uint8_t[]> PixelMemory::take(std::size_t byte_count) const {
    auto used = idle_->take(byte_count);
    const auto loan =
        std::make_shared<Loan>(used ? *std::move(used) : new_buffer(byte_count), idle_);
    return {loan, loan->buffer.bytes.get()};
}

PixelAllocator PixelMemory::allocator() const {
    return [memory = *this](std::size_t byte_count) { return memory.take(byte_count); };
}

} // namespace lookfar
