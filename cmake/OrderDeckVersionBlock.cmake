# The version block of a program or library: one set of values for both systems.
#
# orderdeck_version_block(target [COMPANY name] [PRODUCT name] DESCRIPTION text)
#
# The settings that a program's bar keeps lie under its company and product.
set(_orderdeck_version_block "${CMAKE_CURRENT_LIST_DIR}")

function(orderdeck_version_block target)
  cmake_parse_arguments(arg "" "COMPANY;PRODUCT;DESCRIPTION" "" ${ARGN})
  get_target_property(type ${target} TYPE)
  if(type STREQUAL EXECUTABLE)
    set(kind VFT_APP)
    set(file "${target}.exe")
  else()
    set(kind VFT_DLL)
    set(file "${target}.dll")
  endif()
  string(REPLACE "." "," numbers "${PROJECT_VERSION}")
  if(WIN32)
    set(ending rc)
  else()
    set(ending cpp)
  endif()
  set(made "${CMAKE_CURRENT_BINARY_DIR}/${target}_version.${ending}")
  configure_file("${_orderdeck_version_block}/version_block.${ending}.in" "${made}" @ONLY)
  target_sources(${target} PRIVATE "${made}")
endfunction()
