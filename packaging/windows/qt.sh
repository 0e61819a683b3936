# shellcheck shell=bash
# Static Qt and QCustomPlot for 64-bit Windows, built once from Debian's source packages and kept in a
# cache folder. To be sourced after common.sh.

# Qt's features that no part of the program uses: what is not built takes no time and no room.
QT_FEATURES_OFF=(
  # modules
  network sql dbus xml concurrent
  # tools for other systems
  androiddeployqt qmake
  # backends
  vulkan direct2d1_1 tuiotouch glib icu zstd etw lttng
  # file formats; pictures are PNG and PDF
  gif ico jpeg imageformat_ppm imageformat_xbm movie
  textmarkdownreader textmarkdownwriter textodfwriter mimetype_database
  # its header is not in Debian's source package
  tabletevent
  # Core and Gui
  hijricalendar jalalicalendar islamiccivilcalendar sharedmemory systemsemaphore
  systemtrayicon sessionmanager whatsthis undocommand undostack undogroup undoview
  # Widgets
  calendarwidget wizard mdiarea lcdnumber dial fontdialog colordialog fontcombobox
  keysequenceedit columnview datawidgetmapper errormessage splashscreen syntaxhighlighter
  scroller graphicsview graphicseffect printdialog printpreviewdialog printpreviewwidget
  # Qt's own copies instead
  system_zlib system_png system_freetype system_harfbuzz system_pcre2 system_doubleconversion
)

# source_version PACKAGE: the version of the source package that an installed package was built from.
source_version() {
  # shellcheck disable=SC2016  # the field's name is dpkg's
  dpkg-query -W -f '${source:Version}' "$1"
}

# private_apt FOLDER ARGUMENT...: apt-get with the source packages of the Debian archives that this
# machine takes its packages from, whose lists lie in FOLDER; the system's stay as they are.
private_apt() {
  local folder=$1
  shift
  apt-get -qq -o Dir::Etc::SourceList="$folder/sources.list" -o Dir::Etc::SourceParts=/dev/null \
    -o Dir::State::Lists="$folder/lists" -o Dir::Cache::pkgcache= -o Dir::Cache::srcpkgcache= \
    -o APT::Sandbox::User= "$@"
}

# fetch_sources FOLDER: unpacks both source packages below FOLDER, patched as Debian's are.
fetch_sources() {
  local folder=$1 format keyring=/usr/share/keyrings/debian-archive-keyring.gpg
  # shellcheck disable=SC2016  # the fields' names are apt's
  format='deb-src [signed-by='$keyring'] $(REPO_URI) $(RELEASE) $(COMPONENT)'
  mkdir -p "$folder/lists/partial"
  apt-get indextargets --format "$format" 'Created-By: Packages' 'Origin: Debian' |
    sort -u >"$folder/sources.list"
  [[ -s $folder/sources.list ]] || fail "apt knows no Debian archive here; try apt-get update first"
  private_apt "$folder" update
  (cd "$folder" && private_apt "$folder" source \
    "qt6-base=$(source_version qt6-base-dev)" \
    "qcustomplot=$(source_version libqcustomplot-dev)")
}

# cross_build SOURCE BUILD PREFIX OPTION...: configures, builds and installs. Without ccache, which
# cannot tell precompiled headers of other features apart.
cross_build() {
  local source=$1 build=$2 prefix=$3
  shift 3
  cmake -G Ninja -S "$source" -B "$build" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_TOOLCHAIN_FILE="$ROOT/cmake/mingw-w64.cmake" -DCMAKE_INSTALL_PREFIX="$prefix" "$@"
  cmake --build "$build"
  cmake --install "$build"
}

build_qt() {
  local sources=$1 build=$2 prefix=$3 feature options=()
  for feature in "${QT_FEATURES_OFF[@]}"; do options+=("-DFEATURE_$feature=OFF"); done
  cross_build "$sources"/qt6-base-*/ "$build/qt" "$prefix" \
    -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR="/usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)/cmake" \
    -DQT_QMAKE_TARGET_MKSPEC=win32-g++ -DBUILD_SHARED_LIBS=OFF -DQT_BUILD_EXAMPLES=OFF \
    -DQT_BUILD_TESTS=OFF -DBUILD_WITH_PCH=ON -DCMAKE_CXX_FLAGS=-w \
    -DINPUT_opengl=no -DFEATURE_optimize_size=ON -DFEATURE_static_runtime=ON "${options[@]}"
  cross_build packaging/windows/qcustomplot "$build/qcustomplot" "$prefix" \
    -DZELORGAS_WINDOWS_QT="$prefix" -DQCUSTOMPLOT_SOURCE="$(echo "$sources"/qcustomplot-*/)"
}

# What decides how Qt comes out: versions and recipe.
qt_cache_key() {
  {
    source_version qt6-base-dev
    source_version libqcustomplot-dev
    x86_64-w64-mingw32-g++-posix --version
    declare -p QT_FEATURES_OFF
    declare -f cross_build build_qt
    cat packaging/windows/qcustomplot/CMakeLists.txt cmake/mingw-w64.cmake
  } | sha256sum | cut -c 1-12
}

# qt_folder: where the cache keeps, or would keep, what this recipe makes; complete with a file "ready".
qt_folder() {
  echo "${ZELORGAS_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/zelorgas}/windows-qt-$(qt_cache_key)"
}

# The end of the log, which nobody has seen, when the build was broken off.
show_qt_trouble() { [[ -e $QT_FOLDER/ready ]] || tail -n 40 "$QT_WORK/build.log" >&2; }

# prepare_qt: QT_FOLDER is then the folder with both; built when the cache has none for these versions
# and this recipe, which takes a quarter of an hour on two cores. A build that was broken off is begun anew.
prepare_qt() {
  QT_FOLDER=$(qt_folder)
  QT_WORK=$ROOT/build/windows-qt
  if [[ -e $QT_FOLDER/ready ]]; then
    echo "Qt is in $QT_FOLDER"
    return
  fi
  rm -rf "$QT_WORK" "$QT_FOLDER"
  mkdir -p "$QT_WORK" "$QT_FOLDER/licences"
  echo "Building Qt for $QT_FOLDER; the log is $QT_WORK/build.log"
  at_exit show_qt_trouble
  {
    fetch_sources "$QT_WORK"
    build_qt "$QT_WORK" "$QT_WORK" "$QT_FOLDER"
    cp "$QT_WORK"/qt6-base-*/debian/copyright "$QT_FOLDER/licences/Qt.txt"
    cp "$QT_WORK"/qcustomplot-*/debian/copyright "$QT_FOLDER/licences/QCustomPlot.txt"
  } >"$QT_WORK/build.log" 2>&1
  touch "$QT_FOLDER/ready"
  rm -rf "$QT_WORK"
}

# remove_other_qts: takes what was built for other versions or by other recipes out of the cache.
remove_other_qts() {
  local folder
  for folder in "${QT_FOLDER%-*}"-*/; do
    if [[ ${folder%/} != "$QT_FOLDER" ]]; then
      echo "Removing ${folder%/}, which nothing is built with any more"
      rm -rf "$folder"
    fi
  done
}
