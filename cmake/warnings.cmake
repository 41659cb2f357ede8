# How every target of the project compiles. What stands here reaches this folder and those below it, not a project that
# includes this one.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 11)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_OPTIMIZE_DEPENDENCIES ON)  # a layer is compiled without waiting for those that it sees
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
if(PROJECT_IS_TOP_LEVEL AND NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()

# With GOODS_WARNINGS a warning stops the build. g++ 12 reports two of them wrongly: -Wrestrict for one-character
# std::string literals, -Wmaybe-uninitialized for the empty state of std::variant and std::optional. The sanitizer build
# finds real ones.
if(GOODS_WARNINGS)
  add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-Wno-restrict -Wno-maybe-uninitialized)
  endif()
endif()
if(GOODS_FUZZ AND GOODS_FUZZ_PLAIN)
  add_compile_options(-fsanitize=fuzzer-no-link -D_GLIBCXX_ASSERTIONS)
elseif(GOODS_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(GOODS_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_compile_definitions(GOODS_SANITIZED)
  add_link_options(-fsanitize=address,undefined)
  # clang has what it needs at run time in programs alone, unless it is told to share it with the libraries.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libclang_rt.asan-${CMAKE_SYSTEM_PROCESSOR}.so
      OUTPUT_VARIABLE sanitizer_runtime OUTPUT_STRIP_TRAILING_WHITESPACE)
    get_filename_component(sanitizer_folder ${sanitizer_runtime} DIRECTORY)
    add_link_options(-shared-libasan -Wl,-rpath,${sanitizer_folder})
  endif()
endif()

if(GOODS_SANITIZE_THREADS)
  add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
  add_link_options(-fsanitize=thread)
endif()

# The system's own header defines min and max, and much that nobody here asks for, unless it is told not to.
if(WIN32)
  add_compile_definitions(NOMINMAX WIN32_LEAN_AND_MEAN UNICODE _WIN32_WINNT=0x0A00)
endif()

if(GOODS_UNITY)
  set(CMAKE_UNITY_BUILD ON)
  set(CMAKE_UNITY_BUILD_BATCH_SIZE ${GOODS_UNITY_BATCH})
  # Memory for time: g++ looks for what it could give back once it has taken 512 MB, not again and again before.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(--param=ggc-min-heapsize=524288)
  endif()
endif()

if(PROJECT_IS_TOP_LEVEL AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  find_program(CCACHE ccache)
  if(CCACHE)
    # What a source includes is known from the compiler then; otherwise ccache reads each new source once more for itself.
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_DEPEND=1 CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE})
    set(CMAKE_C_COMPILER_LAUNCHER ${CMAKE_CXX_COMPILER_LAUNCHER})
  endif()
endif()
