#!/usr/bin/env bash
# Start-up time of the main window: process start to first paint, in ms.
#   bench/avvio.sh [BUILD_DIR] [RUNS]
# Runs under the display of the session; without one, under Xvfb when it is
# installed, else offscreen. The first run warms the font cache and writes the
# options file of the scratch data folder; it is not counted.
set -euo pipefail
build=${1:-build}
runs=${2:-20}
exe="$build/bench/bench_finestra"
[ -x "$exe" ] || { echo "missing $exe (build with KRT_WITH_GUI and KRT_WITH_BENCH)" >&2; exit 1; }

dati=$(mktemp -d)
trap 'rm -rf "$dati"' EXIT
export KRT_DATA_DIR="$dati"

corri() {
  local tempi=()
  "$exe" --avvio "$(date +%s%N)" > /dev/null
  for _ in $(seq "$runs"); do tempi+=("$("$exe" --avvio "$(date +%s%N)")"); done
  printf '%s\n' "${tempi[@]}" | sort -n | awk -v piattaforma="$1" '
    { v[NR] = $1 }
    END { printf "start-up to first paint (%s, %d runs): min %.1f ms, median %.1f ms, max %.1f ms\n",
          piattaforma, NR, v[1], v[int((NR + 1) / 2)], v[NR] }'
}

if [ -n "${DISPLAY:-}" ]; then
  corri "${QT_QPA_PLATFORM:-xcb}"
elif command -v xvfb-run > /dev/null; then
  QT_QPA_PLATFORM=xcb xvfb-run -a "$0" "$build" "$runs"
else
  QT_QPA_PLATFORM=offscreen corri offscreen
fi
