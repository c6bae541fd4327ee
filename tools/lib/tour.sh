#!/usr/bin/env bash
# A short tour of the program, played by an independent client: keys and pointer through XTEST, checked only by the X
# server, the window manager and the screen. Needs a private desktop of 1280x800: tour.sh PROGRAM FOLDER
# Numbered PNG files go to FOLDER; the exit status says whether every step succeeded.
set -euo pipefail
program=$1
pictures=$2

readonly tour_patience=15 # seconds; only a failing step waits that long
readonly tour_centre_x=640 tour_centre_y=400

# wait_until SECONDS COMMAND…: false when the command does not succeed in time.
wait_until() {
  local deadline=$((SECONDS + $1))
  shift
  until "$@"; do
    [ "$SECONDS" -lt "$deadline" ] || return 1
    sleep 0.02
  done
}

# A zombie counts as ended.
process_has_ended() {
  local state
  state=$(sed -n 's/^State:[[:space:]]*\(.\).*/\1/p' "/proc/$1/status" 2>/dev/null) || return 0
  [ -z "$state" ] || [ "$state" = Z ]
}

start_program() {
  mkdir -p "$XDG_CONFIG_HOME"/{gtk-3.0,Rondora}
  # A blinking cursor would make two pictures of the same state differ.
  printf '[Settings]\ngtk-cursor-blink=0\n' >"$XDG_CONFIG_HOME/gtk-3.0/settings.ini"
  # Keeps the settings closed after the introduction.
  echo 'pie.hasAutoOpenedSettingsAfterPermissions=true' >"$XDG_CONFIG_HOME/Rondora/defaults"
  "$program" >"$HOME/program.log" 2>&1 </dev/null &
  program_pid=$!
}

# step TITLE COMMAND: releases all keys afterwards.
step() {
  shown=
  if "$2"; then
    printf '  ok      %s.\n' "$1"
  else
    printf '  FAILED  %s.\n' "$1"
    failures=$((failures + 1))
    picture failure
  fi
  [ -z "$shown" ] || printf '          %s\n' "$shown"
  let_go
}

# picture NAME: saves the screen as the next numbered file.
picture() {
  picture_number=$((picture_number + 1))
  last_picture=$(printf '%s/%02d-%s.png' "$pictures" "$picture_number" "$1")
  import -silent -window root "$last_picture"
}

hold_hotkey() { xdotool keydown Control_L keydown Alt_L key space; }
let_go() { xdotool keyup Alt_L keyup Control_L; }
point() { xdotool mousemove $((tour_centre_x + $1)) $((tour_centre_y + $2)); }

windows_of_program() { wmctrl -lp 2>/dev/null | awk -v pid="$program_pid" '$3 == pid { print $1 }'; }
program_has_window() { [ -n "$(windows_of_program)" ]; }
program_has_no_window() { ! program_has_window; }
active_class() { xprop -id "$(xdotool getactivewindow 2>/dev/null)" WM_CLASS 2>/dev/null | tr '[:upper:]' '[:lower:]'; }
active_is() { grep -q "\"$1\"" <<<"$(active_class)"; }

# The resource ids of one client share their upper bits.
belongs_to_program() { [ $(($1 & ~0x1fffff)) -eq "$program_resources" ]; }

# Prints "ID WIDTHxHEIGHT CENTRE_X CENTRE_Y" of the open ring: the program's large override-redirect window.
ring() {
  local id size position width height x y facts
  while read -r id size position; do
    width=${size%x*} height=${size#*x}
    belongs_to_program "$id" && [ "$width" -ge 200 ] && [ "$height" -ge 200 ] || continue
    facts=$(xwininfo -id "$id" 2>/dev/null) || continue
    grep -q 'Override Redirect State: yes' <<<"$facts" && grep -q 'Map State: IsViewable' <<<"$facts" || continue
    x=$(sed -nE 's/^ *Absolute upper-left X: *(-?[0-9]+)$/\1/p' <<<"$facts")
    y=$(sed -nE 's/^ *Absolute upper-left Y: *(-?[0-9]+)$/\1/p' <<<"$facts")
    echo "$id $size $((x + width / 2)) $((y + height / 2))"
    return 0
  done < <(xwininfo -root -children 2>/dev/null |
    sed -nE 's/^ *(0x[0-9a-f]+) .* ([0-9]+x[0-9]+)[+-][0-9+-]+ +([+-][0-9+-]+)$/\1 \2 \3/p')
  return 1
}
ring_is_open() { ring >/dev/null; }
ring_is_closed() { ! ring_is_open; }

readonly tour_crop=340x340+$((tour_centre_x - 170))+$((tour_centre_y - 170))

# A checksum of the pixels around the centre of the ring.
ring_sum() { import -silent -window root -crop "$tour_crop" rgb:- | cksum; }
ring_is_still() {
  local before=$last_sum
  last_sum=$(ring_sum)
  [ "$last_sum" = "$before" ]
}
settle() {
  last_sum=
  wait_until "$tour_patience" ring_is_still
}
ring_differs_from() { [ "$(ring_sum)" != "$1" ]; }

open_ring() {
  point 0 0
  hold_hotkey
  wait_until "$tour_patience" ring_is_open && settle
}

# Whether two pictures show the same ring, up to rounding of colours.
same_ring() {
  [ "$(compare -metric AE -fuzz 3% -extract "$tour_crop" "$1" "$2" null: 2>&1)" = 0 ]
}

tour_introduction() {
  local window
  wait_until "$tour_patience" program_has_window || return 1
  window=$(windows_of_program | head -n 1)
  program_resources=$((window & ~0x1fffff))
  shown="window \"$(xdotool getwindowname "$window")\""
  settle
  picture introduction
  wmctrl -ic "$window"
  wait_until "$tour_patience" program_has_no_window
}

tour_opening() {
  local id size x y
  open_ring || return 1
  read -r id size x y < <(ring)
  picture ring
  shown="ring of $size, centre $x,$y, pointer $tour_centre_x,$tour_centre_y"
  [ "$x" -eq "$tour_centre_x" ] && [ "$y" -eq "$tour_centre_y" ] || return 1
  let_go
  wait_until "$tour_patience" ring_is_closed
}

tour_pointing() {
  local before
  open_ring || return 1
  before=$last_sum
  point -57 -100 # the middle of the last of six sectors
  wait_until "$tour_patience" ring_differs_from "$before" && settle || return 1
  picture pointing
  let_go
  wait_until "$tour_patience" active_is mousepad || return 1
  shown="active window: $(xdotool getactivewindow getwindowname)"
  picture text-editor
}

tour_quick_select() {
  open_ring || return 1
  xdotool key 2
  wait_until "$tour_patience" ring_is_closed || return 1
  let_go
  wait_until "$tour_patience" active_is pcmanfm || return 1
  shown="active window: $(xdotool getactivewindow getwindowname)"
  picture file-manager
}

tour_stepping() {
  local tap before first=
  open_ring || return 1
  for tap in 1 2 3 4 5 6 7 8; do
    before=$last_sum
    xdotool key space
    wait_until "$tour_patience" ring_differs_from "$before" && settle || return 1
    case $tap in
      1) picture first-step && first=$last_picture ;;
      4) picture fourth-step ;;
      7) picture wrapped && same_ring "$first" "$last_picture" || return 1 ;;
    esac
  done
  let_go
  wait_until "$tour_patience" active_is xterm || return 1
  shown="8 taps on 6 sectors; active window: $(xdotool getactivewindow getwindowname)"
  picture terminal
}

tour_escape() {
  local active windows
  active=$(xdotool getactivewindow)
  windows=$(wmctrl -l | wc -l)
  open_ring || return 1
  point 100 0
  picture before-escape
  xdotool key Escape
  wait_until "$tour_patience" ring_is_closed || return 1
  let_go
  picture after-escape
  shown="$windows windows before, $(wmctrl -l | wc -l) after"
  [ "$(xdotool getactivewindow)" = "$active" ] && [ "$(wmctrl -l | wc -l)" -eq "$windows" ]
}

tour_end() {
  local status=0
  kill "$program_pid"
  wait_until "$tour_patience" process_has_ended "$program_pid" || return 1
  wait "$program_pid" || status=$?
  shown="exit status $status"
  [ "$status" -eq 0 ]
}

failures=0
picture_number=0
rm -rf "$pictures"
mkdir -p "$pictures"
start_program

step "The introduction opens once; after it is closed, only the tray icon is left" tour_introduction
step "Ctrl+Alt+Space opens the ring at the pointer" tour_opening
step "Pointing at a sector highlights it; releasing the keys opens the text editor" tour_pointing
step "The key of a sector, 2, opens the file manager" tour_quick_select
step "Tapping Space again steps through the sectors and wraps; releasing the keys opens the terminal" tour_stepping
step "Escape closes the ring and changes nothing" tour_escape
step "SIGTERM ends the program with status 0" tour_end

echo "Pictures: $pictures ($picture_number)"
[ "$failures" -eq 0 ] || echo "$failures steps failed."
[ "$failures" -eq 0 ]
