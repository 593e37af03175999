# One list of tests, compiled into a program for each system.

set(INSTALL_GTEST OFF)
set(gtest_force_shared_crt ON)
add_subdirectory(/usr/src/googletest "${PROJECT_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL SYSTEM)

# orderdeck_add_tests(NAME program SOURCES ... [WINDOWS ...] [NATIVE ...] LIBRARIES ... [LABELS ...]
#                     [PRODUCT name] [NO_COMPANY] [NO_PRODUCT] [NO_VERSION_BLOCK])
#
# A test program and its one CTest entry. Programs, not cases, are the entries: starting a program
# is what costs. A program writes its results to <build>/test-results/<program>.xml.
#
# It has the component's strings and pictures, and a version block whose company is "OrderDeck Tests" and
# whose product is the program's name unless told otherwise: each program has settings of its own.
function(orderdeck_add_tests)
  cmake_parse_arguments(arg "NO_COMPANY;NO_PRODUCT;NO_VERSION_BLOCK" "NAME;PRODUCT" "SOURCES;WINDOWS;NATIVE;LIBRARIES;LABELS" ${ARGN})
  if(WIN32)
    list(APPEND arg_SOURCES ${arg_WINDOWS})
  else()
    list(APPEND arg_SOURCES ${arg_NATIVE})
  endif()
  add_executable(${arg_NAME} ${arg_SOURCES})
  target_link_libraries(${arg_NAME} PRIVATE ${arg_LIBRARIES} orderdeck_test_support orderdeck_resources)
  if(NOT arg_NO_VERSION_BLOCK)
    set(names)
    if(NOT arg_NO_COMPANY)
      list(APPEND names COMPANY "OrderDeck Tests")
    endif()
    if(NOT arg_NO_PRODUCT)
      if(NOT arg_PRODUCT)
        set(arg_PRODUCT "${arg_NAME}")
      endif()
      list(APPEND names PRODUCT "${arg_PRODUCT}")
    endif()
    orderdeck_version_block(${arg_NAME} ${names} DESCRIPTION "Tests of OrderDeck")
  endif()
  set_target_properties(${arg_NAME} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/tests")
  set(results "${PROJECT_BINARY_DIR}/test-results")
  file(MAKE_DIRECTORY "${results}")
  add_test(NAME ${arg_NAME}
           COMMAND ${arg_NAME} --gtest_brief=1 "--gtest_output=xml:../test-results/${arg_NAME}.xml"
           WORKING_DIRECTORY "${PROJECT_BINARY_DIR}/tests")
  if(WIN32)
    # Programs that run at the same time share no display and no Wine server.
    set_target_properties(${arg_NAME} PROPERTIES CROSSCOMPILING_EMULATOR
      "${PROJECT_SOURCE_DIR}/tools/own-display;${PROJECT_SOURCE_DIR}/tools/wine-run")
  endif()
  # Only to end a program that hangs: no machine is so slow.
  set_tests_properties(${arg_NAME} PROPERTIES TIMEOUT 3000)
  if(arg_LABELS)
    set_tests_properties(${arg_NAME} PROPERTIES LABELS "${arg_LABELS}")
  endif()
endfunction()
