#include "desktop/native/label_tab_stop.h"

#include "desktop/input/user_actions.h"
#include "desktop/native/owned_by_qt.h"
#include "desktop/native/widget_properties.h"
#include "desktop/style/texts.h"

#include <QKeyEvent>
#include <QPainter>

namespace lookfar::desktop {

namespace {

void synchronise_tab_stop(LabelTabStop& stop, const Label& label) {
    const std::string& name = name_or(label.AccessibleName, label.Caption);
    set_accessible_name(stop, shown_text(name));
    place(stop, label);
}

} // namespace

LabelTabStop::LabelTabStop(LabelRole role, QWidget& window)
    : QAbstractButton(&window), role_(role) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void LabelTabStop::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        click();
        break;
    default:
        // Passes over the button's own handling, in which the arrow keys move the focus.
        QWidget::keyPressEvent(event);
    }
}

void LabelTabStop::paintEvent(QPaintEvent* /*event*/) {
    if (!hasFocus())
        return;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(rect().adjusted(1, 1, -2, -2));
}

NativeControl make_label_tab_stop(Label& label, UserActions& actions, QWidget& window) {
    LabelTabStop& stop = *owned_by_qt<LabelTabStop>(label.Role, window);
    NativeControl native{.widget = TiedWidget<QWidget>(stop),
                         .synchronise = [&stop, &label] { synchronise_tab_stop(stop, label); },
                         .tab_index = label.TabIndex};
    QObject::connect(&stop, &QAbstractButton::clicked, native.widget.tie(), [&label, &actions] {
        actions.deliver(label, [&label] { label.Click.raise(); });
    });
    return native;
}

} // namespace lookfar::desktop
