#include "decoder/decoder_client.h"
#include "runtime/files/disk.h"
#include "runtime/pictures/picture_loader.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"
#include "transfers/transfers_fixture.h"

#include <algorithm>
#include <string>

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
    PictureReference picture_at(const std::string& path, const std::function<void()>& meanwhile) {
        std::optional<TransferOutcome> outcome;
        const auto transfer =
            start(server.url(path), [&](TransferOutcome arrived) { outcome = std::move(arrived); });
        while (!outcome) {
            meanwhile();
            loop.post([] {});
            loop.run_until([first = true]() mutable { return !std::exchange(first, false); });
        }
        const auto body = std::get<DecodedBodyReference>(*std::move(outcome));
        testing::write_file("picture", {body->bytes.begin(), body->bytes.end()});
        return PictureLoader(*disk, body).LoadPicture("picture");
    }

    const testing::TemporaryFolder folder;
    const std::unique_ptr<Disk> disk = make_posix_disk();
};

TEST_F(DecodedPictures, ArriveWhileTheOnesBeforeAreChanged) {
    constexpr int rounds = 20;
    PictureReference shown = picture_at("/0", [] {});
    for (int round = 1; round <= rounds; ++round) {
        const std::uint8_t first = shown->bytes()[0];
        int changes = 0;
        const auto next = picture_at("/" + std::to_string(round % 2), [&] {
            ++changes;
            shown->rewrite([](auto old_bytes, auto new_bytes) {
                std::ranges::transform(old_bytes, new_bytes.begin(), [](std::uint8_t byte) {
                    return static_cast<std::uint8_t>(byte + 1);
                });
            });
        });
        EXPECT_EQ(shown->bytes()[0], static_cast<std::uint8_t>(first + changes));
        EXPECT_EQ(next->width(), 160);
        shown = next;
    }
}

TEST_F(DecodedPictures, FailWithTheWordsOfTheCamerasAnswer) {
    server.answer("/gone", always(404, "<html>"));
    EXPECT_EQ(text_at("/gone"), "The camera answered 404 Not Found.");
}

} // namespace
} // namespace lookfar
