#include "desktop/native/label_tab_stop.h"

#include "desktop/input/user_actions.h"
#include "desktop/native/owned_by_qt.h"
#include "desktop/native/widget_properties.h"
#include "desktop/style/texts.h"

#include <QKeyEvent>

namespace lookfar::desktop {

LabelTabStop::LabelTabStop(LabelRole role, QWidget& window)
    : QAbstractButton(&window), role_(role) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void LabelTabStop::synchronise(const Label& label) {
    const std::string& name = name_or(label.Design.AccessibleName, label.Caption);
    set_accessible_name(*this, shown_text(name));
    is_open_ = label.is_open();
    place(*this, label);
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

NativeControl make_label_tab_stop(Label& label, UserActions& actions, QWidget& window) {
    LabelTabStop& stop = *owned_by_qt<LabelTabStop>(label.Design.Role, window);
    NativeControl native{.widget = TiedWidget<QWidget>(stop),
                         .synchronise = [&stop, &label] { stop.synchronise(label); },
                         .tab_index = label.Design.TabIndex};
    QObject::connect(&stop, &QAbstractButton::clicked, native.widget.tie(), [&label, &actions] {
        actions.deliver(label, [&label] { label.Click.raise(); });
    });
    return native;
}

} // namespace lookfar::desktop
