#include "decoder/decoder_client.h"

#include "resources/resources.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <poll.h>
#include <utility>
#include <vector>

namespace lookfar::testing {
namespace {

using namespace std::chrono_literals;

/// Children of this process.
std::vector<pid_t> children() {
    std::ifstream list("/proc/thread-self/children");
    return {std::istream_iterator<pid_t>(list), {}};
}

/// The address space that this process has taken, in pages.
std::size_t pages() {
    std::size_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    return pages;
}

/// Waits until the decoder has something to do.
void wait_for(const PictureDecoder& decoder) {
    using std::chrono::milliseconds;
    int longest = -1;
    if (const auto deadline = decoder.deadline()) {
        const auto left =
            std::chrono::ceil<milliseconds>(*deadline - std::chrono::steady_clock::now());
        longest = static_cast<int>(std::max(left, milliseconds::zero()).count());
    }
    pollfd socket{.fd = decoder.descriptor(), .events = POLLIN, .revents = 0};
    ::poll(&socket, 1, longest);
}

/// Waits for it, and attends to it.
void await(PictureDecoder& decoder) {
    wait_for(decoder);
    decoder.attend();
}

DecodedPicture decode(PictureDecoder& decoder, std::span<const std::uint8_t> bytes) {
    decoder.start(bytes);
    while (true) {
        if (auto picture = decoder.collect_result())
            return *std::move(picture);
        await(decoder);
    }
}

/// "decoded", or the text of the failure.
std::string outcome_of(const DecodedPicture& picture) {
    const auto* const failure = std::get_if<Failure>(&picture);
    return failure ? failure->Description : "decoded";
}

class Decoder : public ::testing::Test {
  protected:
    /// Has the next decoder be the real one, or one that lies so.
    void install(const std::string& lie = {}) {
        const auto link = std::filesystem::current_path() / "decoder";
        std::filesystem::remove(link);
        std::filesystem::create_symlink(lie.empty() ? LOOKFAR_DECODER : lie, link);
        if (!lie.empty() && !std::filesystem::is_symlink(lie))
            std::filesystem::create_symlink(LOOKFAR_LYING_DECODER, lie);
    }

    std::size_t starts() const { return exists("starts") ? content_of("starts").size() : 0; }

    TemporaryFolder folder;
    const Bytes picture = picture_file(40, 30);
    decoder::DecoderClient client{std::filesystem::current_path() / "decoder"};
};

TEST_F(Decoder, GivesThePixelsOfEachFormatAndTheOpacityAndTellsItsMediaTypes) {
    install();
    for (const char* const format : {"jpg", "png", "bmp", "webp"}) {
        const auto decoded = decode(client, picture_file(5, 3, 0x102030, format));
        ASSERT_EQ(outcome_of(decoded), "decoded") << format;
        const Picture shown(std::get<Pixels>(decoded));
        EXPECT_EQ(std::pair(shown.width(), shown.height()), std::pair(5, 3));
        ASSERT_EQ(shown.stride(), 16);
        EXPECT_NEAR(shown.bytes()[16], 0x10, 4);
        EXPECT_NEAR(shown.bytes()[18], 0x30, 4);
        EXPECT_EQ(shown.bytes()[15], 0) << "padding";
        EXPECT_TRUE(shown.opacity().empty());
    }
    const auto icon = resources::icon(48);
    const auto transparent = decode(client, {icon.begin(), icon.end()});
    const Picture shown(std::get<Pixels>(transparent));
    ASSERT_EQ(shown.opacity().size(), 48U * 48);
    EXPECT_EQ(shown.opacity().front(), 0);
    EXPECT_EQ(shown.opacity()[24 * 48 + 24], 255);
    EXPECT_EQ(outcome_of(decode(client, Bytes{'<', 'p', '>'})),
              "The camera's answer is not a picture.");
    EXPECT_EQ(client.media_types().find("image/jpeg,image/gif,image/png,image/bmp"), 0U);
    EXPECT_EQ(starts(), 0U) << "no decoder but the real one";
    EXPECT_EQ(children().size(), 1U);
}

TEST_F(Decoder, UsesTheMemoryOfPicturesAgainThatNobodyHas) {
    install();
    const auto place_of = [](const DecodedPicture& decoded) {
        return std::get<Pixels>(decoded).bytes.get();
    };
    auto first = decode(client, picture);
    const auto* const place = place_of(first);
    const Bytes large = picture_file(4000, 3000);
    for (int time = 0; time < 3; ++time) {
        auto second = decode(client, picture_file(40, 30, 0xFF0000));
        EXPECT_NE(place_of(second), place);
        EXPECT_NEAR(place[0], 0x33, 4) << "the first one is as it was";
        first = std::move(second);
        EXPECT_EQ(place_of(first = decode(client, picture)), place);
        const std::size_t before = pages();
        EXPECT_EQ(outcome_of(decode(client, large)), "decoded");
        EXPECT_LT(pages(), before + 4096) << "too large to be kept";
    }
    for (int side = 100; side > 1; --side)
        ASSERT_EQ(outcome_of(decode(client, picture_file(side, side))), "decoded")
            << "of every size there was one";
}

TEST_F(Decoder, LeavesItsIdleMemoryToChangedCopies) {
    install();
    auto first = decode(client, picture);
    const auto* const place = std::get<Pixels>(first).bytes.get();
    Picture second(std::get<Pixels>(decode(client, picture)));
    first = Failure(0, "let go");
    second.rewrite([](auto, auto new_bytes) { std::ranges::fill(new_bytes, std::uint8_t{7}); });
    EXPECT_EQ(second.bytes().data(), place);
    const auto third = decode(client, picture);
    EXPECT_NE(std::get<Pixels>(third).bytes.get(), place);
    EXPECT_EQ(second.bytes()[0], 7);

    // An idle file that the decoder had and left unused is no longer its own.
    first = decode(client, picture);
    auto fourth = decode(client, picture);
    first = Failure(0, "let go");
    fourth = first;
    const auto raw = decode(client, picture);
    Picture last(std::get<Pixels>(raw));
    last.rewrite([](auto, auto new_bytes) { std::ranges::fill(new_bytes, std::uint8_t{7}); });
    EXPECT_EQ(outcome_of(decode(client, picture)), "decoded");
    EXPECT_EQ(last.bytes()[0], 7);
}

TEST_F(Decoder, RefusesAPictureWhileAllFilesAreInUse) {
    install();
    std::vector<DecodedPicture> kept;
    kept.reserve(decoder::max_kept_files);
    for (std::uint32_t number = 0; number < decoder::max_kept_files; ++number)
        kept.push_back(decode(client, picture));
    EXPECT_EQ(outcome_of(decode(client, picture)), "There is not enough memory for the picture.");
    kept.pop_back();
    EXPECT_EQ(outcome_of(decode(client, picture)), "decoded");
    for (const auto& decoded : kept)
        EXPECT_NEAR(std::get<Pixels>(decoded).bytes[0], 0x33, 4);
}

TEST_F(Decoder, ThatDiesBetweenPicturesCostsNone) {
    install();
    const auto before = decode(client, picture);
    for (const bool is_noticed : {true, false}) {
        ::kill(children().front(), SIGKILL);
        wait_for(client);
        if (is_noticed)
            client.attend();
        EXPECT_EQ(children().empty(), is_noticed) << "an ended one is no zombie";
        EXPECT_EQ(outcome_of(decode(client, picture)), "decoded");
    }
    EXPECT_NEAR(std::get<Pixels>(before).bytes[0], 0x33, 4) << "pixels outlive their decoder";
}

TEST_F(Decoder, IsGivenUpWithItsPictureWhenTheNextOneComes) {
    install("silent");
    client.start(picture);
    await(client);
    install();
    EXPECT_EQ(outcome_of(decode(client, picture)), "decoded");
    EXPECT_EQ(children().size(), 1U);
}

const std::string has_failed = "the decoder has failed";
const std::string takes_too_long = "that takes too long";

TEST_F(Decoder, MayLieAndDieAndCostsOnePictureAndOneStart) {
    std::map<std::string, std::string> lies;
    ASSERT_EQ(std::system((std::string(LOOKFAR_LYING_DECODER) + " >lies").c_str()), 0);
    std::ifstream list("lies");
    for (std::string lie; std::getline(list, lie);)
        lies[lie] = has_failed;
    ASSERT_EQ(lies.size(), 18U);
    lies["silent"] = lies["never ready"] = takes_too_long;
    lies["dead at once"] = "the decoder ends at its start";
    lies["another release"] = has_failed;
    lies["not locked in"] = "the decoder can't be locked in: Operation not permitted";
    for (const auto& [lie, reason] : lies) {
        install(lie);
        const std::size_t starts_before = starts();
        decoder::DecoderClient impatient(
            std::filesystem::current_path() / "decoder",
            reason == takes_too_long ? 2s : decoder::DecoderClient::max_time);
        if (reason != takes_too_long)
            while (!impatient.prepare())
                await(impatient);
        EXPECT_EQ(outcome_of(decode(impatient, picture)),
                  "The picture can't be decoded: " + reason + ".")
            << lie;
        EXPECT_EQ(starts(), starts_before + 1) << lie;
        EXPECT_TRUE(children().empty()) << lie << ": it is ended";
        install();
        EXPECT_EQ(outcome_of(decode(impatient, picture)), "decoded") << "after " << lie;
    }
}

TEST_F(Decoder, ThatIsMissingIsToldWithEachPicture) {
    for (int time = 0; time < 2; ++time) {
        EXPECT_TRUE(client.prepare());
        EXPECT_EQ(client.media_types(), "image/jpeg,image/gif,image/png,image/bmp");
        EXPECT_EQ(outcome_of(decode(client, picture)),
                  "The picture can't be decoded: the decoder can't be started: No such file or "
                  "directory.");
    }
    install();
    EXPECT_EQ(outcome_of(decode(client, picture)), "decoded");
}

} // namespace
} // namespace lookfar::testing
