# Headers that most files of several rooms include are compiled once for all of these rooms, which
# halves the time of a build. -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON builds without, so that no file
# needs more than it includes.

# precompile_headers(NAME [LIBRARIES ...] HEADERS ...) compiles headers, which may need libraries.
# A target takes them by: target_precompile_headers(TARGET REUSE_FROM NAME)
# It has to be a library, too, since programs are compiled otherwise, and has to define all that
# these libraries define.
function(precompile_headers name)
    cmake_parse_arguments(PARSE_ARGV 1 argument "" "" "LIBRARIES;HEADERS")
    # A compiler is only run for a target with a source.
    file(CONFIGURE OUTPUT ${name}.cpp CONTENT "")
    add_library(${name} OBJECT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PRIVATE lookfar_options ${argument_LIBRARIES})
    target_precompile_headers(${name} PRIVATE ${argument_HEADERS})
endfunction()

set(standard_headers
    <algorithm> <chrono> <functional> <memory> <optional> <ranges> <span> <string> <variant>
    <vector>)

precompile_headers(lookfar_runtime_headers
    HEADERS ${standard_headers} <runtime/form.h> <runtime/runtime.h>)
precompile_headers(lookfar_qt_headers
    LIBRARIES Qt6::Gui
    HEADERS ${standard_headers}
        <QAccessible> <QIcon> <QImage> <QMouseEvent> <QPainter> <QPainterPath> <QTimer>)
