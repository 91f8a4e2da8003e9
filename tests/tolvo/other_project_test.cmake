# Compiles the third program in a project that adds this one by add_subdirectory() and sets no language
# standard. Requires CXX, SOURCE_DIR and BINARY_DIR. The standard matters to the headers; the library is not
# built again for it.
file(REMOVE_RECURSE ${BINARY_DIR})
file(WRITE ${BINARY_DIR}/source/CMakeLists.txt "cmake_minimum_required(VERSION 3.25)
project(other LANGUAGES CXX)
add_subdirectory(${SOURCE_DIR} kedrin EXCLUDE_FROM_ALL)
add_executable(other ${SOURCE_DIR}/tests/tolvo/third_program.cpp)
target_link_libraries(other PRIVATE tolvo)
")
execute_process(
  COMMAND ${CMAKE_COMMAND} -G Ninja -DCMAKE_CXX_COMPILER=${CXX} -S ${BINARY_DIR}/source -B ${BINARY_DIR}/build
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
execute_process(
  COMMAND ${CMAKE_COMMAND} --build ${BINARY_DIR}/build
    --target CMakeFiles/other.dir${SOURCE_DIR}/tests/tolvo/third_program.cpp.o
  COMMAND_ERROR_IS_FATAL ANY)
