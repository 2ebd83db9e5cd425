# How every target of the project is compiled: C++20, hidden symbols, and arithmetic that gives the same bits on every machine.
#
# There is one optimised configuration, CMake's Release: -O3 without assertions. It is the default, what people run,
# what is installed, and what the benchmarks measure. Assertions are enabled in the Debug configuration, which the
# sanitizers use as well.

option(VALLORIN_WERROR "Warnings are errors; our presets say so, a build with another compiler need not fail for a new warning" OFF)

get_property(is_multi_config GLOBAL PROPERTY GENERATOR_IS_MULTI_CONFIG)
if(NOT is_multi_config AND NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Release (what people run) or Debug (with assertions)" FORCE)
endif()

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# Programs, libraries and the plug-in have the same places in the build tree as when installed, so that they find each
# other in the same way.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/${CMAKE_INSTALL_BINDIR}")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/${CMAKE_INSTALL_LIBDIR}")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/${CMAKE_INSTALL_LIBDIR}")

find_program(VALLORIN_CCACHE ccache)
if(VALLORIN_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${VALLORIN_CCACHE}")
endif()

add_library(vallorin_compiler INTERFACE)
target_compile_definitions(vallorin_compiler INTERFACE QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII QT_NO_FOREACH)
if(MSVC)
  # 4251, 4275: an exported class has members and bases of the standard library, which every library here gets from one compiler.
  # 5030: attributes of other compilers.
  target_compile_options(vallorin_compiler INTERFACE /W4 $<$<BOOL:${VALLORIN_WERROR}>:/WX> /permissive- /utf-8 /fp:precise /bigobj /wd4251
                                                     /wd4275 /wd5030)
else()
  target_compile_options(
    vallorin_compiler
    INTERFACE -Wall
              -Wextra
              -Wpedantic
              -Wshadow
              -Wconversion
              -Wnon-virtual-dtor
              -Woverloaded-virtual
              -Wold-style-cast
              $<$<BOOL:${VALLORIN_WERROR}>:-Werror>
              -ffp-contract=off
              # Line numbers for crash reports.
              $<$<CONFIG:Release>:-g1>)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 drops the rounding to float between two neighbouring double(float(expression)) when it pairs them into one vector
    # operation (seen at -O2 and above); the results of the pixel code must not depend on that.
    target_compile_options(vallorin_compiler INTERFACE -fno-tree-slp-vectorize)
  endif()
endif()
if(VALLORIN_SANITIZE)
  target_compile_options(vallorin_compiler INTERFACE -fsanitize=${VALLORIN_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  # GCC loses track of initialised variables among the sanitizers' checks.
  target_compile_options(vallorin_compiler INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  target_link_options(vallorin_compiler INTERFACE -fsanitize=${VALLORIN_SANITIZE})
  # What GCC says by itself.
  if(CMAKE_CXX_COMPILER_ID MATCHES "Clang" AND VALLORIN_SANITIZE MATCHES "address")
    target_compile_definitions(vallorin_compiler INTERFACE __SANITIZE_ADDRESS__=1)
  endif()
  if(VALLORIN_SANITIZE MATCHES "thread")
    target_sources(vallorin_compiler INTERFACE
                   $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:${PROJECT_SOURCE_DIR}/tests/sanitizers/CloneWithOwnMemory.cpp>)
  endif()
  # Type information crosses the plug-in's border, where the vptr check sees two copies of it.
  if(VALLORIN_SANITIZE MATCHES "undefined")
    target_compile_options(vallorin_compiler INTERFACE -fno-sanitize=vptr)
    # Qt's lists call memcmp() and memcpy() with null pointers for zero elements.
    target_compile_options(vallorin_compiler INTERFACE -fno-sanitize=nonnull-attribute)
  endif()
endif()
