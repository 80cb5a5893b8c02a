#include "desktop/native/status_text.h"

#include "desktop/accessible/announcement.h"
#include "desktop/native/widget_properties.h"
#include "desktop/style/texts.h"

#include <QAccessible>

namespace lookfar::desktop {

namespace {

constexpr int text_indent = 3;

} // namespace

StatusText::StatusText(const StatusBar& control, QWidget& window)
    : QLabel(&window), control_(control) {
    setTextFormat(Qt::PlainText);
    setFrameStyle(QFrame::Panel | QFrame::Sunken);
    setIndent(text_indent);
}

void StatusText::synchronise() {
    place(*this, control_);
    const QString text = shown_text(control_.Text.get());
    if (text != accessibleName())
        show_text(text);
}

void StatusText::show_text(const QString& text) {
    const int room = contentsRect().width() - 2 * text_indent;
    setText(fontMetrics().elidedText(text, Qt::ElideRight, room));
    setToolTip(text.isEmpty() ? text : Qt::convertFromPlainText(text));
    setAccessibleName(text);
    announce(*QAccessible::queryAccessibleInterface(this), text, Announcement::polite);
}

NativeControl make_status_text(StatusBar& control, QWidget& window) {
    auto owned = std::make_unique<StatusText>(control, window);
    StatusText& text = *owned;
    return {.widget = WidgetOwner(owned.release()),
            .synchronise = [&text] { text.synchronise(); },
            .release = {},
            .tab_index = control.TabIndex};
}

} // namespace lookfar::desktop
