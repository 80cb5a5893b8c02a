#include "desktop/native/label_tab_stop.h"

#include "desktop/input/user_actions.h"
#include "desktop/native/widget_properties.h"
#include "desktop/style/texts.h"

#include <QKeyEvent>
#include <QPainter>

namespace lookfar::desktop {

LabelTabStop::LabelTabStop(Label& label, UserActions& actions, QWidget& window)
    : QWidget(&window), label_(&label), actions_(actions), is_link_(label.Role == LabelRole::link) {
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void LabelTabStop::synchronise() {
    const std::string& name =
        label_->AccessibleName.empty() ? label_->Caption.get() : label_->AccessibleName;
    set_accessible_name(*this, shown_text(name));
    place(*this, *label_);
}

void LabelTabStop::click() {
    if (label_)
        actions_.deliver(*label_, [this] { label_->Click.raise(); });
}

void LabelTabStop::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        click();
        break;
    default:
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
    auto owned = std::make_unique<LabelTabStop>(label, actions, window);
    LabelTabStop& stop = *owned;
    return {.widget = WidgetOwner(owned.release()),
            .synchronise = [&stop] { stop.synchronise(); },
            .release = [&stop] { stop.release(); },
            .tab_index = label.TabIndex};
}

} // namespace lookfar::desktop
