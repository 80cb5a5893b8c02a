#include "decoder/program/service.h"

#include "decoder/channel.h"
#include "decoder/program/pixel_files.h"
#include "pictures/decode_pixels.h"

#include <algorithm>
#include <new>
#include <optional>
#include <span>
#include <variant>

namespace lookfar::decoder {

namespace {

/// A picture's bytes in place.
class Body {
  public:
    Body(const Descriptor& file, std::size_t size) {
        if (size > 0)
            mapping_.emplace(file, size, Access::read);
    }

    std::span<const std::uint8_t> bytes() const {
        return mapping_ ? std::span<const std::uint8_t>(mapping_->data(), mapping_->size())
                        : std::span<const std::uint8_t>();
    }

  private:
    std::optional<Mapping> mapping_;
};

Reply refusal(const Failure& failure) {
    const bool is_unknown = failure.Kind == FailureKind::unknown_picture_format;
    Reply reply{.verdict = is_unknown ? Verdict::unknown_format : Verdict::not_decodable};
    // One place is left to the zero at the end.
    std::copy_n(failure.Description.begin(),
                std::min(failure.Description.size(), reply.text.size() - 1), reply.text.begin());
    return reply;
}

Reply description_of(const Pixels& pixels) {
    return {.verdict = Verdict::decoded,
            .width = pixels.width,
            .height = pixels.height,
            .has_opacity = pixels.opacity ? 1U : 0U};
}

DecodedPicture picture_in(const Order& order, const Descriptor& body_file, PixelFiles& files) {
    try {
        const Body body(body_file, order.byte_count);
        return decoded_picture(body.bytes(),
                               [&files](std::size_t size) { return files.allocate(size); });
    } catch (const std::bad_alloc&) {
        return no_memory_for_a_picture();
    }
}

bool carry_out(const Order& order, const Descriptor& body_file, int socket, PixelFiles& files) {
    files.take_back(order.idle_files);
    const DecodedPicture picture = picture_in(order, body_file, files);
    PixelFiles::Lent lent;
    Reply reply;
    if (const auto* const pixels = std::get_if<Pixels>(&picture)) {
        reply = description_of(*pixels);
        lent = files.lend(pixels->bytes.get());
    } else {
        reply = refusal(std::get<Failure>(picture));
    }
    reply.file = lent.number;
    reply.dropped_files = files.take_dropped();
    return send(socket, reply, lent.descriptor);
}

} // namespace

void serve(int socket) {
    PixelFiles files;
    while (const auto message = receive(socket, Waiting::for_a_message)) {
        const auto order = message->as<Order>();
        if (!order || !carry_out(*order, message->descriptor, socket, files))
            return;
    }
}

} // namespace lookfar::decoder
