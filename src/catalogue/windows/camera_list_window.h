#pragma once

#include "runtime/controls/lists.h"
#include "runtime/form.h"

namespace lookfar {

class Program;

/// `Form3`: the cameras by title. Its list is the master of the three selector lists.
class CameraListWindow : public Form {
  public:
    explicit CameraListWindow(Program& program);

    // The camera titles.
    ListBox List1{
        *this,
        {.At = {120, 120, 2535, 3570}, .Sorted = true, .TabIndex = 0, .AccessibleName = "Cameras"}};
};

} // namespace lookfar
