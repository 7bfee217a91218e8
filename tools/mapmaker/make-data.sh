#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Makes the map data anew, all of data/dosmaps, data/maplist, data/mapdata and data/bitmap.
#
# Needs: a C++20 compiler, cmake, libgdal-dev, libnetcdf-dev and libcli11-dev to build; the Debian packages gmt-gshhg-full and
# qgis-common and the npm package us-atlas (npm install us-atlas) as sources.
#
# Usage: tools/mapmaker/make-data.sh [FOLDER OF us-atlas] [FOLDER OF GSHHG] [world_map.gpkg]
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
us_atlas=${1:-node_modules/us-atlas}
gshhg=${2:-/usr/share/gmt-gshhg}
provinces=${3:-/usr/share/qgis/resources/data/world_map.gpkg}

cmake -S "$root/tools/mapmaker" -B "$root/build/mapmaker" -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$root/build/mapmaker"
rm -f "$root"/data/dosmaps/*.map "$root"/data/maplist/maplist1.hvn "$root"/data/mapdata/*.GRF
"$root/build/mapmaker/mapmaker" world --gshhg "$gshhg" --us-atlas "$us_atlas" --provinces "$provinces" \
    --data "$root/data"
