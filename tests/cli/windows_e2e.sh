#!/bin/bash
# krt-encode.exe end to end under Wine: what a Windows build alone can get wrong (text-mode
# streams, CR LF, a byte-order mark, arguments in the ANSI code page, a folder with blanks
# and accented letters).
#   windows_e2e.sh WINE KRT-ENCODE.EXE WORK-FOLDER [STRING-TABLE-GENERATOR.EXE]
set -u
export WINEDEBUG=${WINEDEBUG:--all}  # no hints or fixme lines among the messages checked
wine=$1
lavoro=$3
cartella="$lavoro/Codici a barre è più"
rm -rf "$lavoro" && mkdir -p "$cartella" && cp "$2" "$cartella/krt-encode.exe" || exit 1
cd "$cartella" || exit 1

# name | arguments (shell words) | standard input (printf %b) | exit status | standard output, then
# optionally standard error (bash patterns after printf %b: * for any text)
casi=$(cat <<'TABELLA'
CR LF lines in, LF lines out|C39|ab\r\n12\r\n|0|#AB#\n#12#\n
byte-order mark of the first line dropped|C39|\xef\xbb\xbfab\n|0|#AB#\n
glyphs above 127 as UTF-8, bytes untouched|C128 'a~'||0|\xe2\x80\xb0b\xe2\x80\x93Q\xe2\x80\xb9\n
a two-line result keeps its CR LF in codes|--output=codes --hrc 'Codice 32' 12345678||0|124 42 66 77 90 90 76 80 35 13 10 65 48 49 50 51 52 53 54 55 56\n
an accented argument read as UTF-8|--output=json C39 'Città'||1|{"content":"Città",*"position":5}}\n
CSV keeps its CR LF line ends|--csv --column=code C39|n;code\r\n1;ab\r\n|0|n;code;barcode;hrc;error\r\n1;ab;#AB#;;\r\n
the refused line named on standard error|C39|ab\nà\n|1|#AB#\n\n|krt-encode: line 2: The character "à" at position 1 *
TABELLA
)

falliti=0 riusciti=0
while IFS='|' read -r nome argomenti ingresso stato uscita errori; do
    eval "parole=($argomenti)"
    printf '%b' "$ingresso" > "righe è.txt"
    "$wine" ./krt-encode.exe "${parole[@]}" < "righe è.txt" > uscita.bin 2> errori.txt
    ottenuto=$?
    out=$(cat uscita.bin; printf x) && out=${out%x}
    err=$(cat errori.txt)
    printf -v atteso '%b' "$uscita"
    printf -v attesoErrori '%b' "${errori:-*}"
    if [[ $ottenuto == "$stato" && $out == $atteso && $err == $attesoErrori ]]; then
        riusciti=$((riusciti + 1))
    else
        falliti=$((falliti + 1))
        echo "FAILED: $nome: exit $ottenuto (expected $stato)"
        echo "  output: $(od -An -c uscita.bin | head -5)"
        echo "  errors: $err"
    fi
done <<< "$casi"
# The reader of the output goes away: exit status 3 and the closed pipe named (the input is
# bounded, so a krt-encode that did not stop would still end).
yes 0123456789 | head -c 2000000 | "$wine" ./krt-encode.exe C39 2> errori.txt | head -c 1 > /dev/null
stato=${PIPESTATUS[2]} err=$(cat errori.txt)
if [[ $stato == 3 && $err == *"cannot write the output: Broken pipe"* ]]; then
    riusciti=$((riusciti + 1))
else
    falliti=$((falliti + 1))
    echo "FAILED: output into a closed pipe: exit $stato (expected 3), errors: $err"
fi
# The build's string table generator opens files whose names have a letter that the ANSI code
# page lacks.
if [[ -n ${4:-} ]]; then
    printf '# prova\n1\tuno\n' > "testi ł.txt"
    if "$wine" "$4" "tabella ł.cpp" "0=testi ł.txt" && grep -q '"uno"' "tabella ł.cpp"; then
        riusciti=$((riusciti + 1))
    else
        falliti=$((falliti + 1))
        echo "FAILED: the string table generator with file names in Unicode"
    fi
fi
echo "$riusciti passed, $falliti failed"
[[ $falliti == 0 && $riusciti -gt 0 ]]
