#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# tools/ladder-pictures.sh FOLDER [CONSOLE]: the map window at every step of the range ladder over six places, as
# PLACE-STEP.png, and PLACE.png with all steps of a place side by side. The latter needs the Debian package python3-pil.
set -euo pipefail
folder=$(mkdir -p "${1:?a folder for the pictures}" && cd "$1" && pwd)
cd "$(dirname "$0")/.."
console="${2:-build/release/halvern-console}"
station=$(mktemp -d)
trap 'rm -rf "$station"' EXIT
ln -s "$PWD"/data/*/ "$station/"
cp data/APRSDomain.INI data/demo/Halvern.INI "$station/"
steps=(8000 4096 2048 1024 512 256 128 64 32 16 8 4 2 1)
{
    echo 'click ConMdiFrm.PanMapMenu'
    while read -r place latitude west; do
        echo "select ConMdiFrm.ScaleCombo 1"
        echo "mouse down $west $latitude left"
        echo "mouse up $west $latitude left"
        for i in "${!steps[@]}"; do
            echo "select ConMdiFrm.ScaleCombo $i"
            echo "picture MapFrm \"$folder/$place-${steps[i]}.png\""
        done
    done <<'PLACES'
new-york 40.71 74.00
kansas 38.50 98.00
london 51.51 0.12
tokyo 35.68 -139.70
sydney -33.87 -151.20
mid-pacific 0.50 179.00
PLACES
} | QT_QPA_PLATFORM="${QT_QPA_PLATFORM:-offscreen:configfile=$PWD/data/demo/screen.json}" \
    "$console" --simulate --windows "$station" > "$folder/answers.txt"
! grep -E '^(error|message)' "$folder/answers.txt"
/usr/bin/python3 - "$folder" "${steps[@]}" <<'PYTHON'
import pathlib
import sys
from PIL import Image, ImageDraw

folder, steps = pathlib.Path(sys.argv[1]), sys.argv[2:]
for first in sorted(folder.glob(f"*-{steps[0]}.png")):
    place = first.stem.removesuffix(f"-{steps[0]}")
    pictures = [Image.open(folder / f"{place}-{step}.png").convert("RGB") for step in steps]
    wide, high = (side // 2 for side in pictures[0].size)
    sheet = Image.new("RGB", (4 * wide, 4 * high))
    for number, picture in enumerate(pictures):
        at = number % 4 * wide, number // 4 * high
        sheet.paste(picture.resize((wide, high), Image.LANCZOS), at)
        ImageDraw.Draw(sheet).text((at[0] + 6, at[1] + 4), f"{place} {steps[number]}", fill="white")
    sheet.save(folder / f"{place}.png")
PYTHON
