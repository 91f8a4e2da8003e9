# Building modules.
pkg_check_modules(SWORD REQUIRED IMPORTED_TARGET sword)
add_executable(modtool_tests
  all_sword_test.cpp
  build_command_test.cpp
  build_files_test.cpp
  build_fixture.cpp
  built_text_test.cpp
  diff_search_test.cpp
  formats/marked_text.cpp
  letter_account_test.cpp
  letter_proof_test.cpp
  made_lines.cpp
  made_sword.cpp
  module_folder_test.cpp
  module_layout_test.cpp
  read_back_test.cpp
  real_data.cpp
  real_texts_test.cpp
  sword_entry_test.cpp
  sword_source_test.cpp
  verse_line_page_test.cpp
  verse_lines_test.cpp
  versification_test.cpp
  word_gap_test.cpp
  word_index_test.cpp)
target_compile_definitions(modtool_tests PRIVATE
  KEDRIN_FORMATS_FOLDER="${PROJECT_SOURCE_DIR}/doc/formats"
  KEDRIN_MODTOOL_FOLDER="${PROJECT_SOURCE_DIR}/src/modtool"
  ${test_data_definition})
target_link_libraries(modtool_tests PRIVATE
  kedrin_options test_support modtool PkgConfig::SWORD GTest::gmock_main)
gtest_discover_tests(modtool_tests DISCOVERY_MODE PRE_TEST)
