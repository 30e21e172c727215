# Sourced by try-windows: what a person does with a year at the keyboard, the same on every system, and
# what stands in the year afterwards. Wants $DISPLAY with a window manager, and wait_for and fail.

# The steps of a person take a moment each; the wish of a key that comes too early is lost.
press() { xdotool key --delay 100 "$@"; sleep 0.3; }
type_in() {  # type_in NUMBER...: each into its field, and on to the next
  local number
  for number in "$@"; do
    xdotool type --delay 50 "$number"
    press Return
  done
}
has_keyboard() {  # has_keyboard TITLE
  local id
  id=$(xdotool search --onlyvisible --name "$1" | tail -n 1)
  [ -n "$id" ] && xdotool windowfocus "$id" && sleep 0.2 && [ "$(xdotool getwindowfocus)" = "$id" ]
}
gone() { ! xdotool search --onlyvisible --name "$1" >/dev/null; }
window() { wait_for "Fenster „$1“" has_keyboard "$1"; sleep 1; }
close_window() { wait_for "Ende von „$1“" closed "$1"; }  # as its title bar does
closed() {  # closed TITLE; a busy machine loses the wish now and then
  gone "$1" && return
  press ctrl+alt+Escape
  sleep 3
  gone "$1"
}

# A start reading, a price of all months, a month's readings with a remark, an edit taken back.
edit_year() {  # edit_year TITLE
  window "$1"
  press Tab
  type_in 41200 31,5
  press ctrl+m
  window 'Monat erfassen'
  type_in 44400 24400 450 10200
  press alt+a
  xdotool type --delay 100 'Zähler geprüft, Straße'
  press alt+b alt+s
  wait_for "Ende des Monatsblatts" gone 'Monat erfassen'
  window "$1"
  type_in 23000
  press ctrl+z
  close_window "$1"
}

# Every cell of every table of a year, and every other file beside it, by programs that are not ours.
cells() {  # cells FOLDER YEAR
  local table
  mdb-tables -1 "$1/$2" | while read -r table; do
    echo "== $table"
    mdb-export "$1/$2" "$table"
  done
  (cd "$1" && find . -maxdepth 1 -type f ! -name '*.kwd' | sort | xargs -r -d '\n' sha256sum)
}

# Twelve months have one price, and each the amount that follows from it: the price's edit is stored
# as a whole or not at all.
price_is_whole() {  # price_is_whole YEAR
  mdb-export "$1" Strom | tail -n +2 | awk -F, '
    NR == 1 { price = $6 }
    { amount = $4 * $6 / 100 }
    $6 != price || amount - $8 > 0.0001 || $8 - amount > 0.0001 { bad = 1; print "Zeile " NR ": " $0 }
    END { exit bad || NR != 12 }'
}
