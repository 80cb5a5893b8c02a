#pragma once

#include <QListView>

namespace lookfar::desktop {

/// A list of which one entry can be selected. Nothing that the user does leaves none selected.
class ListView : public QListView {
    Q_OBJECT

  public:
    explicit ListView(QWidget& window);

    /// The selected row; -1 for none.
    int selected_row() const;

  Q_SIGNALS:
    /// A mouse button is pressed on the entry that was selected already.
    void pressed_again();

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
};

} // namespace lookfar::desktop
