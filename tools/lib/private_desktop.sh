# A desktop of its own: X server, session bus, window manager, compositor, tray and XDG folders, none of which touches
# the user's. Source this file, then: make_private_home; start_private_display; start_window_manager openbox; …
# Everything that start_process started ends with stop_processes. Needs bash.

started_pids=()
private_home=

# wait_until SECONDS COMMAND…: true as soon as the command is, false when the time is up.
wait_until() {
  local deadline=$((SECONDS + $1))
  shift
  until "$@"; do
    [ "$SECONDS" -lt "$deadline" ] || return 1
    sleep 0.02
  done
}

make_private_home() {
  private_home=$(mktemp -d "${TMPDIR:-/tmp}/rondora-desktop.XXXXXX")
  mkdir -p "$private_home"/{config,data,cache,state,runtime,logs}
  chmod 700 "$private_home/runtime"
  export HOME=$private_home
  export XDG_CONFIG_HOME=$private_home/config XDG_DATA_HOME=$private_home/data
  export XDG_CACHE_HOME=$private_home/cache XDG_STATE_HOME=$private_home/state
  export XDG_RUNTIME_DIR=$private_home/runtime
  unset WAYLAND_DISPLAY XDG_SESSION_TYPE XDG_CURRENT_DESKTOP DESKTOP_SESSION XAUTHORITY
  # Whatever else is installed on the machine, these are the user's applications.
  printf '%s\n' '[Default Applications]' text/plain=org.xfce.mousepad.desktop inode/directory=pcmanfm.desktop \
    >"$XDG_CONFIG_HOME/mimeapps.list"
  mkdir "$private_home/bin"
  ln -s "$(command -v xterm)" "$private_home/bin/x-terminal-emulator"
  export PATH=$private_home/bin:$PATH
}

# start_process NAME COMMAND…: in the background; what it writes goes to the home's logs/NAME.log.
start_process() {
  local name=$1
  shift
  "$@" >"$private_home/logs/$name.log" 2>&1 </dev/null &
  started_pids+=($!)
  last_started_pid=$!
}

# Ends what start_process started, the last first, and removes the private home.
stop_processes() {
  local index pid
  for ((index = ${#started_pids[@]} - 1; index >= 0; index--)); do
    pid=${started_pids[index]}
    kill "$pid" 2>/dev/null || true
    wait_until 5 process_has_ended "$pid" || kill -KILL "$pid" 2>/dev/null || true
    wait "$pid" 2>/dev/null || true
  done
  started_pids=()
  # Programs that lost their display may still be writing something while they end.
  [ -z "$private_home" ] || wait_until 5 rm -rf "$private_home" 2>/dev/null || true
}

# Ended, or a zombie that waits for us to collect it.
process_has_ended() {
  local state
  state=$(sed -n 's/^State:[[:space:]]*\(.\).*/\1/p' "/proc/$1/status" 2>/dev/null) || return 0
  [ -z "$state" ] || [ "$state" = Z ]
}

# start_private_display [WIDTHxHEIGHT]: sets DISPLAY and DBUS_SESSION_BUS_ADDRESS.
start_private_display() {
  local number=$private_home/display-number address=$private_home/bus-address
  # -noreset: without it the server forgets its monitors when the last client leaves.
  start_process xvfb bash -c 'exec Xvfb -displayfd 3 -noreset -nolisten tcp -screen 0 "$1x24" 3>"$2"' xvfb \
    "${1:-1280x800}" "$number"
  wait_until 20 test -s "$number" || return 1
  DISPLAY=:$(<"$number")
  export DISPLAY
  start_process bus bash -c 'exec dbus-daemon --session --nofork --nopidfile --address="unix:dir=$2" --print-address=3 3>"$1"' \
    bus "$address" "$XDG_RUNTIME_DIR"
  wait_until 20 test -s "$address" || return 1
  DBUS_SESSION_BUS_ADDRESS=$(<"$address")
  export DBUS_SESSION_BUS_ADDRESS
}

has_window_manager() { grep -q "window id" <<<"$(xprop -root _NET_SUPPORTING_WM_CHECK 2>&1)"; }
has_root_child() { grep -q "\"$1\"" <<<"$(xwininfo -root -tree 2>&1)"; }

start_window_manager() {
  start_process "$1" "$@"
  wait_until 20 has_window_manager
}

start_compositor() {
  start_process picom picom --config /dev/null --backend xrender
  wait_until 20 has_root_child picom
}

start_tray() {
  start_process tray tint2 -c "$1"
  wait_until 20 has_root_child tint2
}
