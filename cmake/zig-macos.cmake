# Cross-compiles for Apple silicon with zig, against the declarations in tools/macos-check. Used by tools/check-macos,
# which makes MACOS_CHECK_TOOLS (the compiler's commands) and MACOS_CHECK_PREFIX (headers of libraries).
set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_PROCESSOR arm64)
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES MACOS_CHECK_TOOLS MACOS_CHECK_PREFIX)

foreach(language C CXX OBJC OBJCXX)
  if(language MATCHES "CXX$")
    set(CMAKE_${language}_COMPILER ${MACOS_CHECK_TOOLS}/c++)
  else()
    set(CMAKE_${language}_COMPILER ${MACOS_CHECK_TOOLS}/cc)
  endif()
endforeach()
set(CMAKE_AR ${MACOS_CHECK_TOOLS}/ar CACHE FILEPATH "")
set(CMAKE_RANLIB ${MACOS_CHECK_TOOLS}/ranlib CACHE FILEPATH "")
set(CMAKE_INSTALL_NAME_TOOL /bin/true CACHE FILEPATH "")

set(declarations ${CMAKE_CURRENT_LIST_DIR}/../tools/macos-check)
foreach(language C CXX OBJC OBJCXX)
  set(CMAKE_${language}_FLAGS_INIT "-isystem ${declarations}/include")
endforeach()
# CMake names the language twice.
string(APPEND CMAKE_OBJCXX_FLAGS_INIT " -Wno-unused-command-line-argument")
foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "-F${MACOS_CHECK_PREFIX}/Frameworks -L${MACOS_CHECK_PREFIX}/lib")
endforeach()

set(CMAKE_FIND_ROOT_PATH ${MACOS_CHECK_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
foreach(kind LIBRARY INCLUDE PACKAGE)
  set(CMAKE_FIND_ROOT_PATH_MODE_${kind} ONLY)
endforeach()
