#include "demo/hostile_pictures.h"

#include "demo/gif_writer.h"
#include "demo/picture_answer.h"
#include "demo/scenes.h"

#include <QBuffer>
#include <QImageWriter>

#include <stdexcept>
#include <string_view>

namespace lookfar::demo {
namespace {

unsigned byte_at(std::string_view bytes, std::size_t position) {
    return static_cast<unsigned char>(bytes.at(position));
}

/// Where the baseline frame header of a JPEG starts: segments lead from one to the next.
std::size_t find_frame_header(std::string_view jpeg) {
    constexpr unsigned baseline_frame = 0xC0;
    constexpr unsigned start_of_scan = 0xDA;
    std::size_t position = 2;
    while (byte_at(jpeg, position + 1) != baseline_frame) {
        if (byte_at(jpeg, position + 1) == start_of_scan) {
            throw std::logic_error("a JPEG without a baseline frame header");
        }
        position += 2 + byte_at(jpeg, position + 2) * 256 + byte_at(jpeg, position + 3);
    }
    return position;
}

QImage plain_image(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(0xFF336699U);
    return image;
}

/// A segment of application data, as long as one can be.
std::string longest_metadata_segment() {
    constexpr std::size_t content_length = 0xFFFF - 2;
    std::string content("Exif\0\0MM\0*", 10);
    content.resize(content_length, '\0');
    return "\xFF\xE1\xFF\xFF" + content;
}

} // namespace

Answer small_picture() {
    constexpr QSize size(160, 120);
    const Moment noon{QDateTime(QDate(2001, 6, 21), QTime(12, 0)), 0};
    return picture_answer(picture_of(paint_harbour, size, noon), PictureFormat::jpeg);
}

Answer huge_picture() {
    // The frame header has marker, length and depth before height and width, two bytes each.
    constexpr std::size_t height_offset = 5;
    constexpr std::string_view claimed_size = "\xEA\x60\xEA\x60";
    Answer answer = small_picture();
    answer.body.replace(find_frame_header(answer.body) + height_offset, claimed_size.size(),
                        claimed_size);
    return answer;
}

Answer truncated_picture() {
    Answer answer = small_picture();
    answer.body.resize(answer.body.size() / 2);
    return answer;
}

Answer plain_picture(QSize size) {
    return picture_answer(plain_image(size), PictureFormat::jpeg);
}

Answer picture_with_large_metadata() {
    constexpr std::size_t after_start_marker = 2;
    constexpr int segment_count = 160;
    std::string metadata;
    for (int count = 0; count < segment_count; ++count) {
        metadata += longest_metadata_segment();
    }
    Answer answer = small_picture();
    answer.body.insert(after_start_marker, metadata);
    return answer;
}

Answer picture_of_many_scans() {
    constexpr int scan_count = 10'000;
    constexpr std::size_t end_marker_length = 2;
    QBuffer file;
    QImageWriter writer(&file, "jpeg");
    writer.setProgressiveScanWrite(true);
    writer.write(plain_image({160, 120}));
    std::string jpeg = file.data().toStdString();
    const std::size_t end = jpeg.size() - end_marker_length;
    const std::size_t last_scan = jpeg.rfind("\xFF\xDA");
    std::string scans;
    for (int count = 0; count < scan_count; ++count) {
        scans.append(jpeg, last_scan, end - last_scan);
    }
    jpeg.insert(end, scans);
    return {.status = 200, .content_type = "image/jpeg", .body = jpeg, .headers = {}, .delay = {}};
}

Answer long_animation() {
    constexpr std::size_t header_and_palette = 6 + 7 + 3 * 256;
    constexpr int frame_count = 10'000;
    Answer answer = picture_answer(plain_image({160, 120}), PictureFormat::gif);
    const std::string frame =
        answer.body.substr(header_and_palette, answer.body.size() - header_and_palette - 1);
    answer.body.resize(header_and_palette);
    for (int count = 0; count < frame_count; ++count) {
        answer.body += frame;
    }
    answer.body += ';';
    return answer;
}

} // namespace lookfar::demo
