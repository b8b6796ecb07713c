# Headers that the compiler reads once for many sources. A source still includes all that it uses, which lint checks.

set(EMPTY_SOURCE ${CMAKE_BINARY_DIR}/headers/empty.cpp)
file(CONFIGURE OUTPUT ${EMPTY_SOURCE} CONTENT "")

set(STANDARD_HEADERS <algorithm> <array> <atomic> <chrono> <filesystem> <fstream> <functional> <map> <memory> <mutex>
  <optional> <string> <string_view> <thread> <utility> <vector>)

if(CCACHE)
  # What the compiler cache asks of a compiler whose precompiled headers it is to know again.
  add_compile_options(
    "$<$<COMPILE_LANG_AND_ID:CXX,GNU>:-fpch-preprocess>"
    "$<$<COMPILE_LANG_AND_ID:CXX,Clang>:SHELL:-Xclang -fno-pch-timestamp>")
endif()

# add_headers(NAME HEADER...): reads the headers as NAME, for the targets that use_headers gives them to.
function(add_headers name)
  add_library(${name} OBJECT ${EMPTY_SOURCE})
  target_link_libraries(${name} PRIVATE kestrune_options)
  target_precompile_headers(${name} PRIVATE ${ARGN})
endfunction()

# Of headers that were read beforehand gcc forgets that they are the system's, and warns of wmemcpy within them.
function(ignore_system_copies target)
  target_compile_options(${target} PRIVATE
    $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wno-array-bounds> $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wno-stringop-overread>)
endfunction()

# use_headers(NAME): the targets of this folder read those headers, except for those that have headers of their own.
function(use_headers name)
  get_property(targets DIRECTORY PROPERTY BUILDSYSTEM_TARGETS)
  foreach(target IN LISTS targets)
    get_target_property(type ${target} TYPE)
    get_target_property(own ${target} PRECOMPILE_HEADERS)
    get_target_property(shared ${target} PRECOMPILE_HEADERS_REUSE_FROM)
    if(type MATCHES "EXECUTABLE|LIBRARY" AND NOT type STREQUAL "INTERFACE_LIBRARY" AND NOT own AND NOT shared)
      target_precompile_headers(${target} REUSE_FROM ${name})
      ignore_system_copies(${target})
    endif()
  endforeach()
endfunction()
