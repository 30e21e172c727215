# make_windows PRESET: setup and portable zip of the program for Windows, in build/paket. Pictures, click
# sound, template and sample years come from the native build PRESET.

# Each file by name: the uninstaller takes away these and no others.
list_for_setup() {  # list_for_setup STAGE LISTS
  local stage=$1 lists=$2 folder file
  (cd "$stage" && find . -type f -printf '%P\n' | sort | while read -r file; do
    folder=$(dirname "$file" | tr / '\\')
    printf 'SetOutPath "$INSTDIR\\%s"\nFile "%s/%s"\n' "$folder" "$PWD" "$file"
  done) | sed 's/\\\."$/"/' >"$lists/lay-down.nsh"
  (cd "$stage" && { find . -type f -printf 'Delete "$INSTDIR\\%P"\n' | sort
    find . -mindepth 1 -type d -printf 'RMDir "$INSTDIR\\%P"\n' | sort -r; }) |
    sed 's|/|\\|g' >"$lists/take-away.nsh"
}

build_windows() {  # build_windows PRESET, in build/mingw
  local preset=$1 qt
  install_missing "${build_packages[@]}" "${mingw_packages[@]}" "${windows_packages[@]}"
  qt=$(tools/qt-mingw)
  build_afresh "$preset"
  # What the linker would write of the hour, the machine and the folder stays out.
  KALVIRA_QT_MINGW=$qt cmake --preset mingw -DCMAKE_WARN_DEPRECATED=OFF \
    -DKALVIRA_PICTURES="$PWD/build/$preset/resources" -DKALVIRA_YEARS="$PWD/build/$preset/bin" >/dev/null
  cmake --build --preset mingw
}

pack_windows() {  # pack_windows PRESET
  local preset=$1 work=$PWD/$out/windows stage
  stage=$work/Kalvira
  rm -rf "$work"
  mkdir -p "$stage" "$work/lists"
  cmake --install build/mingw --component program --prefix "$stage" >/dev/null
  packaging/manual "$stage"
  cp /usr/share/common-licenses/LGPL-3 "$stage/LGPL-3.txt"
  cp /usr/share/common-licenses/GPL-3 "$stage/GPL-3.txt"
  sed 's/$/\r/' packaging/windows/Liesmich.txt >"$stage/Liesmich.txt"
  set_times "$stage"
  list_for_setup "$stage" "$work/lists"

  rm -f "$out/$setup_file" "$out/$zip_file"
  makensis -V2 -INPUTCHARSET UTF8 -DVERSION="$version" -DOUTPUT="$PWD/$out/$setup_file" -DLISTS="$work/lists" \
    -DICON="$PWD/build/$preset/resources/kalvira.ico" packaging/windows/kalvira.nsi
  (cd "$work" && find Kalvira | sort | zip -X -q -9 -@ "$OLDPWD/$out/$zip_file")
  say_made "$stage/kalvira.exe" "$out/$setup_file" "$out/$zip_file"
}

make_windows() {
  build_windows "$1"
  pack_windows "$1"
}
