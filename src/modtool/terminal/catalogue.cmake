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
