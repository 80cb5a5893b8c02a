#include "transfers/first_part.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace lookfar {
namespace {

std::span<const std::uint8_t> bytes_of(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

/// The part, with a question mark before it where it is not whole.
std::string part_in(FirstPart& reader, std::string_view body) {
    const bool is_whole = reader.advance(bytes_of(body));
    const auto part = reader.part_of(bytes_of(body));
    return (is_whole ? "" : "?") + std::string(part.begin(), part.end());
}

TEST(FirstPart, IsFoundInWhatCamerasSendWhereverThatIsCut) {
    const std::string plain = "multipart/x-mixed-replace; boundary=cut";
    const std::string next = "\r\n--cut\r\nContent-Type: image/jpeg\r\n\r\nNEXT\r\n--cut\r\n";
    const struct {
        std::string content_type;
        std::string body;
        std::string part;
    } cases[] = {
        // With and without a length.
        {plain, "--cut\r\nContent-Length: 7\r\n\r\nPIC\r\n--" + next, "PIC\r\n--"},
        {plain, "--cut\r\ncontent-length :7 \r\n\r\nPICTURE", "PICTURE"},
        {plain, "--cut\r\nContent-Type: image/jpeg\r\n\r\nPICTURE" + next, "PICTURE"},
        {plain, "--cut\r\n\r\nPICTURE" + next, "PICTURE"},
        {plain, "--cut\r\nContent-Length: many\r\n\r\nPICTURE" + next, "PICTURE"},
        {plain, "--cut\r\n\r\nPIC\r\n\r\n" + next, "PIC\r\n\r\n"},
        {plain, "--cut\n\nPICTURE\n--cut\n", "PICTURE"},
        {plain, "--cut\r\n\r\nPICTURE\r\n--cut--", "PICTURE"},
        // Preambles, and parts of no byte.
        {plain, "\r\n\r\n--cut\r\n\r\nPICTURE" + next, "PICTURE"},
        {plain, "Your player is too old.\r\n--cuts\r\n--cut \t\r\n\r\nPICTURE" + next, "PICTURE"},
        {plain, "--cut\r\n\r\n--cut\r\nContent-Length: 7\r\n\r\nPICTURE", "PICTURE"},
        {plain, "--cut\r\nContent-Length: 3\r\n--cut\r\n\r\nPICTURE" + next, "PICTURE"},
        {plain, "--cut\r\nContent-Length: 0\r\n\r\n" + next, "NEXT"},
        // Boundaries.
        {"multipart/x-mixed-replace;boundary=--cut", "--cut\r\n\r\nPICTURE" + next, "PICTURE"},
        {"multipart/x-mixed-replace;boundary=--cut", "----cut\r\n\r\nPICTURE\r\n----cut\r\n",
         "PICTURE"},
        {plain, "cut\r\n\r\nPICTURE\r\ncut\r\n", "PICTURE"},
        {plain, "cut\r\n\r\ncut\r\n\r\nPICTURE\r\ncut\r\n", "PICTURE"},
        {R"(Multipart/X-Mixed-Replace; charset="a;b" ; Boundary = "c;u=t" ; x)",
         "--c;u=t\r\n\r\nPICTURE\r\n--c;u=t\r\n", "PICTURE"},
        {"multipart/x-mixed-replace", "--\r\n--cut\r\n\r\nPICTURE" + next, "PICTURE"},
        // What is a delimiter, and what is not.
        {plain, "--cut\r\n\r\nPICTURE--cut\r\n", "PICTURE"},
        {plain, "--cut\r\n\r\ncut-cut --cutter\r\n--cut x\r\n--cut-\r\n-cut \rcut" + next,
         "cut-cut --cutter\r\n--cut x\r\n--cut-\r\n-cut \rcut"},
        {plain, "--cut\r\n\r\n--cut" + std::string(90, ' ') + next, "--cut" + std::string(90, ' ')},
        // Streams that break off.
        {plain, "--cut\r\nContent-Length: 9\r\n\r\nPICTURE", "?PICTURE"},
        {plain, "--cut\r\n\r\nPICTURE\r\n--cut", "?PICTURE\r\n--cut"},
        {plain, "--cut\r\nContent-Type: image/jpeg\r\n", "?--cut\r\nContent-Type: image/jpeg\r\n"},
        {plain, "a picture after all", "?a picture after all"},
        {plain, "", "?"},
    };
    for (const auto& [content_type, body, part] : cases) {
        SCOPED_TRACE(::testing::Message() << content_type << ": " << body);
        FirstPart bytewise = FirstPart::of_answer(content_type).value();
        std::string last;
        for (std::size_t size = 0; size <= body.size(); ++size) {
            last = part_in(bytewise, std::string_view(body).substr(0, size));
            FirstPart in_two = FirstPart::of_answer(content_type).value();
            part_in(in_two, std::string_view(body).substr(0, size));
            EXPECT_EQ(part_in(in_two, body), part) << "cut at " << size;
        }
        EXPECT_EQ(last, part);
    }
}

TEST(FirstPart, EndsAtTheBoundaryWhereItsLengthIsUntrue) {
    const std::string parts =
        "\r\n\r\nPICTURE--cu\r\n--cut\r\nContent-Length: 4\r\n\r\nNEXT\r\n--cut\r\n";
    for (const std::string length : {"0", "2", "6", "8", "16", "40"}) {
        FirstPart reader = FirstPart::of_answer("multipart/x-mixed-replace; boundary=cut").value();
        std::string body = "--cut\r\nContent-Length: ";
        body.append(length).append(parts);
        EXPECT_EQ(part_in(reader, body), "PICTURE--cu") << length;
    }
}

TEST(FirstPart, IsLookedForInMultipartAnswersAlone) {
    for (const char* type :
         {"", "image/jpeg", "text/plain; boundary=a", "multipart", "amultipart/x"})
        EXPECT_FALSE(FirstPart::of_answer(type)) << type;
}

} // namespace
} // namespace lookfar
