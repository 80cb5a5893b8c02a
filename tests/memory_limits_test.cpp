#include "pipeline/blur.h"
#include "support/failure_of.h"
#include "support/started.h"

#include <cstddef>
#include <fstream>
#include <malloc.h>
#include <sys/resource.h>
#include <unistd.h>

namespace lookfar::testing {
namespace {

constexpr std::size_t megabyte = std::size_t{1024} * 1024;

std::size_t bytes_in_use() {
    std::size_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    return pages * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
}

/// Lets the process take so many bytes of memory more, and no others, while it lives.
class MemoryLimit {
  public:
    explicit MemoryLimit(std::size_t bytes) {
        // What this and other tests have freed would be used first. A fixed threshold keeps large
        // blocks from being kept for that.
        ::malloc_trim(0);
        ::mallopt(M_MMAP_THRESHOLD, 1 << 17);
        ::getrlimit(RLIMIT_AS, &old_);
        const rlimit limited{.rlim_cur = bytes_in_use() + bytes, .rlim_max = old_.rlim_max};
        ::setrlimit(RLIMIT_AS, &limited);
    }
    MemoryLimit(const MemoryLimit&) = delete;
    MemoryLimit& operator=(const MemoryLimit&) = delete;
    ~MemoryLimit() { ::setrlimit(RLIMIT_AS, &old_); }

  private:
    rlimit old_{};
};

class TooLittleMemory : public Started<1> {
  protected:
    void SetUp() override {
#ifdef __SANITIZE_ADDRESS__
        GTEST_SKIP() << "The address sanitizer ends a process that runs out of memory.";
#endif
    }
};

TEST_F(TooLittleMemory, ForAPictureIsAFailureLikeAnyOther) {
    for (const char* const format : {"jpg", "png", "bmp"}) {
        const Bytes file = picture_file(5000, 4000, 0x336699, format);
        const auto failure = failure_of([&] {
            const MemoryLimit limit(30 * megabyte);
            decode_pixels(file);
        });
        EXPECT_TRUE(failure) << format;
        EXPECT_EQ(decode_pixels(file).width, 5000) << format;
    }
}

TEST_F(TooLittleMemory, ForTheBlurLeavesThePictureRaw) {
    Form2->Picture1.Picture =
        std::make_shared<Picture>(decode_pixels(picture_file(5000, 4000, 0x336699)));
    const auto picture = Form2->Picture1.Picture.get();
    const auto blur = [&] { BlurPicture(Form2->Picture1); };
    const auto failure = failure_of([&] {
        const MemoryLimit limit(30 * megabyte);
        blur();
    });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->Description, "There is not enough memory for the picture.");
    EXPECT_EQ(picture->revision(), 0U);
    blur();
    EXPECT_EQ(picture->revision(), 1U);
}

TEST_F(TooLittleMemory, ForACopyOfTheAnswerIsEnoughToShowIt) {
    Bytes body = picture_file(16, 16);
    body.resize(50 * megabyte);
    std::optional<MemoryLimit> limit;
    // The answer is there already, and no room for a copy of it.
    platform.after(milliseconds(99), [&limit] { limit.emplace(20 * megabyte); });
    refresh_with(body, milliseconds(100));
    limit.reset();
    expect_error_display(false);
}

} // namespace
} // namespace lookfar::testing
