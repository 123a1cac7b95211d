# Build rules shared by all rooms of the program.

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

add_library(tessimo_flags INTERFACE)
target_include_directories(tessimo_flags INTERFACE ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR}/generated)
target_compile_options(tessimo_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Werror
  # g++ 12 sees overlaps in std::string assignments where there are none.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
  # Results must not depend on the machine: no contraction into fused operations, no fast-math.
  -ffp-contract=off)
if(TESSIMO_SANITIZE)
  target_compile_options(tessimo_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all -g)
  target_link_options(tessimo_flags INTERFACE -fsanitize=address,undefined)
endif()
if(TESSIMO_COVERAGE)
  target_compile_options(tessimo_flags INTERFACE --coverage -O0)
  target_link_options(tessimo_flags INTERFACE --coverage)
endif()

configure_file(${PROJECT_SOURCE_DIR}/core/version.h.in ${PROJECT_BINARY_DIR}/generated/core/version.h @ONLY)

# tessimo_room(NAME LINKS LOWER...): the library of one folder, from all of its sources.
function(tessimo_room name)
  cmake_parse_arguments(ROOM "" "" "LINKS" ${ARGN})
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
