# Sourced by ./paket and by what it calls: version, names, and the one time that all files have.

version=$(sed -n 's/^project(kalvira VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
# The day of the version, so that the same sources make the same bytes whenever and wherever.
release_date=$(sed -n "s/^## $version (\(.*\))\$/\1/p" CHANGELOG.md)
SOURCE_DATE_EPOCH=$(date -u -d "$release_date" +%s)
export SOURCE_DATE_EPOCH LC_ALL=C.UTF-8 TZ=UTC
umask 022

out=build/paket
deb_file=kalvira_${version}_$(dpkg --print-architecture).deb
setup_file=Kalvira-$version-Setup.exe
zip_file=Kalvira-$version.zip

deb_packages=(debhelper lintian cmark-gfm desktop-file-utils appstream)
deb_try_packages=(mmdebstrap xvfb xdotool)
windows_packages=(nsis zip cmark-gfm)
windows_try_packages=(wine wine64 fonts-liberation xvfb x11-xkb-utils evilwm xdotool mdbtools unzip
  binutils imagemagick)

# A result is named with what somebody else would compare.
say_made() {
  local file
  for file in "$@"; do
    printf '%s  %s Bytes  %s\n' "$(sha256sum "$file" | cut -d' ' -f1)" "$(stat -c %s "$file")" "$file"
  done
}

# The sample is made anew: somebody may have worked in it.
build_afresh() {  # build_afresh PRESET TARGET...
  rm -rf "build/$1/bin/beispiel"
  configure_and_build "$@" years laid_beside
}

# All files of a folder get the one time; what order they lie in is up to whoever reads them.
set_times() { find "$1" -exec touch --no-dereference --date="@$SOURCE_DATE_EPOCH" {} +; }
