# ku_test(NAME SOURCES...): an executable of tests, one per folder, run by CTest.
include(GoogleTest)

set_property(DIRECTORY APPEND PROPERTY
  CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/support/lsan.supp
  ${PROJECT_SOURCE_DIR}/tests/support/tsan.supp)
file(READ ${PROJECT_SOURCE_DIR}/tests/support/tsan.supp KU_RACE_SUPPRESSIONS)
file(READ ${PROJECT_SOURCE_DIR}/tests/support/lsan.supp KU_LEAK_SUPPRESSIONS)
configure_file(${PROJECT_SOURCE_DIR}/tests/support/SanitizerOptions.cpp.in
  ${PROJECT_BINARY_DIR}/SanitizerOptions.cpp @ONLY)

function(ku_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBRARIES" ${ARGN})
  ku_executable(${name} ${ARG_SOURCES} ${PROJECT_BINARY_DIR}/SanitizerOptions.cpp)
  target_link_libraries(${name} PRIVATE kuTestSupport ${ARG_LIBRARIES})
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120)
endfunction()

# For tests that run a program of another kind; tests of ours choose all of it themselves.
set(KU_TEST_ENVIRONMENT
  "QT_QPA_PLATFORM=offscreen"
  "LSAN_OPTIONS=suppressions=${CMAKE_CURRENT_SOURCE_DIR}/tests/support/lsan.supp:print_suppressions=0"
  "UBSAN_OPTIONS=print_stacktrace=1"
  "ASAN_OPTIONS=detect_stack_use_after_return=1")
