#pragma once

#include "runtime/controls/visitor.h"

namespace lookfar::desktop {

/// A visitor of the controls that a window draws itself: it passes over the native widgets.
class DrawnControlVisitor : public ControlVisitor {
  public:
    using ControlVisitor::visit;

    void visit(CheckBox&) final {}
    void visit(ComboBox&) final {}
    void visit(CommandButton&) final {}
    void visit(ListBox&) final {}
    void visit(StatusBar&) final {}
    void visit(TextBox&) final {}
    void visit(UpDown&) final {}
};

} // namespace lookfar::desktop
