# The built program in processes of its own: killed, without room on the disk, several at once.
add_executable(modtool_process_tests
  build_fixture.cpp
  built_process.cpp
  concurrent_builds_test.cpp
  full_disk_test.cpp
  hostile_source_test.cpp
  interrupted_build_test.cpp
  module_path_test.cpp
  output_test.cpp
  tool_process.cpp
  traced_call.cpp)
target_compile_definitions(modtool_process_tests PRIVATE KEDRIN_MODULE_PROGRAM="$<TARGET_FILE:kedrin-module>")
target_link_libraries(modtool_process_tests PRIVATE kedrin_options test_support modtool GTest::gmock_main)
add_dependencies(modtool_process_tests kedrin-module)
gtest_discover_tests(modtool_process_tests DISCOVERY_MODE PRE_TEST)
