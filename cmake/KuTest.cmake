# ku_test(NAME SOURCES...): an executable of tests, one per folder, run by CTest.
include(GoogleTest)

function(ku_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBRARIES" ${ARGN})
  ku_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE kuTestSupport ${ARG_LIBRARIES})
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 120 ENVIRONMENT "${KU_TEST_ENVIRONMENT}")
endfunction()

set(KU_TEST_ENVIRONMENT
  "QT_QPA_PLATFORM=offscreen"
  "LSAN_OPTIONS=suppressions=${CMAKE_CURRENT_SOURCE_DIR}/tests/support/lsan.supp:print_suppressions=0"
  "UBSAN_OPTIONS=print_stacktrace=1"
  "ASAN_OPTIONS=detect_stack_use_after_return=1")
