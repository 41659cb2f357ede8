# What nearly every source includes is read once for all of them: headers of the standard library, of GoogleTest and of Qt. With clang
# alone, which takes over from such a file what it needs of it; g++ loses in making it what it gains. In builds that only check
# (Debug with GOODS_UNITY), since a source that has them anyway does not show that it forgot one: the preset debug does.
set(precompiled_standard <algorithm> <array> <atomic> <charconv> <chrono> <condition_variable> <cstdint> <cstring> <filesystem> <fstream>
  <functional> <iostream> <map> <memory> <mutex> <optional> <set> <span> <sstream> <string> <string_view> <thread> <tuple>
  <unordered_map> <unordered_set> <utility> <variant> <vector>)
set(precompiled_qt <QApplication> <QComboBox> <QDialog> <QLabel> <QLineEdit> <QMainWindow> <QPainter> <QPushButton> <QSettings>
  <QTableView> <QTimer>)

# Sources that differ in these cannot share such a file: whether they are optimized, see GoogleTest, see Qt.
function(goods_precompiled_kind target result)
  get_target_property(options ${target} COMPILE_OPTIONS)
  get_target_property(libraries ${target} LINK_LIBRARIES)
  set(kind goods_precompiled)
  if(options MATCHES "-O0")
    string(APPEND kind _quickly)
  endif()
  if(libraries MATCHES "GTest")
    string(APPEND kind _tests)
  endif()
  if(target MATCHES "desktop|goods-report|goods-pictures")
    string(APPEND kind _qt)
  endif()
  set(${result} ${kind} PARENT_SCOPE)
endfunction()

function(goods_add_precompiled kind)
  set(source ${PROJECT_BINARY_DIR}/${kind}.cpp)
  file(CONFIGURE OUTPUT ${source} CONTENT "")
  add_library(${kind} OBJECT ${source})
  target_precompile_headers(${kind} PRIVATE ${precompiled_standard})
  target_compile_options(${kind} PRIVATE "SHELL:-Xclang -fno-pch-timestamp")  # its time says nothing to ccache
  if(kind MATCHES _quickly)
    target_compile_options(${kind} PRIVATE -O0)
  endif()
  if(kind MATCHES _tests)
    target_compile_definitions(${kind} PRIVATE GTEST_HAS_PTHREAD=1)
    target_precompile_headers(${kind} PRIVATE <gtest/gtest.h>)
  endif()
  if(kind MATCHES _qt)
    find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets)
    # Its folders, not its definitions: a layer has those of the parts of Qt that it sees.
    target_include_directories(${kind} SYSTEM PRIVATE $<TARGET_PROPERTY:Qt6::Widgets,INTERFACE_INCLUDE_DIRECTORIES>
      $<TARGET_PROPERTY:Qt6::Gui,INTERFACE_INCLUDE_DIRECTORIES> $<TARGET_PROPERTY:Qt6::Core,INTERFACE_INCLUDE_DIRECTORIES>)
    target_precompile_headers(${kind} PRIVATE ${precompiled_qt})
  endif()
endfunction()

# Of the folder and those below it, every target that has C++ sources and no other.
function(goods_precompile_folder folder)
  get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
  foreach(target ${targets})
    get_target_property(type ${target} TYPE)
    get_target_property(sources ${target} SOURCES)
    if(type MATCHES "UTILITY|INTERFACE" OR NOT sources MATCHES "[.]cpp" OR sources MATCHES "[.]c(;|$)" OR target STREQUAL "header_checks")
      continue()
    endif()
    goods_precompiled_kind(${target} kind)
    if(NOT TARGET ${kind})
      goods_add_precompiled(${kind})
    endif()
    target_precompile_headers(${target} REUSE_FROM ${kind})
    if(type STREQUAL "EXECUTABLE")  # as the libraries, which share the file
      target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-fPIC>)
    endif()
  endforeach()
  get_property(folders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
  foreach(below ${folders})
    goods_precompile_folder(${below})
  endforeach()
endfunction()

if(GOODS_UNITY AND CMAKE_BUILD_TYPE STREQUAL "Debug" AND CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  goods_precompile_folder(${PROJECT_SOURCE_DIR})
endif()
