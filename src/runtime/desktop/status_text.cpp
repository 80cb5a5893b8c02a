#include "runtime/desktop/status_text.h"

#include "runtime/desktop/placement.h"
#include "runtime/desktop/texts.h"

#include <QLabel>

namespace lookfar::desktop {

namespace {

constexpr int margin = 3;

void synchronise_status_text(QLabel& label, const StatusBar& control) {
    place(label, control);
    const QString text = shown_text(control.Text.get());
    const int room = label.contentsRect().width() - 2 * margin;
    label.setText(label.fontMetrics().elidedText(text, Qt::ElideRight, room));
    label.setToolTip(text.isEmpty() ? text : Qt::convertFromPlainText(text));
    label.setAccessibleName(text);
}

} // namespace

NativeControl make_status_text(StatusBar& control, QWidget& window) {
    auto owned = std::make_unique<QLabel>(&window);
    QLabel& label = *owned;
    label.setTextFormat(Qt::PlainText);
    label.setFrameStyle(QFrame::Panel | QFrame::Sunken);
    label.setIndent(margin);
    return {.widget = WidgetOwner(owned.release()),
            .synchronise = [&label, &control] { synchronise_status_text(label, control); },
            .release = {},
            .tab_index = control.TabIndex};
}

} // namespace lookfar::desktop
