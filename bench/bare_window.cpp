#include "resources/resources.h"

#include <QApplication>
#include <QGuiApplication>
#include <QLabel>
#include <QPixmap>
#include <QScreen>

/// The least that a program with a window can be: it shows the splash picture in the middle of the
/// screen, and nothing else. The measure of the program's start.
int main(int count, char** arguments) {
    const QApplication application(count, arguments);
    const auto file = lookfar::resources::splash();
    QPixmap picture;
    picture.loadFromData(file.data(), static_cast<unsigned>(file.size()));
    QLabel window(nullptr, Qt::FramelessWindowHint);
    window.setPixmap(picture);
    QRect place(QPoint(), picture.size());
    place.moveCenter(QGuiApplication::primaryScreen()->geometry().center());
    window.setGeometry(place);
    window.show();
    return QApplication::exec();
}
