#include "desktop/native/text_entry.h"

#include "desktop/input/key_codes.h"
#include "desktop/input/user_actions.h"
#include "desktop/native/widget_properties.h"
#include "desktop/style/colours.h"
#include "desktop/style/fonts.h"
#include "desktop/style/texts.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>
#include <utility>

namespace lookfar::desktop {

namespace {

/// The first selected character and their count; the cursor's place and 0 for none.
std::pair<int, int> selection_of(const QLineEdit& entry) {
    if (entry.hasSelectedText())
        return {entry.selectionStart(), entry.selectionLength()};
    return {entry.cursorPosition(), 0};
}

Qt::Alignment alignment_of(Alignment alignment) {
    switch (alignment) {
    case Alignment::right:
        return Qt::AlignRight | Qt::AlignVCenter;
    case Alignment::centre:
        return Qt::AlignCenter;
    case Alignment::left:
        break;
    }
    return Qt::AlignLeft | Qt::AlignVCenter;
}

} // namespace

TextEntry::TextEntry(TextBox& control, UserActions& actions, QWidget& window)
    : QLineEdit(&window), control_(&control), actions_(actions) {
    setFrame(control.HasBorder);
    // Puts a borderless text on the line of the caption around it.
    if (!control.HasBorder)
        setTextMargins(0, -1, 0, 1);
    setAlignment(alignment_of(control.Align));
    setFont(screen_font(control.Font));
    setAccessibleName(shown_text(control.AccessibleName));
    set_palette_colour(*this, QPalette::Base, screen_colour(control.BackColor, palette()));
    connect(this, &QLineEdit::textChanged, this, [this] { report_text(); });
    connect(this, &QLineEdit::selectionChanged, this, [this] { report_selection(); });
    connect(this, &QLineEdit::cursorPositionChanged, this, [this] { report_selection(); });
}

void TextEntry::synchronise() {
    const QString wanted = whole_text(control_->Text.get());
    take_length_limit(static_cast<int>(wanted.size()));
    if (text() != wanted)
        setText(wanted);
    take_selection();
    place(*this, *control_);
}

/// The limit is one for typing only: a longer text is shown whole.
void TextEntry::take_length_limit(int text_length) {
    if (control_->MaxLength == 0)
        return;
    const int limit = std::max(control_->MaxLength, text_length);
    if (maxLength() != limit)
        setMaxLength(limit);
}

void TextEntry::take_selection() {
    const int length = static_cast<int>(text().size());
    const int start = std::clamp(control_->SelStart.get(), 0, length);
    const int count = std::clamp(control_->SelLength.get(), 0, length - start);
    if (selection_of(*this) == std::pair(start, count))
        return;
    if (count > 0)
        setSelection(start, count);
    else
        setCursorPosition(start);
}

void TextEntry::report_text() {
    if (!control_)
        return;
    actions_.deliver(*control_, [this] {
        control_->SelStart = cursorPosition();
        control_->SelLength = 0;
        control_->Text = typed_bytes(text());
    });
}

void TextEntry::report_selection() {
    const bool text_is_reported = control_ && text() == whole_text(control_->Text.get());
    if (!text_is_reported)
        return;
    actions_.deliver(*control_, [this] {
        const auto [start, count] = selection_of(*this);
        control_->SelStart = start;
        control_->SelLength = count;
    });
}

void TextEntry::report_focus() {
    if (control_)
        actions_.deliver(*control_, [this] { control_->GotFocus.raise(); });
}

void TextEntry::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    const bool had_it_all_along =
        event->reason() == Qt::PopupFocusReason || event->reason() == Qt::MenuBarFocusReason;
    if (had_it_all_along)
        return;
    if (actions_.are_suspended()) {
        QMetaObject::invokeMethod(
            this, [this] { report_focus(); }, Qt::QueuedConnection);
        return;
    }
    report_focus();
    click_keeps_selection_ = event->reason() == Qt::MouseFocusReason && hasSelectedText();
}

void TextEntry::keyPressEvent(QKeyEvent* event) {
    if (control_) {
        const KeyCode code = key_code_of(static_cast<Qt::Key>(event->key()));
        const short shift = shift_state_of(event->modifiers());
        actions_.deliver(*control_, [this, code, shift] { control_->KeyDown.raise(code, shift); });
    }
    if (control_)
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
    auto owned = std::make_unique<TextEntry>(control, actions, window);
    TextEntry& entry = *owned;
    return {.widget = WidgetOwner(owned.release()),
            .synchronise = [&entry] { entry.synchronise(); },
            .release = [&entry] { entry.release(); },
            .tab_index = control.TabIndex};
}

} // namespace lookfar::desktop
