#pragma once

#include <QWidget>

#include <memory>

namespace lookfar::desktop {

/// Lets a widget go that Qt may still be in the midst of: it is silent and hidden at once, and is
/// destroyed when Qt has come back to the message loop.
struct DeleteLater {
    void operator()(QWidget* widget) const {
        widget->blockSignals(true);
        widget->hide();
        widget->deleteLater();
    }
};

using WidgetOwner = std::unique_ptr<QWidget, DeleteLater>;

} // namespace lookfar::desktop
