# The application's bundle: its Info.plist, icon and the texts with which the system asks for access to folders. Included
# where the target is made.
set(packaging ${CMAKE_SOURCE_DIR}/packaging)
set(identifier io.github.rondora.Rondora)

# Folders that the system guards, and in which a picture may lie that a menu shows.
set(guardedFolders DesktopFolder DocumentsFolder DownloadsFolder NetworkVolumes RemovableVolumes)

# add_resource(TARGET FILE FOLDER): into Contents/FOLDER.
function(add_resource target file folder)
  target_sources(${target} PRIVATE ${file})
  set_source_files_properties(${file} PROPERTIES MACOSX_PACKAGE_LOCATION ${folder})
endfunction()

# add_usage(FILE GUARDED…): each line of the file is a language and its text about what the system guards.
function(add_usage file)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
  file(STRINGS ${file} lines ENCODING UTF-8)
  foreach(line IN LISTS lines)
    string(REGEX MATCH "^([A-Za-z-]+) (.+)$" line "${line}")
    set(language "${CMAKE_MATCH_1}")
    set(text "${CMAKE_MATCH_2}")
    list(APPEND languages ${language})
    foreach(guarded IN LISTS ARGN)
      string(APPEND strings_${language} "NS${guarded}UsageDescription = \"${text}\";\n")
      if(language STREQUAL "en")
        string(APPEND usageTexts "  <key>NS${guarded}UsageDescription</key>\n  <string>${text}</string>\n")
      endif()
    endforeach()
    set(strings_${language} "${strings_${language}}" PARENT_SCOPE)
  endforeach()
  set(languages ${languages} PARENT_SCOPE)
  set(usageTexts "${usageTexts}" PARENT_SCOPE)
endfunction()

add_usage(${packaging}/macos/folder_texts.txt ${guardedFolders})
add_usage(${packaging}/macos/network_texts.txt LocalNetwork)
list(REMOVE_DUPLICATES languages)
foreach(language IN LISTS languages)
  string(APPEND localizations "    <string>${language}</string>\n")
  set(file ${CMAKE_BINARY_DIR}/bundle/${language}.lproj/InfoPlist.strings)
  file(CONFIGURE OUTPUT ${file} CONTENT "${strings_${language}}" @ONLY)
  add_resource(Rondora ${file} Resources/${language}.lproj)
endforeach()

find_program(RSVG_CONVERT rsvg-convert)
find_package(Python3 COMPONENTS Interpreter)
if(RSVG_CONVERT AND Python3_FOUND)
  set(drawing ${packaging}/icons/${identifier}.svg)
  set(icon ${CMAKE_BINARY_DIR}/bundle/Rondora.icns)
  add_custom_command(OUTPUT ${icon}
    COMMAND ${Python3_EXECUTABLE} ${packaging}/macos/make_icns.py ${RSVG_CONVERT} ${drawing} ${icon}
    DEPENDS ${packaging}/macos/make_icns.py ${drawing} VERBATIM)
  add_resource(Rondora ${icon} Resources)
else()
  message(WARNING "The application has no icon: rsvg-convert or Python is missing.")
endif()

# The target's properties fill in the rest.
configure_file(${packaging}/macos/Info.plist.in ${CMAKE_BINARY_DIR}/bundle/Info.plist.in @ONLY)
set_target_properties(Rondora PROPERTIES
  MACOSX_BUNDLE_INFO_PLIST ${CMAKE_BINARY_DIR}/bundle/Info.plist.in
  MACOSX_BUNDLE_GUI_IDENTIFIER ${identifier}
  MACOSX_BUNDLE_BUNDLE_NAME Rondora
  MACOSX_BUNDLE_ICON_FILE Rondora
  MACOSX_BUNDLE_BUNDLE_VERSION ${PROJECT_VERSION}
  MACOSX_BUNDLE_SHORT_VERSION_STRING ${PROJECT_VERSION}
)
