#!/usr/bin/env python3
"""The Calc functions in a real LibreOffice (calc_e2e.py KRT_OXT): krt.oxt installed into a throwaway
profile, a sheet of formulas recalculated headless and saved as CSV, each cell compared with the same krtcalc
function called here (both character maps; the clipboard scan test prints such glyph strings), in an
office running in English and in Italian. Exit 77 (skipped) without soffice, unopkg or python3-uno; the krt
and krtcalc modules must be importable (PYTHONPATH), and are passed on to LibreOffice."""
import csv
import os
import shutil
import subprocess
import sys
import tempfile
from xml.sax.saxutils import escape

import krtcalc

A = "[.A]"  # the row's content cell


def codifica(simbologia, check):
    return [("KRTENCODE", (simbologia, A, check)), ("KRTENCODE", (simbologia, A, check, 1)),
            ("KRTWHY", (simbologia, A, check))]


def voce(nome):
    return [("KRTENTRY", (nome, A, 1, 1)), ("KRTENTRY", (nome, A, 1, 1, 1)), ("KRTHRC", (nome, A, 1))]


# Rows of the recalculated sheet: the content (a text or a number cell), then formulas over it:
# glyphs above 127, refusals, an unknown symbology, an add-on, an Italian entry name, GS1, ISBN.
RIGHE = [
    ("590123412345", codifica("EAN13", 1)),
    (5901234123457.0, codifica("EAN13", 0)),
    ("Krt-128 abc", codifica("C128", 0)),
    ("12A", codifica("EAN13", 1)),
    ("123", codifica("NOSUCH", 0)),
    ("59012341234552495", voce("EAN 13 Add-on 5")),
    ("abc-1", voce("Codice 39")),
    ("(01)09501101530003(10)ABC", [("KRTGS1", (A,)), ("KRTGS1", (A, 1)), ("KRTISBN", ("0-306-40615-2",))]),
]


def attesa(nome, argomenti, contenuto):
    """What the cell must show: the function called as Calc calls it (numbers as floats), None for an error."""
    try:
        return getattr(krtcalc, nome.lower())(*(contenuto if x == A else x if isinstance(x, (str, bool)) else float(x)
                                                 for x in argomenti))
    except krtcalc.Rifiutato:
        return None


def foglio():
    """The rows as a flat ODF sheet: the content cell, then each formula with its arguments as formula text."""
    def argomento(x, riga):
        if x == A:
            return "[.A%d]" % riga
        return escape('"' + x.replace('"', '""') + '"', {'"': "&quot;"}) if isinstance(x, str) else "%g" % x

    righe = ""
    for riga, (contenuto, formule) in enumerate(RIGHE, 1):
        if isinstance(contenuto, float):
            cella = '<table:table-cell office:value-type="float" office:value="%r"/>' % contenuto
        else:
            cella = ('<table:table-cell office:value-type="string"><text:p>%s</text:p></table:table-cell>'
                     % escape(contenuto))
        righe += "<table:table-row>%s%s</table:table-row>\n" % (cella, "".join(
            '<table:table-cell table:formula="of:=ORG.KRT.CALC.FUNZIONI.%s(%s)"/>'
            % (nome, ";".join(argomento(x, riga) for x in argomenti)) for nome, argomenti in formule))
    return f"""<?xml version="1.0" encoding="UTF-8"?>
<office:document xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0"
 xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0" xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0"
 xmlns:of="urn:oasis:names:tc:opendocument:xmlns:of:1.2" office:version="1.2"
 office:mimetype="application/vnd.oasis.opendocument.spreadsheet"><office:body><office:spreadsheet>
<table:table table:name="KRT"><table:table-column table:number-columns-repeated="8"/>
{righe}</table:table></office:spreadsheet></office:body></office:document>
"""


def prova_csv(office, lingua, fallimenti):
    """The sheet recalculated by an office running in lingua and saved as CSV: each cell as the function
    called here gives it, KRTWHY's reasons in the office's language."""
    documento = os.path.join(office["cartella"], "colonna_%s.fods" % lingua)
    with open(documento, "w", encoding="utf-8") as f:
        f.write(foglio())
    r = subprocess.run(["soffice"] + office["argomenti"] + [
        "--headless", "--convert-to", "csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,true,false,false",
        "--outdir", office["cartella"], documento], capture_output=True, text=True, timeout=300,
        env=dict(office["ambiente"], LC_ALL="it_IT.UTF-8" if lingua == "it" else "C.UTF-8", LANGUAGE=lingua))
    if not os.path.exists(documento[:-4] + "csv"):
        raise RuntimeError("soffice did not convert %s:\n%s%s" % (documento, r.stdout, r.stderr))
    with open(documento[:-4] + "csv", newline="", encoding="utf-8") as f:
        letto = list(csv.reader(f))
    for i, (contenuto, formule) in enumerate(RIGHE):
        celle = (letto[i] if i < len(letto) else [])[1:] + [""] * len(formule)
        for (nome, argomenti), valore in zip(formule, celle):
            atteso = attesa(nome, argomenti + ((lingua == "it",) if nome == "KRTWHY" else ()), contenuto)
            if valore != atteso and not (atteso is None and valore.startswith(("Err:", "#"))):
                fallimenti.append("%s: row %d %s%r: %r, expected %r" % (lingua, i + 1, nome, argomenti, valore,
                                                                        "an error" if atteso is None else atteso))
    print("%s: LibreOffice recalculated %d rows" % (lingua, len(RIGHE)))


def main():
    mancanti = [p for p in ("soffice", "unopkg") if shutil.which(p) is None]
    if not mancanti and subprocess.run(["/usr/bin/python3", "-c", "import uno"], capture_output=True).returncode:
        mancanti.append("LibreOffice's Python (python3-uno)")
    if mancanti:
        print("SKIPPED: %s not installed (Debian libreoffice-calc, python3-uno; `make test-e2e` installs them): "
              "the Calc functions are not run in LibreOffice" % ", ".join(mancanti))
        return 77
    fallimenti = []
    with tempfile.TemporaryDirectory(prefix="krt-calc-") as cartella:
        casa = os.path.join(cartella, "home")
        os.makedirs(casa)
        # --shared into a cache of the run (unopkg refuses a user installation to root); /usr/bin first on PATH,
        # where LibreOffice's embedded Python finds its library (not a virtual environment's); HOME, XDG: the run's.
        office = {"cartella": cartella,
                  "argomenti": ["-env:UserInstallation=file://" + os.path.join(cartella, "profilo"),
                                "-env:UNO_SHARED_PACKAGES_CACHE=file://" + os.path.join(cartella, "condivisi")],
                  "ambiente": dict(os.environ, HOME=casa, XDG_DATA_HOME=casa, XDG_CONFIG_HOME=casa,
                                   XDG_CACHE_HOME=casa, PATH="/usr/bin:" + os.environ.get("PATH", ""))}
        r = subprocess.run(["unopkg", "add", "--shared"] + office["argomenti"] + [sys.argv[1]], env=office["ambiente"],
                           capture_output=True, text=True, timeout=300)
        if r.returncode != 0:
            raise RuntimeError("unopkg add failed:\n" + r.stdout + r.stderr)
        prova_csv(office, "en", fallimenti)
        if os.path.isdir("/usr/lib/libreoffice/program/resource/it"):
            prova_csv(office, "it", fallimenti)
        else:
            print("it: not checked: LibreOffice's Italian (libreoffice-l10n-it) is not installed")
    for f in fallimenti:
        print("FAIL:", f)
    return 1 if fallimenti else 0


if __name__ == "__main__":
    sys.exit(main())
