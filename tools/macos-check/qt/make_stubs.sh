#!/usr/bin/env bash
# Makes a folder's stub libraries of the toolkit's modules from Debian's: tools/macos-check/qt/make_stubs.sh FOLDER MODULE…
#
# Both systems' compilers give a function the same name, but for the mark of the other's standard library.
set -euo pipefail
folder=$1
shift
libraries=$(qtpaths6 --query QT_INSTALL_LIBS)
for module in "$@"; do
  name=Qt$module
  symbols=$(llvm-nm --dynamic --defined-only --just-symbol-name "$libraries/libQt6$module.so" |
    sed -E 's/@.*//; s/B5cxx11//g; s/^/_/' | LC_ALL=C sort -u | paste -sd,)
  mkdir -p "$folder/$name.framework"
  cat >"$folder/$name.framework/$name.tbd" <<END
--- !tapi-tbd
tbd-version: 4
targets: [ arm64-macos ]
install-name: '@rpath/$name.framework/Versions/A/$name'
exports:
  - targets: [ arm64-macos ]
    symbols: [ $symbols ]
...
END
done
