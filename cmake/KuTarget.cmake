# ku_target(NAME): the settings that every target of the project shares.
function(ku_target name)
  set_target_properties(${name} PROPERTIES
    CXX_STANDARD 17 CXX_STANDARD_REQUIRED ON CXX_EXTENSIONS OFF
    CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON
    POSITION_INDEPENDENT_CODE ON)
  target_compile_definitions(${name} PRIVATE
    QT_NO_KEYWORDS BOOST_BIND_GLOBAL_PLACEHOLDERS BOOST_ALLOW_DEPRECATED_HEADERS)
  target_compile_options(${name} PRIVATE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast
    -Wcast-qual -Wformat=2 -Wundef
    $<$<BOOL:${KU_WARNINGS_AS_ERRORS}>:-Werror>)
  if(KU_BUILD_FUZZ)
    # Coverage counters, by which the fuzzer sees into the libraries too.
    target_compile_options(${name} PRIVATE -fsanitize=fuzzer-no-link)
  endif()
  if(KU_SANITIZE)
    target_compile_options(${name} PRIVATE
      -fsanitize=${KU_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(${name} PRIVATE -fsanitize=${KU_SANITIZE})
  endif()
endfunction()

# ku_executable(NAME SOURCES...): an executable that keeps the libraries it loads only for what
# their static objects register.
function(ku_executable name)
  add_executable(${name} ${ARGN})
  ku_target(${name})
  target_link_options(${name} PRIVATE LINKER:--no-as-needed)
endfunction()
