#pragma once

#include "runtime/controls/control.h"

#include <QPointF>
#include <QtCore/qnamespace.h>

namespace lookfar {
class Form;
}

namespace lookfar::desktop {

class DrawnControls;
class UserActions;

/// Brings what the mouse does to a window to the drawn control under the pointer, or to the
/// window where there is none. A click is a press and a release of the left button over the same
/// target. Where nobody waits for a double click, its second press is one like the first. Where
/// somebody waits for a drag, a press that becomes one is no click.
class MouseRouter {
  public:
    MouseRouter(Form& form, const DrawnControls& drawn, UserActions& actions)
        : form_(form), drawn_(drawn), actions_(actions) {}

    void press(Qt::MouseButton button, const QPointF& point);
    void release(Qt::MouseButton button, const QPointF& point);
    void double_click(Qt::MouseButton button, const QPointF& point);
    void move(Qt::MouseButtons held, const QPointF& point);

  private:
    MouseEvents& target_at(const QPointF& point) const;
    void begin_drag(const QPointF& point);

    Form& form_;
    const DrawnControls& drawn_;
    UserActions& actions_;
    /// What the left button went down over. It may be gone: it is only compared with what the
    /// button comes up over.
    const MouseEvents* pressed_ = nullptr;
    QPointF pressed_at_;
};

} // namespace lookfar::desktop
