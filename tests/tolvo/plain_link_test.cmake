# Builds the third program without our build files: a compiler, two include paths, one library and Qt Core.
# Requires CXX, CXX_FLAGS, SOURCE_DIR, TOLVO, QT_CORE and BINARY_DIR.
separate_arguments(flags UNIX_COMMAND "${CXX_FLAGS}")
set(program ${BINARY_DIR}/third_program_plain)
execute_process(
  COMMAND ${CXX} -std=c++20 ${flags} -I${SOURCE_DIR}/src/tolvo -I${SOURCE_DIR}/src/base
          ${SOURCE_DIR}/tests/tolvo/third_program.cpp -o ${program} ${TOLVO} ${QT_CORE}
  COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${program} COMMAND_ERROR_IS_FATAL ANY)
