#include "desktop/native/up_down_arrows.h"

#include "desktop/input/user_actions.h"
#include "desktop/native/widget_properties.h"
#include "desktop/style/texts.h"

#include <QAccessible>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace lookfar::desktop {

UpDownArrows::UpDownArrows(UpDown& control, UserActions& actions, QWidget& window)
    : QWidget(&window), control_(&control), actions_(actions), shown_value_(control.Value) {
    auto column = std::make_unique<QVBoxLayout>();
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    setLayout(column.release());
    const QString name = shown_text(control.AccessibleName);
    setAccessibleName(name);
    add_arrow(Qt::UpArrow, name + QStringLiteral(" +"), +1);
    add_arrow(Qt::DownArrow, name + QStringLiteral(" -"), -1);
}

void UpDownArrows::add_arrow(Qt::ArrowType type, const QString& name, int direction) {
    auto owned = std::make_unique<QToolButton>(this);
    QToolButton& arrow = *owned;
    arrow.setArrowType(type);
    arrow.setAutoRepeat(true);
    arrow.setFocusPolicy(Qt::NoFocus);
    arrow.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    arrow.setAccessibleName(name);
    connect(&arrow, &QToolButton::clicked, this, [this, direction] {
        actions_.deliver(*control_, [this, direction] { control_->step(direction); });
    });
    layout()->addWidget(owned.release());
}

void UpDownArrows::synchronise() {
    place(*this, *control_);
    const long value = control_->Value;
    if (std::exchange(shown_value_, value) == value)
        return;
    QAccessibleValueChangeEvent event(this, QVariant::fromValue(value));
    QAccessible::updateAccessibility(&event);
}

void UpDownArrows::set_value(long value) {
    if (!control_)
        return;
    actions_.deliver(*control_, [this, value] {
        control_->Value = std::clamp(value, control_->Min, control_->Max);
    });
}

NativeControl make_up_down_arrows(UpDown& control, UserActions& actions, QWidget& window) {
    auto owned = std::make_unique<UpDownArrows>(control, actions, window);
    UpDownArrows& arrows = *owned;
    return {.widget = WidgetOwner(owned.release()),
            .synchronise = [&arrows] { arrows.synchronise(); },
            .release = [&arrows] { arrows.release(); },
            .tab_index = control.TabIndex};
}

} // namespace lookfar::desktop
