#include "desktop/driven/driven_test.h"

#include "demo/picture_answer.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

namespace lookfar::driven {

using ::testing::AssertionFailure;
using ::testing::AssertionResult;
using ::testing::AssertionSuccess;

demo::Answer plain_picture(const QColor& colour) {
    QImage picture(320, 240, QImage::Format_RGB32);
    picture.fill(colour);
    return demo::picture_answer(picture, demo::PictureFormat::jpeg);
}

demo::Responder showing(const QColor& colour) {
    return [answer = plain_picture(colour)](const demo::Request&) { return answer; };
}

bool is_like(const QColor& one, const QColor& other) {
    constexpr int most = 8;
    return std::abs(one.red() - other.red()) <= most &&
           std::abs(one.green() - other.green()) <= most &&
           std::abs(one.blue() - other.blue()) <= most;
}

void DrivenTest::TearDown() {
    if (!program || HasFailure())
        return;
    EXPECT_TRUE(comes_true([this] {
        if (!program->has_ended())
            close_frontmost_window();
        return program->has_ended();
    }));
    EXPECT_TRUE(ends_with_status_0());
    EXPECT_FALSE(lookfar::testing::exists("data.dat"));
}

void DrivenTest::write_list(const Titles& titles) const {
    std::string list;
    for (const std::string& title : titles)
        list += title + "\r\n" + cameras->url("/" + title) + "\r\n";
    lookfar::testing::write_file("Cams.inf", list);
}

void DrivenTest::launch(const QProcessEnvironment& variables) {
    program.emplace(variables);
}

void DrivenTest::start(const Titles& titles) {
    write_list(titles);
    launch();
    if (const AssertionResult is_up = comes_up(title::main_window); !is_up)
        throw std::runtime_error(is_up.message());
}

std::optional<ScreenWindow> DrivenTest::window(const std::string& title) const {
    const auto all = screen.windows_of(program->process());
    const auto found = std::ranges::find(all, title, &ScreenWindow::title);
    return found == all.end() ? std::nullopt : std::optional(*found);
}

std::vector<Element> DrivenTest::windows_titled(const std::string& title) const {
    std::vector<Element> found = reader.windows_of(program->process());
    std::erase_if(found, [&](const Element& window) { return window.name() != title; });
    return found;
}

std::optional<Element> DrivenTest::look_for(const std::string& title, std::string_view role,
                                            std::string_view beginning) const {
    for (const Element& candidate : windows_titled(title))
        if (auto found = candidate.find(role, beginning))
            return found;
    return std::nullopt;
}

std::string DrivenTest::all_that_reads(const std::string& title) const {
    std::string all = "The window '" + title + "' reads:\n";
    for (const Element& candidate : windows_titled(title))
        for (const Element& element : candidate.all_showing())
            all += element.role() + " '" + element.name() + "' '" + element.text() + "'\n";
    return all;
}

Element DrivenTest::find(const std::string& title, std::string_view role,
                         std::string_view beginning) const {
    std::optional<Element> found;
    comes_true([&] { return (found = look_for(title, role, beginning)).has_value(); });
    if (!found)
        throw std::runtime_error("There is no " + std::string(role) + " '" +
                                 std::string(beginning) + "'. " + all_that_reads(title));
    return *found;
}

std::optional<Element> DrivenTest::focused(const std::string& title) const {
    for (const Element& candidate : windows_titled(title))
        for (const Element& element : candidate.all_showing())
            if (element.is_focused())
                return element;
    return std::nullopt;
}

QPoint DrivenTest::picture(const std::string& title) const {
    return find(title, role::picture, "Camera picture").place().center();
}

AssertionResult DrivenTest::comes_up(const std::string& title) const {
    const bool is_up = comes_true([&] {
        const auto found = window(title);
        const auto read = look_for(title, role::window, title);
        return found && read && screen.active_window() == found->id &&
               read->place() == found->place;
    });
    return is_up ? AssertionSuccess() : AssertionFailure() << "No window '" << title << "' came.";
}

AssertionResult DrivenTest::goes(const std::string& title) const {
    return comes_true([&] { return !window(title); })
               ? AssertionSuccess()
               : AssertionFailure() << "The window '" << title << "' stayed.";
}

AssertionResult DrivenTest::comes_to_read(const std::string& title, std::string_view role,
                                          std::string_view beginning) const {
    return comes_true([&] { return look_for(title, role, beginning).has_value(); })
               ? AssertionSuccess()
               : AssertionFailure() << all_that_reads(title);
}

AssertionResult DrivenTest::stops_reading(const std::string& title, std::string_view role,
                                          std::string_view beginning) const {
    return comes_true([&] { return !look_for(title, role, beginning); })
               ? AssertionSuccess()
               : AssertionFailure() << all_that_reads(title);
}

AssertionResult DrivenTest::comes_to_show(const QPoint& point, const QColor& colour) const {
    return comes_true([&] { return is_like(screen.colour_at(point), colour); })
               ? AssertionSuccess()
               : AssertionFailure()
                     << "The screen shows " << screen.colour_at(point).name().toStdString()
                     << " at " << point.x() << ", " << point.y();
}

void DrivenTest::click(const std::string& title, std::string_view role,
                       std::string_view beginning) {
    hands.click(find(title, role, beginning).place().center());
}

void DrivenTest::fill_in(const std::string& title, std::string_view name, const QString& text) {
    const Element entry = find(title, role::entry, name);
    // Arrows may lie over the left half.
    const QRect place = entry.place();
    hands.click({place.center().x() + place.width() / 4, place.center().y()});
    if (!comes_true([&] { return entry.is_focused(); }))
        throw std::runtime_error("The text box does not get the keyboard.");
    hands.press(Key::home);
    hands.press_with_shift(Key::end);
    hands.type(text);
    if (!comes_true([&] { return entry.text() == text.toStdString(); }))
        throw std::runtime_error("The text box does not take what is typed.");
}

void DrivenTest::close(const std::string& title) {
    const auto found = window(title);
    if (!found)
        throw std::runtime_error("There is no window '" + title + "' to close.");
    screen.ask_to_close(*found);
}

void DrivenTest::close_frontmost_window() {
    const auto all = screen.windows_of(program->process());
    if (!all.empty())
        screen.ask_to_close(all.back());
}

AssertionResult DrivenTest::ends_with_status_0() {
    if (!comes_true([this] { return program->has_ended(); }))
        return AssertionFailure() << "The program still runs.";
    const auto status = program->exit_status();
    if (!status)
        return AssertionFailure() << "The program ended by a signal.";
    return *status == 0 ? AssertionSuccess()
                        : AssertionFailure() << "The program ended with status " << *status;
}

} // namespace lookfar::driven
