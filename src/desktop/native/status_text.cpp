#include "desktop/native/status_text.h"

#include "desktop/native/owned_by_qt.h"
#include "desktop/native/widget_properties.h"
#include "desktop/style/texts.h"

namespace lookfar::desktop {

namespace {

constexpr int text_indent = 3;

} // namespace

StatusText::StatusText(QWidget& window) : QLabel(&window) {
    setTextFormat(Qt::PlainText);
    setFrameStyle(QFrame::Panel | QFrame::Sunken);
    setIndent(text_indent);
}

void StatusText::synchronise(const StatusBar& control) {
    place(*this, control);
    const QString text = shown_text(control.Text.get());
    if (text != accessibleName())
        show_text(text);
}

void StatusText::show_text(const QString& text) {
    const int room = contentsRect().width() - 2 * text_indent;
    const QString shown = fontMetrics().elidedText(text, Qt::ElideRight, room);
    setText(shown);
    // Markup, lest a title that looks like some be taken for it. Assistive technology would read a
    // tooltip as the description where there is no other.
    const bool is_cut = shown != text;
    setToolTip(is_cut ? Qt::convertFromPlainText(text) : QString());
    setAccessibleDescription(is_cut ? text : QString());
    setAccessibleName(text);
}

NativeControl make_status_text(StatusBar& control, QWidget& window) {
    StatusText& text = *owned_by_qt<StatusText>(window);
    return {.widget = TiedWidget<QWidget>(text),
            .synchronise = [&text, &control] { text.synchronise(control); },
            .tab_index = control.Design.TabIndex};
}

} // namespace lookfar::desktop
