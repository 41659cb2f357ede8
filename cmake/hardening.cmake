# A mistake that an attacker could use ends the program instead: checks in the library's containers and in functions that write
# into buffers, a guard on each stack frame, relocations that are read-only once the program runs, programs that are loaded at
# any address. tests/end_to_end/check_hardening.sh reads the built files. The sanitizer build has checks of its own.
include(CheckPIESupported)
check_pie_supported()

# What is made for Windows has its own by the linker: any address, no execution of data.
if(WIN32)
  add_compile_options($<$<CONFIG:Release>:-fstack-protector-strong> $<$<CONFIG:Release>:-D_GLIBCXX_ASSERTIONS>)
  add_link_options($<$<CONFIG:Release>:-fstack-protector-strong>)  # what the guard calls is a library there
elseif(NOT GOODS_SANITIZE AND NOT GOODS_SANITIZE_THREADS AND NOT GOODS_FUZZ)
  add_compile_options(
    $<$<CONFIG:Release>:-fstack-protector-strong>
    $<$<CONFIG:Release>:-fstack-clash-protection>
    $<$<CONFIG:Release>:-U_FORTIFY_SOURCE>
    $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=3>
    $<$<CONFIG:Release>:-D_GLIBCXX_ASSERTIONS>)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
    add_compile_options($<$<CONFIG:Release>:-fcf-protection>)
  endif()
endif()
if(NOT WIN32)
  add_link_options(-Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
endif()

# Libraries are looked for beside the program, wherever both have been put.
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
include(GNUInstallDirs)
file(RELATIVE_PATH libraries_from_programs ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
set(CMAKE_INSTALL_RPATH "$ORIGIN/${libraries_from_programs}:$ORIGIN")
