# The pictures of the symbol table, embedded into the program from the installed bootstrap-icons package.

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
  airplane app arrow-90deg-left arrow-90deg-right arrow-clockwise arrow-counterclockwise arrows-angle-expand bar-chart-fill bell-fill bicycle
  binoculars-fill book-fill bookmark-fill box-arrow-right box-fill browser-safari brush-fill calendar3 camera-fill
  camera-video-fill car-front-fill cart-fill chat-fill chevron-down chevron-up check-circle-fill check-lg clipboard-fill clock-fill cloud-fill
  command cpu-fill credit-card-fill cup-hot-fill dash-lg dice-5-fill display droplet-fill envelope-fill
  exclamation-triangle-fill eye-slash-fill file-earmark-fill file-earmark-plus-fill file-earmark-text files film fire
  flag-fill folder-fill gear-fill gift-fill globe grid-fill hammer headphones heart-fill house-fill image-fill
  info-circle-fill key-fill keyboard-fill laptop lightbulb-fill lightning-fill link-45deg list-ul lock-fill magic
  map-fill mic-fill moon-fill mortarboard-fill music-note option palette-fill paperclip pause-fill pencil
  pencil-square person-fill play-fill plus-lg plus-square power printer-fill puzzle-fill question-lg save-fill scissors search
  send-fill snow star-fill stars sun-fill tag-fill telephone-fill terminal train-front-fill trash-fill tv-fill
  volume-up-fill wifi window wrench x-lg zoom-in zoom-out)

set(symbol_files "")
foreach(name IN LISTS symbol_names)
  if(NOT EXISTS ${BOOTSTRAP_ICONS_FOLDER}/${name}.svg)
    message(FATAL_ERROR "${BOOTSTRAP_ICONS_FOLDER} has no ${name}.svg")
  endif()
  list(APPEND symbol_files ${BOOTSTRAP_ICONS_FOLDER}/${name}.svg)
endforeach()
