#!/bin/sh
# The committed type library of the Calc functions must be what the IDL compiles to:
#   tipi_idl.sh SDK_BIN_DIR OFFICE_TYPES_RDB XFunzioni.idl XFunzioni.rdb
set -eu
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT
"$1/unoidl-write" "$2" "$3" "$dir/nuovo.rdb"
"$1/unoidl-read" "$4" > "$dir/attuale.txt"
"$1/unoidl-read" "$dir/nuovo.rdb" > "$dir/nuovo.txt"
if ! diff -u "$dir/attuale.txt" "$dir/nuovo.txt"; then
  echo "XFunzioni.rdb is stale: copy $dir/nuovo.rdb over it (unoidl-write $2 $3 XFunzioni.rdb)"
  exit 1
fi
