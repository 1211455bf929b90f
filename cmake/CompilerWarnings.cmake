# SPDX-License-Identifier: MIT
# One interface target holds every warning; each target of ours links it privately.
add_library(zorvane_warnings INTERFACE)
target_compile_options(zorvane_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Werror
  -Wconversion -Wsign-conversion -Wold-style-cast -Woverloaded-virtual
  -Wnon-virtual-dtor -Wcast-align -Wnull-dereference -Wformat=2 -Wimplicit-fallthrough
  # Of a folder compiled as one source a file's locals may have the names of what another has for itself.
  $<IF:$<BOOL:$<TARGET_PROPERTY:UNITY_BUILD>>,$<$<CXX_COMPILER_ID:GNU>:-Wshadow=local>,-Wshadow>
  # ... and its own types in the unnamed namespace, which are then in an included file for g++.
  $<$<AND:$<BOOL:$<TARGET_PROPERTY:UNITY_BUILD>>,$<CXX_COMPILER_ID:GNU>>:-Wno-subobject-linkage>
  $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond -Wlogical-op>
  # g++ 12 sees overlaps in assignments of a literal to a std::string that can't be: https://gcc.gnu.org/PR105651
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)
