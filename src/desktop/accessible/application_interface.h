#pragma once

#include <QAccessibleObject>

#include <vector>

namespace lookfar::desktop {

/// What assistive technology reads of the program: the windows that can be seen. Qt's own interface
/// would list those that are hidden too.
class ApplicationInterface : public QAccessibleApplication {
  public:
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* wanted) const override;

  private:
    std::vector<QAccessibleInterface*> windows() const;
};

} // namespace lookfar::desktop
