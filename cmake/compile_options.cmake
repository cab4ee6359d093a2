# SPDX-License-Identifier: MIT
# Warnings are errors only in the developers' presets, so that unknown compilers can build the program.

# One target has the flags, so that no folder sets its own.
add_library(halvern_options INTERFACE)
target_compile_options(halvern_options INTERFACE
  $<$<CXX_COMPILER_ID:GNU,Clang>:-Wall -Wextra -Wpedantic -Wconversion -Wshadow>
  $<$<CXX_COMPILER_ID:MSVC>:/W4 /utf-8>)
target_compile_definitions(halvern_options INTERFACE
  QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_include_directories(halvern_options INTERFACE ${PROJECT_SOURCE_DIR})

# For users of tests/support/find_child.h: gcc 13 and newer assume that the returned widget is part of the
# temporary name that was passed.
add_library(halvern_find_child_options INTERFACE)
target_compile_options(halvern_find_child_options INTERFACE
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_GREATER_EQUAL:$<CXX_COMPILER_VERSION>,13>>:-Wno-dangling-reference>)

if(HALVERN_SANITIZE)
  target_compile_options(halvern_options INTERFACE
    -fsanitize=${HALVERN_SANITIZE} -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(halvern_options INTERFACE -fsanitize=${HALVERN_SANITIZE})
endif()
if(HALVERN_COVERAGE)
  target_compile_options(halvern_options INTERFACE --coverage)
  target_link_options(halvern_options INTERFACE --coverage)
endif()

# halvern_library(<name> [MOC] SOURCES ... LINK ...): the static library of one folder. MOC: its
# sources have classes with signals or slots; searching for them in all libraries would take time.
function(halvern_library name)
  cmake_parse_arguments(LIBRARY "MOC" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} STATIC ${LIBRARY_SOURCES})
  set_target_properties(${name} PROPERTIES AUTOMOC ${LIBRARY_MOC})
  target_link_libraries(${name} PUBLIC ${LIBRARY_LINK} PRIVATE halvern_options)
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
endfunction()
