# The messages in other languages: bg.po is made into the file that gettext reads, beside the program, where the program
# looks for it first.
find_package(Gettext REQUIRED)
set(catalogue ${CMAKE_BINARY_DIR}/locale/bg/LC_MESSAGES/kedrin-module.mo)
add_custom_command(OUTPUT ${catalogue}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/locale/bg/LC_MESSAGES
  COMMAND ${GETTEXT_MSGFMT_EXECUTABLE} --check-format --check-domain -o ${catalogue} ${CMAKE_CURRENT_LIST_DIR}/bg.po
  DEPENDS ${CMAKE_CURRENT_LIST_DIR}/bg.po VERBATIM)
add_custom_target(kedrin-module-catalogue ALL DEPENDS ${catalogue})
add_dependencies(kedrin-module kedrin-module-catalogue)

# The manual pages, which the program makes of its own help, one a language.
function(kedrin_manual_page language folder)
  set(page ${CMAKE_BINARY_DIR}/man/${folder}/kedrin-module.1)
  add_custom_command(OUTPUT ${page}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/man/${folder}
    COMMAND ${CMAKE_COMMAND} -E env LANGUAGE= LC_ALL=${language} sh -c "\"$1\" --manual-page > \"$2\"" sh
      $<TARGET_FILE:kedrin-module-all> ${page}
    DEPENDS kedrin-module-all ${catalogue} VERBATIM)
  add_custom_target(kedrin-module-manual-${language} ALL DEPENDS ${page})
endfunction()
kedrin_manual_page(C man1)
kedrin_manual_page(bg_BG.UTF-8 bg/man1)
