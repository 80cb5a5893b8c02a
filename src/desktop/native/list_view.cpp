#include "desktop/native/list_view.h"

#include <QMouseEvent>

namespace lookfar::desktop {

ListView::ListView(QWidget& window) : QListView(&window) {
    setUniformItemSizes(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
}

int ListView::selected_row() const {
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    return selected.empty() ? -1 : selected.front().row();
}

void ListView::mousePressEvent(QMouseEvent* event) {
    const QModelIndex entry = indexAt(event->position().toPoint());
    const bool was_selected = selectionModel()->isSelected(entry);
    QListView::mousePressEvent(event);
    if (was_selected)
        Q_EMIT pressed_again();
}

/// Qt takes the selection off on a click with the control key, and where a drag leaves the entries.
QItemSelectionModel::SelectionFlags ListView::selectionCommand(const QModelIndex& index,
                                                               const QEvent* event) const {
    const auto command = QListView::selectionCommand(index, event);
    const bool deselects = !index.isValid() || command.testFlag(QItemSelectionModel::Deselect);
    return deselects ? QItemSelectionModel::NoUpdate : command;
}

} // namespace lookfar::desktop
