#pragma once

#include "desktop/accessible/readable_control.h"
#include "desktop/window/window_view.h"

#include <QAccessible>
#include <QPointer>

#include <optional>
#include <string>

namespace lookfar::desktop {

/// What assistive technology reads of a label or a picture that a window draws itself: role,
/// name, place, and the text of a label. The control is looked up for every question, since it
/// may be gone. One that is hidden, or has no name, is reported as invisible, and its text as
/// empty.
class DrawnInterface : public QAccessibleInterface, public QAccessibleTextInterface {
  public:
    DrawnInterface(WindowView& view, const Control& control) : view_(&view), control_(&control) {}

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return view_ ? view_->windowHandle() : nullptr; }
    void* interface_cast(QAccessible::InterfaceType type) override;

    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }

    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;

    // The text of a label, which can neither be selected nor edited. The place of each character
    // is that of the whole label.

    int characterCount() const override;
    QString text(int start, int end) const override;
    QString attributes(int offset, int* start, int* end) const override;
    QRect characterRect(int) const override { return rect(); }
    int offsetAtPoint(const QPoint&) const override { return -1; }
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    int selectionCount() const override { return 0; }
    void selection(int index, int* start, int* end) const override;
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    void scrollToSubstring(int, int) override {}

  private:
    /// Nothing once the control is gone.
    std::optional<ReadableControl> readable() const;
    /// What is read of the control; empty while it is hidden, and once it is gone.
    std::string name() const;

    QPointer<WindowView> view_;
    const Control* control_;
};

} // namespace lookfar::desktop
