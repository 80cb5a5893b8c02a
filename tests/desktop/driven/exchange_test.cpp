#include "desktop/driven/driven_test.h"

#include <QClipboard>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QRasterWindow>
#include <QUrl>

#include <csignal>
#include <variant>

namespace lookfar::driven {
namespace {

/// A window of another program, beside the main window, which takes whatever is dropped on it.
class Neighbour : public QRasterWindow {
  public:
    Neighbour() {
        setFlags(Qt::BypassWindowManagerHint);
        setGeometry(700, 100, 200, 200);
        show();
    }

    bool is_entered = false;
    QImage image;
    QString file;
    QByteArray bytes;

  private:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove) {
            auto& drag = *static_cast<QDragMoveEvent*>(event);
            is_entered = !drag.source();
            drag.setAccepted(is_entered);
        } else if (event->type() == QEvent::Drop) {
            take(*static_cast<QDropEvent*>(event));
        }
        return QRasterWindow::event(event);
    }

    void take(QDropEvent& drop) {
        image = drop.mimeData()->imageData().value<QImage>();
        QFile dropped(drop.mimeData()->urls().value(0).toLocalFile());
        dropped.open(QIODevice::ReadOnly);
        bytes = dropped.readAll();
        file = dropped.fileName();
        drop.acceptProposedAction();
    }
};

class Exchange : public DrivenTest {
  protected:
    /// Takes the picture over the neighbour, and holds it there.
    void drag_picture_to(const Neighbour& neighbour) {
        ASSERT_TRUE(comes_to_show(picture(), colour::red));
        hands.take(picture());
        EXPECT_TRUE(comes_true([&, step = 0]() mutable {
            hands.point_at(neighbour.geometry().center() + QPoint(++step % 50, 0));
            return neighbour.is_entered;
        }));
    }
};

TEST_F(Exchange, CopiesThePictureByTheKey) {
    QClipboard& clipboard = *QGuiApplication::clipboard();
    start({"Harbour"});
    ASSERT_TRUE(comes_to_show(picture(), colour::red));
    hands.press(Key::c, Key::control);
    EXPECT_TRUE(comes_true([&] { return clipboard.mimeData()->hasFormat("image/png"); }));
    const auto copy = QImage::fromData(clipboard.mimeData()->data("image/png"), "png");
    EXPECT_EQ(copy.size(), QSize(320, 240));
    EXPECT_TRUE(is_like(copy.pixelColor(160, 120), colour::red));
}

TEST_F(Exchange, GivesThePictureToWhoeverItIsDraggedTo) {
    start({"Harbour"});
    Neighbour neighbour;
    drag_picture_to(neighbour);
    hands.let_go();
    EXPECT_TRUE(comes_true([&] { return !neighbour.file.isEmpty(); }));
    EXPECT_TRUE(neighbour.file.contains("/Harbour 20") && neighbour.file.endsWith(".jpg"));
    EXPECT_EQ(neighbour.bytes.toStdString(), std::get<demo::Answer>(showing(colour::red)({})).body);
    EXPECT_TRUE(is_like(neighbour.image.pixelColor(160, 120), colour::red));
    EXPECT_TRUE(QFile::exists(neighbour.file));
    kill(static_cast<pid_t>(program.processId()), SIGTERM);
    expect_good_end();
    EXPECT_FALSE(QFile::exists(neighbour.file));
}

TEST_F(Exchange, EndsInTheMidstOfADrag) {
    start({"Harbour"});
    Neighbour neighbour;
    drag_picture_to(neighbour);
    kill(static_cast<pid_t>(program.processId()), SIGTERM);
    expect_good_end();
    hands.let_go();
}

} // namespace
} // namespace lookfar::driven
