# The pictures of the symbol table that are embedded into the program, from the installed bootstrap-icons package.

find_path(BOOTSTRAP_ICONS_FOLDER star-fill.svg
  PATHS /usr/share/bootstrap-icons/svg /usr/share/nodejs/bootstrap-icons/icons
  PATH_SUFFIXES share/bootstrap-icons/svg
  DOC "Folder with the SVG files of bootstrap-icons"
  NO_CACHE)
if(NOT BOOTSTRAP_ICONS_FOLDER)
  message(FATAL_ERROR "The SVG files of bootstrap-icons are missing: install the package bootstrap-icons, "
    "or set BOOTSTRAP_ICONS_FOLDER.")
endif()

set(symbol_names
  airplane app bell-fill bicycle binoculars-fill book-fill bookmark-fill box-arrow-right box-fill browser-safari
  brush-fill bug-fill camera-fill car-front-fill cloud-fill command controller cup-hot-fill dice-5-fill droplet-fill
  film fire flag-fill folder-fill gear-fill gift-fill globe headphones heart-fill house-fill lightbulb-fill
  lightning-fill magic moon-fill mortarboard-fill music-note palette-fill pencil puzzle-fill send-fill snow star-fill
  stars sticky sun-fill tag-fill terminal train-front-fill window)

set(symbol_files "")
foreach(name IN LISTS symbol_names)
  if(NOT EXISTS ${BOOTSTRAP_ICONS_FOLDER}/${name}.svg)
    message(FATAL_ERROR "${BOOTSTRAP_ICONS_FOLDER} has no ${name}.svg")
  endif()
  list(APPEND symbol_files ${BOOTSTRAP_ICONS_FOLDER}/${name}.svg)
endforeach()
