# The engine for other programs: libtolvo.a, its headers, the descriptions that CMake and pkg-config find it by, and the
# pages of the files that it reads.
include(CMakePackageConfigHelpers)
set(tolvo_headers ${CMAKE_INSTALL_INCLUDEDIR}/tolvo)
set(tolvo_package ${CMAKE_INSTALL_LIBDIR}/cmake/tolvo)

install(TARGETS tolvo EXPORT tolvo
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT libtolvo-dev
  FILE_SET HEADERS DESTINATION ${tolvo_headers} COMPONENT libtolvo-dev)
install(EXPORT tolvo NAMESPACE tolvo:: FILE tolvo-targets.cmake DESTINATION ${tolvo_package}
  COMPONENT libtolvo-dev)

set(tolvo_built ${PROJECT_BINARY_DIR}/tolvo-package)
configure_package_config_file(cmake/tolvo-config.cmake.in ${tolvo_built}/tolvo-config.cmake
  INSTALL_DESTINATION ${tolvo_package} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${tolvo_built}/tolvo-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${tolvo_built}/tolvo-config.cmake ${tolvo_built}/tolvo-config-version.cmake
  DESTINATION ${tolvo_package} COMPONENT libtolvo-dev)

# Found from the place of the file, wherever the prefix is.
set(tolvo_pkgconfig ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH tolvo_prefix ${CMAKE_INSTALL_PREFIX}/${tolvo_pkgconfig} ${CMAKE_INSTALL_PREFIX})
cmake_path(SET tolvo_prefix NORMALIZE ${tolvo_prefix}.)
configure_file(cmake/tolvo.pc.in ${tolvo_built}/tolvo.pc @ONLY)
install(FILES ${tolvo_built}/tolvo.pc DESTINATION ${tolvo_pkgconfig} COMPONENT libtolvo-dev)

set(tolvo_formats bible-structure book-titles chapter-document compact-text concordance diff info module-folder record-file
  word-list)
list(TRANSFORM tolvo_formats REPLACE "(.+)" "doc/formats/\\1.md")
install(FILES ${tolvo_formats} DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libtolvo-dev/formats COMPONENT libtolvo-dev)
