#pragma once

#include "desktop/driven/hands.h"
#include "desktop/driven/running_program.h"
#include "desktop/driven/screen.h"
#include "desktop/driven/screen_reader.h"
#include "desktop/driven/waiting.h"

#include "demo/camera_server.h"
#include "support/temporary_folder.h"

#include <QColor>

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace lookfar::driven {

/// The titles that the windows bear.
namespace title {
inline constexpr const char* splash_window = "Lookfar is starting";
inline constexpr const char* main_window = "Lookfar";
inline constexpr const char* fullscreen_window = "Lookfar Fullscreen Window";
inline constexpr const char* list_window = "Skyglass list";
inline constexpr const char* editor = "Skyglass";
inline constexpr const char* about_window = "About Lookfar 2.2.2002";
inline constexpr const char* removal_question = "Remove Skyglass";
inline constexpr const char* overwrite_question = "Lookfar";
} // namespace title

/// The roles of things, as the accessibility bus words them.
namespace role {
inline constexpr const char* any = "";
inline constexpr const char* window = "frame";
inline constexpr const char* button = "push button";
inline constexpr const char* check_box = "check box";
inline constexpr const char* selector = "combo box";
inline constexpr const char* entry = "text";
inline constexpr const char* label = "label";
inline constexpr const char* list_item = "list item";
inline constexpr const char* picture = "image";
inline constexpr const char* link = "link";
} // namespace role

namespace colour {
inline constexpr QColor red(200, 40, 40);
inline constexpr QColor green(40, 160, 60);
inline constexpr QColor blue(40, 60, 200);
inline constexpr QColor black(0, 0, 0);
} // namespace colour

/// A picture of one colour.
demo::Answer plain_picture(const QColor& colour);
demo::Responder showing(const QColor& colour);

/// Whether two colours differ by no more than a JPEG makes them differ.
bool is_like(const QColor& one, const QColor& other);

/// The titles of cameras.
using Titles = std::vector<std::string>;

/// The real program, driven and watched from outside: through the windows, pixels and texts on the
/// screen, the files in its folder, the requests to its cameras and the status that it ends with.
/// Whatever a test did, the program must end well when it is closed at the test's end.
class DrivenTest : public ::testing::Test {
  protected:
    void TearDown() override;

    /// Writes a list of cameras of `cameras`, where the path of each is its title behind a slash.
    void write_list(const Titles& titles) const;
    /// Starts the program and doesn't wait for anything.
    void launch(const QProcessEnvironment& variables = {});
    /// Starts the program on a list of cameras and waits for its main window. Throws where
    /// that never comes.
    void start(const Titles& titles);

    // What the user sees.

    std::optional<ScreenWindow> window(const std::string& title) const;
    /// The first thing of that role in the window whose name or text begins so, once it shows.
    /// Throws where it never does.
    Element find(const std::string& title, std::string_view role, std::string_view beginning) const;
    /// What has the keyboard in the window.
    std::optional<Element> focused(const std::string& title) const;
    /// The middle of the camera's picture.
    QPoint picture(const std::string& title) const;

    ::testing::AssertionResult comes_up(const std::string& title) const;
    ::testing::AssertionResult goes(const std::string& title) const;
    ::testing::AssertionResult comes_to_read(const std::string& title, std::string_view role,
                                             std::string_view beginning) const;
    ::testing::AssertionResult stops_reading(const std::string& title, std::string_view role,
                                             std::string_view beginning) const;
    ::testing::AssertionResult comes_to_show(const QPoint& point, const QColor& colour) const;

    // What the user does.

    void click(const std::string& title, std::string_view role, std::string_view beginning);
    /// Replaces what stands in a text box. Throws where that does not take it.
    void fill_in(const std::string& title, std::string_view name, const QString& text);
    void close(const std::string& title);

    ::testing::AssertionResult ends_with_status_0();

    lookfar::testing::TemporaryFolder folder;
    std::optional<demo::CameraServer> cameras{std::in_place};
    XConnection x;
    Screen screen{x};
    ScreenReader reader;
    Hands hands{x, QStringLiteral("äöüß")};
    std::optional<RunningProgram> program;

  private:
    std::vector<Element> windows_titled(const std::string& title) const;
    std::optional<Element> look_for(const std::string& title, std::string_view role,
                                    std::string_view beginning) const;
    std::string all_that_reads(const std::string& title) const;
    void close_frontmost_window();
};

} // namespace lookfar::driven
