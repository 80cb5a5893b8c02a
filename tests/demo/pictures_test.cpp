#include "demo/gif_writer.h"
#include "demo/hostile_pictures.h"
#include "demo/misbehaviour.h"
#include "demo/scenes.h"
#include "tests/demo/raw_client.h"

#include <QBuffer>
#include <QImageReader>
#include <gtest/gtest.h>

namespace lookfar::demo {
namespace {

TEST(GifWriter, KeepsPicturesOfFewColoursExactly) {
    const QImage many_colours = picture_of(paint_harbour, {17, 13}, {QDateTime(), 0});
    const QImage picture =
        many_colours.convertToFormat(QImage::Format_RGB444).convertToFormat(QImage::Format_RGB32);
    const QImage read_back = QImage::fromData(QByteArray::fromStdString(to_gif(picture)), "GIF");
    EXPECT_EQ(read_back.convertToFormat(QImage::Format_RGB32), picture);
}

TEST(HostilePictures, AreAsHostileAsTheyClaim) {
    QBuffer animation;
    animation.setData(QByteArray::fromStdString(long_animation().body));
    EXPECT_EQ(QImageReader(&animation).imageCount(), 10'000);
    EXPECT_GT(picture_with_large_metadata().body.size(), 10'000'000U);
    EXPECT_LT(pixel_bomb().body.size(), 100'000U);
    EXPECT_LT(deflate_bomb().body.size(), 200'000U);
    const QByteArray texts = QByteArray::fromStdString(text_bomb().body);
    EXPECT_EQ(texts.count("zTXtComment"), 65);
    EXPECT_LT(texts.size(), 1'000'000);
}

TEST(Misbehaviour, ClosesAConnectionThatItPromisesToKeep) {
    CameraServer server;
    install_misbehaviour(server);
    const std::string answer =
        RawClient(server.port(), "GET /broken-promise HTTP/1.1\r\n\r\n").receive();
    EXPECT_NE(answer.find("keep-alive"), std::string::npos);
    EXPECT_TRUE(answer.ends_with("\r\n\r\n" + small_picture().body));
}

} // namespace
} // namespace lookfar::demo
