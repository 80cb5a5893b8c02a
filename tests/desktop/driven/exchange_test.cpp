#include "desktop/driven/driven_test.h"

#include <QClipboard>
#include <QDrag>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QRasterWindow>
#include <QTimer>
#include <QUrl>

#include <variant>

namespace lookfar::driven {
namespace {

/// A window of another program, beside the main window: it takes whatever is dropped on it, and
/// gives a link to whoever drags from it.
class Neighbour : public QRasterWindow {
  public:
    explicit Neighbour(Hands& hands) : hands_(hands) {
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

    void mousePressEvent(QMouseEvent* /*event*/) override {
        auto data = std::make_unique<QMimeData>();
        data->setData("_NETSCAPE_URL", "http://a.example/pier.jpg\nThe Pier");
        QDrag drag(this);
        drag.setMimeData(data.release());
        QTimer mover;
        mover.callOnTimeout([this, x = 0]() mutable { hands_.point_at({50 + ++x % 150, 100}); });
        mover.start(std::chrono::milliseconds(50));
        connect(&drag, &QDrag::actionChanged, this, [this, &mover] {
            mover.stop();
            hands_.let_go();
        });
        drag.exec(Qt::CopyAction | Qt::LinkAction);
    }

    Hands& hands_;
};

/// An address on the clipboard that can tell when it was asked for.
class Address : public QMimeData {
  public:
    Address() { setText("http://a.example/pier.jpg\n"); }

    mutable bool was_given = false;

  protected:
    QVariant retrieveData(const QString& format, QMetaType type) const override {
        was_given = true;
        return QMimeData::retrieveData(format, type);
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

TEST_F(Exchange, CopiesThePictureByTheKeyAndTakesAnAddressThatIsPasted) {
    QClipboard& clipboard = *QGuiApplication::clipboard();
    start({"Harbour"});
    ASSERT_TRUE(comes_to_show(picture(), colour::red));
    auto address = std::make_unique<Address>();
    const bool& was_given = address->was_given;
    clipboard.setMimeData(address.release());
    hands.press(Key::v, Key::control);
    // A screen reader's questions would keep the program from the answer.
    ASSERT_TRUE(comes_true([&] { return was_given; }));
    ASSERT_TRUE(comes_up(title::editor));
    EXPECT_TRUE(comes_to_be(State::focused, title::editor, "text 'Title'"));
    EXPECT_TRUE(comes_to_read(title::editor, "text 'URL' holding 'http://a.example/pier.jpg'"));
    click(title::editor, "push button 'Cancel'");
    EXPECT_TRUE(goes(title::editor));

    fill_in(title::main_window, "Seconds until Refresh", "60");
    const auto before = cameras->requests();
    const QPoint middle = picture();
    // A drag that is over before the program hears of it is none, and keeps nothing from the keys.
    ::kill(static_cast<pid_t>(program.processId()), SIGSTOP);
    hands.take(middle);
    hands.point_at(middle + QPoint(40, 0));
    hands.let_go();
    ::kill(static_cast<pid_t>(program.processId()), SIGCONT);
    hands.press(Key::f5);
    hands.press(Key::c, Key::control);
    EXPECT_TRUE(comes_true([&] { return cameras->requests() > before; }));
    EXPECT_TRUE(comes_true([&] { return clipboard.mimeData()->hasFormat("image/png"); }));
    const auto copy = QImage::fromData(clipboard.mimeData()->data("image/png"), "png");
    EXPECT_EQ(copy.size(), QSize(320, 240));
    EXPECT_TRUE(is_like(copy.pixelColor(160, 120), colour::red));
}

TEST_F(Exchange, GivesThePictureToWhoeverItIsDraggedTo) {
    start({"Harbour"});
    Neighbour neighbour(hands);
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
    Neighbour neighbour(hands);
    drag_picture_to(neighbour);
    kill(static_cast<pid_t>(program.processId()), SIGTERM);
    expect_good_end();
    hands.let_go();
}

TEST_F(Exchange, OpensTheEditorOnALinkThatIsDropped) {
    start({"Harbour"});
    Neighbour neighbour(hands);
    hands.take(neighbour.geometry().center());
    ASSERT_TRUE(comes_up(title::editor));
    EXPECT_TRUE(comes_to_read(title::editor, "text 'Title' holding 'The Pier'"));
    EXPECT_TRUE(comes_to_read(title::editor, "text 'URL' holding 'http://a.example/pier.jpg'"));
    click(title::editor, "push button 'Cancel'");
    EXPECT_TRUE(goes(title::editor));
}

} // namespace
} // namespace lookfar::driven
