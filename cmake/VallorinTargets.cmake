# The kinds of targets of the project. A folder is a target: its sources are the files in it.

include(GenerateExportHeader)
include(VallorinWindowsResource)

# quarvel_add_library(NAME [ROOMS folder...] [PUBLIC dep...] [PRIVATE dep...])
#
# One host library: the shared library NAME from the folder's sources, with the alias Quarvel::NAME. Its public headers
# are at the root of the folder, or in the folders named as ROOMS; private ones are in folders called private. ROOMS
# names the lowest room first: a room includes nothing of a later one (vallorin_add_rooms_test checks that). Plug-ins
# include every public header as "NAME/Header.h", whatever its room: a generated header of that name includes it. The
# project's own sources name the room. The export macro NAME_EXPORT (in upper case) comes from the generated header
# "NAME/NAMEExport.h".
function(quarvel_add_library name)
  cmake_parse_arguments(arg "" "" "ROOMS;PUBLIC;PRIVATE" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp" "${CMAKE_CURRENT_SOURCE_DIR}/*.h")
  add_library(${name} SHARED ${sources})
  add_library(Quarvel::${name} ALIAS ${name})
  string(TOUPPER ${name} upper)
  generate_export_header(${name} EXPORT_MACRO_NAME ${upper}_EXPORT EXPORT_FILE_NAME
                         "${CMAKE_BINARY_DIR}/generated/${name}/${name}Export.h")
  target_include_directories(
    ${name} PUBLIC "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src/Host>" "$<BUILD_INTERFACE:${CMAKE_BINARY_DIR}/generated>"
                   "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/quarvel>")
  target_link_libraries(
    ${name}
    PUBLIC ${arg_PUBLIC}
    PRIVATE ${arg_PRIVATE} $<BUILD_INTERFACE:vallorin_compiler>)
  vallorin_use_precompiled(${name} host)
  vallorin_describe_for_windows(${name} "Library ${name} of Quarvel")
  set_target_properties(${name} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR} INSTALL_RPATH "$ORIGIN"
                                           EXPORT_NAME ${name})
  install(
    TARGETS ${name}
    EXPORT QuarvelTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
  file(GLOB headers CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.h")
  install(FILES ${headers} "${CMAKE_BINARY_DIR}/generated/${name}/${name}Export.h"
          DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quarvel/${name})
  set_target_properties(${name} PROPERTIES VALLORIN_ROOMS "${arg_ROOMS}" VALLORIN_FOLDER "${CMAKE_CURRENT_SOURCE_DIR}")
  foreach(room IN LISTS arg_ROOMS)
    quarvel_install_room(${name} ${room})
  endforeach()
endfunction()

# quarvel_install_room(NAME ROOM)
#
# Generates a header under the library's name alone for each header of a room, and installs both.
function(quarvel_install_room name room)
  file(GLOB headers CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${room}/*.h")
  install(FILES ${headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quarvel/${name}/${room})
  foreach(header IN LISTS headers)
    get_filename_component(file "${header}" NAME)
    set(forward "${CMAKE_BINARY_DIR}/generated/${name}/${file}")
    file(CONFIGURE OUTPUT "${forward}" CONTENT "#include \"${name}/${room}/${file}\" // IWYU pragma: export\n")
    install(FILES "${forward}" DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quarvel/${name})
  endforeach()
endfunction()

# vallorin_leave_out_tests(LIST): for another system, removes from the list those sources that need POSIX.
function(vallorin_leave_out_tests list)
  set(needs "<sys/|<unistd|<sched|\"Limits.h\"")
  foreach(source IN LISTS ${list})
    file(STRINGS "${source}" includes REGEX "#include (${needs})" LIMIT_COUNT 1)
    if(includes)
      list(REMOVE_ITEM ${list} "${source}")
    endif()
  endforeach()
  set(${list}
      ${${list}}
      PARENT_SCOPE)
endfunction()

# vallorin_add_tests(AREA [WITHOUT_QT] [THREADS] [ROOMS room...] [LIBRARIES dep...])
#
# One test program, test_AREA, from the sources in the folder and in the ROOMS, folders in it; CTest knows each of its
# tests by name. WITHOUT_QT: the program does not link Qt. THREADS: the tests use threads of ours; they have the label
# "threads", and .ci/run runs them under the thread sanitizer.
function(vallorin_add_tests area)
  cmake_parse_arguments(arg "WITHOUT_QT;THREADS" "" "ROOMS;LIBRARIES" ${ARGN})
  set(patterns "")
  foreach(room IN LISTS arg_ROOMS ITEMS .)
    list(APPEND patterns "${CMAKE_CURRENT_SOURCE_DIR}/${room}/*.cpp" "${CMAKE_CURRENT_SOURCE_DIR}/${room}/*.h")
  endforeach()
  file(GLOB sources CONFIGURE_DEPENDS ${patterns})
  if(CMAKE_CROSSCOMPILING)
    vallorin_leave_out_tests(sources)
  endif()
  add_executable(test_${area} ${sources})
  target_include_directories(test_${area} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  target_link_libraries(test_${area} PRIVATE ${arg_LIBRARIES} vallorin_compiler GTest::gmock GTest::gtest rapidcheck)
  if("Qt6::Test" IN_LIST arg_LIBRARIES)
    vallorin_use_precompiled(test_${area} widget_tests)
  elseif(NOT arg_WITHOUT_QT)
    vallorin_use_precompiled(test_${area} tests)
  endif()
  if(NOT arg_WITHOUT_QT)
    target_sources(test_${area} PRIVATE "${PROJECT_SOURCE_DIR}/tests/WorkerThreadsEnd.cpp" "${PROJECT_SOURCE_DIR}/src/Apps/jobs/ProgramEnd.cpp")
    target_include_directories(test_${area} PRIVATE "${PROJECT_SOURCE_DIR}/src/Apps")
    target_link_libraries(test_${area} PRIVATE TBB::tbb)
  endif()
  set(labels "")
  if(arg_THREADS)
    set(labels LABELS threads)
    add_dependencies(threaded_tests test_${area})
  endif()
  if(CMAKE_CROSSCOMPILING)
    return() # Another system's programs cannot be asked for their tests while they are built.
  endif()
  gtest_discover_tests(
    test_${area}
    TEST_PREFIX "${area}."
    DISCOVERY_TIMEOUT 60
    # The tests have a folder of their own for what the programs remember for their user.
    PROPERTIES ${labels} TIMEOUT 900 ENVIRONMENT "QT_QPA_PLATFORM=offscreen" ENVIRONMENT_MODIFICATION
               "XDG_STATE_HOME=set:${PROJECT_BINARY_DIR}/tests/state")
endfunction()

# vallorin_add_rooms_test(AREA LIBRARY)
#
# A test of the area: the includes of a host library keep the order of its rooms.
function(vallorin_add_rooms_test area library)
  get_target_property(rooms ${library} VALLORIN_ROOMS)
  get_target_property(folder ${library} VALLORIN_FOLDER)
  add_test(NAME ${area}.RoomsIncludeNoLaterOne COMMAND "${CMAKE_COMMAND}" -DLIBRARY=${library} "-DFOLDER=${folder}" "-DROOMS=${rooms}"
                                                       -P "${PROJECT_SOURCE_DIR}/cmake/CheckRooms.cmake")
endfunction()
