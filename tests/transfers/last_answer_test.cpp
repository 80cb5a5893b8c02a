#include "transfers/last_answer.h"

#include "demo/locked_camera.h"
#include "transfers/transfers_fixture.h"

namespace lookfar {
namespace {

/// A camera whose picture changes only when it is told to.
class UnchangedPictures : public Transfers {
  protected:
    /// Installs the camera, which tells its validators in such headers.
    void install(const std::vector<demo::Header>& validators,
                 demo::Answer picture = {.body = "old"}) {
        picture.headers.insert(picture.headers.end(), validators.begin(), validators.end());
        server.answer("/camera", [picture](const demo::Request& request) -> demo::Reply {
            const bool is_asked =
                request.header("If-None-Match") || request.header("If-Modified-Since");
            return is_asked ? demo::Answer{.status = 304} : picture;
        });
    }

    /// What the host is asked by, in the last request.
    std::string conditions() const {
        const demo::Request request = server.last_request();
        return request.header("If-None-Match").value_or("-") + " " +
               request.header("If-Modified-Since").value_or("-");
    }
};

const demo::Header etag{"etag", R"("a b")"};
const demo::Header last_modified{"Last-Modified", "Sat, 02 Feb 2002 20:02:02 GMT"};

TEST_F(UnchangedPictures, AreConfirmedAndNotSentOrDecodedAgain) {
    server.answer("/redirected", demo::redirect_to("/camera"));
    const struct {
        std::vector<demo::Header> headers;
        std::string conditions;
        std::string path = "/camera";
        demo::Answer picture = {.body = "old"};
    } cases[] = {
        {{etag}, etag.value + " -"},
        {{etag, last_modified, {"Cache-Control", "no-cache"}}, etag.value + " -"},
        {{etag}, etag.value + " -", "/redirected"},
        {{last_modified}, "- -"},
        {{{"ETag", R"(W/"weak")"}, last_modified}, "- -"},
        {{{"ETag", R"("")"}}, "- -"},
        {{{"ETag", "bare"}}, "- -"},
        {{}, "- -"},
        {{etag, {"Cache-Control", "private, No-Store"}}, "- -"},
        {{{"ETag", '"' + std::string(600, 'a') + '"'}}, "- -"},
        {{etag}, "- -", "/camera", {.status = 404, .body = "old"}},
        {{etag},
         "- -",
         "/camera",
         {.content_type = "multipart/x-mixed-replace; boundary=a",
          .body = "--a\r\n\r\nold\r\n--a--"}},
    };
    for (const auto& [headers, expected, path, picture] : cases) {
        install(headers, picture);
        const std::string first = text_at(path);
        decodes = 0;
        for (int count = 0; count < 2; ++count) {
            EXPECT_EQ(text_at(path), first);
            EXPECT_EQ(conditions(), expected);
        }
        EXPECT_EQ(decodes, 0) << "decoded again";
        server.answer("/camera", always(200, "new"));
        server.answer("/elsewhere", always(200, "new"));
        for (const std::string& place : {path, std::string("/elsewhere")})
            EXPECT_EQ(text_at(place), "new");
        EXPECT_EQ(decodes, 1);
    }
}

TEST_F(UnchangedPictures, AreConfirmedBehindALockToo) {
    server.answer("/locked", demo::locked_by_basic({.body = "old", .headers = {etag}}));
    for (int count = 0; count < 2; ++count)
        EXPECT_EQ(text_from("http://guest:secret@" + host() + "/locked"), "old");
    EXPECT_EQ(conditions(), etag.value + " -");
}

TEST_F(UnchangedPictures, OfOneAddressSayNothingOfAnother) {
    const std::string unasked =
        "failure 304: The camera answered 304 Not Modified without having been asked.";
    server.answer("/always-304", always(304, ""));
    EXPECT_EQ(text_at("/always-304"), unasked);
    install({etag});
    text_at("/camera");
    EXPECT_EQ(text_at("/always-304"), unasked);
    text_at("/camera");
    EXPECT_EQ(conditions(), "\"a b\" -") << "the other camera sent nothing that could be kept";
    EXPECT_EQ(text_at("/camera?2"), "old");
    EXPECT_EQ(conditions(), "- -");
    text_at("/camera");
    EXPECT_EQ(conditions(), "- -") << "one picture is kept at most";
}

TEST_F(UnchangedPictures, AreKeptOnlyWhereTheyArePictures) {
    install({etag});
    decode = []() -> Pixels { throw Failure(FailureKind::invalid_picture, "cut short"); };
    for (int count = 0; count < 2; ++count)
        EXPECT_EQ(text_at("/camera"), "cut short");
    EXPECT_EQ(conditions(), "- -");
    EXPECT_EQ(decodes, 2);
}

} // namespace
} // namespace lookfar
