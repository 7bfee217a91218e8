#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Whether what is installed beside the programs is sound: desktop file, metadata, man pages, icons, and one version in all
# places that have to name it.
set -euo pipefail
cd "$(dirname "$0")/.."
bad=0
fault() {
    echo "$*" >&2
    bad=1
}

desktop-file-validate packaging/*.desktop || bad=1
appstreamcli validate --no-net packaging/*.metainfo.xml || bad=1
for page in packaging/man/*.1; do
    said=$(mandoc -T lint -W warning "$page") || fault "$said"
    name=$(basename "$page" .1)
    grep -q "^\.Nm $name$" "$page" || fault "$page is not about $name"
done
for icon in packaging/icons/hicolor/*/apps/halvern.png; do
    size=$(cut -d / -f 4 <<< "$icon")
    [[ "$(file "$icon")" == *" ${size/x/ x },"* ]] || fault "$icon is not $size"
done

version=$(sed -n 's/^project(halvern VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
# says PLACE VERSION
says() {
    [ "$2" = "$version" ] || fault "$1 says version '$2', CMakeLists.txt says '$version'"
}
says metainfo "$(sed -n 's/.*<release version="\([^"]*\)".*/\1/p' packaging/*.metainfo.xml | head -n 1)"
says debian/changelog "$(sed -n '1s/^halvern (\([^)-]*\)\(-[0-9.]*\)\?) .*/\1/p' debian/changelog)"
says CHANGELOG.md "$(sed -n 's/^## \([0-9][0-9.]*\).*/\1/p' CHANGELOG.md | head -n 1)"
exit "$bad"
