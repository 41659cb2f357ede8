# A layer is one folder and one CMake target. Its headers are reached as "<folder>/<file>.h", and only by targets that
# say they see the layer: each has an include root of its own (a link in the build tree), so an include of a layer that
# is not seen does not compile.

# goods_layer_include(<target> <folder> <PUBLIC|INTERFACE>): gives the target its include root.
function(goods_layer_include target folder scope)
  set(root ${PROJECT_BINARY_DIR}/layers/${target})
  get_filename_component(parent ${root}/${folder} DIRECTORY)
  file(MAKE_DIRECTORY ${parent})
  if(NOT EXISTS ${root}/${folder})
    file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${folder} ${root}/${folder} SYMBOLIC)
  endif()
  target_include_directories(${target} ${scope} ${root})
endfunction()

# goods_of_this_system(<list>): takes the sources of other systems out of it. A file whose name ends in "_posix" or "_win32"
# holds what is written for that system.
function(goods_of_this_system list)
  if(WIN32)
    list(FILTER ${list} EXCLUDE REGEX "_posix[.]cpp$")
  else()
    list(FILTER ${list} EXCLUDE REGEX "_win32[.]cpp$")
  endif()
  set(${list} ${${list}} PARENT_SCOPE)
endfunction()

# goods_layer(<target> <folder> [SEES <target>...] [WITHOUT <file>...]): an object library of every .cpp of this system directly
# in the folder, but for some.
function(goods_layer target folder)
  cmake_parse_arguments(LAYER "" "" "SEES;WITHOUT" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp)
  goods_of_this_system(sources)
  list(TRANSFORM LAYER_WITHOUT PREPEND ${PROJECT_SOURCE_DIR}/${folder}/)
  list(REMOVE_ITEM sources ${LAYER_WITHOUT} "")
  file(GLOB headers CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.h)
  if(sources)
    add_library(${target} OBJECT ${sources} ${headers})
    goods_layer_include(${target} ${folder} PUBLIC)
    target_link_libraries(${target} PUBLIC ${LAYER_SEES})
  else()
    add_library(${target} INTERFACE ${headers})
    goods_layer_include(${target} ${folder} INTERFACE)
    target_link_libraries(${target} INTERFACE ${LAYER_SEES})
  endif()
endfunction()

# goods_make_unloadable(<target>...): what a header defines inline is an ordinary symbol there. g++ makes variables of that kind
# unique in the process, and the library that has one of them then stays in memory after it was closed.
function(goods_make_unloadable)
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    return()
  endif()
  foreach(target ${ARGN})
    get_target_property(type ${target} TYPE)
    if(NOT type STREQUAL "INTERFACE_LIBRARY")
      target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-fno-gnu-unique>)
    endif()
  endforeach()
endfunction()

# goods_compiled_apart(<file>...): sources of this CMakeLists.txt whose private names others of their target have too, or
# whose classes hold private ones; with GOODS_UNITY they are compiled by themselves.
function(goods_compiled_apart)
  foreach(file ${ARGN})
    list(APPEND files ${PROJECT_SOURCE_DIR}/${file})
  endforeach()
  set_source_files_properties(${files} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()

# goods_by_the_test_compiler(): with GOODS_TEST_COMPILER, what this folder and those below it build is compiled by that. What is
# measured is not built so (bench/run).
macro(goods_by_the_test_compiler)
  if(GOODS_TEST_COMPILER)
    add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-O0> $<$<COMPILE_LANGUAGE:CXX>:-U_FORTIFY_SOURCE>)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${PROJECT_SOURCE_DIR}/cmake/compiled_by ${GOODS_TEST_COMPILER})
  endif()
endmacro()

# goods_read_once(<target>...): what works once a start, on the command line that it was given, is compiled for that: in half the
# time that the optimizer takes.
function(goods_read_once)
  foreach(target ${ARGN})
    target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-O1> $<$<CONFIG:Debug>:-O0>)
  endforeach()
endfunction()
