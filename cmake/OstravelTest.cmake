# ostravel_add_test(NAME SOURCES a.cpp b.cpp LIBS lib1 lib2 [QT])
# Adds a GoogleTest executable (or a Qt Test one with QT) and registers it with CTest.
# Screen tests run on the offscreen platform so they need no display.
function(ostravel_add_test name)
  cmake_parse_arguments(T "QT" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${T_SOURCES})
  target_link_libraries(${name} PRIVATE ostravel_options ${T_LIBS})
  if(T_QT)
    target_link_libraries(${name} PRIVATE Qt6::Test)
    add_test(NAME ${name} COMMAND ${name})
  else()
    target_link_libraries(${name} PRIVATE GTest::gtest GTest::gtest_main)
    add_test(NAME ${name} COMMAND ${name})
  endif()
  set_tests_properties(${name} PROPERTIES
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;OSTRAVEL_TEST_DATA=${CMAKE_SOURCE_DIR}/tests/data"
    TIMEOUT 600)
endfunction()
