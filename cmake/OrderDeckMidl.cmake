# Headers and the type library from the interface definitions. One compiler serves both systems, so
# interfaces, ids and record layouts cannot differ between them.

find_program(ORDERDECK_WIDL x86_64-w64-mingw32-widl REQUIRED)
find_path(ORDERDECK_WINE_IDL oaidl.idl PATHS /usr/include/wine/wine/windows REQUIRED
          NO_CMAKE_FIND_ROOT_PATH)
find_path(ORDERDECK_WINE_TLB stdole2.tlb PATHS /usr/lib/x86_64-linux-gnu/wine/x86_64-windows REQUIRED
          NO_CMAKE_FIND_ROOT_PATH)

# orderdeck_midl(out_dir TYPELIB name.idl HEADERS a.idl b.idl)
function(orderdeck_midl out_dir)
  cmake_parse_arguments(arg "" "TYPELIB" "HEADERS" ${ARGN})
  file(MAKE_DIRECTORY "${out_dir}")
  set(call ${ORDERDECK_WIDL} --win64 -I${ORDERDECK_WINE_IDL} -I${CMAKE_CURRENT_SOURCE_DIR}
      -L${ORDERDECK_WINE_TLB})
  set(all_idl)
  foreach(idl IN LISTS arg_HEADERS)
    list(APPEND all_idl "${CMAKE_CURRENT_SOURCE_DIR}/${idl}")
  endforeach()
  set(outputs)
  foreach(idl IN LISTS arg_HEADERS)
    cmake_path(GET idl STEM stem)
    add_custom_command(OUTPUT "${out_dir}/${stem}.h"
      COMMAND ${call} -h -o "${out_dir}/${stem}.h" "${CMAKE_CURRENT_SOURCE_DIR}/${idl}"
      DEPENDS ${all_idl} VERBATIM)
    list(APPEND outputs "${out_dir}/${stem}.h")
  endforeach()
  cmake_path(GET arg_TYPELIB STEM stem)
  add_custom_command(OUTPUT "${out_dir}/${stem}.tlb"
    COMMAND ${call} -t -o "${out_dir}/${stem}.tlb" "${CMAKE_CURRENT_SOURCE_DIR}/${arg_TYPELIB}"
    DEPENDS ${all_idl} VERBATIM)
  list(APPEND outputs "${out_dir}/${stem}.tlb")
  set(ORDERDECK_MIDL_OUTPUTS ${outputs} PARENT_SCOPE)
endfunction()
