# The compile options of all our sources. The target is linked PRIVATE, so that programs which link our
# libraries keep their own warnings.
add_library(kedrin_options INTERFACE)
target_compile_options(kedrin_options INTERFACE -Wall -Wextra -Wshadow -Wconversion)
# At -O3, GCC 12 wrongly warns of overlapping copies in operator+(const char*, std::string&&) (its bug
# 105651).
target_compile_options(kedrin_options INTERFACE
  $<$<AND:$<CONFIG:Release>,$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)
if(KEDRIN_WERROR)
  target_compile_options(kedrin_options INTERFACE -Werror)
endif()
target_compile_definitions(kedrin_options INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING
  QT_NO_FOREACH)

if(KEDRIN_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(KEDRIN_COVERAGE)
  add_compile_options(-fprofile-instr-generate -fcoverage-mapping -fprofile-update=atomic)
  # the counters are kept in the file itself, so that a process that a signal or _exit() ends is counted too
  add_compile_options("SHELL:-mllvm -runtime-counter-relocation=true")
  add_link_options(-fprofile-instr-generate)
endif()
if(KEDRIN_LIBFUZZER)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# kedrin_library(NAME SOURCES...): a static library of one folder, which is its include path. moc runs only if
# enabled in that folder.
function(kedrin_library name)
  add_library(${name} STATIC ${ARGN})
  target_include_directories(${name} PUBLIC $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}>)
  target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:kedrin_options>)
endfunction()
