#include "decoder/received_pixels.h"

#include "decoder/decoder_failures.h"

#include <algorithm>
#include <atomic>
#include <string>
#include <utility>

namespace lookfar::decoder {

namespace {

/// A control character would be part of no text.
std::string text_of(const Reply& reply) {
    std::string text(reply.text.begin(), std::ranges::find(reply.text, '\0'));
    if (text.empty())
        throw has_failed();
    std::ranges::replace_if(
        text, [](char character) { return static_cast<unsigned char>(character) < ' '; }, ' ');
    return text;
}

bool is_allowed_size(int width, int height) {
    return width > 0 && height > 0 && static_cast<long long>(width) * height <= most_pixels;
}

} // namespace

struct ReceivedPixels::File {
    File(const Descriptor& descriptor, std::size_t size) : bytes(descriptor, size, Access::read) {}

    Mapping bytes;
    /// Pixels may go on any thread.
    std::atomic<bool> is_in_use = false;
};

/// A file in use, until the last one who has its pixels lets them go.
struct ReceivedPixels::Loan {
    explicit Loan(std::shared_ptr<File> lent) : file(std::move(lent)) { file->is_in_use = true; }
    Loan(const Loan&) = delete;
    Loan& operator=(const Loan&) = delete;
    ~Loan() { file->is_in_use = false; }

    std::shared_ptr<File> file;
};

DecodedPicture ReceivedPixels::picture_of(const Reply& reply, const Descriptor& descriptor) {
    drop(reply.dropped_files);
    switch (reply.verdict) {
    case Verdict::decoded:
        return pixels_of(reply, descriptor);
    case Verdict::unknown_format:
        return Failure(FailureKind::unknown_picture_format, text_of(reply));
    case Verdict::not_decodable:
        return Failure(FailureKind::invalid_picture, text_of(reply));
    }
    throw has_failed();
}

std::uint32_t ReceivedPixels::idle_files() const {
    std::uint32_t idle = 0;
    for (std::uint32_t number = 0; number < most_kept_files; ++number)
        if (files_[number] && !files_[number]->is_in_use)
            idle |= 1U << number;
    return idle;
}

Pixels ReceivedPixels::pixels_of(const Reply& reply, const Descriptor& descriptor) {
    if (!is_allowed_size(reply.width, reply.height))
        throw has_failed();
    const int stride = stride_of(reply.width);
    const auto width = static_cast<std::size_t>(reply.width);
    const auto height = static_cast<std::size_t>(reply.height);
    const std::size_t row_bytes = static_cast<std::size_t>(stride) * height;
    const std::size_t opacity_bytes = reply.has_opacity != 0 ? width * height : 0;
    const auto loan = std::make_shared<Loan>(file_of(reply, descriptor, row_bytes + opacity_bytes));
    const std::uint8_t* const bytes = loan->file->bytes.data();
    const std::shared_ptr<const std::uint8_t[]> rows(loan, bytes);
    const std::shared_ptr<const std::uint8_t[]> opacity(loan, bytes + row_bytes);
    return {.width = reply.width,
            .height = reply.height,
            .stride = stride,
            .bytes = rows,
            .opacity = opacity_bytes != 0 ? opacity : nullptr,
            .memory = memory_};
}

std::shared_ptr<ReceivedPixels::File>
ReceivedPixels::file_of(const Reply& reply, const Descriptor& descriptor, std::size_t size) {
    const bool is_kept = reply.file < most_kept_files;
    if (descriptor) {
        if (!is_memory_file(descriptor, size))
            throw has_failed();
        auto file = std::make_shared<File>(descriptor, size);
        if (is_kept)
            files_[reply.file] = file;
        return file;
    }
    if (!is_kept || !files_[reply.file] || files_[reply.file]->is_in_use ||
        files_[reply.file]->bytes.size() < size)
        throw has_failed();
    return files_[reply.file];
}

void ReceivedPixels::drop(std::uint32_t files) {
    for (std::uint32_t number = 0; number < most_kept_files; ++number)
        if ((files & 1U << number) != 0)
            files_[number].reset();
}

} // namespace lookfar::decoder
