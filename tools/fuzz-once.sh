#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# tools/fuzz-once.sh TARGET [RUNS [SEED]]: a fixed number of inputs from a fixed seed, starting from the recorded traffic and
# the target's own seeds where they are there. By hand: a larger RUNS, or the target itself for as long as you like.
set -euo pipefail
cd "$(dirname "$0")/.."
target="$1"
runs="${2:-8000}"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
name=$(basename "$target")
seeds=()
[ -d "fuzz/seeds/$name" ] && seeds+=("fuzz/seeds/$name")
traffic="${HALVERN_TRAFFIC:-../shared/traffic}"
if [ -d "$traffic" ] && [ "$name" = fuzz_packet_line ]; then
    mkdir "$work/traffic"
    cat "$traffic"/*.tnc2 | awk 'NR % 20 == 0' | split -l 8 - "$work/traffic/line-"
    seeds+=("$work/traffic")
fi
mkdir "$work/corpus"
"$target" -runs="$runs" -seed="${3:-1}" -max_len=4096 -timeout=20 -rss_limit_mb=4096 -artifact_prefix="$work/" \
    -detect_leaks=0 \
    -print_final_stats=0 "$work/corpus" "${seeds[@]}" 2> "$work/log" || {
    tail -n 60 "$work/log"
    for input in "$work"/crash-* "$work"/timeout-* "$work"/oom-*; do
        [ -e "$input" ] && { echo "the input:"; od -An -tx1 "$input" | head -n 60; }
    done
    exit 1
}
