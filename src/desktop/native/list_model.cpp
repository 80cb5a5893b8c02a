#include "desktop/native/list_model.h"

#include "desktop/style/texts.h"

namespace lookfar::desktop {

ListModel::ListModel(const ListControl& control, const QObject* tie, QObject* view)
    : QAbstractListModel(view), control_(control) {
    connect(tie, &QObject::destroyed, this, [this] { show(0); });
}

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shown_;
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    const bool is_text = role == Qt::DisplayRole || role == Qt::EditRole;
    if (!is_text || !index.isValid() || index.row() >= shown_)
        return {};
    const QString text = shown_text(control_.List(static_cast<short>(index.row())));
    return on_one_line(text, QStringLiteral(" "));
}

void ListModel::refresh() {
    if (revision_ == control_.entries_revision())
        return;
    revision_ = control_.entries_revision();
    show(control_.ListCount());
}

void ListModel::show(int count) {
    beginResetModel();
    shown_ = count;
    endResetModel();
}

} // namespace lookfar::desktop
