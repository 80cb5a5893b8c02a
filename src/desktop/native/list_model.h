#pragma once

#include "runtime/controls/lists.h"

#include <QAbstractListModel>

#include <cstdint>
#include <optional>

namespace lookfar::desktop {

/// The entries of a list control, each on one line, for a native view. It reads them from the
/// control, but shows only what was there at the last refresh, so that filling a long list costs
/// the view nothing.
class ListModel : public QAbstractListModel {
  public:
    /// The view owns the model, which shows nothing once the tie to the control is gone.
    ListModel(const ListControl& control, const QObject* tie, QObject* view);

    int rowCount(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    /// Shows the present entries.
    void refresh();

  private:
    void show(int count);

    const ListControl& control_;
    int shown_ = 0;
    std::optional<std::uint64_t> revision_;
};

} // namespace lookfar::desktop
