# SPDX-License-Identifier: MIT
# What makes a memory error in an optimised build end the program instead of handing it over. Debug builds go without:
# the sanitizers find more there, and _FORTIFY_SOURCE works in optimised code only.
# Not CMake's property: that makes libraries with -fPIC, with which the compiler inlines less. Where Qt asks for -fPIC
# it comes later on the command line, and holds.
string(APPEND CMAKE_CXX_FLAGS_RELEASE " -fPIE")
string(APPEND CMAKE_EXE_LINKER_FLAGS_RELEASE " -pie")

include(CheckCXXCompilerFlag)
check_cxx_compiler_flag(-fstack-clash-protection ZORVANE_HAS_STACK_CLASH_PROTECTION)
check_cxx_compiler_flag(-fcf-protection ZORVANE_HAS_CF_PROTECTION)

# Level 3 came with g++ 12.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 12)
  set(fortify_level 3)
else()
  set(fortify_level 2)
endif()

set(hardening
  -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=${fortify_level}
  -fstack-protector-strong
  -Wformat -Werror=format-security)
if(ZORVANE_HAS_STACK_CLASH_PROTECTION)
  list(APPEND hardening -fstack-clash-protection)
endif()
if(ZORVANE_HAS_CF_PROTECTION)
  list(APPEND hardening -fcf-protection)
endif()
add_compile_options("$<$<CONFIG:Release>:${hardening}>")
add_link_options($<$<CONFIG:Release>:LINKER:-z,relro,-z,now>)
