# SPDX-License-Identifier: MIT
# Headers of others that take a compiler longer than the file that includes them: GoogleTest, Qt's widgets, CLI11 and
# nlohmann's JSON. They are compiled once for all targets. No header of ours is among them, and a file includes what it
# uses as if there were none: the preset `tidy` builds without.
option(ZORVANE_PRECOMPILE "Compile GoogleTest's, Qt's and the command line's headers once for all targets (clang only)" ON)
if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  # g++ takes them only with the very same macros, and each target has its own.
  set(ZORVANE_PRECOMPILE OFF)
endif()

# Instantiated with the headers, not in each file again; and without the times of the headers, which ccache couldn't
# compare.
set(CMAKE_PCH_INSTANTIATE_TEMPLATES ON)
if(ZORVANE_PRECOMPILE)
  # CMake also includes the header by its full path, which does nothing more, but no other folder's object would fit.
  set(CMAKE_CXX_COMPILE_OPTIONS_USE_PCH -Xclang -include-pch -Xclang <PCH_FILE>)
endif()

# zorvane_headers_sum(RESULT targets and headers...): what the compiled headers come from. ccache takes it for their
# content, which has the paths of the build folder in it: so one worktree's objects serve another.
function(zorvane_headers_sum result)
  set(sum ${CMAKE_CXX_COMPILER_ID} ${CMAKE_CXX_COMPILER_VERSION} ${CMAKE_CXX_FLAGS} ${CMAKE_BUILD_TYPE} ${ZORVANE_SANITIZE}
    ${ZORVANE_FUZZ})
  foreach(link IN LISTS ARGN)
    string(REGEX REPLACE "::.*" "_VERSION" version ${link})
    list(APPEND sum ${link} ${${version}})
  endforeach()
  foreach(folder IN LISTS CMAKE_CXX_IMPLICIT_INCLUDE_DIRECTORIES)
    if(EXISTS ${folder}/bits/c++config.h)
      file(SHA256 ${folder}/bits/c++config.h library)
      list(APPEND sum ${library})
    endif()
  endforeach()
  string(SHA256 sum "${sum}")
  set(${result} ${sum} PARENT_SCOPE)
endfunction()

# zorvane_headers(NAME HEADERS headers... LINK targets...): compiled headers, for zorvane_use_headers.
function(zorvane_headers name)
  if(NOT ZORVANE_PRECOMPILE)
    return()
  endif()
  cmake_parse_arguments(ARG "" "" "HEADERS;LINK" ${ARGN})
  set(target zorvane_headers_${name})
  add_library(${target} OBJECT ${PROJECT_SOURCE_DIR}/cmake/headers.cpp)
  target_link_libraries(${target} PRIVATE ${ARG_LINK} zorvane_warnings)
  target_compile_options(${target} PRIVATE "SHELL:-Xclang -fno-pch-timestamp")
  target_precompile_headers(${target} PRIVATE ${ARG_HEADERS})
  # Not by way of ccache: it would hand out those of another folder, which the compiler refuses once that is gone.
  set_target_properties(${target} PROPERTIES CXX_COMPILER_LAUNCHER "")
  zorvane_headers_sum(sum ${ARG_LINK} ${ARG_HEADERS})
  file(GENERATE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/CMakeFiles/${target}.dir/cmake_pch.hxx.pch.sum CONTENT ${sum})
endfunction()

# zorvane_use_headers(TARGET KIND targets...): gives a target the compiled headers that go with what it links. KIND is
# "library" or "test".
function(zorvane_use_headers target kind)
  zorvane_foreign_targets(foreign ${ARGN})
  if(foreign MATCHES "Qt6::")
    set(headers qt_${kind})
  elseif(foreign MATCHES "CLI11::|nlohmann_json::")
    set(headers command_line_${kind})
  else()
    set(headers plain_${kind})
  endif()
  if(TARGET zorvane_headers_${headers})
    target_precompile_headers(${target} REUSE_FROM zorvane_headers_${headers})
  endif()
endfunction()

# zorvane_foreign_targets(RESULT targets...): those of others among the targets, and those that ours hand on.
function(zorvane_foreign_targets result)
  set(foreign ${ARGN})
  list(FILTER foreign EXCLUDE REGEX "^zorvane")
  foreach(link IN LISTS ARGN)
    # Test doubles of the same folder may come after the rooms in it: they hand on nothing of others.
    if(link MATCHES "^zorvane::" AND TARGET ${link})
      get_target_property(handed_on ${link} ZORVANE_FOREIGN)
      list(APPEND foreign ${handed_on})
    endif()
  endforeach()
  set(${result} ${foreign} PARENT_SCOPE)
endfunction()

set(test_headers <gmock/gmock.h> <gtest/gtest.h>)
set(command_line_headers <CLI/CLI.hpp> <nlohmann/json.hpp>)
set(qt_headers <QAccessible> <QAction> <QApplication> <QClipboard> <QComboBox> <QDir> <QFile> <QFileDialog> <QHeaderView>
  <QKeyEvent> <QLabel> <QLineEdit> <QMenuBar> <QPainter> <QPlainTextEdit> <QPointer> <QPushButton> <QScrollBar> <QTimer>)

zorvane_headers(command_line_library HEADERS ${command_line_headers} LINK CLI11::CLI11 nlohmann_json::nlohmann_json)
if(ZORVANE_QT)
  zorvane_headers(qt_library HEADERS ${qt_headers} LINK Qt6::Widgets)
endif()
if(ZORVANE_TESTS)
  zorvane_headers(plain_test HEADERS ${test_headers} LINK GTest::gmock GTest::gtest)
  zorvane_headers(command_line_test HEADERS ${test_headers} <nlohmann/json.hpp>
    LINK GTest::gmock GTest::gtest nlohmann_json::nlohmann_json)
  if(ZORVANE_QT)
    zorvane_headers(qt_test HEADERS ${test_headers} ${qt_headers} LINK GTest::gmock GTest::gtest Qt6::Widgets)
  endif()
endif()
