# One interface target holds every warning; each target of ours links it privately.
add_library(zorvane_warnings INTERFACE)
target_compile_options(zorvane_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Werror
  -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Woverloaded-virtual
  -Wnon-virtual-dtor -Wcast-align -Wnull-dereference -Wformat=2 -Wimplicit-fallthrough
  $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond -Wlogical-op>)
