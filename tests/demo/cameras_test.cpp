#include "demo/cameras.h"

#include "tests/demo/raw_client.h"

#include <gtest/gtest.h>
#include <set>

namespace lookfar::demo {
namespace {

Moment moment_at(int hour, unsigned frame) {
    return {QDateTime(QDate(2001, 6, 21), QTime(hour, 0)), frame};
}

double brightness(const QImage& picture) {
    return picture.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .pixelColor(0, 0)
        .lightnessF();
}

TEST(Scenes, FollowTheMomentInAnySize) {
    for (const Scene scene : {paint_harbour, paint_lighthouse, paint_mountain}) {
        for (const QSize size : {QSize(1, 1), QSize(900, 20), QSize(20, 900), QSize(320, 240)})
            for (int hour = 0; hour < 24; ++hour)
                EXPECT_EQ(picture_of(scene, size, moment_at(hour, 4'000'000'000U)).size(), size);
        const auto shown = [&](int hour, unsigned frame) {
            return picture_of(scene, {320, 240}, moment_at(hour, frame));
        };
        EXPECT_NE(shown(12, 4), shown(12, 5));
        EXPECT_GT(brightness(shown(12, 4)), brightness(shown(20, 4)) + 0.1);
        EXPECT_GT(brightness(shown(20, 4)), brightness(shown(0, 4)) + 0.1);
    }
}

TEST(Cameras, SendPicturesOfTheirSizeAndFormat) {
    for (const Camera& camera : cameras()) {
        const Answer answer = take_picture(camera, moment_at(15, 1));
        const bool is_gif = camera.path.ends_with(".gif");
        EXPECT_TRUE(answer.body.starts_with(is_gif ? "GIF8" : "\xFF\xD8")) << camera.path;
        EXPECT_EQ(QImage::fromData(QByteArray::fromStdString(answer.body)).size(), camera.size);
    }
}

TEST(Cameras, ShowTheNextFrameAndFailWhereTheyShould) {
    CameraServer server;
    install_cameras(server);
    std::string outcomes;
    std::set<std::string> bodies;
    for (int request = 0; request < 6; ++request) {
        const std::string answer = get(server.port(), "/pier.jpg");
        outcomes += answer.empty() ? "cut " : answer.substr(9, 4);
        bodies.insert(answer);
    }
    EXPECT_EQ(outcomes, "200 200 503 200 200 cut ");
    EXPECT_EQ(bodies.size(), 6U);
}

} // namespace
} // namespace lookfar::demo
