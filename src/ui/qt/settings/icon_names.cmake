# The catalogue of the icon picker, made from the installed packages unicode-cldr-core and unicode-data.

find_package(Python3 REQUIRED COMPONENTS Interpreter)
if(NOT UNICODE_FOLDER OR NOT EXISTS ${UNICODE_FOLDER}/cldr/common/annotations/en.xml)
  message(FATAL_ERROR "Unicode's data is missing: install the packages unicode-data and unicode-cldr-core, "
    "or set UNICODE_FOLDER.")
endif()

set(icon_languages ru en zh hi es ar fr bn pt ur id de ja)
set(icon_names_folder ${CMAKE_CURRENT_BINARY_DIR}/icon-names)
set(icon_names_script ${CMAKE_SOURCE_DIR}/cmake/icon_names.py)
set(icon_symbols ${CMAKE_SOURCE_DIR}/src/icons/catalogue/symbols.txt)
set(icon_name_files ${icon_names_folder}/icons.txt)
set(icon_name_sources ${icon_names_script} ${icon_symbols} ${UNICODE_FOLDER}/emoji/emoji-test.txt)
foreach(language IN LISTS icon_languages)
  list(APPEND icon_name_files ${icon_names_folder}/${language}.txt)
  foreach(folder annotations annotationsDerived main)
    list(APPEND icon_name_sources ${UNICODE_FOLDER}/cldr/common/${folder}/${language}.xml)
  endforeach()
endforeach()
add_custom_command(OUTPUT ${icon_name_files}
  COMMAND Python3::Interpreter ${icon_names_script} ${UNICODE_FOLDER} ${icon_symbols} ${icon_names_folder}
    ${icon_languages}
  DEPENDS ${icon_name_sources} VERBATIM)
