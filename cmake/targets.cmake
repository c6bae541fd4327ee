# Options of all targets, and functions that declare them.

add_library(rondora_options INTERFACE)
target_include_directories(rondora_options INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_options(rondora_options INTERFACE -Wall -Wextra -Wconversion -Wshadow)
if(RONDORA_WARNINGS_AS_ERRORS)
  target_compile_options(rondora_options INTERFACE -Werror)
endif()
# False positives of GCC 12 at -O2: overlapping copies in the standard library's string operations (GCC bug 105329) and
# uninitialised values in std::variant and std::optional.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(rondora_options INTERFACE -Wno-restrict -Wno-maybe-uninitialized)
endif()
if(RONDORA_SANITIZERS)
  target_compile_options(rondora_options INTERFACE -fsanitize=${RONDORA_SANITIZERS} -fno-omit-frame-pointer)
  target_link_options(rondora_options INTERFACE -fsanitize=${RONDORA_SANITIZERS})
  # False positives: GCC's flow analysis loses track of std::optional between the sanitizers' checks.
  target_compile_options(rondora_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  if(RONDORA_SANITIZERS MATCHES "undefined")
    target_compile_options(rondora_options INTERFACE -fno-sanitize-recover=undefined)
  endif()
endif()

# rondora_library(name SOURCES a.cpp ... LINKS PUBLIC|PRIVATE target ...)
function(rondora_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC rondora_options)
  if(arg_LINKS)
    target_link_libraries(${name} ${arg_LINKS})
  endif()
endfunction()

# rondora_unit_test(name SOURCES a_test.cpp ... LINKS target ...): one GoogleTest program of the "unit" tests.
function(rondora_unit_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE rondora_options ${arg_LINKS} GTest::gmock GTest::gtest_main)
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests ${CMAKE_SOURCE_DIR}/tools)
  target_compile_definitions(${name} PRIVATE RONDORA_FIXTURES="${CMAKE_SOURCE_DIR}/tests/fixtures")
  add_test(NAME unit.${name} COMMAND ${name})
  set_tests_properties(unit.${name} PROPERTIES LABELS unit TIMEOUT 300)
endfunction()
