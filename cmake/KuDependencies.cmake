# Everything the project links to; all of it comes from the distribution's packages.

# The system's Python, not another one that happens to stand first on the path.
if(NOT DEFINED Python3_EXECUTABLE AND EXISTS /usr/bin/python3)
  set(Python3_EXECUTABLE /usr/bin/python3)
endif()
find_package(Python3 3.7 REQUIRED COMPONENTS Interpreter Development.Embed)
find_package(Boost 1.67 REQUIRED
  COMPONENTS python${Python3_VERSION_MAJOR}${Python3_VERSION_MINOR})
# Boost's target does not bring the interpreter's own library.
add_library(KuPython INTERFACE)
target_link_libraries(KuPython INTERFACE
  Boost::python${Python3_VERSION_MAJOR}${Python3_VERSION_MINOR} Python3::Python)

find_package(Qt5 5.15 REQUIRED COMPONENTS Core Gui Widgets Xml)
find_package(CLI11 REQUIRED)
find_package(embree 3 REQUIRED)
find_package(PNG 1.6 REQUIRED)
# The client of NATS; its own CMake package is broken.
find_package(PkgConfig REQUIRED)
pkg_check_modules(NATS REQUIRED IMPORTED_TARGET libnats)
find_package(Threads REQUIRED)

if(KU_BUILD_TESTS)
  find_package(GTest REQUIRED)
endif()
if(KU_BUILD_BENCH)
  find_package(benchmark REQUIRED)
endif()
