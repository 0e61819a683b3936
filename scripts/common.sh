# shellcheck shell=bash disable=SC2034  # variables are for who sources this
# What the scripts of this repository share: where the checkout is, named steps whose failure is
# told by name, clean-up on every way out, the Debian packages that a step needs, and the build.
# To be sourced; leaves the shell in the checkout's root, so that a script works from any folder.

# Where the person is, for paths that they give.
STARTED_IN=$PWD
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$ROOT" || exit

# The same on every machine: messages are read by people and compared by scripts.
export LC_ALL=C.UTF-8

BUILD_PACKAGES=(g++ cmake ninja-build ccache qt6-base-dev qt6-l10n-tools libqcustomplot-dev)
TEST_PACKAGES=("${BUILD_PACKAGES[@]}" libgtest-dev libgmock-dev
  pkg-config libmodbus-dev python3)
WINDOWS_PACKAGES=(cmake ninja-build ccache g++-mingw-w64-x86-64-posix googletest qt6-base-dev
  qt6-base-dev-tools qt6-l10n-tools libqcustomplot-dev dpkg-dev nsis)
WINDOW_TEST_PACKAGES=(wine wine64 xvfb xdotool imagemagick fonts-dejavu-core)
ICON_PACKAGES=(librsvg2-bin icoutils)
DEB_PACKAGES=("${BUILD_PACKAGES[@]}" dpkg-dev file)
DEB_TEST_PACKAGES=(binutils desktop-file-utils lintian shared-mime-info)

CURRENT_STEP=start
CLEANUPS=()

# step NAME: begins a step. A failing command ends the script, and its step is named.
step() {
  CURRENT_STEP=$1
  printf '\n==> %s\n' "$CURRENT_STEP"
}

# at_exit COMMAND: runs COMMAND (a function's name) on every way out, the last one first.
at_exit() { CLEANUPS=("$1" "${CLEANUPS[@]}"); }

leave() {
  local status=$1 cleanup
  trap - EXIT
  trap '' INT TERM
  for cleanup in "${CLEANUPS[@]}"; do "$cleanup" || true; done
  if ((status == 130 || status == 143)); then
    printf '\n%s: stopped in step "%s"\n' "${0##*/}" "$CURRENT_STEP" >&2
  elif ((status != 0)); then
    printf '\n%s: step "%s" failed (status %d)\n' "${0##*/}" "$CURRENT_STEP" "$status" >&2
  fi
  exit "$status"
}
trap 'leave $?' EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

fail() {
  printf '%s\n' "$*" >&2
  return 1
}

as_root() {
  if ((EUID == 0)); then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    fail "This needs root: start it as root, or install sudo: $*"
  fi
}

# require_packages NAME...: installs those Debian packages that are missing; when none is, it
# touches neither the network nor the system.
require_packages() {
  local package missing=()
  command -v dpkg-query >/dev/null ||
    fail "There is no dpkg here. Install what these Debian packages hold, and build by hand: $*"
  for package in "$@"; do
    # shellcheck disable=SC2016  # the field's name is dpkg's
    [[ $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) == installed ]] ||
      missing+=("$package")
  done
  if ((${#missing[@]} == 0)); then return; fi
  echo "Installing ${missing[*]}"
  as_root apt-get update -qq
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
    -o Dpkg::Use-Pty=0 "${missing[@]}" </dev/null
}

# build PRESET [-DNAME=VALUE...] [TARGET...]: configures the preset with these variables, builds it or
# only the targets.
build() {
  local preset=$1 log options=()
  shift
  while [[ ${1:-} == -D* ]]; do
    options+=("$1")
    shift
  done
  log=build/configure-$preset.log
  mkdir -p build
  # What CMake found is worth reading only when it did not find everything.
  cmake --preset "$preset" "${options[@]}" >"$log" 2>&1 || {
    cat "$log" >&2
    return 1
  }
  if (($# > 0)); then
    cmake --build --preset "$preset" --target "$@"
  else
    cmake --build --preset "$preset"
  fi
}
