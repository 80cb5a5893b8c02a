#include "decoder/program/service.h"

#include "decoder/channel.h"
#include "decoder/program/pixel_files.h"
#include "pictures/decode_pixels.h"

#include <algorithm>
#include <memory>
#include <span>
#include <variant>

namespace lookfar::decoder {

namespace {

/// The pictures' bytes in place.
class Bodies {
  public:
    std::span<const std::uint8_t> bytes_of(const Order& order, const Descriptor& file) {
        if (file)
            mapping_ = std::make_unique<Mapping>(file, order.file_size, Access::read);
        return {mapping_->data(), order.byte_count};
    }

    void clear() {
        if (mapping_ && mapping_->size() > largest_kept_body)
            mapping_.reset();
    }

  private:
    std::unique_ptr<Mapping> mapping_;
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

class Service {
  public:
    explicit Service(int socket) : socket_(socket) {}

    /// Gives false where nobody waits for the reply any more.
    bool carry_out(const Order& order, const Descriptor& body_file) {
        files_.set_idle(order.idle_files);
        const DecodedPicture picture =
            decoded_picture(bodies_.bytes_of(order, body_file),
                            [this](std::size_t size) { return files_.allocate(size); });
        bodies_.clear();
        return reply_with(picture);
    }

  private:
    bool reply_with(const DecodedPicture& picture) {
        Reply reply;
        PixelFiles::Lent lent;
        if (const auto* const pixels = std::get_if<Pixels>(&picture)) {
            reply = description_of(*pixels);
            lent = files_.lend(pixels->bytes.get());
        } else {
            reply = refusal(std::get<Failure>(picture));
        }
        reply.file = lent.number;
        reply.dropped_files = files_.collect_dropped();
        return send(socket_, reply, lent.descriptor);
    }

    int socket_;
    Bodies bodies_;
    PixelFiles files_;
};

} // namespace

void serve(int socket) {
    Service service(socket);
    while (const auto message = receive(socket, Waiting::for_a_message)) {
        const auto order = message->as<Order>();
        if (!order || !service.carry_out(*order, message->descriptor))
            return;
    }
}

} // namespace lookfar::decoder
