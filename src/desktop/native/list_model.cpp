#include "desktop/native/list_model.h"

#include "desktop/style/texts.h"

namespace lookfar::desktop {

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shown_;
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    const bool is_text = role == Qt::DisplayRole || role == Qt::EditRole;
    if (!control_ || !is_text || !index.isValid())
        return {};
    return shown_text(control_->List(static_cast<short>(index.row())));
}

bool ListModel::refresh() {
    if (!control_ || revision_ == control_->entries_revision())
        return false;
    beginResetModel();
    revision_ = control_->entries_revision();
    shown_ = control_->ListCount();
    endResetModel();
    return true;
}

void ListModel::release() {
    beginResetModel();
    control_ = nullptr;
    shown_ = 0;
    endResetModel();
}

} // namespace lookfar::desktop
