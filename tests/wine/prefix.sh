# shellcheck shell=bash
# A Windows of its own for the cross-built programs: a Wine prefix in the build folder, made once,
# without a display. To be sourced after common.sh.

export WINEPREFIX=$ROOT/build/wine
export WINEDEBUG=-all
# No offers to install .NET or a browser engine, nothing in the menus of the host's desktop; no window
# anywhere.
export WINEDLLOVERRIDES='mscoree,mshtml,winemenubuilder.exe='
export DISPLAY=

# Seconds that one program may take under Wine, its start included.
WINE_LIMIT=60

# Wine's own programs, by their names, and ours, by their paths on the host.
in_wine() { timeout --kill-after=5 "$WINE_LIMIT" wine "$@"; }
our_program() { timeout --kill-after=5 "$WINE_LIMIT" "$ROOT/tests/wine/program" "$@"; }

# start_wine: Wine's server and services, which outlive the programs and are ended with the script.
# They must not inherit a pipe of ours, for who reads it would wait for their end, so a program that
# does nothing starts them.
start_wine() {
  timeout 20 wineserver -p >>"$WINEPREFIX/wine.log" 2>&1 </dev/null
  in_wine cmd /c exit >>"$WINEPREFIX/wine.log" 2>&1 </dev/null
}

stop_wine() {
  timeout 20 wineserver -k >/dev/null 2>&1 || true
  timeout 20 wineserver -w >/dev/null 2>&1 || true
}

# Wine leads the user's Documents, Desktop and so on to the host's own folders; the prefix gets folders
# of its own for them.
keep_out_of_home() {
  local link
  find "$WINEPREFIX/drive_c/users" -maxdepth 3 -type l | while IFS= read -r link; do
    rm "$link"
    mkdir "$link"
  done
}

# The dialogs' font, which Wine itself has not everywhere; with one that is not there, fields stay
# empty.
choose_font() {
  in_wine reg add 'HKLM\Software\Microsoft\Windows NT\CurrentVersion\FontSubstitutes' \
    /v 'MS Shell Dlg' /d 'DejaVu Sans' /f >>"$WINEPREFIX/wine.log" 2>&1 </dev/null
}

# The tests' display has no window manager, for whose answer to every window Wine would wait two seconds,
# and no graphics card, so Direct3D, which the toolkit asks about the screen, leads nowhere.
choose_display() {
  in_wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >>"$WINEPREFIX/wine.log" 2>&1 </dev/null
  in_wine reg add 'HKCU\Software\Wine\Direct3D' /v renderer /d no3d /f >>"$WINEPREFIX/wine.log" 2>&1 </dev/null
}

# prepare_wine: makes the prefix when there is none, and starts it.
prepare_wine() {
  at_exit stop_wine
  stop_wine
  if [[ ! -e $WINEPREFIX/ready ]]; then
    rm -rf "$WINEPREFIX"
    mkdir -p "$WINEPREFIX"
    timeout --kill-after=5 180 wineboot --init >>"$WINEPREFIX/wine.log" 2>&1 </dev/null || {
      cat "$WINEPREFIX/wine.log" >&2
      return 1
    }
    choose_font
    choose_display
    stop_wine
    keep_out_of_home
    touch "$WINEPREFIX/ready"
  fi
  start_wine
}

# map_port COMn PATH: Windows programs find PATH as COMn. Wine looks at these registry values when a
# prefix starts, so it is started anew.
map_port() {
  in_wine reg add 'HKLM\Software\Wine\Ports' /v "$1" /d "$2" /f >/dev/null
  stop_wine
  start_wine
}
