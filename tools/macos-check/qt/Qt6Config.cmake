# The toolkit as the check needs it: Debian's headers, stub libraries made from what Debian's libraries export, and
# Debian's resource compiler. A Mac uses the toolkit's own package.
set(folder ${CMAKE_CURRENT_LIST_DIR}/../../../qt)
foreach(module IN LISTS Qt6_FIND_COMPONENTS)
  add_library(Qt6::${module} INTERFACE IMPORTED)
  set_target_properties(Qt6::${module} PROPERTIES
    INTERFACE_INCLUDE_DIRECTORIES "${folder}/headers;${folder}/headers/Qt${module}"
    INTERFACE_LINK_LIBRARIES "-framework Qt${module}"
  )
endforeach()

function(qt_add_resources target name)
  cmake_parse_arguments(PARSE_ARGV 2 arg "" "PREFIX;BASE" "FILES;OPTIONS")
  set(list ${CMAKE_CURRENT_BINARY_DIR}/${name}.qrc)
  set(content "<RCC><qresource prefix=\"${arg_PREFIX}\">\n")
  foreach(file IN LISTS arg_FILES)
    cmake_path(RELATIVE_PATH file BASE_DIRECTORY ${arg_BASE} OUTPUT_VARIABLE alias)
    string(APPEND content "<file alias=\"${alias}\">${file}</file>\n")
  endforeach()
  file(CONFIGURE OUTPUT ${list} CONTENT "${content}</qresource></RCC>\n" @ONLY)
  set(source ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  add_custom_command(OUTPUT ${source}
    COMMAND ${folder}/rcc --name ${name} ${arg_OPTIONS} --output ${source} ${list}
    DEPENDS ${list} ${arg_FILES} VERBATIM)
  target_sources(${target} PRIVATE ${source})
endfunction()
