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
    setText(fontMetrics().elidedText(text, Qt::ElideRight, room));
    setToolTip(text.isEmpty() ? text : Qt::convertFromPlainText(text));
    setAccessibleName(text);
}

NativeControl make_status_text(StatusBar& control, QWidget& window) {
    StatusText& text = *owned_by_qt<StatusText>(window);
    return {.widget = TiedWidget<QWidget>(text),
            .synchronise = [&text, &control] { text.synchronise(control); },
            .tab_index = control.TabIndex};
}

} // namespace lookfar::desktop
