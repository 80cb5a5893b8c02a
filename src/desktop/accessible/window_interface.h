#pragma once

#include <QAccessibleWidget>

#include <unordered_map>
#include <vector>

namespace lookfar {
class Control;
}

namespace lookfar::desktop {

class WindowView;

/// What assistive technology reads of a window: its native widgets first, then the labels and
/// pictures that it draws itself, front to back.
class WindowInterface : public QAccessibleWidget {
  public:
    explicit WindowInterface(WindowView& view);
    WindowInterface(const WindowInterface&) = delete;
    WindowInterface& operator=(const WindowInterface&) = delete;
    ~WindowInterface() override;

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* wanted) const override;
    QAccessibleInterface* childAt(int x, int y) const override;

    /// The interface of a label or picture of the window.
    QAccessibleInterface* interface_of(const Control& control) const;

  private:
    /// The labels and pictures that the window draws itself, front to back, hidden ones too.
    std::vector<const Control*> readable_controls() const;

    WindowView& view_;
    mutable std::unordered_map<const Control*, QAccessible::Id> drawn_;
};

} // namespace lookfar::desktop
