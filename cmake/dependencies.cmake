find_package(PkgConfig REQUIRED)
find_package(nlohmann_json 3.11 REQUIRED)
pkg_check_modules(UTF8PROC REQUIRED IMPORTED_TARGET libutf8proc)

if(BUILD_TESTING OR NOT DEFINED BUILD_TESTING)
  find_package(GTest REQUIRED)
endif()

if(RONDORA_DESKTOP)
  find_path(UNICODE_FOLDER emoji/emoji-test.txt
    PATHS /usr/share/unicode
    DOC "Folder with Unicode's data: emoji/emoji-test.txt and cldr/common"
    NO_CACHE)
endif()
if(RONDORA_DESKTOP AND (APPLE OR BUILD_TESTING OR NOT DEFINED BUILD_TESTING))
  find_package(CURL REQUIRED)
endif()
if(RONDORA_DESKTOP AND APPLE)
  # The settings' window is left out where they are missing.
  find_package(Qt6 6.4 COMPONENTS Core Gui Widgets)
  if(Qt6_FOUND AND EXISTS ${UNICODE_FOLDER}/cldr/common/annotations/en.xml)
    set(RONDORA_SETTINGS_WINDOW ON)
  else()
    message(STATUS "The settings have no window: Qt 6.4 or UNICODE_FOLDER is missing")
  endif()
elseif(RONDORA_DESKTOP)
  find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Network Widgets DBus Svg)
  pkg_check_modules(XCB REQUIRED IMPORTED_TARGET
    xcb xcb-keysyms xcb-xkb xcb-xinput xcb-randr xcb-res xcb-shape xcb-shm xcb-xfixes xcb-xtest xcb-cursor)
  pkg_check_modules(XKBCOMMON REQUIRED IMPORTED_TARGET xkbcommon xkbcommon-x11)
  pkg_check_modules(GIO REQUIRED IMPORTED_TARGET gio-2.0 gio-unix-2.0)
  pkg_check_modules(EVDEV REQUIRED IMPORTED_TARGET libevdev)
  pkg_check_modules(UDEV REQUIRED IMPORTED_TARGET libudev)
  pkg_check_modules(SDBUS REQUIRED IMPORTED_TARGET libsystemd)
  if(BUILD_TESTING OR NOT DEFINED BUILD_TESTING OR RONDORA_BENCHMARKS)
    pkg_check_modules(UMOCKDEV REQUIRED IMPORTED_TARGET umockdev-1.0)
  endif()
endif()
