#pragma once

#include <QObject>

namespace lookfar::desktop {

class Windows;

/// Lets every widget take over the model's values before the user's next action reaches it. Keeps
/// the actions from a window that is about to be hidden.
class InputSynchroniser : public QObject {
  public:
    explicit InputSynchroniser(Windows& windows) : windows_(windows) {}

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    Windows& windows_;
};

} // namespace lookfar::desktop
