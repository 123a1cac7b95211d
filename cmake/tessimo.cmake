# Build rules shared by all rooms of the program.

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
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
endfunction()

# tessimo_add_test(NAME COMMAND [ARGUMENT...]): a test that is a program of its own. In a build with
# sanitizers its name says so, and the reports tell the place.
function(tessimo_add_test name)
  if(TESSIMO_SANITIZE)
    set(name sanitized.${name})
  endif()
  add_test(NAME ${name} COMMAND ${ARGN})
  if(TESSIMO_SANITIZE)
    set_tests_properties(${name} PROPERTIES ENVIRONMENT "${TESSIMO_SANITIZER_ENVIRONMENT}")
  endif()
endfunction()

set(TESSIMO_SANITIZER_ENVIRONMENT
  UBSAN_OPTIONS=print_stacktrace=1
  LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/cmake/leaks_of_libraries.txt:print_suppressions=0
  ASAN_SYMBOLIZER_PATH=/usr/bin/llvm-symbolizer-16)
