#include "desktop/driven/driven_test.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>

namespace lookfar::driven {
namespace {

using Start = DrivenTest;
using End = DrivenTest;

TEST_F(Start, ShowsTheSplashWindowUntilTheFirstPictureIsThere) {
    std::promise<void> let_go;
    cameras->answer("/Harbour", held_back(showing(colour::red), let_go));
    write_list({"Harbour"});
    launch();
    EXPECT_TRUE(comes_to_read(title::splash_window, "label 'Loading..."));
    EXPECT_TRUE(comes_to_read(title::splash_window, "label 'ding...")) << "the text runs";
    const QRect splash = place(title::splash_window, "frame");
    EXPECT_EQ(splash.size(), QSize(320, 240));
    const QPoint off_centre = splash.center() - whole_screen().center();
    EXPECT_LE(off_centre.manhattanLength(), 2);
    EXPECT_TRUE(comes_to_read(title::splash_window, "image 'Lookfar'"));
    EXPECT_EQ(elements(title::splash_window).size(), 3U) << "window, text and picture";
    ASSERT_TRUE(comes_true([this] { return cameras->requests() == 1; }));
    EXPECT_EQ(windows().size(), 1U);

    let_go.set_value();
    ASSERT_TRUE(comes_up(title::main_window));
    EXPECT_EQ(windows().size(), 1U) << "the splash window is gone";
    EXPECT_TRUE(comes_to_show(picture(), colour::red));
    EXPECT_TRUE(comes_to_read(title::main_window, "status bar 'Screenshot taken: "));
    EXPECT_TRUE(comes_to_read(title::main_window, "combo box 'Harbour"));
    EXPECT_LT(place(title::main_window, "frame").topLeft().manhattanLength(), 50)
        << "the frame is in the corner of the screen";
}

TEST_F(Start, LivesWithStandardStreamsThatAreClosedAndWritesThatFail) {
    write_list({"Harbour"});
    launch("exec \"$0\" <&- >&- 2>&-");
    ASSERT_TRUE(comes_up(title::main_window));
    for (const int stream : {0, 1, 2})
        EXPECT_EQ(std::filesystem::read_symlink("/proc/" + std::to_string(program.processId()) +
                                                "/fd/" + std::to_string(stream)),
                  "/dev/null");
    for (const int signal : {SIGPIPE, SIGXFSZ})
        ::kill(static_cast<pid_t>(program.processId()), signal);
    click(title::main_window, "push button 'Reload'");
    EXPECT_TRUE(comes_true([this] { return cameras->requests() == 2; }));
}

/// The session's bus, which takes connections and says nothing as long as this lives.
struct SilentBus {
    SilentBus() { ::kill(process, SIGSTOP); }
    SilentBus(const SilentBus&) = delete;
    SilentBus& operator=(const SilentBus&) = delete;
    ~SilentBus() { ::kill(process, SIGCONT); }

    const pid_t process = static_cast<pid_t>(
        QDBusConnection::sessionBus().interface()->servicePid("org.freedesktop.DBus").value());
};

TEST_F(Start, WaitsForNoBusAndTellsAssistiveTechnologyOnceItIsThere) {
    {
        const SilentBus bus;
        start({"Harbour"});
        ::kill(static_cast<pid_t>(program.processId()), SIGTERM);
        expect_good_end();
        // Now nothing but the session's bus knows where that of assistive technology is.
        ASSERT_EQ(std::system("xprop -root -remove AT_SPI_BUS"), 0);
        lookfar::testing::write_file("xdg-open", "#!/bin/sh\n"
                                                 "printf %s \"$DBUS_SESSION_BUS_ADDRESS\" >bus\n");
        std::filesystem::permissions("xdg-open", std::filesystem::perms::owner_all);
        launch("PATH=$PWD:$PATH exec \"$0\"");
        EXPECT_TRUE(comes_true(
            [] { return std::system("xprop -name Lookfar WM_STATE >/dev/null 2>&1") == 0; }));
        EXPECT_TRUE(windows().empty());
    }
    EXPECT_TRUE(comes_up(title::main_window));
    EXPECT_TRUE(comes_to_read(title::main_window, "combo box 'Harbour"));
    open_menu([this] { hands.click(picture(), MouseButton::right); });
    hands.type("a");
    ASSERT_TRUE(comes_up(title::about_window));
    click(title::about_window, "link '" LOOKFAR_HOMEPAGE "'");
    const std::string session_bus = qgetenv("DBUS_SESSION_BUS_ADDRESS").toStdString();
    EXPECT_TRUE(comes_true([&] { return lookfar::testing::content_of("bus") == session_bus; }))
        << "what the program opens for its user finds the bus";
}

TEST_F(End, ComesInGoodOrderWhenASignalAsksForIt) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        // Where the tests run in the background, they and the program may ignore it.
        std::signal(signal, SIG_DFL);
        start({"Harbour"});
        EXPECT_TRUE(lookfar::testing::exists("data.dat"));
        kill(static_cast<pid_t>(program.processId()), signal);
        expect_good_end();
    }
}

TEST_F(End, SaysThatThereIsNoDisplay) {
    auto variables = QProcessEnvironment::systemEnvironment();
    variables.remove("DISPLAY");
    variables.remove("WAYLAND_DISPLAY");
    QProcess blind;
    blind.setProcessEnvironment(variables);
    blind.start(LOOKFAR_PROGRAM, {});
    ASSERT_TRUE(blind.waitForFinished());
    EXPECT_EQ(blind.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(blind.exitCode(), 1);
    EXPECT_TRUE(blind.readAllStandardError().startsWith("lookfar: There is no display"));
}

} // namespace
} // namespace lookfar::driven
