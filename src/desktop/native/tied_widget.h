#pragma once

#include <QWidget>

#include <memory>

namespace lookfar::desktop {

/// A widget, tied to the part of the model that it shows: a control, a menu or a window.
///
/// That part may go while Qt is in the midst of the widget, so the widget is only hidden then, and
/// destroyed when Qt is back in the message loop. The tie ends at once, and with it whatever leads
/// from the widget to the model: the tie is the context of each connection and each queued call,
/// and tells by its `destroyed` signal who else holds on to the model.
template <class Widget>
class TiedWidget {
  public:
    /// The widget is one that Qt owns.
    explicit TiedWidget(Widget& widget) : widget_(&widget) {}

    Widget& operator*() const { return *widget_; }
    Widget* operator->() const { return widget_.get(); }
    QObject* tie() const { return tie_.get(); }

  private:
    struct HideAndDeleteLater {
        void operator()(QWidget* widget) const {
            widget->hide();
            widget->deleteLater();
        }
    };

    std::unique_ptr<Widget, HideAndDeleteLater> widget_;
    /// The last member, so that it goes first.
    std::unique_ptr<QObject> tie_ = std::make_unique<QObject>();
};

} // namespace lookfar::desktop
