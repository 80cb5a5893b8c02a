#include "pictures/gif_blocks.h"

#include <cstddef>

namespace lookfar {

namespace {

constexpr std::uint8_t start_of_extension = '!';
constexpr std::uint8_t start_of_frame = ',';

/// A place in a file, which may come to lie beyond its end. There all bytes are zero.
class Place {
  public:
    explicit Place(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    bool is_beyond_end() const { return position_ > bytes_.size(); }
    void pass(std::size_t count) { position_ += count; }
    std::uint8_t next() {
        const std::size_t position = position_++;
        return position < bytes_.size() ? bytes_[position] : std::uint8_t{0};
    }

  private:
    std::span<const std::uint8_t> bytes_;
    std::size_t position_ = 0;
};

/// The flags tell whether there are colours, and how many.
void pass_colours(Place& place, std::uint8_t flags) {
    constexpr std::uint8_t has_colours = 0x80;
    constexpr std::uint8_t size = 0x07;
    if ((flags & has_colours) != 0)
        place.pass(std::size_t{3} << ((flags & size) + 1U));
}

/// Blocks with their lengths before them, up to an empty one.
void pass_data(Place& place) {
    while (const std::uint8_t length = place.next())
        place.pass(length);
}

void pass_file_header(Place& place) {
    constexpr std::size_t signature_and_size = 10;
    constexpr std::size_t background_and_aspect = 2;
    place.pass(signature_and_size);
    const std::uint8_t flags = place.next();
    place.pass(background_and_aspect);
    pass_colours(place, flags);
}

void pass_frame(Place& place) {
    constexpr std::size_t position_and_size = 8;
    constexpr std::size_t code_size = 1;
    place.pass(position_and_size);
    pass_colours(place, place.next());
    place.pass(code_size);
    pass_data(place);
}

} // namespace

bool is_cut_short_gif(std::span<const std::uint8_t> bytes) {
    constexpr std::size_t label = 1;
    Place place(bytes);
    pass_file_header(place);
    std::uint8_t start = place.next();
    for (; start == start_of_extension; start = place.next()) {
        place.pass(label);
        pass_data(place);
    }
    if (start == start_of_frame)
        pass_frame(place);
    return place.is_beyond_end();
}

} // namespace lookfar
