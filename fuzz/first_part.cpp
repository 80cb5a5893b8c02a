// The first part of a multipart answer is found in the same place wherever the body is cut, unless
// it is cut just behind a length that is untrue, and once it is found, whatever follows. The input
// is a content type, a line feed and the body.
#include "transfers/first_part.h"
#include "fuzz/support/expect.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace lookfar::fuzz {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// The part where it is whole. From a buffer of its own of exactly this size, so that no byte
/// behind it can be read.
std::optional<Bytes> part_in(FirstPart& reader, std::span<const std::uint8_t> body) {
    const Bytes own(body.begin(), body.end());
    const bool is_whole = reader.advance(own);
    const auto part = reader.part_of(own);
    expect(part.data() >= own.data() && part.data() + part.size() <= own.data() + own.size(),
           "the part lies in the body");
    expect(!is_whole || !part.empty(), "a whole part has a byte");
    return is_whole ? std::optional(Bytes(part.begin(), part.end())) : std::nullopt;
}

void check(const FirstPart& reader, std::span<const std::uint8_t> body) {
    FirstPart at_once = reader;
    const auto expected = part_in(at_once, body);
    FirstPart bytewise = reader;
    std::optional<Bytes> found;
    for (std::size_t size = 0; size <= body.size(); ++size) {
        const auto now = part_in(bytewise, body.first(size));
        expect(!found || now == found, "a part stays what it is");
        found = now;
    }
    expect(found || !expected, "the part is found in pieces");
    for (std::size_t size = 0; size <= body.size(); ++size) {
        FirstPart in_two = reader;
        const auto early = part_in(in_two, body.first(size));
        expect(part_in(in_two, body) == (early ? early : expected),
               "the part is the same in two pieces");
    }
}

} // namespace
} // namespace lookfar::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::ptrdiff_t longest_body = 512;
    const auto* const end = std::find(data, data + size, '\n');
    const std::string_view content_type(reinterpret_cast<const char*>(data),
                                        static_cast<std::size_t>(end - data));
    const auto reader = lookfar::FirstPart::of_answer(content_type);
    if (reader && data + size - end <= longest_body)
        lookfar::fuzz::check(*reader, {end, data + size});
    return reader ? 0 : -1;
}
