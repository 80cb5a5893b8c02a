// Draws the pictures that the program and its menu entry have: lookfar-draw-resources FOLDER
// It is run by hand when a drawing changes. The folder is that of this file, where the pictures are
// kept.

#include "resources/drawing/emblem.h"
#include "resources/drawing/splash.h"
#include "resources/drawing/test_card.h"

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QStringList>
#include <QSvgGenerator>

#include <exception>
#include <iostream>
#include <stdexcept>
#include <string>

namespace lookfar::resources {

namespace {

constexpr int icon_sizes[] = {LOOKFAR_ICON_SIZES};
constexpr QRect scalable_icon_square(0, 0, 256, 256);

QImage draw_icon(int pixels) {
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    draw_emblem(painter, image.rect());
    return image;
}

void write_png(const QImage& image, const QString& path) {
    QImageWriter writer(path, "png");
    if (!writer.write(image))
        throw std::runtime_error(path.toStdString() + ": " + writer.errorString().toStdString());
}

void write_scalable_icon(const QString& path) {
    QSvgGenerator generator;
    generator.setFileName(path);
    generator.setTitle("Lookfar");
    generator.setDescription("A lens that holds a far coast");
    generator.setSize(scalable_icon_square.size());
    generator.setViewBox(scalable_icon_square);
    QPainter painter;
    if (!painter.begin(&generator))
        throw std::runtime_error(path.toStdString() + ": cannot be written");
    draw_emblem(painter, scalable_icon_square);
}

void draw_all(const QDir& folder) {
    for (const int pixels : icon_sizes)
        write_png(draw_icon(pixels), folder.filePath(QString("icon-%1.png").arg(pixels)));
    write_scalable_icon(folder.filePath("icon.svg"));
    write_png(draw_test_card(), folder.filePath("test-card.png"));
    write_png(draw_splash(), folder.filePath("splash.png"));
}

} // namespace

} // namespace lookfar::resources

int main(int argument_count, char** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argument_count, arguments);
    const QStringList words = QGuiApplication::arguments();
    if (words.size() != 2) {
        std::cerr << "Usage: lookfar-draw-resources FOLDER\n";
        return 2;
    }
    try {
        lookfar::resources::draw_all(QDir(words.at(1)));
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
}
