#include "desktop/native/native_buttons.h"

#include "desktop/input/user_actions.h"
#include "desktop/native/owned_by_qt.h"
#include "desktop/native/widget_properties.h"
#include "desktop/style/fonts.h"
#include "desktop/style/glyphs.h"
#include "desktop/style/texts.h"

#include <QCheckBox>
#include <QPushButton>

namespace lookfar::desktop {

namespace {

void show_symbols(QPushButton& button, const CommandButton& control) {
    const QString symbols = shown_text(control.Caption.get());
    const int size = pixel_size(control.Design.Font);
    button.setIconSize(QSize(size * static_cast<int>(symbols.size()), size));
    button.setIcon(symbol_icon(symbols, size, button.palette().color(QPalette::ButtonText),
                               button.devicePixelRatioF()));
}

void synchronise_button(QPushButton& button, const CommandButton& control) {
    if (is_symbol_font(control.Design.Font))
        show_symbols(button, control);
    else
        button.setText(shown_text(control.Caption.get()));
    place(button, control);
}

void synchronise_check_box(QCheckBox& box, const CheckBox& control) {
    const QString caption = shown_text(control.Caption.get());
    box.setText(caption);
    // The caption may hold a gap of blanks, in which another control stands.
    set_accessible_name(box, caption.simplified());
    box.setChecked(control.Value != 0);
    place(box, control);
}

} // namespace

NativeControl make_command_button(CommandButton& control, UserActions& actions, QWidget& window) {
    QPushButton& button = *owned_by_qt<QPushButton>(&window);
    if (!is_symbol_font(control.Design.Font))
        button.setFont(screen_font(control.Design.Font));
    button.setDefault(control.Design.Default);
    button.setToolTip(shown_text(control.Design.ToolTipText));
    button.setAccessibleName(shown_text(control.Design.AccessibleName));
    NativeControl native{
        .widget = TiedWidget<QWidget>(button),
        .synchronise = [&button, &control] { synchronise_button(button, control); },
        .tab_index = control.Design.TabIndex};
    QObject::connect(&button, &QPushButton::clicked, native.widget.tie(), [&control, &actions] {
        actions.deliver(control, [&control] { control.Click.raise(); });
    });
    return native;
}

NativeControl make_check_box(CheckBox& control, UserActions& actions, QWidget& window) {
    QCheckBox& box = *owned_by_qt<QCheckBox>(&window);
    NativeControl native{.widget = TiedWidget<QWidget>(box),
                         .synchronise = [&box, &control] { synchronise_check_box(box, control); },
                         .tab_index = control.Design.TabIndex};
    QObject::connect(
        &box, &QCheckBox::toggled, native.widget.tie(), [&control, &actions](bool is_ticked) {
            actions.deliver(control, [&control, is_ticked] { control.Value = short{is_ticked}; });
        });
    return native;
}

} // namespace lookfar::desktop
