find_package(PkgConfig REQUIRED)
find_package(nlohmann_json 3.11 REQUIRED)
pkg_check_modules(UTF8PROC REQUIRED IMPORTED_TARGET libutf8proc)

if(BUILD_TESTING OR NOT DEFINED BUILD_TESTING)
  find_package(GTest REQUIRED)
endif()

if(RONDORA_DESKTOP)
  find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Network Widgets DBus Svg)
  pkg_check_modules(XCB REQUIRED IMPORTED_TARGET
    xcb xcb-keysyms xcb-xkb xcb-xinput xcb-randr xcb-res xcb-shape xcb-shm xcb-xfixes xcb-xtest xcb-cursor)
  pkg_check_modules(XKBCOMMON REQUIRED IMPORTED_TARGET xkbcommon xkbcommon-x11)
  pkg_check_modules(GIO REQUIRED IMPORTED_TARGET gio-2.0 gio-unix-2.0)
endif()
