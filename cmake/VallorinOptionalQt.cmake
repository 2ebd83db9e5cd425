# The modules of Qt that a build for another system may lack. A build for this system requires them, so that a missing package is an
# error and leaves nothing out.

if(NOT CMAKE_CROSSCOMPILING)
  find_package(Qt6 6.4 REQUIRED COMPONENTS UiTools LinguistTools)
  return()
endif()

find_package(Qt6UiTools 6.4 QUIET)
if(NOT TARGET Qt6::UiTools)
  message(STATUS "Qt's module UiTools is missing for ${CMAKE_SYSTEM_NAME}: built without the plug-ins' own editors")
endif()

# Translations are the same on every system, so the tools of this machine make them.
foreach(tool lrelease lupdate)
  find_program(VALLORIN_${tool} ${tool} HINTS /usr/lib/qt6/bin REQUIRED)
  add_executable(Qt6::${tool} IMPORTED GLOBAL)
  set_target_properties(Qt6::${tool} PROPERTIES IMPORTED_LOCATION "${VALLORIN_${tool}}")
endforeach()
