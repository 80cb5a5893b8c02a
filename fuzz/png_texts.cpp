// A PNG loses its text chunks and no other byte.
#include "runtime/pictures/png_texts.h"
#include "fuzz/support/expect.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace lookfar::fuzz {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::string_view signature("\x89PNG\r\n\x1A\n");
constexpr std::size_t around_content = 12;

/// The model: the signature, and of the bytes behind it all but the text chunks.
Bytes without_texts(std::span<const std::uint8_t> bytes) {
    Bytes kept(signature.begin(), signature.end());
    std::size_t position = 0;
    while (position < bytes.size()) {
        const auto rest = bytes.subspan(position);
        std::size_t size = rest.size();
        bool is_text = false;
        if (rest.size() >= around_content) {
            size = std::size_t{rest[0]} << 24U | std::size_t{rest[1]} << 16U |
                   std::size_t{rest[2]} << 8U | rest[3];
            size = std::min(rest.size(), size + around_content);
        }
        if (rest.size() >= 8) {
            const std::string_view type(reinterpret_cast<const char*>(rest.data()) + 4, 4);
            is_text = type == "tEXt" || type == "zTXt" || type == "iTXt";
        }
        if (!is_text)
            kept.insert(kept.end(), rest.begin(), rest.begin() + static_cast<long>(size));
        position += size;
    }
    return kept;
}

void check(std::span<const std::uint8_t> chunks) {
    Bytes png(signature.begin(), signature.end());
    png.insert(png.end(), chunks.begin(), chunks.end());
    expect(starts_png(png), "the signature is known");
    const Bytes kept = without_png_texts(png);
    expect(kept == without_texts(chunks), "what stays is the model's");
    expect(without_png_texts(kept) == kept, "nothing is left to lose");
}

} // namespace
} // namespace lookfar::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    lookfar::fuzz::check({data, size});
    return 0;
}
