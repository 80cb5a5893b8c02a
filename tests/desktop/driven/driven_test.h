#pragma once

#include "desktop/driven/hands.h"
#include "desktop/driven/screen_reader.h"
#include "desktop/waiting.h"

#include "demo/camera_server.h"
#include "support/temporary_folder.h"

#include <QColor>
#include <QGuiApplication>
#include <QProcess>
#include <QProcessEnvironment>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <future>
#include <map>
#include <optional>
#include <set>
#include <stdexcept>

namespace lookfar::driven {

using desktop::comes_true;

/// The titles that the windows bear.
namespace title {
inline constexpr const char* splash_window = "Lookfar is starting";
inline constexpr const char* main_window = "Lookfar";
inline constexpr const char* fullscreen_window = "Lookfar Fullscreen Window";
inline constexpr const char* list_window = "Skyglass list";
inline constexpr const char* editor = "Skyglass";
inline constexpr const char* about_window = "About Lookfar 2.2.2002";
inline constexpr const char* removal_question = "Remove Skyglass";
} // namespace title

namespace colour {
inline constexpr QColor red(200, 40, 40);
inline constexpr QColor green(40, 160, 60);
inline constexpr QColor blue(40, 60, 200);
inline constexpr QColor black(0, 0, 0);
} // namespace colour

/// A camera that shows a picture of one colour.
demo::Responder showing(const QColor& colour);
/// A camera that keeps everybody waiting until it is let go, or until the promise is given up.
demo::Responder held_back(demo::Responder camera, std::promise<void>& let_go);

/// Whether two colours differ by no more than a JPEG makes them differ.
bool is_like(const QColor& one, const QColor& other);

/// The titles of cameras.
using Titles = std::vector<std::string>;

/// The real program, driven and watched from outside: through the windows, pixels and texts on the
/// screen, the files in its folder, the requests to its cameras and the status that it ends with.
/// There are three cameras, each of which shows its colour.
/// Whatever a test did, the program must end well when it is closed at the test's end. After a
/// failure the test tells what all of the windows read.
class DrivenTest : public ::testing::Test {
  protected:
    DrivenTest();
    void TearDown() override;

    /// Writes a list of cameras of `cameras`, where the path of each is its title behind a slash.
    void write_list(const Titles& titles) const;
    /// Starts the program in the current directory, by a shell's command in which "$0" is its name,
    /// and doesn't wait for anything.
    void launch(const std::string& command = "exec \"$0\"");
    /// Starts the program on a list of cameras and waits for its main window. Throws where
    /// that never comes.
    void start(const Titles& titles);
    bool has_ended() const { return program.state() == QProcess::NotRunning; }
    void expect_good_end();

    // What the user sees.

    std::optional<Element> active_window() const;
    std::vector<Element> windows() const { return reader.windows_of(program.processId()); }
    /// Everything that shows in the windows of that title.
    std::vector<Element> elements(const std::string& title) const;
    /// The first thing in the window whose description begins so, once it shows. Throws where it
    /// never does.
    Element find(const std::string& title, std::string_view beginning) const;
    QRect place(const std::string& title, std::string_view beginning) const {
        return find(title, beginning).place();
    }
    /// The middle of the camera's picture in the main window.
    QPoint picture() const { return place(title::main_window, "image 'Camera picture").center(); }
    std::string selected_camera() const { return find(title::main_window, "combo box").name(); }

    bool comes_up(const std::string& title) const;
    bool goes(const std::string& title) const;
    bool comes_to_read(const std::string& title, std::string_view beginning) const;
    bool stops_reading(const std::string& title, std::string_view beginning) const;
    bool comes_to_be(State state, const std::string& title, std::string_view beginning) const;
    bool stops_being(State state, const std::string& title, std::string_view beginning) const;

    // What the user does.

    void click(const std::string& title, std::string_view beginning);
    /// Replaces what stands in the text box of that name. Throws where that does not take it.
    void fill_in(const std::string& title, const std::string& box, const std::string& text);
    /// Asks for the main window's menu, which opens over the picture, in one way or another.
    void open_menu(const std::function<void()>& ask);
    /// Closes the window that has the keyboard by the window manager's key.
    void close_window();

    // The tests' own Qt application.
    int argument_count = 1;
    std::string own_name = "driven_test";
    std::array<char*, 2> arguments{own_name.data(), nullptr};
    QGuiApplication application{argument_count, arguments.data()};

    lookfar::testing::TemporaryFolder folder;
    const std::map<std::string, QColor> colour_of{
        {"Harbour", colour::red}, {"Quay", colour::green}, {"Tower", colour::blue}};
    std::optional<demo::CameraServer> cameras{std::in_place};
    ScreenReader reader;
    Hands hands;
    QProcess program;

  private:
    std::optional<Element> look_for(const std::string& title, std::string_view beginning) const;
    void tell_what_all_windows_read() const;
};

QRect whole_screen();
QColor colour_at(const QPoint& point);
bool comes_to_show(const QPoint& point, const QColor& colour);

} // namespace lookfar::driven
