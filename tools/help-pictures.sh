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
who='set SetUpfrm.CallSignTxt "Q1ABC"
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
set SetUpfrm.StatusTXT "Listening on 144.390"'
export QT_QPA_PLATFORM=offscreen
"$console" --simulate --windows "$station" <<SCRIPT
now "2026-05-01 12:00:00"
$who
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

# The gate with something to do: frames for the TNC, lines for the server.
frame() {
    python3 - "$1" <<'PYTHON'
import sys
head, info = sys.argv[1].split(":", 1)
source, rest = head.split(">")
calls = [*rest.split(",")[:1], source, *rest.split(",")[1:]]
text = "\\xC0\\x00"
for number, call in enumerate(calls):
    name, _, ssid = call.rstrip("*").partition("-")
    byte = 96 + 2 * int(ssid or 0) + (128 if call.endswith("*") else 0) + (number == len(calls) - 1)
    text += "".join(f"\\x{2 * ord(letter):02X}" for letter in name.ljust(6)) + f"\\x{byte:02X}"
print(text + "\\x03\\xF0" + info + "\\xC0", end="")
PYTHON
}
heard() { printf 'receive MSComm1 "%s"\nwait 1700\n' "$(frame "$1")"; }
served() { printf 'receive InternetSoc "%s\\r\\n"\nwait 900\n' "$1"; }
echo '{"screens": [{"name": "wider", "width": 1200, "height": 800, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]}' \
    > "$station/screen.json"
{
    cat <<SCRIPT
now "2026-05-01 12:00:00"
$who
select SetUpfrm.IgateOpt 1
select SetUpfrm.IgateBIOpt 1
select SetUpfrm.IgateHopOpt 2
set SetUpfrm.IgateTimeLbl "5"
set SetUpfrm.IntDomainCombo "127.0.0.1"
select SetUpfrm.MyAliasOpt 1
click SetUpfrm.TabOkCmd
click ConMdiFrm.PortTnc
click ConMdiFrm.PortIp
receive InternetSoc "# server\r\n"
SCRIPT
    far="Q9FAR>APRS,TCPIP*,qAC,T2X:"
    heard "Q2CAR-9>APRS,WIDE1-1:!4052.10N/07255.20W>088/036on the way"
    heard "Q3DIG>APRS:!4055.40N/07318.90W#PHG5360"
    heard "Q8HIK-7>APRS,Q3DIG*:!4044.10N/07311.20W[trail"
    heard "Q4ABC>APRS,Q6DIG*,Q3DIG*,WIDE2-1:>far away"
    served "$far=4903.50N/07201.75W-far"
    served "$far:Q2CAR-9  :Are you home for supper?{4"
    echo "wait 6000"
    served "$far:Q4ABC    :Rain from four on{5"
    served "$far:Q7EOC    :Who is on duty?{6"
    heard "Q2CAR-9>APRS,WIDE1-1::Q9FAR    :ack4"
    heard "Q8HIK-7>APRS::Q3DIG    :Thanks{2"
    heard "Q5NEW>APRS,TCPIP*,Q3DIG*:>test"
    served "$far:Q8HIK-7  :Bring water{7"
    heard "Q6GAT>APRS,Q3DIG*:}Q9FAR>APRS,TCPIP,Q6GAT*::Q8HIK-7  :Bring water{7"
    served "Q3DIG>APRS,TCPIP*,qAC,T2X::Q2CAR-9  :73{1"
    cat <<SCRIPT
click ConMdiFrm.GateMenu
picture GateFrm "$PWD/data/help/gate.png"
click ConMdiFrm.CreateMyObjectsMenu
set CreateObjectsFrm.ObjectNameTxt "AIDPOST"
set CreateObjectsFrm.SymbolCombo "Aid Station /A"
set CreateObjectsFrm.LatDegtxt "40"
set CreateObjectsFrm.LatMintxt "47"
set CreateObjectsFrm.LatDectxt "50"
set CreateObjectsFrm.LatSigntxt "N"
set CreateObjectsFrm.LonDegtxt "073"
set CreateObjectsFrm.LonMintxt "12"
set CreateObjectsFrm.LonDectxt "25"
set CreateObjectsFrm.LonSigntxt "W"
set CreateObjectsFrm.CommentTXT "first aid, kilometre 14"
picture CreateObjectsFrm "$PWD/data/help/object.png"
click CreateObjectsFrm.CancelCmd
SCRIPT
} | QT_QPA_PLATFORM="offscreen:configfile=$station/screen.json" "$console" --simulate --windows "$station"
