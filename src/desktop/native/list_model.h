#pragma once

#include "runtime/controls/lists.h"

#include <QAbstractListModel>

#include <cstdint>
#include <optional>

namespace lookfar::desktop {

/// The entries of a list control for a native view. Reads them from the control, but shows only
/// what was there at the last refresh, so that filling a long list costs the view nothing.
class ListModel : public QAbstractListModel {
  public:
    explicit ListModel(const ListControl& control) : control_(&control) {}

    int rowCount(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    /// Shows the present entries. Gives back whether they differ from those shown before.
    bool refresh();
    /// The control is about to go: shows nothing from now on.
    void release();

  private:
    const ListControl* control_;
    int shown_ = 0;
    std::optional<std::uint64_t> revision_;
};

} // namespace lookfar::desktop
