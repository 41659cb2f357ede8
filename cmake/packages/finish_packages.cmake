# Runs behind cpack: a library is told to the loader by the trigger that Debian's packages have, instead of by scripts that cpack
# writes and that run ldconfig themselves. Until now the packages are not compressed (CPACK_DEBIAN_COMPRESSION_TYPE).
# cpack -D CPACK_GOODS_COMPRESSION=-Zgzip;-z1: quickly, for packages that are only tried.
if(NOT CPACK_GOODS_COMPRESSION)
  set(CPACK_GOODS_COMPRESSION -Zxz)
endif()
foreach(package ${CPACK_PACKAGE_FILES})
  set(folder ${package}.folder)
  execute_process(COMMAND dpkg-deb --raw-extract ${package} ${folder} COMMAND_ERROR_IS_FATAL ANY)
  if(EXISTS ${folder}/DEBIAN/shlibs)
    file(REMOVE ${folder}/DEBIAN/postinst ${folder}/DEBIAN/postrm)
    file(WRITE ${folder}/DEBIAN/triggers "activate-noawait ldconfig\n")
  endif()
  execute_process(COMMAND dpkg-deb --root-owner-group ${CPACK_GOODS_COMPRESSION} --build ${folder} ${package} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE_RECURSE ${folder})
endforeach()
