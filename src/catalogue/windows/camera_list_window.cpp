#include "catalogue/windows/camera_list_window.h"

#include "program.h"

namespace lookfar {

CameraListWindow::CameraListWindow(Program& program)
    : Form(program.runtime, {.Caption = "Skyglass list",
                             .Client = {3975, 3855},
                             .Border = FormBorder::fixed_tool_window,
                             .MinButton = false,
                             .ShowInTaskbar = false,
                             .CentredOnScreen = true,
                             .HasIcon = false}) {}

} // namespace lookfar
