# Build rules shared by all rooms of the program.

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  # Without these two ccache leaves alone what uses a precompiled header. Both are safe here: macros
  # come from the command line, which it hashes, and no source asks for the time of its compilation.
  set(CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE_PROGRAM})
endif()

add_library(tessimo_flags INTERFACE)
target_include_directories(tessimo_flags INTERFACE ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR}/generated)
# Results must not depend on the machine: no contraction into fused operations, no fast-math.
target_compile_options(tessimo_flags INTERFACE -ffp-contract=off)
# g++ is the one that judges; clang builds what it has passed.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(tessimo_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Werror
    # g++ 12 sees overlaps in std::string assignments where there are none.
    -Wno-restrict)
endif()
if(TESSIMO_SANITIZE)
  # For the fuzz targets every room counts its edges; a build for tests alone does not mind.
  set(sanitizers address,undefined$<$<BOOL:${TESSIMO_FUZZ}>:,fuzzer-no-link>)
  target_compile_options(tessimo_flags INTERFACE
    -fsanitize=${sanitizers} -fno-sanitize-recover=all -O1 -g1 -fno-omit-frame-pointer)
  target_link_options(tessimo_flags INTERFACE -fsanitize=${sanitizers})
endif()
# Tests are built more often than they run: what sets this property is not optimized, which halves
# the time of a build.
target_compile_options(tessimo_flags INTERFACE $<$<BOOL:$<TARGET_PROPERTY:TESSIMO_QUICK_BUILD>>:-O0>)
if(TESSIMO_COVERAGE)
  target_compile_options(tessimo_flags INTERFACE --coverage -O0)
  target_link_options(tessimo_flags INTERFACE --coverage)
endif()

# Headers of the libraries that most sources read are read once. Our own are not among them, so that
# a change of one builds anew only what includes it. Only g++ does so: in the build of clang a source
# finds what it includes itself, and one that forgets an include fails there.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND NOT TESSIMO_COVERAGE)
  set(TESSIMO_PRECOMPILE ON)
  # A compiler that begins with a full heap must not search it for garbage at once.
  target_compile_options(tessimo_flags INTERFACE
    "SHELL:--param ggc-min-expand=1000" "SHELL:--param ggc-min-heapsize=1000000")
endif()
set(TESSIMO_STANDARD_HEADERS <algorithm> <array> <charconv> <cmath> <filesystem> <functional>
  <limits> <map> <memory> <optional> <span> <sstream> <stdexcept> <string> <string_view> <utility>
  <variant> <vector>)
set(TESSIMO_TOOLKIT_HEADERS <QApplication> <QKeyEvent> <QMainWindow> <QPainter> <QPushButton> <QTimer>
  <QVBoxLayout>)

# tessimo_precompile(TARGET HEADER...): precompiles these headers for the sources of the target.
function(tessimo_precompile target)
  if(TESSIMO_PRECOMPILE)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()

# tessimo_reuse_precompiled(TARGET OWNER): the target reads what was precompiled for the owner, whose
# compiler options it must share.
function(tessimo_reuse_precompiled target owner)
  if(TESSIMO_PRECOMPILE)
    target_precompile_headers(${target} REUSE_FROM ${owner})
  endif()
endfunction()

configure_file(${PROJECT_SOURCE_DIR}/core/version.h.in ${PROJECT_BINARY_DIR}/generated/core/version.h @ONLY)

find_package(PkgConfig REQUIRED)

# tessimo_room(NAME LINKS LOWER... PACKAGES MODULE...): the library of one folder, from all of its
# sources, with the rooms below it and the libraries that pkg-config knows by these names.
function(tessimo_room name)
  cmake_parse_arguments(ROOM "" "" "LINKS;PACKAGES" ${ARGN})
  foreach(package ${ROOM_PACKAGES})
    if(NOT TARGET PkgConfig::${package})
      pkg_check_modules(${package} REQUIRED IMPORTED_TARGET GLOBAL ${package})
    endif()
    list(APPEND ROOM_LINKS PkgConfig::${package})
  endforeach()
  string(REPLACE "/" "_" target ${name})
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${name}/*.cpp)
  list(FILTER sources EXCLUDE REGEX "main\\.cpp$")
  if(NOT sources)
    add_library(${target} INTERFACE)
    target_link_libraries(${target} INTERFACE tessimo_flags ${ROOM_LINKS})
    return()
  endif()
  add_library(${target} STATIC ${sources})
  target_link_libraries(${target} PUBLIC tessimo_flags ${ROOM_LINKS})
  if(target STREQUAL "core")
    tessimo_precompile(core ${TESSIMO_STANDARD_HEADERS})
  else()
    tessimo_reuse_precompiled(${target} core)
  endif()
endfunction()

# tessimo_add_test(NAME COMMAND [ARGUMENT...]): a test that is a program of its own. In a build with
# sanitizers its name says so, and the reports tell the place.
function(tessimo_add_test name)
  if(TESSIMO_SANITIZE)
    set(name sanitized.${name})
  endif()
  add_test(NAME ${name} COMMAND ${ARGN})
  # What GoogleTest and unittest say of a case that did not run: it counts as one that failed.
  set_tests_properties(${name} PROPERTIES FAIL_REGULAR_EXPRESSION "  SKIPPED |skipped=")
  if(TESSIMO_SANITIZE)
    set_tests_properties(${name} PROPERTIES ENVIRONMENT "${TESSIMO_SANITIZER_ENVIRONMENT}")
  endif()
endfunction()

set(TESSIMO_SANITIZER_ENVIRONMENT
  UBSAN_OPTIONS=print_stacktrace=1
  LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/cmake/leaks_of_libraries.txt:print_suppressions=0
  ASAN_SYMBOLIZER_PATH=/usr/bin/llvm-symbolizer-16)
