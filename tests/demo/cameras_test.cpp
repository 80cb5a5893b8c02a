#include "demo/cameras.h"

#include "tests/demo/raw_client.h"

#include <QDateTime>
#include <QImage>
#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace lookfar::demo {
namespace {

constexpr std::array scenes{draw_harbour,    draw_tower,   draw_mountain, draw_street,
                            draw_lighthouse, draw_airport, draw_bridge};

Moment moment_at(int hour, unsigned frame) {
    return {QDateTime(QDate(2001, 6, 21), QTime(hour, 0)), frame};
}

double brightness(const QImage& picture) {
    return picture.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .pixelColor(0, 0)
        .lightnessF();
}

double share_of_changed_pixels(const QImage& before, const QImage& after) {
    int changed = 0;
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x) {
            changed += before.pixel(x, y) != after.pixel(x, y) ? 1 : 0;
        }
    }
    return static_cast<double>(changed) / (before.width() * before.height());
}

QImage decoded(const std::string& bytes) {
    return QImage::fromData(reinterpret_cast<const uchar*>(bytes.data()),
                            static_cast<int>(bytes.size()));
}

TEST(Scenes, FollowTheMomentAndNothingElse) {
    for (const Scene scene : scenes) {
        const QSize size(320, 240);
        const QImage noon = scene(size, moment_at(12, 4));
        EXPECT_EQ(noon.size(), size);
        EXPECT_EQ(noon, scene(size, moment_at(12, 4)));
        EXPECT_GT(share_of_changed_pixels(noon, scene(size, moment_at(12, 5))), 0.01);
        EXPECT_GT(brightness(noon), brightness(scene(size, moment_at(20, 4))) + 0.1);
        EXPECT_GT(brightness(noon), brightness(scene(size, moment_at(0, 4))) + 0.2);
    }
}

TEST(Scenes, FitAnySizeAndHour) {
    constexpr std::array sizes{QSize(1, 1), QSize(900, 20), QSize(20, 900), QSize(64, 48)};
    for (const Scene scene : scenes) {
        for (const QSize size : sizes) {
            for (int hour = 0; hour < 24; hour += 3) {
                EXPECT_EQ(scene(size, moment_at(hour, 4'000'000'000U)).size(), size);
            }
        }
    }
}

TEST(Cameras, SendPicturesOfTheirSizeAndFormat) {
    for (const Camera& camera : cameras()) {
        const Answer answer = take_picture(camera, moment_at(15, 1));
        const bool is_gif = camera.format == PictureFormat::gif;
        EXPECT_TRUE(answer.body.starts_with(is_gif ? "GIF8" : "\xFF\xD8")) << camera.path;
        EXPECT_EQ(answer.content_type, is_gif ? "image/gif" : "image/jpeg") << camera.path;
        EXPECT_EQ(camera.path.find(".gif") != std::string_view::npos, is_gif) << camera.path;
        EXPECT_EQ(decoded(answer.body).size(), camera.size) << camera.path;
    }
}

TEST(Cameras, ListATitleAndAUrlEach) {
    const CameraServer server;
    const std::string list = camera_list(server);
    const std::string first = "Eiffeltower\r\n" + server.url("/eiffel1.jpg") + "\r\n";
    EXPECT_EQ(list.substr(0, first.size()), first);
    EXPECT_EQ(std::ranges::count(list, '\n'), std::ssize(cameras()) * 2);
    EXPECT_EQ(std::ranges::count(list, '\r'), std::ssize(cameras()) * 2);
}

TEST(Cameras, ShowTheNextFrameToEachOfManyClients) {
    CameraServer server;
    install_cameras(server);
    std::array<std::string, 4> pictures;
    {
        std::vector<std::jthread> clients;
        clients.reserve(pictures.size());
        for (std::string& picture : pictures) {
            clients.emplace_back(
                [&] { picture = body_of(get_once(server.port(), "/eiffel1.jpg?1")); });
        }
    }
    EXPECT_EQ(std::set(pictures.begin(), pictures.end()).size(), pictures.size());
    for (const std::string& picture : pictures) {
        EXPECT_EQ(decoded(picture).size(), QSize(640, 480));
    }
}

TEST(Cameras, FailEveryThirdTimeWhereTheyShould) {
    CameraServer server;
    install_cameras(server);
    std::string outcomes;
    for (int request = 0; request < 12; ++request) {
        const std::string answer = get_once(server.port(), "/pier.jpg");
        outcomes += answer.empty() ? "cut " : answer.substr(9, 4);
    }
    EXPECT_EQ(outcomes, "200 200 503 200 200 cut 200 200 503 200 200 cut ");
}

} // namespace
} // namespace lookfar::demo
