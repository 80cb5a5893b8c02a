#include "decoder/decoder_client.h"
#include "runtime/files/disk.h"
#include "runtime/pictures/picture_loader.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"
#include "transfers/transfers_fixture.h"

#include <algorithm>

namespace lookfar {
namespace {

using testing::detailed_jpeg;

/// The whole road of a picture, with the decoder of the program.
class DecodedPictures : public Transfers {
  protected:
    DecodedPictures() {
        transfers = transfers_with(std::make_unique<decoder::DecoderClient>(LOOKFAR_DECODER));
        for (const std::uint32_t number : {0U, 1U}) {
            const Bytes file = detailed_jpeg(160, 120, number + 1);
            server.answer("/" + std::to_string(number), always(200, {file.begin(), file.end()}));
        }
    }

    /// Calls the work over and over until the picture is there.
    PictureLoader loader_of(const std::string& path, const std::function<void()>& meanwhile) {
        std::optional<TransferOutcome> outcome;
        const auto transfer =
            start(server.url(path), [&](TransferOutcome arrived) { outcome = std::move(arrived); });
        while (!outcome) {
            meanwhile();
            loop.post([] {});
            loop.run_until([first = true]() mutable { return !std::exchange(first, false); });
        }
        auto body = std::get<DecodedBodyReference>(*std::move(outcome));
        testing::write_file("picture", {body->bytes->begin(), body->bytes->end()});
        return {*disk, std::move(body)};
    }

    const testing::TemporaryFolder folder;
    const std::unique_ptr<Disk> disk = make_posix_disk();
};

TEST_F(DecodedPictures, ArriveWhileTheOnesBeforeAreChangedAndLetGo) {
    constexpr int rounds = 20;
    PictureReference oldest;
    PictureReference raw;
    PictureReference changed = loader_of("/1", [] {}).LoadPicture("picture");
    for (int round = 0; round < rounds; ++round) {
        std::uint8_t expected = changed->bytes()[0];
        auto loader = loader_of("/" + std::to_string(round % 2), [&] {
            oldest.reset();
            changed->rewrite([](auto old_bytes, auto new_bytes) {
                std::ranges::transform(old_bytes, new_bytes.begin(), [](std::uint8_t byte) {
                    return static_cast<std::uint8_t>(byte + 1);
                });
            });
            ++expected;
        });
        EXPECT_EQ(changed->bytes()[0], expected);
        changed = loader.LoadPicture("picture");
        EXPECT_EQ(changed->width(), 160);
        oldest = std::exchange(raw, loader.LoadPicture("picture"));
    }
}

} // namespace
} // namespace lookfar
