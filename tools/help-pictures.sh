#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# tools/help-pictures.sh [CONSOLE]: takes the pictures of the help anew, from the windows themselves.
set -euo pipefail
cd "$(dirname "$0")/.."
console="${1:-build/release/halvern-console}"
station=$(mktemp -d)
trap 'rm -rf "$station"' EXIT
ln -s "$PWD"/data/*/ "$station/"
cp data/APRSDomain.INI "$station/"
QT_QPA_PLATFORM=offscreen "$console" --simulate --windows "$station" <<SCRIPT
now "2026-05-01 12:00:00"
set SetUpfrm.CallSignTxt "Q1ABC"
set SetUpfrm.SSIDLBL "7"
set SetUpfrm.LatDegtxt "40"
set SetUpfrm.LatMintxt "49"
set SetUpfrm.LatDectxt "14"
set SetUpfrm.LatSigntxt "N"
set SetUpfrm.LonDegtxt "073"
set SetUpfrm.LonMintxt "08"
set SetUpfrm.LonDectxt "41"
set SetUpfrm.LonSigntxt "W"
set SetUpfrm.SymbolCombo "House VHF /-"
set SetUpfrm.CommentTXT "Long Island"
set SetUpfrm.StatusTXT "Listening on 144.390"
picture SetUpfrm "$PWD/data/help/setup-station.png"
select SetUpfrm.SSTab1 1
picture SetUpfrm "$PWD/data/help/setup-weather.png"
select SetUpfrm.SSTab1 2
picture SetUpfrm "$PWD/data/help/setup-internet.png"
select SetUpfrm.SSTab1 4
picture SetUpfrm "$PWD/data/help/setup-modes.png"
select SetUpfrm.SSTab1 5
picture SetUpfrm "$PWD/data/help/setup-igate.png"
select SetUpfrm.SSTab1 0
click SetUpfrm.TabOkCmd
click ConMdiFrm.HomeMenu
set ConMdiFrm.ScaleCombo "Map Range = 32"
packet TCPIP "Q2CAR-9>APRS,TCPIP*:!4052.10N/07255.20W>088/036on the way"
packet TCPIP "Q3DIG>APRS,TCPIP*:!4055.40N/07318.90W#PHG5360"
packet TCPIP "Q4WX>APRS,TCPIP*:!4039.80N/07315.10W_220/004g005t077r000p000P000h50b09900"
packet TCPIP "Q5BLN-11>APRS,TCPIP*:!4106.30N/07301.70WO/A=032000"
packet TCPIP "Q6SEA-8>APRS,TCPIP*:!4037.20N/07246.50Ws"
packet TCPIP "Q7EOC>APRS,TCPIP*:!4045.10N/07330.40Wo"
picture ConMdiFrm "$PWD/data/help/main-window.png"
SCRIPT
