# Headers of other libraries that nearly every source reads are compiled once, which halves the cost of a build. Sources
# still include what they use; the debug preset builds without precompiled headers and would reveal a missing include.

option(VALLORIN_PRECOMPILED "Compile the headers of other libraries once" ON)

# The compiler accepts a precompiled header only where the same macros are defined, so the targets that hold them use
# Qt's headers and the definitions that all targets share.
function(vallorin_precompiled_headers name)
  file(WRITE "${CMAKE_BINARY_DIR}/generated/${name}.cpp.new" "// Holds the precompiled headers.\n")
  file(COPY_FILE "${CMAKE_BINARY_DIR}/generated/${name}.cpp.new" "${CMAKE_BINARY_DIR}/generated/${name}.cpp" ONLY_IF_DIFFERENT)
  add_library(${name} OBJECT EXCLUDE_FROM_ALL "${CMAKE_BINARY_DIR}/generated/${name}.cpp")
  foreach(library Core Gui Xml Widgets)
    target_include_directories(${name} SYSTEM PRIVATE "$<TARGET_PROPERTY:Qt6::${library},INTERFACE_INCLUDE_DIRECTORIES>")
  endforeach()
  target_compile_definitions(${name} PRIVATE QT_CORE_LIB $<$<NOT:$<CONFIG:Debug>>:QT_NO_DEBUG>)
  target_link_libraries(${name} PRIVATE vallorin_compiler)
  target_precompile_headers(${name} PRIVATE ${ARGN})
endfunction()

set(standard_headers
    <algorithm>
    <array>
    <cassert>
    <cmath>
    <cstdint>
    <functional>
    <limits>
    <map>
    <memory>
    <optional>
    <ranges>
    <span>
    <string>
    <utility>
    <vector>)
set(core_headers
    <QByteArray>
    <QCoreApplication>
    <QDir>
    <QFile>
    <QFileInfo>
    <QHash>
    <QMap>
    <QObject>
    <QRegularExpression>
    <QSet>
    <QString>
    <QStringList>)
set(gui_headers <QColor> <QImage> <QPainter> <QPainterPath> <QTransform> <QDomElement>)
set(widget_headers
    <QAction>
    <QApplication>
    <QBoxLayout>
    <QComboBox>
    <QEvent>
    <QLabel>
    <QLineEdit>
    <QMenu>
    <QPushButton>
    <QSpinBox>
    <QTimer>
    <QToolButton>
    <QWidget>)

if(VALLORIN_PRECOMPILED AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  vallorin_precompiled_headers(precompiled_host ${standard_headers} ${core_headers} ${gui_headers})
  vallorin_precompiled_headers(precompiled_widgets ${standard_headers} ${core_headers} ${gui_headers} ${widget_headers})
  if(VALLORIN_TESTS)
    find_package(GTest REQUIRED)
    find_package(rapidcheck REQUIRED)
    vallorin_precompiled_headers(precompiled_tests ${standard_headers} ${core_headers} ${gui_headers} <gtest/gtest.h> <gmock/gmock.h>
                                 <rapidcheck/gtest.h>)
    target_link_libraries(precompiled_tests PRIVATE GTest::gmock GTest::gtest rapidcheck)
    vallorin_precompiled_headers(
      precompiled_widget_tests ${standard_headers} ${core_headers} ${gui_headers} ${widget_headers} <gtest/gtest.h> <gmock/gmock.h>
      <rapidcheck/gtest.h>)
    target_link_libraries(precompiled_widget_tests PRIVATE GTest::gmock GTest::gtest rapidcheck)
  endif()
endif()

# Lets a target read the headers from the set NAME (host, widgets, tests or widget_tests).
function(vallorin_use_precompiled target name)
  if(TARGET precompiled_${name})
    target_precompile_headers(${target} REUSE_FROM precompiled_${name})
  endif()
endfunction()
