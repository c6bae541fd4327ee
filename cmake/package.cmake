# The Debian package, which tools/package makes.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME rondora)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "The Rondora authors <rondora@users.noreply.github.com>")
set(CPACK_PACKAGE_HOMEPAGE_URL https://github.com/rondora/rondora)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "ring of actions at the pointer, opened by a hotkey")
set(CPACK_PACKAGE_DESCRIPTION "Hold a hotkey: a ring of items opens at the pointer. Point at an item and
let go, and its action runs: it starts an application or brings it to the
front, opens an address, copies a snippet, or types a keystroke into the
application that had the keyboard.

One ring fills itself with the running applications. The menus are one JSON
document; the interface speaks thirteen languages.")
set(CPACK_STRIP_FILES ON)
# With the real prefix, which the D-Bus service contains.
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Beyond the libraries: symbols of the tray's menu, emoji as icons, types of files, and the bus.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "adwaita-icon-theme, fonts-noto-color-emoji, hicolor-icon-theme, shared-mime-info")
# The scripts of all languages of the interface, the texts of the dialogs for files and colours, and the bus on which
# applications publish their menus.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
  "at-spi2-core, default-dbus-session-bus | dbus-session-bus, fonts-noto-cjk, fonts-noto-core, fonts-noto-ui-core, qt6-translations-l10n, xdg-utils")
include(CPack)
