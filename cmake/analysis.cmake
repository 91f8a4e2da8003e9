# The test style.cppcheck, the targets analysis-gcc and analysis-clang, which compile every source again, and analysis-report,
# which writes what all three found to doc/quality/static.md (tests/style/analysis.py).
find_program(KEDRIN_PYTHON python3 REQUIRED)
set(analysis ${KEDRIN_PYTHON} -B ${PROJECT_SOURCE_DIR}/tests/style/analysis.py ${CMAKE_BINARY_DIR})

add_test(NAME style.cppcheck COMMAND ${analysis} cppcheck)
set_tests_properties(style.cppcheck PROPERTIES TIMEOUT 600 PROCESSORS 2)

# moc writes what the sources include.
foreach(compiler gcc clang)
  add_custom_target(analysis-${compiler} COMMAND nice -n 19 ${analysis} ${compiler} USES_TERMINAL)
  add_dependencies(analysis-${compiler} window qt3 add)
endforeach()
add_custom_target(analysis-report COMMAND ${analysis} --report USES_TERMINAL)
