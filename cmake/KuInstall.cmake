# What `cmake --install` gives: libraries, headers, the package for find_package(kuVariants), and
# the executable with its documentation.
include(CMakePackageConfigHelpers)

install(TARGETS kuHost kuVariants EXPORT kuVariantsTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY src/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kuVariants
  FILES_MATCHING PATTERN "*.h")
install(EXPORT kuVariantsTargets NAMESPACE kuVariants::
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/kuVariants)

configure_package_config_file(cmake/kuVariantsConfig.cmake.in kuVariantsConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/kuVariants)
write_basic_package_version_file(kuVariantsConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/kuVariantsConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/kuVariantsConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/kuVariants)

install(FILES README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
# In a folder of their own, as in the sources: so the links of the README lead to them.
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR}
  FILES_MATCHING PATTERN "*.md" PATTERN "*.xsd" PATTERN "*.jpg" PATTERN "*.pyi"
  PATTERN "convergence.py")
install(FILES docs/kuvariants.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
