#include "desktop/driven/driven_test.h"

#include "demo/picture_answer.h"

#include <QPixmap>
#include <QScreen>

namespace lookfar::driven {

demo::Responder showing(const QColor& colour) {
    QImage picture(320, 240, QImage::Format_RGB32);
    picture.fill(colour);
    return [answer = demo::picture_answer(picture, demo::PictureFormat::jpeg)](
               const demo::Request&) { return answer; };
}

demo::Responder held_back(demo::Responder camera, std::promise<void>& let_go) {
    return [camera = std::move(camera),
            is_let_go = let_go.get_future().share()](const demo::Request& request) {
        is_let_go.wait();
        return camera(request);
    };
}

bool is_like(const QColor& one, const QColor& other) {
    constexpr int most = 8;
    return std::abs(one.red() - other.red()) <= most &&
           std::abs(one.green() - other.green()) <= most &&
           std::abs(one.blue() - other.blue()) <= most;
}

QRect whole_screen() {
    return QGuiApplication::primaryScreen()->geometry();
}

QColor colour_at(const QPoint& point) {
    QScreen& screen = *QGuiApplication::primaryScreen();
    return screen.grabWindow(0, point.x(), point.y(), 1, 1).toImage().pixelColor(0, 0);
}

bool comes_to_show(const QPoint& point, const QColor& colour) {
    return comes_true([&] { return is_like(colour_at(point), colour); });
}

DrivenTest::DrivenTest() {
    program.setProcessChannelMode(QProcess::ForwardedChannels);
    for (const auto& [camera, its_colour] : colour_of)
        cameras->answer("/" + camera, showing(its_colour));
}

void DrivenTest::TearDown() {
    if (HasFailure()) {
        tell_what_all_windows_read();
        return;
    }
    while (comes_true([this] { return active_window() || has_ended(); }) && !has_ended())
        close_window();
    expect_good_end();
}

void DrivenTest::tell_what_all_windows_read() const {
    std::cout << "The windows read:\n";
    for (const Element& window : windows())
        for (const Element& element : window.all_showing())
            std::cout << element.description() << '\n';
}

void DrivenTest::expect_good_end() {
    ASSERT_TRUE(comes_true([this] { return has_ended(); }));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_FALSE(lookfar::testing::exists("data.dat"));
}

void DrivenTest::write_list(const Titles& titles) const {
    std::string list;
    for (const std::string& title : titles)
        list += title + "\r\n" + cameras->url("/" + title) + "\r\n";
    lookfar::testing::write_file("Cams.inf", list);
}

void DrivenTest::launch(const std::string& command) {
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    // Without a screen reader the program would keep its texts to itself.
    variables.insert("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
    // Qt tells its texts only on a bus that it has found itself.
    variables.remove("AT_SPI_BUS_ADDRESS");
    program.setProcessEnvironment(variables);
    program.start("sh", {"-c", QString::fromStdString(command), LOOKFAR_PROGRAM});
    if (!program.waitForStarted())
        throw std::runtime_error("The program cannot be started.");
}

void DrivenTest::start(const Titles& titles) {
    write_list(titles);
    launch();
    if (!comes_up(title::main_window))
        throw std::runtime_error("The main window does not come up.");
}

std::vector<Element> DrivenTest::elements(const std::string& title) const {
    std::vector<Element> found;
    for (const Element& window : windows())
        if (window.name() == title)
            std::ranges::move(window.all_showing(), std::back_inserter(found));
    return found;
}

std::optional<Element> DrivenTest::look_for(const std::string& title,
                                            std::string_view beginning) const {
    for (const Element& element : elements(title))
        if (element.description().starts_with(beginning))
            return element;
    return std::nullopt;
}

Element DrivenTest::find(const std::string& title, std::string_view beginning) const {
    std::optional<Element> found;
    comes_true([&] { return (found = look_for(title, beginning)).has_value(); });
    if (!found)
        throw std::runtime_error("There is no " + std::string(beginning) + " in " + title);
    return *found;
}

std::optional<Element> DrivenTest::active_window() const {
    for (const Element& window : windows())
        if (window.is(State::active))
            return window;
    return std::nullopt;
}

bool DrivenTest::comes_up(const std::string& title) const {
    return comes_true([&] {
        const auto active = active_window();
        return active && active->name() == title;
    });
}

bool DrivenTest::goes(const std::string& title) const {
    return comes_true([&] { return elements(title).empty(); });
}

bool DrivenTest::comes_to_read(const std::string& title, std::string_view beginning) const {
    return comes_true([&] { return look_for(title, beginning).has_value(); });
}

bool DrivenTest::stops_reading(const std::string& title, std::string_view beginning) const {
    return comes_true([&] { return !look_for(title, beginning); });
}

bool DrivenTest::comes_to_be(State state, const std::string& title,
                             std::string_view beginning) const {
    return comes_true([&] { return find(title, beginning).is(state); });
}

bool DrivenTest::stops_being(State state, const std::string& title,
                             std::string_view beginning) const {
    return comes_true([&] { return !find(title, beginning).is(state); });
}

void DrivenTest::click(const std::string& title, std::string_view beginning) {
    hands.click(place(title, beginning).center());
}

void DrivenTest::fill_in(const std::string& title, const std::string& box,
                         const std::string& text) {
    const Element entry = find(title, "text '" + box + "'");
    // Arrows may lie over the left half; two clicks select all that stands there.
    const QRect place = entry.place();
    hands.double_click({place.center().x() + place.width() / 4, place.center().y()});
    if (!comes_true([&] { return entry.is(State::focused); }))
        throw std::runtime_error("The text box does not get the keyboard.");
    hands.type(text);
    if (!comes_to_read(title, "text '" + box + "' holding '" + text + "'"))
        throw std::runtime_error("The text box does not take what is typed.");
}

void DrivenTest::close_window() {
    const auto closed = active_window();
    hands.press(Key::f4, Key::alt);
    comes_true([&] { return !closed || !closed->is(State::showing); });
}

void DrivenTest::open_menu(const std::function<void()>& ask) {
    hands.point_at(picture());
    const QPoint under_menu = picture() + QPoint(8, 8);
    const QColor covered = colour_at(under_menu);
    ask();
    ASSERT_TRUE(comes_true([&] { return !is_like(colour_at(under_menu), covered); }));
}

} // namespace lookfar::driven
