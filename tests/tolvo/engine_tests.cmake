# The translation, its search, the catalogue, and the handling of damaged modules.
add_executable(tolvo_engine_tests
  bad_input_fixture.cpp
  bad_input_test.cpp
  bible_loading_test.cpp
  bible_modules_test.cpp
  bible_proof_test.cpp
  bible_search_agreement_test.cpp
  bible_search_failure_test.cpp
  bible_damage_test.cpp
  bible_search_test.cpp
  bible_test.cpp
  bible_verses_test.cpp
  cut_while_open_test.cpp
  global_refs_test.cpp
  interface_test.cpp
  long_file_test.cpp
  module_names_test.cpp
  text_scan_test.cpp
  verse_cursor_block_test.cpp)
target_link_libraries(tolvo_engine_tests PRIVATE test_support kedrin_options GTest::gtest_main)
set(tolvo_engine_properties LABELS core)
if(KEDRIN_SANITIZE)
  target_compile_definitions(tolvo_engine_tests PRIVATE KEDRIN_SANITIZE)
  list(APPEND tolvo_engine_properties ENVIRONMENT # some leaks stay
    "LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/lsan.supp:print_suppressions=0")
endif()
gtest_discover_tests(tolvo_engine_tests DISCOVERY_MODE PRE_TEST PROPERTIES ${tolvo_engine_properties})

# The search without the vectors of certain processors, tested on every machine.
add_executable(tolvo_portable_scan_tests
  text_scan_test.cpp
  ${CMAKE_SOURCE_DIR}/src/tolvo/tolvo_bible/text_scan.cpp)
target_compile_definitions(tolvo_portable_scan_tests PRIVATE KEDRIN_PORTABLE_SCAN)
target_include_directories(tolvo_portable_scan_tests PRIVATE ${CMAKE_SOURCE_DIR}/src/tolvo)
target_link_libraries(tolvo_portable_scan_tests PRIVATE base kedrin_options GTest::gtest_main)
gtest_discover_tests(tolvo_portable_scan_tests DISCOVERY_MODE PRE_TEST TEST_PREFIX Portable. PROPERTIES LABELS core)

# One header, one library: the interface of the engine for other programs.
add_executable(tolvo_third_program third_program.cpp)
target_link_libraries(tolvo_third_program PRIVATE tolvo kedrin_options)
add_test(NAME third_program.UsesEveryClass COMMAND tolvo_third_program)
set(third_program_flags)
if(KEDRIN_SANITIZE)
  set(third_program_flags -fsanitize=address,undefined)
elseif(KEDRIN_COVERAGE)
  set(third_program_flags -fprofile-instr-generate)
endif()
add_test(NAME third_program.LinksByAPlainCommand
  COMMAND ${CMAKE_COMMAND} -DCXX=${CMAKE_CXX_COMPILER} -DCXX_FLAGS=${third_program_flags}
    -DSOURCE_DIR=${CMAKE_SOURCE_DIR} -DTOLVO=$<TARGET_FILE:tolvo> -DQT_CORE=$<TARGET_FILE:Qt6::Core>
    -DBINARY_DIR=${CMAKE_CURRENT_BINARY_DIR} -P ${CMAKE_CURRENT_SOURCE_DIR}/plain_link_test.cmake)
if(tolvo_leaks_that_stay)
  set_tests_properties(third_program.UsesEveryClass third_program.LinksByAPlainCommand ${tolvo_leaks_that_stay})
endif()

# The engine in another project, which sets no language standard.
add_test(NAME third_program.CompilesInAnotherProject
  COMMAND ${CMAKE_COMMAND} -DCXX=${CMAKE_CXX_COMPILER} -DSOURCE_DIR=${CMAKE_SOURCE_DIR}
    -DBINARY_DIR=${CMAKE_CURRENT_BINARY_DIR}/other_project -P ${CMAKE_CURRENT_SOURCE_DIR}/other_project_test.cmake)

# Damaged modules made from seeds. By hand: tolvo_damage_run FIRST COUNT.
add_executable(tolvo_damage_run damage_run.cpp)
target_link_libraries(tolvo_damage_run PRIVATE test_support kedrin_options)
add_test(NAME tolvo.damage_run COMMAND tolvo_damage_run 1 $<IF:$<BOOL:${KEDRIN_SANITIZE}>,3000,20000>)
set_tests_properties(tolvo.damage_run PROPERTIES ${tolvo_engine_properties})
