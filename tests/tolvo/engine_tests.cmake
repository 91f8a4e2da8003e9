# The translation, its search, the catalogue, and what comes of damaged modules.
add_executable(tolvo_engine_tests
  bible_loading_test.cpp
  bible_test.cpp)
target_link_libraries(tolvo_engine_tests PRIVATE test_support kedrin_options GTest::gtest_main)
gtest_discover_tests(tolvo_engine_tests DISCOVERY_MODE PRE_TEST)
