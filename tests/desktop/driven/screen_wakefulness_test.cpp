#include "desktop/driven/driven_test.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>

namespace lookfar::driven {
namespace {

/// A service of the desktop that grants every wish to keep the screen awake.
class Desktop : public QDBusVirtualObject {
  public:
    Desktop(QString service, const QString& path, QVariant grant)
        : service_(std::move(service)), grant_(std::move(grant)) {
        QDBusConnection::sessionBus().registerVirtualObject(path, this, QDBusConnection::SubPath);
        appear();
    }
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;
    ~Desktop() override { vanish(); }

    void appear() { QDBusConnection::sessionBus().registerService(service_); }
    void vanish() { QDBusConnection::sessionBus().unregisterService(service_); }

    /// Each call: the last part of its path, what it calls, and the numbers that it hands over.
    Titles calls;

  private:
    QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        // A portal is asked for settings, too, by Qt itself.
        if (!QStringList{"Inhibit", "UnInhibit", "Close"}.contains(message.member()))
            return false;
        QString call = message.path().section('/', -1) + " " +
                       message.interface().remove("org.freedesktop.") + "." + message.member();
        for (const QVariant& argument : message.arguments())
            if (argument.typeId() == QMetaType::UInt)
                call += " " + argument.toString();
        calls.push_back(call.toStdString());
        return bus.send(message.createReply(grant_));
    }

    QString service_;
    QVariant grant_;
};

using Screen = DrivenTest;

TEST_F(Screen, IsKeptAwakeWhileTheFullscreenWindowIsUpAndNeverLonger) {
    const auto saver = "org.freedesktop.ScreenSaver";
    const auto portal = "org.freedesktop.portal.Desktop";
    const QDBusObjectPath request("/org/freedesktop/portal/desktop/request/1_1/camera");
    const struct {
        const char *service, *path;
        QVariant grant;
        std::string asks, gives_back;
    } cases[] = {
        {saver, "/org/freedesktop/ScreenSaver", 7U, "ScreenSaver ScreenSaver.Inhibit",
         "ScreenSaver ScreenSaver.UnInhibit 7"},
        {portal, "/org/freedesktop/portal/desktop", QVariant::fromValue(request),
         "desktop portal.Inhibit.Inhibit 8", "camera portal.Request.Close"},
    };
    for (const auto& [service, path, grant, asks, gives_back] : cases) {
        SCOPED_TRACE(service);
        Desktop desktop(service, path, grant);
        const Titles calls{asks, gives_back, asks, asks, gives_back};
        const auto comes_to_hear = [&](int count) {
            const Titles expected(calls.begin(), calls.begin() + count);
            return comes_true([&] { return desktop.calls == expected; });
        };
        const auto is_granted = [&](int calls_by_then) {
            // To read the window takes many questions, which come to the program after the answer.
            return comes_to_hear(calls_by_then) &&
                   comes_to_read(title::fullscreen_window, "combo box 'Harbour'");
        };
        const auto open = [&](int calls_by_then) {
            hands.double_click(picture());
            ASSERT_TRUE(comes_up(title::fullscreen_window));
            EXPECT_TRUE(is_granted(calls_by_then));
        };
        start({"Harbour"});
        open(1);
        close_window();
        ASSERT_TRUE(comes_up(title::main_window));
        EXPECT_TRUE(comes_to_hear(2));
        open(3);
        desktop.vanish();
        desktop.appear();
        EXPECT_TRUE(is_granted(4)) << "The grant went with the service that gave it.";
        kill(static_cast<pid_t>(program.processId()), SIGTERM);
        expect_good_end();
        EXPECT_TRUE(comes_to_hear(5));
    }
}

} // namespace
} // namespace lookfar::driven
