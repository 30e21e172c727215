# make_deb PRESET: the Debian package of that build, in build/paket. 75 says that a tool was not to be had.

debian_changelog() {
  echo "kalvira ($version) bookworm; urgency=medium"
  echo
  # One line an entry, folded to what Debian's tools take.
  sed -n "/^## $version /,/^## [0-9]/{/^## /d;p}" CHANGELOG.md | sed -n '/^- /,$p' | sed ':a;N;$!ba;s/\n  / /g' |
    fold -s -w 70 | sed 's|^- |  * |;t trim;s|^|    |;:trim;s| *$||'
  echo
  echo " -- $(sed -n 's/^Maintainer: //p' packaging/debian/control)  $(date -u -R -d "@$SOURCE_DATE_EPOCH")"
}

make_deb() {
  local preset=$1 work=$out/deb
  install_missing "${build_packages[@]}" "${deb_packages[@]}" || return 75
  build_afresh "$preset" kalvira
  rm -rf "$work"
  mkdir -p "$work/kalvira/debian/source"
  cp packaging/debian/* "$work/kalvira/debian/"
  echo "3.0 (native)" >"$work/kalvira/debian/source/format"
  debian_changelog >"$work/kalvira/debian/changelog"
  packaging/manual "$work/manual"
  (cd "$work/kalvira" && KALVIRA_BUILD=$OLDPWD/build/$preset KALVIRA_MANUAL=$OLDPWD/$work/manual \
    dpkg-buildpackage -b -us -uc -d >../build.log 2>&1) || { tail -n 30 "$work/build.log" >&2; return 1; }
  mv "$work/$deb_file" "$out/"
  # A finding is an error; what is no fault would stand in packaging/debian/ with its reason.
  lintian --allow-root --fail-on error,warning --tag-display-limit 0 "$out/$deb_file"
  desktop-file-validate resources/linux/kalvira.desktop
  appstreamcli validate --no-net "build/$preset/linux/de.kalvira.kalvira.metainfo.xml"
  say_made "$out/$deb_file"
}
