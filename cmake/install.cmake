# What "cmake --install" puts where, by component: host (the host packages), module (the reports), desktop, tools (the
# programs of the terminal), development (headers, CMake package, pkg-config files). Everything finds everything else by
# paths relative to itself, so an installed tree can be moved.
include(CMakePackageConfigHelpers)

set(headers ${CMAKE_INSTALL_INCLUDEDIR}/goods-reports)
set(package ${CMAKE_INSTALL_LIBDIR}/cmake/GoodsReports)

install(TARGETS goods_host
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT host NAMELINK_COMPONENT development
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT host
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(TARGETS Goods_Transaction_QRT
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT module NAMELINK_COMPONENT development
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT module
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)

# Headers keep the paths that they are included with.
install(DIRECTORY host DESTINATION ${headers} COMPONENT development FILES_MATCHING PATTERN "*.h")
install(DIRECTORY include/ DESTINATION ${headers} COMPONENT development FILES_MATCHING PATTERN "*.h")
install(FILES ${PROJECT_BINARY_DIR}/layers/host_core/goods_host_version.h DESTINATION ${headers} COMPONENT development)

set(packaged host module)
if(GOODS_COMPANY)
  list(APPEND packaged company)
  install(TARGETS goods_company ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
  file(GLOB company_headers CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/company/*.h)
  install(FILES ${company_headers} DESTINATION ${headers}/company COMPONENT development)
  install(TARGETS goods-company RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tools)
endif()
if(GOODS_COMPANY AND GOODS_DESKTOP)
  install(TARGETS goods-report RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tools)
  install(TARGETS goods-desktop RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT desktop)
  install(TARGETS goods_desktop_shared
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT desktop NAMELINK_COMPONENT development
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT desktop
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
  list(APPEND packaged desktop)
endif()

# The CMake package; a component that was not built is not there.
string(JOIN " " GOODS_COMPONENTS ${packaged})
configure_package_config_file(cmake/package/GoodsReportsConfig.cmake.in ${PROJECT_BINARY_DIR}/package/GoodsReportsConfig.cmake
  INSTALL_DESTINATION ${package}
  PATH_VARS CMAKE_INSTALL_LIBDIR CMAKE_INSTALL_INCLUDEDIR)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/package/GoodsReportsConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/package/GoodsReportsConfig.cmake ${PROJECT_BINARY_DIR}/package/GoodsReportsConfigVersion.cmake
  DESTINATION ${package} COMPONENT development)

set(GOODS_WORKBOOK_PACKAGES "")
if(GOODS_WORKBOOKS)
  set(GOODS_WORKBOOK_PACKAGES " liborcus-0.17 zlib")
endif()

# pkg-config: goods-host, goods-module, goods-desktop, goods-company.
file(RELATIVE_PATH GOODS_PREFIX_FROM_PC ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
foreach(name ${packaged})
  configure_file(cmake/package/goods-${name}.pc.in ${PROJECT_BINARY_DIR}/package/goods-${name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/package/goods-${name}.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endforeach()
