// The blur comes to the same as its steps done one by one, in a buffer of exactly its size.
#include "pipeline/blur.h"
#include "fuzz/support/expect.h"
#include "support/literal_blur.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdint>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace lookfar;
    FuzzedDataProvider input(data, size);
    const int height = input.ConsumeIntegralInRange(0, 40);
    const int stride = input.ConsumeIntegralInRange(0, 2000);
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(height) *
                                    static_cast<std::size_t>(stride));
    const auto pattern = input.ConsumeRemainingBytes<std::uint8_t>();
    for (std::size_t index = 0; index < bytes.size() && !pattern.empty(); ++index)
        bytes[index] = pattern[index % pattern.size()];
    std::vector<std::uint8_t> expected = bytes;
    testing::blur_literally(expected, height, stride);
    blur(bytes, height, stride);
    fuzz::expect(bytes == expected, "the blur equals its steps");
    return 0;
}
