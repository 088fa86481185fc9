#!/bin/sh
# Fails when the shared library exports a symbol other than krt_* (or has no krt_encode).
# Usage: simboli.sh NM LIBRARY            (ELF: libkrt.so)
#        simboli.sh OBJDUMP LIBRARY.dll [MODULE.bas]   (Windows: krt.dll, and what a VBA module declares)
tool=$1 lib=$2 modulo=${3:-}
case $lib in
*.dll)
  # The export table, by name: what a spreadsheet macro declares must be there undecorated
  # (no @N suffix, no leading underscore), and the DLL must not need MinGW's runtime DLLs.
  tabella=$("$tool" -p "$lib") || exit 1
  names=$(printf '%s\n' "$tabella" | sed -n '/\[Ordinal\/Name Pointer\] Table/,/^$/s/^[[:space:]]*\[ *[0-9]*\] //p')
  others=$(printf '%s\n' "$names" | grep -v '^krt_[a-z0-9_]*$')
  runtime=$(printf '%s\n' "$tabella" | grep -i 'DLL Name: *lib\(stdc++\|gcc\|winpthread\)')
  if [ -n "$runtime" ]; then echo "needs MinGW's runtime:"; printf '%s\n' "$runtime"; exit 1; fi
  if [ -n "$modulo" ]; then
    for nome in $(sed -n 's/.*Declare PtrSafe \(Function\|Sub\) \([a-z_0-9]*\) Lib "krt.dll".*/\2/p' "$modulo"); do
      printf '%s\n' "$names" | grep -qx "$nome" || { echo "$modulo declares $nome, which krt.dll lacks"; exit 1; }
    done
  fi
  defined=$(printf '%s\n' "$names" | sed 's/.*/T &@@KRT_1/') ;;
*)
  defined=$("$tool" -D --defined-only "$lib") || exit 1
  others=$(printf '%s\n' "$defined" | awk 'NF >= 3 && $2 != "A" { sub(/@.*/, "", $3); if ($3 !~ /^krt_/) print $3 }') ;;
esac
if [ -n "$others" ]; then
  echo "exported beyond krt_*:"; printf '%s\n' "$others" | head -20; exit 1
fi
printf '%s\n' "$defined" | grep -q ' krt_encode@@KRT_1$' || { echo "krt_encode@@KRT_1 not exported"; exit 1; }
echo "$(printf '%s\n' "$defined" | grep -c ' krt_') krt_* symbols, nothing else"
