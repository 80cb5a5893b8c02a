#include "demo/gif_writer.h"

#include <array>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace lookfar::demo {
namespace {

constexpr int palette_size = 256;
constexpr int largest_side = 65535;
constexpr unsigned bits_per_pixel = 8;

void append_word(std::string& file, int value) {
    file += static_cast<char>(value & 0xFF);
    file += static_cast<char>(value >> 8);
}

/// Collects codes of varying width, least significant bit first.
class BitWriter {
  public:
    void write(unsigned code, unsigned width) {
        pending_ |= code << pending_width_;
        pending_width_ += width;
        while (pending_width_ >= 8) {
            write_byte();
            pending_width_ -= 8;
        }
    }

    std::string finish() {
        if (pending_width_ > 0) {
            write_byte();
        }
        return std::move(bytes_);
    }

  private:
    void write_byte() {
        bytes_ += static_cast<char>(pending_ & 0xFF);
        pending_ >>= 8;
    }

    std::string bytes_;
    std::uint32_t pending_ = 0;
    unsigned pending_width_ = 0;
};

/// The LZW of the format: codes grow from 9 to 12 bits, then the table starts anew.
class LzwEncoder {
  public:
    std::string encode(std::span<const std::uint8_t> pixels) {
        bits_.write(clear_code, width_);
        unsigned prefix = pixels.front();
        for (const std::uint8_t pixel : pixels.subspan(1)) {
            const std::uint32_t key = (prefix << bits_per_pixel) | pixel;
            if (const auto known = table_.find(key); known != table_.end()) {
                prefix = known->second;
                continue;
            }
            bits_.write(prefix, width_);
            add(key);
            prefix = pixel;
        }
        bits_.write(prefix, width_);
        widen_for_decoder();
        bits_.write(end_code, width_);
        return bits_.finish();
    }

  private:
    static constexpr unsigned clear_code = 1U << bits_per_pixel;
    static constexpr unsigned end_code = clear_code + 1;
    static constexpr unsigned first_free_code = clear_code + 2;
    static constexpr unsigned first_width = bits_per_pixel + 1;
    static constexpr unsigned last_width = 12;
    static constexpr unsigned code_limit = 1U << last_width;

    void add(std::uint32_t key) {
        if (next_code_ == code_limit) {
            restart();
            return;
        }
        widen_for_decoder();
        table_.emplace(key, next_code_++);
    }

    /// The decoder learns an entry one code later, so a width holds until its last code is taken.
    void widen_for_decoder() {
        if (next_code_ == 1U << width_ && width_ < last_width) {
            ++width_;
        }
    }

    void restart() {
        bits_.write(clear_code, width_);
        table_.clear();
        next_code_ = first_free_code;
        width_ = first_width;
    }

    BitWriter bits_;
    std::unordered_map<std::uint32_t, unsigned> table_;
    unsigned next_code_ = first_free_code;
    unsigned width_ = first_width;
};

void append_header(std::string& file, const QImage& indexed) {
    constexpr char palette_of_256_colours = '\xF7';
    file += "GIF89a";
    append_word(file, indexed.width());
    append_word(file, indexed.height());
    file += palette_of_256_colours;
    file += '\0'; // Background colour.
    file += '\0'; // Pixel aspect ratio: not told.
}

void append_palette(std::string& file, const QImage& indexed) {
    QList<QRgb> colours = indexed.colorTable();
    colours.resize(palette_size);
    for (const QRgb colour : colours) {
        file += static_cast<char>(qRed(colour));
        file += static_cast<char>(qGreen(colour));
        file += static_cast<char>(qBlue(colour));
    }
}

void append_image_descriptor(std::string& file, const QImage& indexed) {
    file += ',';
    append_word(file, 0);
    append_word(file, 0);
    append_word(file, indexed.width());
    append_word(file, indexed.height());
    file += '\0'; // Neither a palette of its own nor interlaced.
}

std::vector<std::uint8_t> pixels_of(const QImage& indexed) {
    std::vector<std::uint8_t> pixels;
    for (int row = 0; row < indexed.height(); ++row) {
        const std::span line(indexed.constScanLine(row), static_cast<std::size_t>(indexed.width()));
        pixels.insert(pixels.end(), line.begin(), line.end());
    }
    return pixels;
}

void append_blocks(std::string& file, std::string_view data) {
    constexpr std::size_t longest_block = 255;
    while (!data.empty()) {
        const std::string_view block = data.substr(0, longest_block);
        file += static_cast<char>(block.size());
        file += block;
        data.remove_prefix(block.size());
    }
    file += '\0';
}

} // namespace

std::string to_gif(const QImage& picture) {
    if (picture.isNull() || picture.width() > largest_side || picture.height() > largest_side) {
        throw std::invalid_argument("a picture of this size cannot be a GIF");
    }
    const QImage opaque = picture.convertToFormat(QImage::Format_RGB32);
    const QImage indexed = opaque.convertToFormat(QImage::Format_Indexed8);
    std::string file;
    append_header(file, indexed);
    append_palette(file, indexed);
    append_image_descriptor(file, indexed);
    file += static_cast<char>(bits_per_pixel);
    append_blocks(file, LzwEncoder().encode(pixels_of(indexed)));
    file += ';';
    return file;
}

} // namespace lookfar::demo
