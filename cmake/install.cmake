# Install rules. The installed tree is relocatable.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/velk)
set(pc_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH tool_to_libraries /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
file(RELATIVE_PATH VELK_PC_TO_PREFIX /${pc_dir} /)

# Before 1.0 any minor version may change the interface.
set_target_properties(velk velk-platform PROPERTIES
  VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR} INSTALL_RPATH "$ORIGIN")
set_target_properties(velk-tool PROPERTIES INSTALL_RPATH "$ORIGIN/${tool_to_libraries}")

configure_package_config_file(cmake/velkConfig.cmake.in ${PROJECT_BINARY_DIR}/velkConfig.cmake
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/velkConfigVersion.cmake COMPATIBILITY SameMinorVersion)
configure_file(cmake/velk.pc.in ${PROJECT_BINARY_DIR}/velk.pc @ONLY)

install(TARGETS velk velk-platform velk-tool EXPORT velkTargets)
install(EXPORT velkTargets NAMESPACE velk:: DESTINATION ${package_dir})
install(FILES ${PROJECT_BINARY_DIR}/velkConfig.cmake ${PROJECT_BINARY_DIR}/velkConfigVersion.cmake
  DESTINATION ${package_dir})
install(FILES ${PROJECT_BINARY_DIR}/velk.pc DESTINATION ${pc_dir})
install(CODE "set(destination \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_INCLUDEDIR}\")
  include(\"${PROJECT_SOURCE_DIR}/cmake/install_headers.cmake\")")
# The pages refer to each other and to the example images by relative paths.
install(FILES README.md CONTRIBUTING.md LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY examples/images DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples)

set(documents ${VELK_DOCUMENTS_DIR})
install(FILES ${documents}/velk DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES ${documents}/_velk DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
install(FILES ${documents}/velk.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
install(FILES ${documents}/velk.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

# A single Debian package of everything: ./dev package.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME velk)
set(CPACK_PACKAGE_CONTACT "The velk developers")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/velk)
include(CPack)
