# Debian packages, one a component of the installation: "cpack" in the build folder writes them to packages/. scripts/make-packages
# does all of it, scripts/check-packages installs and removes them in an empty root.
include(cmake/packages/debian_changelog.cmake)
set(GOODS_PACKAGE_CONTACT "Goods Reports <goods-reports@example.org>" CACHE STRING "Who the packages say made them")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME goods-reports)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT ${GOODS_PACKAGE_CONTACT})
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE none)
set(CPACK_POST_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/packages/finish_packages.cmake)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
# What a program or library is linked with is asked of the system's packages; our own are told below.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/lib)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

# goods_package(<component> <package> <section> <depends on components> <synopsis> <description>): its name and texts,
# and the files that every package has.
set(CPACK_COMPONENTS_ALL "")
function(goods_package component package section depends synopsis description)
  string(TOUPPER ${component} upper)
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${package} PARENT_SCOPE)
  set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section} PARENT_SCOPE)
  set(CPACK_DEBIAN_${upper}_DESCRIPTION "${synopsis}\n${description}" PARENT_SCOPE)
  set(CPACK_COMPONENT_${upper}_DEPENDS ${depends} PARENT_SCOPE)
  set(CPACK_COMPONENTS_ALL ${CPACK_COMPONENTS_ALL} ${component} PARENT_SCOPE)
  set(folder ${PROJECT_BINARY_DIR}/package/${package})
  debian_changelog(${folder}/changelog.gz goods-reports ${PROJECT_VERSION} "${GOODS_PACKAGE_CONTACT}")
  install(FILES cmake/packages/copyright ${folder}/changelog.gz
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} COMPONENT ${component})
endfunction()

goods_package(host libgoods-host${PROJECT_VERSION_MAJOR} libs "" "host packages of the goods-movement reports"
  "The data kit, components, windows and service interfaces that the reports and\nthe application that shows them share.")
goods_package(module libgoods-transaction-qrt${PROJECT_VERSION_MAJOR} libs host "goods-movement reports as a library"
  "Stock cards, turnover and stock of goods, as a library that a host application\nloads and calls.")
if(GOODS_COMPANY AND GOODS_DESKTOP)
  goods_package(desktop goods-desktop misc "host;module" "goods-movement reports on the desktop"
    "Shows stock cards, turnover and stock of a company's goods, prints and exports\nthem. Persian, right to left. Contains the library libgoods_desktop, by which\nother programs show the same windows.")
  goods_package(tools goods-tools misc "host;module" "goods-movement reports on the terminal"
    "Writes reports to files, and makes, fills, checks and copies companies.")
  set(CPACK_DEBIAN_DESKTOP_PACKAGE_RECOMMENDS fonts-noto-core)
  goods_package(development libgoods-dev libdevel "host;module;desktop" "goods-movement reports, for development"
    "Headers, the static library of company databases, and what CMake and\npkg-config need to find all of them.")
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libsqlite3-dev, libsodium-dev, unixodbc-dev, liborcus-dev")

  # The menu entry, the icon, the type of company files.
  install(FILES cmake/packages/goods-desktop.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT desktop)
  install(FILES cmake/packages/goods-desktop.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT desktop)
  install(FILES cmake/packages/goods-reports.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages COMPONENT desktop)

  # The pages that the programs' help names.
  install(FILES docs/command-line.md docs/import.md docs/security.md docs/server.md
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/goods-tools/docs COMPONENT tools)

  # Manual pages, from what the programs say of themselves.
  set(manuals "")
  foreach(program goods-desktop goods-report goods-company)
    set(manual ${PROJECT_BINARY_DIR}/package/${program}.1.gz)
    add_custom_command(OUTPUT ${manual}
      COMMAND ${CMAKE_COMMAND} -DPROGRAM=$<TARGET_FILE:${program}> -DNAME=${program} -DVERSION=${PROJECT_VERSION}
              -DOUTPUT=${manual} -P ${PROJECT_SOURCE_DIR}/cmake/packages/manual_page.cmake
      DEPENDS ${program} cmake/packages/manual_page.cmake
      VERBATIM)
    list(APPEND manuals ${manual})
    if(program STREQUAL "goods-desktop")
      install(FILES ${manual} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT desktop)
    else()
      install(FILES ${manual} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tools)
    endif()
  endforeach()
  add_custom_target(goods_manuals ALL DEPENDS ${manuals})
endif()

include(CPack)
