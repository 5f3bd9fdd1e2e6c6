# ku_test(NAME SOURCES...): an executable of tests, one per folder, run by CTest: as a whole (label
# "whole", what a full run takes, since a process per test costs several times as much) and test by
# test (label "single", for those who ask for some by name).
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
  ku_run_tests(${name})
endfunction()

function(ku_run_tests name)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES LABELS whole TIMEOUT 900 ENVIRONMENT "GTEST_BRIEF=1")
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES LABELS single TIMEOUT 120)
endfunction()

# For tests that run a program of another kind; tests of ours choose all of it themselves.
set(KU_TEST_ENVIRONMENT
  "QT_QPA_PLATFORM=offscreen"
  "LSAN_OPTIONS=suppressions=${CMAKE_CURRENT_SOURCE_DIR}/tests/support/lsan.supp:print_suppressions=0"
  "UBSAN_OPTIONS=print_stacktrace=1"
  "ASAN_OPTIONS=detect_stack_use_after_return=1")
