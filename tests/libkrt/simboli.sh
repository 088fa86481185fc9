#!/bin/sh
# Fails when the shared library exports a symbol other than krt_* (or has no krt_encode).
# Usage: simboli.sh NM LIBRARY
nm=$1 lib=$2
defined=$("$nm" -D --defined-only "$lib") || exit 1
others=$(printf '%s\n' "$defined" | awk 'NF >= 3 && $2 != "A" { sub(/@.*/, "", $3); if ($3 !~ /^krt_/) print $3 }')
if [ -n "$others" ]; then
  echo "exported beyond krt_*:"; printf '%s\n' "$others" | head -20; exit 1
fi
printf '%s\n' "$defined" | grep -q ' krt_encode@@KRT_1$' || { echo "krt_encode@@KRT_1 not exported"; exit 1; }
echo "$(printf '%s\n' "$defined" | grep -c ' krt_') krt_* symbols, nothing else"
