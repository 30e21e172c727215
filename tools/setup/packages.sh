# Sourced by ./run and ./test: installs the Debian packages that are missing, and only then asks
# apt anything, so that a second run costs nothing.

build_packages=(g++ cmake ninja-build qt6-base-dev qt6-base-dev-tools qt6-svg-dev
  qt6-translations-l10n libexpected-dev fonts-dejavu-core fonts-liberation)
mingw_packages=(g++-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64)
lint_packages=(clang-format clang-tidy)
test_packages=(libgtest-dev libgmock-dev mdbtools poppler-utils imagemagick libwmf-bin fonts-urw-base35 inkscape xvfb
  at-spi2-core dbus python3-gi gir1.2-atspi-2.0 matchbox-window-manager)
bench_packages=(libbenchmark-dev mdbtools-dev)

install_missing() {
  command -v dpkg-query >/dev/null || return 0  # not Debian: the compiler will tell what is missing
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "Es fehlen Pakete (${missing[*]}); bitte als root oder mit sudo ausführen." >&2; return 1; }
    as_root=(sudo)
  fi
  echo "Installiere: ${missing[*]}"
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# configure_and_build PRESET [TARGET...]
configure_and_build() {
  local preset=$1
  shift
  [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset"
  cmake --build --preset "$preset" ${1:+--target "$@"}
}
