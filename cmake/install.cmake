# The program is in a separate directory together with modules/bibles; a small launcher is on PATH.
set(CMAKE_INSTALL_LIBDIR lib CACHE PATH "Directory that holds the program's own directory")
include(GNUInstallDirs)
set(launched_program "$(dirname \"$(dirname \"$(readlink -f \"$0\")\")\")/${CMAKE_INSTALL_LIBDIR}/kedrin/kedrin")
configure_file(scripts/kedrin.in ${CMAKE_BINARY_DIR}/launcher/kedrin @ONLY)
# The same for the program as it is built, which ./run starts.
set(launched_program "$(dirname \"$(readlink -f \"$0\")\")/kedrin")
configure_file(scripts/kedrin.in ${CMAKE_BINARY_DIR}/kedrin-launcher @ONLY FILE_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
install(TARGETS kedrin DESTINATION ${CMAKE_INSTALL_LIBDIR}/kedrin)
install(DIRECTORY DESTINATION ${CMAKE_INSTALL_LIBDIR}/kedrin/modules/bibles)
install(PROGRAMS ${CMAKE_BINARY_DIR}/launcher/kedrin DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS kedrin-add DESTINATION ${CMAKE_INSTALL_BINDIR})
if(TARGET kedrin-module)
  install(TARGETS kedrin-module DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(TARGETS kedrin-module-all kedrin-module-sword DESTINATION ${CMAKE_INSTALL_LIBDIR}/kedrin)
  file(RELATIVE_PATH private_dir ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR}/kedrin)
  target_compile_definitions(kedrin-module PRIVATE KEDRIN_PRIVATE_DIR="${private_dir}")
  target_compile_definitions(modtool_install PRIVATE KEDRIN_PRIVATE_DIR="${private_dir}")
  install(DIRECTORY ${CMAKE_BINARY_DIR}/locale DESTINATION ${CMAKE_INSTALL_DATADIR})
  install(DIRECTORY ${CMAKE_BINARY_DIR}/man/ DESTINATION ${CMAKE_INSTALL_MANDIR})
  install(FILES src/modtool/command/kedrin-module.bash RENAME kedrin-module
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
  install(FILES src/modtool/command/kedrin-module.fish
    DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
  install(FILES src/modtool/command/kedrin-module.zsh RENAME _kedrin-module
    DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
endif()
