# cmake -DROOT=<folder of host/> -DOUTPUTS=<header>;... -P host_version.cmake
# Writes each header that gives GOODS_HOST_VERSION: 28 bits of a digest over the names and texts of all host headers, so
# that a host and a report library that were compiled against different ones cannot take each other for matching.
cmake_minimum_required(VERSION 3.25)
file(GLOB headers RELATIVE ${ROOT} ${ROOT}/*/*.h)
list(SORT headers)
set(text "")
foreach(header ${headers})
  file(SHA256 ${ROOT}/${header} digest)
  string(APPEND text "${header} ${digest}\n")
endforeach()
string(SHA256 digest "${text}")
string(SUBSTRING ${digest} 0 7 version)
foreach(output ${OUTPUTS})
  file(WRITE ${output} "/* Made by the build from the texts of the host headers. */
#ifndef GOODS_HOST_VERSION
#define GOODS_HOST_VERSION 0x${version}
#endif
")
endforeach()
