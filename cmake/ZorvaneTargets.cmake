# SPDX-License-Identifier: MIT
if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
  set(zorvane_platform linux)
else()
  set(zorvane_platform elsewhere)
endif()

# zorvane_library(NAME SOURCES... PLATFORM stems... PUBLIC targets... PRIVATE targets...): a folder of src/ as a static
# library. Of each stem the file STEM_linux.cpp or STEM_elsewhere.cpp is taken. Some presets compile a folder as one
# source (ZORVANE_UNITY), so names in its unnamed namespaces differ within the folder.
function(zorvane_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;PLATFORM;PUBLIC;PRIVATE" ${ARGN})
  list(TRANSFORM ARG_PLATFORM APPEND "_${zorvane_platform}.cpp")
  add_library(zorvane_${name} STATIC ${ARG_SOURCES} ${ARG_PLATFORM})
  add_library(zorvane::${name} ALIAS zorvane_${name})
  target_include_directories(zorvane_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(zorvane_${name} PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE} zorvane_warnings)
  set_target_properties(zorvane_${name} PROPERTIES UNITY_BUILD "${ZORVANE_UNITY}" UNITY_BUILD_BATCH_SIZE 0)
  zorvane_foreign_targets(handed_on ${ARG_PUBLIC})
  set_target_properties(zorvane_${name} PROPERTIES ZORVANE_FOREIGN "${handed_on}")
  zorvane_use_headers(zorvane_${name} library ${ARG_PUBLIC} ${ARG_PRIVATE})
endfunction()

# zorvane_test(NAME SOURCES... LINK targets...): a GoogleTest program beside the code that it tests. The same presets
# compile twelve of its sources as one. With sanitizers the start of a process takes longer than most tests, so one
# process runs all of a program's there.
function(zorvane_test name)
  if(NOT ZORVANE_TESTS)
    return()
  endif()
  cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LINK} GTest::gtest GTest::gmock GTest::gtest_main zorvane_warnings)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests
    UNITY_BUILD "${ZORVANE_UNITY}" UNITY_BUILD_BATCH_SIZE 12)
  zorvane_use_headers(${name} test ${ARG_LINK})
  if(ZORVANE_SANITIZE)
    add_test(NAME ${name} COMMAND ${name} --gtest_brief=1)
    set_tests_properties(${name} PROPERTIES TIMEOUT 600)
  else()
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300)
  endif()
endfunction()
