#include "desktop/native/native_lists.h"

#include "desktop/input/user_actions.h"
#include "desktop/native/drop_down.h"
#include "desktop/native/list_model.h"
#include "desktop/native/list_view.h"
#include "desktop/native/owned_by_qt.h"
#include "desktop/native/widget_properties.h"
#include "desktop/style/colours.h"
#include "desktop/style/fonts.h"
#include "desktop/style/texts.h"

#include <QComboBox>
#include <QLabel>
#include <QShortcut>

#include <utility>

namespace lookfar::desktop {

namespace {

void select(ListControl& control, UserActions& actions, int row) {
    actions.deliver(control, [&control, row] { control.ListIndex = static_cast<short>(row); });
}

void colour_combo_box(QComboBox& box, const ComboBox& control) {
    const QColor back = screen_colour(control.BackColor, box.palette());
    const QColor text = screen_colour(control.Design.ForeColor, box.palette());
    for (const auto role : {QPalette::Base, QPalette::Button})
        set_palette_colour(box, role, back);
    for (const auto role : {QPalette::Text, QPalette::ButtonText})
        set_palette_colour(box, role, text);
}

void synchronise_combo_box(QComboBox& box, ListModel& model, const ComboBox& control) {
    model.refresh();
    if (box.currentIndex() != control.ListIndex)
        box.setCurrentIndex(control.ListIndex);
    colour_combo_box(box, control);
    place(box, control);
}

/// Assistive technology on Unix calls a combo box by its selected entry. What the box is for, it
/// reads from the label whose buddy the box is.
void add_hidden_label(QComboBox& box, const QString& name) {
    QLabel& label = *owned_by_qt<QLabel>(name, box.parentWidget());
    label.setBuddy(&box);
    label.hide();
}

void synchronise_list_box(ListView& view, ListModel& model, const ListBox& control) {
    model.refresh();
    if (view.selected_row() != control.ListIndex) {
        view.setCurrentIndex(model.index(control.ListIndex));
        if (control.ListIndex < 0)
            view.clearSelection();
    }
    place(view, control);
}

} // namespace

NativeControl make_combo_box(ComboBox& control, UserActions& actions, QWidget& window) {
    QComboBox& box =
        control.Design.IsFlat ? *owned_by_qt<FlatDropDown>(window) : *owned_by_qt<DropDown>(window);
    TiedWidget<QWidget> widget(box);
    ListModel& model = *owned_by_qt<ListModel>(control, widget.tie(), &box);
    box.setModel(&model);
    box.setFont(screen_font(control.Design.Font));
    add_hidden_label(box, shown_text(control.Design.AccessibleName));
    QObject::connect(&box, &QComboBox::activated, widget.tie(),
                     [&control, &actions](int row) { select(control, actions, row); });
    return {.widget = std::move(widget),
            .synchronise = [&box, &model, &control] { synchronise_combo_box(box, model, control); },
            .tab_index = control.Design.TabIndex};
}

NativeControl make_list_box(ListBox& control, UserActions& actions, QWidget& window) {
    ListView& view = *owned_by_qt<ListView>(window);
    TiedWidget<QWidget> widget(view);
    ListModel& model = *owned_by_qt<ListModel>(control, widget.tie(), &view);
    view.setModel(&model);
    view.setAccessibleName(shown_text(control.Design.AccessibleName));
    QObject::connect(view.selectionModel(), &QItemSelectionModel::selectionChanged, widget.tie(),
                     [&view, &control, &actions] {
                         if (const int row = view.selected_row(); row >= 0)
                             select(control, actions, row);
                     });
    QObject::connect(&view, &ListView::pressed_again, widget.tie(), [&control, &actions] {
        actions.deliver(control, [&control] { control.Click.raise(); });
    });
    auto* const delete_key = owned_by_qt<QShortcut>(QKeySequence(Qt::Key_Delete), &view);
    delete_key->setContext(Qt::WidgetShortcut);
    delete_key->setAutoRepeat(false);
    QObject::connect(delete_key, &QShortcut::activated, widget.tie(), [&control, &actions] {
        actions.deliver(control, [&control] { control.DeleteKey.raise(); });
    });
    return {
        .widget = std::move(widget),
        .synchronise = [&view, &model, &control] { synchronise_list_box(view, model, control); },
        .tab_index = control.Design.TabIndex};
}

} // namespace lookfar::desktop
