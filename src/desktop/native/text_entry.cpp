#include "desktop/native/text_entry.h"

#include "desktop/input/key_codes.h"
#include "desktop/input/user_actions.h"
#include "desktop/native/owned_by_qt.h"
#include "desktop/native/widget_properties.h"
#include "desktop/style/colours.h"
#include "desktop/style/fonts.h"
#include "desktop/style/geometry.h"
#include "desktop/style/texts.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QValidator>

#include <algorithm>
#include <chrono>
#include <utility>

namespace lookfar::desktop {

namespace {

/// Puts another text in the place of line breaks.
class OneLine : public QValidator {
  public:
    OneLine(LineBreaks line_breaks, QObject* entry)
        : QValidator(entry),
          in_place_of_breaks_(QLatin1String(line_breaks == LineBreaks::blanks ? " " : "")) {}

    State validate(QString& text, int& cursor) const override {
        cursor = static_cast<int>(on_one_line(text.left(cursor), in_place_of_breaks_).size());
        text = on_one_line(text, in_place_of_breaks_);
        return Acceptable;
    }

  private:
    QString in_place_of_breaks_;
};

/// The first selected character and the count of them; the cursor's place and 0 where none is
/// selected.
std::pair<int, int> selection_of(const QLineEdit& entry) {
    if (entry.hasSelectedText())
        return {entry.selectionStart(), entry.selectionLength()};
    return {entry.cursorPosition(), 0};
}

/// What the user does with an entry that has the keyboard.
bool is_use(QEvent::Type type) {
    return type == QEvent::FocusIn || type == QEvent::KeyPress ||
           type == QEvent::MouseButtonPress || type == QEvent::InputMethod;
}

/// Whether a key for a copy is offered while nothing is selected; the window may have a use for it.
bool is_copy_of_nothing(const QLineEdit& entry, QEvent& event) {
    return event.type() == QEvent::ShortcutOverride && !entry.hasSelectedText() &&
           static_cast<QKeyEvent&>(event).matches(QKeySequence::Copy);
}

/// Selects the text if a handler has written it into the box that has the keyboard, so that the
/// next character replaces it.
void select_if_written(const TextEntry& entry, TextBox& control, const std::string& before) {
    if (control.Text == before || !entry.hasFocus())
        return;
    control.SelStart = 0;
    control.SelLength = static_cast<int>(whole_text(control.Text.get()).size());
}

void report_text(const TextEntry& entry, TextBox& control) {
    const std::string typed = entry.text().toStdString();
    control.SelStart = entry.cursorPosition();
    control.SelLength = 0;
    control.Text = typed;
    select_if_written(entry, control, typed);
}

void report_key(const TextEntry& entry, TextBox& control, KeyCode code, short shift) {
    const std::string before = control.Text.get();
    control.KeyDown.raise(code, shift);
    select_if_written(entry, control, before);
}

void report_selection(const TextEntry& entry, TextBox& control) {
    const auto [start, count] = selection_of(entry);
    control.SelStart = start;
    control.SelLength = count;
}

bool shows_text_of(const TextEntry& entry, const TextBox& control) {
    return entry.text() == whole_text(control.Text.get());
}

} // namespace

TextEntry::TextEntry(const TextBox& control, QWidget& window)
    : QLineEdit(&window), line_breaks_(owned_by_qt<OneLine>(control.Design.LineBreaks, this)) {
    setValidator(line_breaks_);
    setFrame(control.Design.HasBorder);
    // A box without a border stands within a caption; this puts both texts on one line.
    if (!control.Design.HasBorder)
        setTextMargins(0, -1, 0, 1);
    setAlignment(horizontal_alignment(control.Design.Align) | Qt::AlignVCenter);
    setFont(screen_font(control.Design.Font));
    setAccessibleName(shown_text(control.Design.AccessibleName));
    set_palette_colour(*this, QPalette::Base, screen_colour(control.Design.BackColor, palette()));
    constexpr std::chrono::seconds until_caret_rests(10);
    constexpr int never = 0;
    caret_rest_.setSingleShot(true);
    caret_rest_.setInterval(until_caret_rests);
    caret_rest_.callOnTimeout([] { QApplication::setCursorFlashTime(never); });
}

void TextEntry::synchronise(const TextBox& control) {
    const QString wanted = whole_text(control.Text.get());
    apply_length_limit(control, static_cast<int>(wanted.size()));
    if (text() != wanted)
        apply_text(wanted);
    apply_selection(control);
    place(*this, control);
}

/// The line breaks of what a handler writes stay as long as the user enters nothing.
void TextEntry::apply_text(const QString& text) {
    setValidator(nullptr);
    setText(text);
    setValidator(line_breaks_);
}

/// The limit is one for typing only: a longer text is shown whole.
void TextEntry::apply_length_limit(const TextBox& control, int text_length) {
    // To edit a line of many more takes seconds.
    constexpr int max_typed = 32767;
    const int limit =
        std::max(control.Design.MaxLength == 0 ? max_typed : control.Design.MaxLength, text_length);
    if (maxLength() != limit)
        setMaxLength(limit);
}

void TextEntry::apply_selection(const TextBox& control) {
    const int length = static_cast<int>(text().size());
    const int start = std::clamp(control.SelStart.get(), 0, length);
    const int count = std::clamp(control.SelLength.get(), 0, length - start);
    if (selection_of(*this) == std::pair(start, count))
        return;
    if (count > 0)
        setSelection(start, count);
    else
        setCursorPosition(start);
}

bool TextEntry::event(QEvent* event) {
    if (is_use(event->type()))
        blink_for_a_while();
    else if (event->type() == QEvent::FocusOut)
        caret_rest_.stop();
    if (is_copy_of_nothing(*this, *event)) {
        event->ignore();
        return true;
    }
    return QLineEdit::event(event);
}

void TextEntry::blink_for_a_while() {
    constexpr int as_the_desktop_does = -1;
    QApplication::setCursorFlashTime(as_the_desktop_does);
    caret_rest_.start();
}

void TextEntry::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    const bool had_it_all_along =
        event->reason() == Qt::PopupFocusReason || event->reason() == Qt::MenuBarFocusReason;
    if (had_it_all_along)
        return;
    Q_EMIT focused();
    click_keeps_selection_ = event->reason() == Qt::MouseFocusReason && hasSelectedText();
}

void TextEntry::keyPressEvent(QKeyEvent* event) {
    Q_EMIT key_pressed(key_code_of(static_cast<Qt::Key>(event->key())),
                       shift_state_of(event->modifiers()));
    QLineEdit::keyPressEvent(event);
}

void TextEntry::mousePressEvent(QMouseEvent* event) {
    if (!click_keeps_selection_)
        QLineEdit::mousePressEvent(event);
}

void TextEntry::mouseMoveEvent(QMouseEvent* event) {
    if (!click_keeps_selection_)
        QLineEdit::mouseMoveEvent(event);
}

void TextEntry::mouseReleaseEvent(QMouseEvent* event) {
    if (!std::exchange(click_keeps_selection_, false))
        QLineEdit::mouseReleaseEvent(event);
}

NativeControl make_text_entry(TextBox& control, UserActions& actions, QWidget& window) {
    TextEntry& entry = *owned_by_qt<TextEntry>(control, window);
    NativeControl native{.widget = TiedWidget<QWidget>(entry),
                         .synchronise = [&entry, &control] { entry.synchronise(control); },
                         .tab_index = control.Design.TabIndex};
    QObject* const tie = native.widget.tie();
    QObject::connect(&entry, &QLineEdit::textChanged, tie, [&entry, &control, &actions] {
        actions.deliver(control, [&entry, &control] { report_text(entry, control); });
    });
    const auto selection_changed = [&entry, &control, &actions] {
        if (shows_text_of(entry, control))
            actions.deliver(control, [&entry, &control] { report_selection(entry, control); });
    };
    QObject::connect(&entry, &QLineEdit::selectionChanged, tie, selection_changed);
    QObject::connect(&entry, &QLineEdit::cursorPositionChanged, tie, selection_changed);
    QObject::connect(&entry, &TextEntry::key_pressed, tie,
                     [&entry, &control, &actions](KeyCode code, short shift) {
                         actions.deliver(control, [&] { report_key(entry, control, code, shift); });
                     });
    const auto got_focus = [&control, &actions] {
        actions.deliver(control, [&control] { control.GotFocus.raise(); });
    };
    QObject::connect(&entry, &TextEntry::focused, tie, [tie, &actions, got_focus] {
        if (actions.are_suspended())
            QMetaObject::invokeMethod(tie, got_focus, Qt::QueuedConnection);
        else
            got_focus();
    });
    return native;
}

} // namespace lookfar::desktop
