#include "desktop/native/native_control.h"

#include "desktop/native/label_tab_stop.h"
#include "desktop/native/native_buttons.h"
#include "desktop/native/native_lists.h"
#include "desktop/native/status_text.h"
#include "desktop/native/text_entry.h"
#include "desktop/native/up_down_arrows.h"
#include "runtime/controls/bars.h"
#include "runtime/controls/visitor.h"

#include <utility>

namespace lookfar::desktop {

namespace {

class NativeControlMaker : public ControlVisitor {
  public:
    using ControlVisitor::visit;

    NativeControlMaker(UserActions& actions, QWidget& window)
        : actions_(actions), window_(window) {}

    void visit(CheckBox& box) override { made_ = make_check_box(box, actions_, window_); }
    void visit(ComboBox& box) override { made_ = make_combo_box(box, actions_, window_); }
    void visit(CommandButton& button) override {
        made_ = make_command_button(button, actions_, window_);
    }
    void visit(Label& label) override {
        if (label.Design.Role != LabelRole::text)
            made_ = make_label_tab_stop(label, actions_, window_);
    }
    void visit(ListBox& box) override { made_ = make_list_box(box, actions_, window_); }
    void visit(StatusBar& bar) override { made_ = make_status_text(bar, window_); }
    void visit(TextBox& box) override {
        if (!box.Design.IsNeverShown)
            made_ = make_text_entry(box, actions_, window_);
    }
    void visit(UpDown& arrows) override { made_ = make_up_down_arrows(arrows, actions_, window_); }

    std::optional<NativeControl> result() { return std::move(made_); }

  private:
    UserActions& actions_;
    QWidget& window_;
    std::optional<NativeControl> made_;
};

} // namespace

std::optional<NativeControl> make_native_control(Control& control, UserActions& actions,
                                                 QWidget& window) {
    NativeControlMaker maker(actions, window);
    control.accept(maker);
    return maker.result();
}

} // namespace lookfar::desktop
