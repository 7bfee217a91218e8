#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Makes the figures of docs/performance.md anew, from nothing, in one command:
#
#     bench/peers.sh [TRAFFIC] > build/figures.md        TRAFFIC is a folder of recorded packets, *.tnc2
#
# Without recorded packets those of the demonstration are played. Wants Debian's direwolf, for its decoder, and quiet.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/prepare.sh
install_missing $BUILD_PACKAGES libbenchmark-dev python3 direwolf >&2
build release >&2
exec python3 bench/figures.py build/release data "${1:-data/demo}"
