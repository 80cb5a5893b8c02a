#pragma once

#include <QWidget>

#include <memory>

namespace lookfar::desktop {

/// A widget, tied to the part of the model that it shows: a control, a menu or a window.
///
/// That part may go while Qt is in the midst of the widget, so the widget is only hidden then, and
/// destroyed when Qt is back in the message loop. The tie is destroyed at once. It is the context
/// of every connection and every queued call that leads from the widget to the model, so these end
/// with it. Whatever else refers to the model lets go of it at the tie's `destroyed` signal.
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
