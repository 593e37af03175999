# What every target of ours has in common.

set(ORDERDECK_SANITIZE "" CACHE STRING "Sanitizers of a native build, as -fsanitize takes them")
option(ORDERDECK_FUZZ "Build the fuzzers; asks for clang and a native build" OFF)

# System headers that serve both systems.
add_library(orderdeck_vendor INTERFACE)
if(WIN32)
  # The cross compiler must not see the rest of the native include folder, so each of these comes by a
  # link in a folder of its own.
  set(_cross "${PROJECT_BINARY_DIR}/cross-include")
  file(MAKE_DIRECTORY "${_cross}")
  foreach(_library boost nlohmann)
    file(CREATE_LINK "/usr/include/${_library}" "${_cross}/${_library}" SYMBOLIC)
  endforeach()
  target_include_directories(orderdeck_vendor SYSTEM INTERFACE "${_cross}")
endif()

add_library(orderdeck_build INTERFACE)
target_link_libraries(orderdeck_build INTERFACE orderdeck_vendor)
target_compile_options(orderdeck_build INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror
  # g++ 12 sees overlapping copies in "text" + std::string where there are none.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
  # Source names in reports are told from the repository's root.
  "-fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=")
if(WIN32)
  target_compile_definitions(orderdeck_build INTERFACE
    UNICODE _UNICODE STRICT NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0601 WINVER=0x0601
    _WIN32_IE=0x0700)
  # Resolved addresses move with the image, data is not run, and a smashed frame ends the process.
  target_compile_options(orderdeck_build INTERFACE -fstack-protector-strong)
  target_link_options(orderdeck_build INTERFACE -fstack-protector-strong
    -Wl,--dynamicbase -Wl,--high-entropy-va -Wl,--nxcompat)
endif()
if(ORDERDECK_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
if(ORDERDECK_SANITIZE)
  add_compile_options(-fsanitize=${ORDERDECK_SANITIZE} -fno-omit-frame-pointer -g1)
  add_link_options(-fsanitize=${ORDERDECK_SANITIZE})
  if(ORDERDECK_SANITIZE MATCHES undefined)
    add_compile_options(-fno-sanitize-recover=all)
  endif()
endif()

# orderdeck_library(name SOURCES ... [WINDOWS ...] [NATIVE ...] LIBRARIES ...)
#
# A static library. SOURCES are compiled for both systems, WINDOWS and NATIVE for one of them.
# LIBRARIES become part of its interface.
function(orderdeck_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;WINDOWS;NATIVE;LIBRARIES" ${ARGN})
  if(WIN32)
    list(APPEND arg_SOURCES ${arg_WINDOWS})
  else()
    list(APPEND arg_SOURCES ${arg_NATIVE})
  endif()
  add_library(${name} STATIC ${arg_SOURCES})
  target_include_directories(${name} PUBLIC "${PROJECT_SOURCE_DIR}")
  target_link_libraries(${name} PUBLIC orderdeck_build ${arg_LIBRARIES})
endfunction()
