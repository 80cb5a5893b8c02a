#include "transfers/complaint.h"

#include <gtest/gtest.h>
#include <utility>

namespace lookfar {
namespace {

Bytes bytes_of(std::string_view text) {
    return {text.begin(), text.end()};
}

TEST(Complaints, TellWhatTheCameraAnsweredInPlaceOfAPicture) {
    const std::string page = "The camera's answer is a web page, not a picture.";
    const Bytes other = bytes_of("other");
    const std::pair<Answer, std::string> cases[] = {
        {{.status = 302}, "The camera answered 302."},
        {{.status = 599, .media_type = "image/jpeg", .body = other}, "The camera answered 599."},
        {{.status = 407}, "The proxy asks for a user name and a password (407)."},
        {{.status = 206, .media_type = "application/xhtml+xml", .body = other}, page},
        {{.status = 200,
          .media_type = "image/jpeg",
          .body = bytes_of("\xEF\xBB\xBF\r\n<!DocType HTML>")},
         page},
        {{.status = 200, .body = bytes_of("<HTML lang=en>")}, page},
        {{.status = 200, .body = other}, "The camera's answer is not a picture."},
    };
    for (const auto& [answer, complaint] : cases)
        EXPECT_EQ(complaint_about(answer), complaint);
}

} // namespace
} // namespace lookfar
