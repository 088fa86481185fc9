#!/usr/bin/env bash
# Batch timing of krt-encode against zint --batch --dump, side by side on the same files:
#   EAN-13 with check digit over random 12-digit lines,
#   Code 128 over random lines of 6-20 printable ASCII characters.
# Reports wall time, user time and maximum resident set size (GNU time -v) of each run,
# and the resident set of krt-encode on a small file, to show that memory stays flat.
# Then krt-encode --csv against its own line mode on the same EAN-13 contents, as a CSV
# file of one column and as one with a second, quoted column holding a delimiter and
# doubled quotes (2.7 times the bytes): --csv must keep at least half the speed.
#
# Usage: bench/batch.sh BUILD_DIR        (uses BUILD_DIR/cli/krt-encode)
# KRT_BENCH_LINES sets the number of lines per file (default 1000000).
set -euo pipefail

build=${1:?usage: bench/batch.sh BUILD_DIR}
krt=$build/cli/krt-encode
lines=${KRT_BENCH_LINES:-1000000}
small=10000
target=5

if [ ! -x "$krt" ]; then
  echo "batch.sh: $krt not found; build the krt-encode target first" >&2
  exit 1
fi

missing=""
command -v zint >/dev/null || missing="$missing zint"
[ -x /usr/bin/time ] || missing="$missing time"
if [ -n "$missing" ]; then
  echo "batch.sh: installing$missing"
  sudo=""; [ "$(id -u)" -ne 0 ] && sudo=sudo
  $sudo apt-get update -qq && DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq $missing
fi

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Fixed seeds: the same files on every run of this machine's awk.
awk -v n="$lines" 'BEGIN { srand(20240601)
  for (i = 0; i < n; i++) { s = ""; for (j = 0; j < 12; j++) s = s int(rand() * 10); print s } }' >"$work/ean13.txt"
# Printable ASCII 32-126 without the backslash, which starts an escape in Code 128 content.
awk -v n="$lines" 'BEGIN { srand(20240602)
  for (i = 0; i < n; i++) { k = 6 + int(rand() * 15); s = ""
    for (j = 0; j < k; j++) { c = 32 + int(rand() * 94); if (c >= 92) c++; s = s sprintf("%c", c) }
    print s } }' >"$work/c128.txt"
head -n "$small" "$work/ean13.txt" >"$work/ean13-small.txt"
awk 'BEGIN { print "ean" } { print }' "$work/ean13.txt" >"$work/ean13-1.csv"
awk 'BEGIN { print "ean;name" } { printf "%s;\"item %d; \"\"A\"\"\"\r\n", $0, NR }' "$work/ean13.txt" >"$work/ean13-2.csv"
head -n "$small" "$work/ean13-2.csv" >"$work/ean13-small.csv"
head -n "$small" "$work/c128.txt" >"$work/c128-small.txt"

# run LABEL INPUT COMMAND...: times COMMAND with INPUT on stdin, output discarded.
# Sets wall (s), user (s), rss (KB).
run() {
  local label=$1 input=$2; shift 2
  if ! /usr/bin/time -v -o "$work/time" "$@" <"$input" >/dev/null 2>"$work/stderr"; then
    echo "batch.sh: $label failed:" >&2
    head -5 "$work/stderr" >&2
    exit 1
  fi
  wall=$(awk -F': ' '/Elapsed \(wall clock\)/ { n = split($2, p, ":"); s = 0
                       for (i = 1; i <= n; i++) s = s * 60 + p[i]; printf "%.2f", s }' "$work/time")
  user=$(awk -F': ' '/User time/ { printf "%.2f", $2 }' "$work/time")
  rss=$(awk -F': ' '/Maximum resident set size/ { print $2 }' "$work/time")
}

compare() {
  local name=$1 krtargs=$2 zintargs=$3
  local input=$work/$name.txt
  run "krt-encode $krtargs" "$input" "$krt" $krtargs
  local kwall=$wall kuser=$user krss=$rss
  printf '%-9s %-40s %8s %8s %12s\n' "$name" "krt-encode $krtargs" "$kwall" "$kuser" "$krss"
  run "zint $zintargs" "$input" zint $zintargs -i "$input"
  local zwall=$wall zuser=$user
  printf '%-9s %-40s %8s %8s %12s\n' "$name" "zint $zintargs" "$zwall" "$zuser" "$rss"
  run "krt-encode $krtargs (small)" "$work/$name-small.txt" "$krt" $krtargs
  printf '%-9s %-40s %8s %8s %12s\n' "$name" "krt-encode $krtargs ($small lines)" "$wall" "$user" "$rss"
  awk -v kw="$kwall" -v zw="$zwall" -v ku="$kuser" -v zu="$zuser" -v t="$target" -v n="$name" 'BEGIN {
    rw = kw > 0 ? zw / kw : 0; ru = ku > 0 ? zu / ku : 0
    printf "%-9s krt-encode is %.1fx faster in wall time, %.1fx in user time (target %dx)%s\n\n",
           n, rw, ru, t, (rw >= t ? "" : "  BELOW TARGET") }'
}

echo "$lines lines per file; load average before: $(cut -d' ' -f1-3 /proc/loadavg 2>/dev/null || echo n/a)"
printf '%-9s %-40s %8s %8s %12s\n' "file" "program" "wall s" "user s" "max RSS KB"
compare ean13 "EAN13 --check" "--batch --dump -b 13"
compare c128 "C128" "--batch --dump -b 20"

# --csv against line mode on the same contents.
run "krt-encode EAN13 --check" "$work/ean13.txt" "$krt" EAN13 --check
lwall=$wall luser=$user
printf '%-9s %-40s %8s %8s %12s\n' "ean13" "krt-encode EAN13 --check (lines)" "$wall" "$user" "$rss"
for k in 1 2; do
  run "krt-encode --csv EAN13 --check" "$work/ean13-$k.csv" "$krt" --csv EAN13 --check
  cwall=$wall cuser=$user
  printf '%-9s %-40s %8s %8s %12s\n' "ean13-$k.csv" "krt-encode --csv EAN13 --check" "$wall" "$user" "$rss"
  awk -v lw="$lwall" -v cw="$cwall" -v lu="$luser" -v cu="$cuser" -v k="$k" 'BEGIN {
    rw = cw > 0 ? lw / cw : 0; ru = cu > 0 ? lu / cu : 0
    printf "csv       --csv (%d column%s) runs at %.2f of line mode in wall time, %.2f in user time (target 0.5)%s\n",
           k, (k > 1 ? "s" : ""), rw, ru, (rw >= 0.5 ? "" : "  BELOW TARGET") }'
done
run "krt-encode --csv (small)" "$work/ean13-small.csv" "$krt" --csv EAN13 --check
printf '%-9s %-40s %8s %8s %12s\n' "ean13-2.csv" "krt-encode --csv ($small lines)" "$wall" "$user" "$rss"
