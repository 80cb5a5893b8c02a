#include "jpeg_decode.h"

#include "median.h"
#include "processor_time.h"

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>

#include <turbojpeg.h>

namespace lookfar::bench {

namespace {

constexpr int rounds = 15;

using File = std::vector<std::uint8_t>;

class Decoder {
  public:
    void decode(const File& file) {
        int width = 0;
        int height = 0;
        int subsampling = 0;
        int colours = 0;
        if (tjDecompressHeader3(turbo_.get(), file.data(), file.size(), &width, &height,
                                &subsampling, &colours) != 0)
            fail();
        pixels_.resize(std::size_t{3} * static_cast<unsigned>(width) *
                       static_cast<unsigned>(height));
        if (tjDecompress2(turbo_.get(), file.data(), file.size(), pixels_.data(), width, 0, height,
                          TJPF_RGB, 0) != 0)
            fail();
    }

  private:
    struct Destroyed {
        void operator()(void* turbo) const { tjDestroy(turbo); }
    };

    [[noreturn]] void fail() const { throw std::runtime_error(tjGetErrorStr2(turbo_.get())); }

    std::unique_ptr<void, Destroyed> turbo_{tjInitDecompress()};
    std::vector<std::uint8_t> pixels_;
};

File content_of(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

} // namespace

double decode_milliseconds(const std::vector<std::string>& files) {
    Decoder decoder;
    std::vector<File> contents(files.size());
    std::ranges::transform(files, contents.begin(), content_of);
    const auto decode_all = [&] {
        for (const File& content : contents)
            decoder.decode(content);
    };
    decode_all();
    std::vector<double> milliseconds;
    for (int round = 0; round < rounds; ++round) {
        const double start = processor_seconds();
        decode_all();
        milliseconds.push_back((processor_seconds() - start) * 1000 /
                               static_cast<double>(files.size()));
    }
    return median_of(milliseconds);
}

} // namespace lookfar::bench
