# The files of `cmake --install`; the target `rondora` exists if RONDORA_DESKTOP is on.
set(identifier io.github.rondora.Rondora)
set(packaging ${CMAKE_SOURCE_DIR}/packaging)
set(documents ${CMAKE_INSTALL_DATADIR}/doc/rondora)

install(TARGETS rondora RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${packaging}/${identifier}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${packaging}/${identifier}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${packaging}/icons/${identifier}.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES ${packaging}/copyright DESTINATION ${documents})

# The service names the program by its path, which is known at installation only.
install(CODE "set(CMAKE_INSTALL_BINDIR \"${CMAKE_INSTALL_BINDIR}\")
  configure_file(${packaging}/${identifier}.service.in ${CMAKE_BINARY_DIR}/${identifier}.service @ONLY)")
install(FILES ${CMAKE_BINARY_DIR}/${identifier}.service DESTINATION ${CMAKE_INSTALL_DATADIR}/dbus-1/services)

# install_compressed(FILE NAME FOLDER): as FOLDER/NAME.gz, which does not depend on the time.
function(install_compressed file name folder)
  set(compressed ${CMAKE_CURRENT_BINARY_DIR}/${name}.gz)
  add_custom_command(OUTPUT ${compressed} COMMAND gzip -9nc ${file} > ${compressed} DEPENDS ${file} VERBATIM)
  add_custom_target(compressed_${name} ALL DEPENDS ${compressed})
  install(FILES ${compressed} DESTINATION ${folder})
endfunction()
install_compressed(${packaging}/rondora.1 rondora.1 ${CMAKE_INSTALL_MANDIR}/man1)
install_compressed(${packaging}/changelog changelog ${documents})
install_compressed(${CMAKE_SOURCE_DIR}/README.md README.md ${documents})

# For panels that do not draw SVG.
find_program(RSVG_CONVERT rsvg-convert)
if(RSVG_CONVERT)
  foreach(side 16 22 24 32 48 64 128 256 512)
    set(icon ${CMAKE_CURRENT_BINARY_DIR}/icons/${side}/${identifier}.png)
    add_custom_command(OUTPUT ${icon}
      COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_CURRENT_BINARY_DIR}/icons/${side}
      COMMAND ${RSVG_CONVERT} -w ${side} -h ${side} -o ${icon} ${packaging}/icons/${identifier}.svg
      DEPENDS ${packaging}/icons/${identifier}.svg VERBATIM)
    list(APPEND icons ${icon})
    install(FILES ${icon} DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${side}x${side}/apps)
  endforeach()
  add_custom_target(icon_sizes ALL DEPENDS ${icons})
endif()
