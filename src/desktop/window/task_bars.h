#pragma once

class QWidget;

namespace lookfar::desktop {

/// Asks task bars and pagers of the X server to leave out a window that is about to be shown; to be
/// asked for each time. Qt leaves out tool windows only, which some window managers keep above all
/// others of the program, the one over the whole screen too.
void keep_out_of_task_bars(const QWidget& window);

} // namespace lookfar::desktop
