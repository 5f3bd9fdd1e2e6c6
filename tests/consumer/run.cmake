# Installs the build into a fresh folder, then configures, builds and runs the consumer there.
# Takes BUILD_DIR, SOURCE_DIR, WORK_DIR, CXX, CXX_FLAGS, GENERATOR, BINDIR, DOCDIR,
# MANDIR.
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})

function(step what)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output
    ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${what} failed (${result}):\n${output}")
  endif()
  set(step_output "${output}" PARENT_SCOPE)
endfunction()

step("Installation" ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${WORK_DIR}/prefix)
step("Configuring" ${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${WORK_DIR}/build -G ${GENERATOR}
  -DCMAKE_PREFIX_PATH=${WORK_DIR}/prefix -DCMAKE_CXX_COMPILER=${CXX}
  -DCMAKE_CXX_FLAGS=${CXX_FLAGS})
step("Building" ${CMAKE_COMMAND} --build ${WORK_DIR}/build)
step("Running" ${WORK_DIR}/build/consumer)
if(NOT step_output MATCHES "Doors: Closed -> Open")
  message(FATAL_ERROR "The consumer printed something else:\n${step_output}")
endif()

step("The installed command line" ${WORK_DIR}/prefix/${BINDIR}/kuvariants --version)
if(NOT step_output MATCHES "0[.]1[.]0")
  message(FATAL_ERROR "The installed command line printed something else:\n${step_output}")
endif()

foreach(page ${DOCDIR}/README.md ${DOCDIR}/docs/document-format.md ${DOCDIR}/docs/variants.xsd
    ${DOCDIR}/docs/pictures/contact-sheet.jpg ${DOCDIR}/docs/scripting.md
    ${DOCDIR}/docs/sessions.md ${DOCDIR}/docs/convergence.py
    ${DOCDIR}/docs/stubs/__builtins__.pyi ${DOCDIR}/docs/stubs/kuVariants.pyi
    ${DOCDIR}/docs/stubs/kuVariantSetPtr.pyi ${DOCDIR}/docs/stubs/variants.pyi
    ${MANDIR}/man1/kuvariants.1)
  if(NOT EXISTS ${WORK_DIR}/prefix/${page})
    message(FATAL_ERROR "${page} was not installed")
  endif()
endforeach()
