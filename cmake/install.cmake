# The files of `cmake --install`; the target `rondora` exists if RONDORA_DESKTOP is on.
install(TARGETS rondora RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${CMAKE_SOURCE_DIR}/packaging/io.github.rondora.Rondora.desktop
  DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${CMAKE_SOURCE_DIR}/packaging/icons/io.github.rondora.Rondora.svg
  DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
