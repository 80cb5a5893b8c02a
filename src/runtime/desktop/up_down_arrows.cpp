#include "runtime/desktop/up_down_arrows.h"

#include "runtime/desktop/placement.h"
#include "runtime/desktop/texts.h"
#include "runtime/desktop/windows.h"

#include <QToolButton>
#include <QVBoxLayout>

namespace lookfar::desktop {

namespace {

void add_arrow(QWidget& arrows, Qt::ArrowType type, const QString& name,
               const std::function<void()>& step) {
    auto owned = std::make_unique<QToolButton>(&arrows);
    QToolButton& arrow = *owned;
    arrow.setArrowType(type);
    arrow.setAutoRepeat(true);
    arrow.setFocusPolicy(Qt::NoFocus);
    arrow.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    arrow.setAccessibleName(name);
    QObject::connect(&arrow, &QToolButton::clicked, &arrow, step);
    arrows.layout()->addWidget(owned.release());
}

} // namespace

NativeControl make_up_down_arrows(UpDown& control, Windows& windows, QWidget& window) {
    auto owned = std::make_unique<QWidget>(&window);
    QWidget& arrows = *owned;
    auto layout = std::make_unique<QVBoxLayout>();
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    arrows.setLayout(layout.release());
    const QString name = shown_text(control.AccessibleName);
    arrows.setAccessibleName(name);
    const auto stepper = [&control, &windows](int direction) {
        return [&control, &windows, direction] {
            windows.deliver(control.runtime, [&control, direction] { control.step(direction); });
        };
    };
    add_arrow(arrows, Qt::UpArrow, name + QStringLiteral(" +"), stepper(+1));
    add_arrow(arrows, Qt::DownArrow, name + QStringLiteral(" -"), stepper(-1));
    return {.widget = WidgetOwner(owned.release()),
            .synchronise = [&arrows, &control] { place(arrows, control); },
            .release = {},
            .tab_index = control.TabIndex};
}

} // namespace lookfar::desktop
