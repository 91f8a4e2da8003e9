# What `cmake --install` puts in place. The components are the packages of a distribution, and `cmake --install BUILD
# --component NAME` installs one of them. doc/man installs the manual pages; doc/guide installs kedrin-doc, the guide; data/
# installs what desktops read.

# The program is in a directory of its own together with modules/bibles; it and the tool's parts are found from bin.
set(KEDRIN_PROGRAM_DIR lib/kedrin CACHE STRING "Directory of the program and its modules, relative to the prefix")
set(launched_program "\"\${here%/*}\"/${KEDRIN_PROGRAM_DIR}/kedrin")
set(launched_guide "\"\${here%/*}\"/${CMAKE_INSTALL_DATADIR}/doc/kedrin/guide")
configure_file(scripts/kedrin.in ${CMAKE_BINARY_DIR}/launcher/kedrin @ONLY)
# The same for the program as it is built, which ./run starts.
set(launched_program "\"$here\"/kedrin")
set(launched_guide "\"$here\"/doc/guide")
configure_file(scripts/kedrin.in ${CMAKE_BINARY_DIR}/kedrin-launcher @ONLY FILE_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

file(RELATIVE_PATH private_dir ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_PREFIX}/${KEDRIN_PROGRAM_DIR})
foreach(target kedrin-module kedrin-add modtool_install)
  target_compile_definitions(${target} PRIVATE KEDRIN_PRIVATE_DIR="${private_dir}")
endforeach()
file(RELATIVE_PATH public_dir ${CMAKE_INSTALL_PREFIX}/${KEDRIN_PROGRAM_DIR} ${CMAKE_INSTALL_FULL_BINDIR})
target_compile_definitions(add PRIVATE KEDRIN_PUBLIC_DIR="${public_dir}")

install(TARGETS kedrin DESTINATION ${KEDRIN_PROGRAM_DIR} COMPONENT kedrin)
install(DIRECTORY DESTINATION ${KEDRIN_PROGRAM_DIR}/modules/bibles COMPONENT kedrin)
install(PROGRAMS ${CMAKE_BINARY_DIR}/launcher/kedrin DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT kedrin)
install(TARGETS kedrin-add DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT kedrin)

install(TARGETS kedrin-module DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT kedrin-module)
install(TARGETS kedrin-module-all DESTINATION ${KEDRIN_PROGRAM_DIR} COMPONENT kedrin-module)
install(DIRECTORY ${CMAKE_BINARY_DIR}/locale DESTINATION ${CMAKE_INSTALL_DATADIR} COMPONENT kedrin-common)
install(FILES src/modtool/command/kedrin-module.bash RENAME kedrin-module
  DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT kedrin-module)
install(FILES src/modtool/command/kedrin-module.fish
  DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d COMPONENT kedrin-module)
install(FILES src/modtool/command/kedrin-module.zsh RENAME _kedrin-module
  DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions COMPONENT kedrin-module)

install(TARGETS kedrin-module-sword kedrin-add-sword kedrin-sword-transfer
  DESTINATION ${KEDRIN_PROGRAM_DIR} COMPONENT kedrin-module-sword)

include(cmake/install_tolvo.cmake)

# For the target uninstall: where the last installation went, and its directories that have no file.
if(PROJECT_IS_TOP_LEVEL)
  install(CODE "file(WRITE \"${CMAKE_BINARY_DIR}/install_prefix.txt\" \"\${CMAKE_INSTALL_PREFIX}\\n\")
    list(APPEND CMAKE_INSTALL_MANIFEST_FILES \"\${CMAKE_INSTALL_PREFIX}/${KEDRIN_PROGRAM_DIR}/modules/bibles\")"
    ALL_COMPONENTS)
  add_custom_target(uninstall COMMAND ${PROJECT_SOURCE_DIR}/scripts/uninstall.sh ${CMAKE_BINARY_DIR}
    COMMENT "" VERBATIM USES_TERMINAL)
endif()
