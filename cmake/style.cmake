# The tests style.format, style.tidy and style.tidy_tests, and the targets tidy and tidy_tests, which the latter build. Each source has a stamp
# file, created if clang-tidy finds nothing. The stamp depends on the object file, so only sources that have
# changed, or include a changed header, are checked again.
set(style_paths src tests fuzz bench)
list(TRANSFORM style_paths PREPEND ${PROJECT_SOURCE_DIR}/)
find_program(KEDRIN_CLANG_FORMAT clang-format-14 REQUIRED)
find_program(KEDRIN_CLANG_TIDY clang-tidy-14 REQUIRED)

add_test(NAME style.format
  COMMAND ${PROJECT_SOURCE_DIR}/tests/style/format_test.sh ${KEDRIN_CLANG_FORMAT} ${style_paths})

set(tidy_folder ${CMAKE_BINARY_DIR}/tidy)
set(tidy_version ${tidy_folder}/version)
set(tidy_rules ${tidy_version} ${PROJECT_SOURCE_DIR}/.clang-tidy ${PROJECT_SOURCE_DIR}/tests/style/tidy_file.sh)

# Always runs, but changes the file only if the version has changed.
add_custom_target(tidy_version
  COMMAND bash -c "$1 --version | cmp -s - $2 || $1 --version >$2" tidy_version ${KEDRIN_CLANG_TIDY} ${tidy_version}
  BYPRODUCTS ${tidy_version} COMMENT "" VERBATIM)

# targets_below(DIRECTORY RESULT): appends to RESULT the targets of the directory and of those below it.
function(targets_below directory result)
  set(found ${${result}})
  get_property(targets DIRECTORY ${directory} PROPERTY BUILDSYSTEM_TARGETS)
  get_property(subdirectories DIRECTORY ${directory} PROPERTY SUBDIRECTORIES)
  list(APPEND found ${targets})
  foreach(subdirectory IN LISTS subdirectories)
    targets_below(${subdirectory} found)
  endforeach()
  set(${result} ${found} PARENT_SCOPE)
endfunction()

# own_sources(TARGET RESULT): the .cpp files of the project that the target compiles, with full paths.
function(own_sources target result)
  get_target_property(sources ${target} SOURCES)
  get_target_property(directory ${target} SOURCE_DIR)
  set(own)
  foreach(source IN LISTS sources)
    if(source MATCHES "\\.cpp$")
      cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${directory} NORMALIZE)
      cmake_path(IS_PREFIX CMAKE_BINARY_DIR ${source} is_generated)
      if(NOT is_generated)
        list(APPEND own ${source})
      endif()
    endif()
  endforeach()
  set(${result} ${own} PARENT_SCOPE)
endfunction()

# tidy_source(SOURCE TARGET): the stamp of a source that the target compiles.
function(tidy_source source target stamp)
  cmake_path(GET source FILENAME file)
  string(REPLACE . "\\." object "/${file}.o")
  set(rules ${tidy_rules})
  if(source MATCHES "^${PROJECT_SOURCE_DIR}/(tests|bench)/")
    list(APPEND rules ${PROJECT_SOURCE_DIR}/${CMAKE_MATCH_1}/.clang-tidy)
  endif()
  add_custom_command(OUTPUT ${stamp}
    COMMAND ${PROJECT_SOURCE_DIR}/tests/style/tidy_file.sh ${KEDRIN_CLANG_TIDY} ${CMAKE_BINARY_DIR} ${source} ${stamp}
    DEPENDS "$<FILTER:$<TARGET_OBJECTS:${target}>,INCLUDE,${object}$>" ${rules}
    COMMENT "" VERBATIM)
endfunction()

set(tidy_stamps)
set(tidy_test_stamps)
targets_below(${PROJECT_SOURCE_DIR} style_targets)
foreach(target IN LISTS style_targets)
  own_sources(${target} sources)
  foreach(source IN LISTS sources)
    cmake_path(RELATIVE_PATH source BASE_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE name)
    set(stamp ${tidy_folder}/${name}.stamp)
    if(name MATCHES "^tests/")
      set(stamps tidy_test_stamps)
    else()
      set(stamps tidy_stamps)
    endif()
    if(NOT stamp IN_LIST ${stamps})
      tidy_source(${source} ${target} ${stamp})
      list(APPEND ${stamps} ${stamp})
    endif()
  endforeach()
endforeach()
add_custom_target(tidy DEPENDS ${tidy_stamps})
add_custom_target(tidy_tests DEPENDS ${tidy_test_stamps})

# Each takes minutes; .ci/run leaves them out by the label.
cmake_host_system_information(RESULT cores QUERY NUMBER_OF_LOGICAL_CORES)
foreach(target tidy tidy_tests)
  add_dependencies(${target} tidy_version)
  add_test(NAME style.${target} COMMAND ${CMAKE_COMMAND} --build ${CMAKE_BINARY_DIR} --target ${target} -- -k 0)
  set_tests_properties(style.${target} PROPERTIES TIMEOUT 3600 PROCESSORS ${cores} RESOURCE_LOCK build_tree)
endforeach()
set_tests_properties(style.tidy style.tidy_tests PROPERTIES LABELS slow)
