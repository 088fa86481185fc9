#!/usr/bin/env python3
"""The Calc functions in a real LibreOffice: krt.oxt installed into a throwaway profile, a sheet of
formulas recalculated headless and saved as CSV, each cell compared with the same function called
here (both character maps: that such cells print as bars is the clipboard scan test's part), then
the Function Wizard in English and Italian.

    calc_e2e.py KRT_OXT

Exit 77 (skipped) without soffice, unopkg or LibreOffice's Python (python3-uno). The krt and krtcalc
modules must be importable (PYTHONPATH), and are passed on to LibreOffice.
"""
import csv
import inspect
import json
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
        return getattr(krtcalc, nome.lower())(*(contenuto if x == A else x if isinstance(x, str) else float(x)
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
        righe += "<table:table-row>" + (
            '<table:table-cell office:value-type="float" office:value="%r"/>' % contenuto if isinstance(contenuto, float)
            else '<table:table-cell office:value-type="string"><text:p>%s</text:p></table:table-cell>' % escape(contenuto))
        righe += "".join('<table:table-cell table:formula="of:=ORG.KRT.CALC.FUNZIONI.%s(%s)"/>' % (
            nome, ";".join(argomento(x, riga) for x in argomenti)) for nome, argomenti in formule) + "</table:table-row>\n"
    return f"""<?xml version="1.0" encoding="UTF-8"?>
<office:document xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0"
 xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0" xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0"
 xmlns:of="urn:oasis:names:tc:opendocument:xmlns:of:1.2" office:version="1.2" office:mimetype="application/vnd.oasis.opendocument.spreadsheet"><office:body><office:spreadsheet>
<table:table table:name="KRT"><table:table-column table:number-columns-repeated="8"/>
{righe}</table:table></office:spreadsheet></office:body></office:document>
"""


class LibreOffice:
    def __init__(self, cartella, oxt):
        self.cartella = cartella
        casa = os.path.join(cartella, "home")
        os.makedirs(casa)
        # --shared into a cache of this run: unopkg refuses a user installation to root.
        self.env_args = ["-env:UserInstallation=file://" + os.path.join(cartella, "profilo"),
                         "-env:UNO_SHARED_PACKAGES_CACHE=file://" + os.path.join(cartella, "condivisi")]
        # LibreOffice embeds the system's Python, which finds its library through the first python3 on
        # PATH: another installation first (a virtual environment, pyenv) breaks it. Nothing of the user's
        # is seen: HOME and the XDG folders are the run's.
        self.ambiente = dict(os.environ, HOME=casa, XDG_DATA_HOME=casa, XDG_CONFIG_HOME=casa, XDG_CACHE_HOME=casa,
                             PATH="/usr/bin:" + os.environ.get("PATH", ""))
        r = subprocess.run(["unopkg", "add", "--shared"] + self.env_args + [oxt], env=self.ambiente,
                           capture_output=True, text=True, timeout=300)
        if r.returncode != 0:
            raise RuntimeError("unopkg add failed:\n" + r.stdout + r.stderr)

    def csv(self, nome, contenuto):
        """The cells of a sheet recalculated and saved as CSV."""
        documento = os.path.join(self.cartella, nome)
        with open(documento, "w", encoding="utf-8") as f:
            f.write(contenuto)
        r = subprocess.run(["soffice"] + self.env_args + [
            "--headless", "--convert-to", "csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,true,false,false",
            "--outdir", self.cartella, documento], env=self.ambiente, capture_output=True, text=True, timeout=300)
        try:
            with open(os.path.splitext(documento)[0] + ".csv", newline="", encoding="utf-8") as f:
                return list(csv.reader(f))
        except OSError:
            raise RuntimeError("soffice did not convert %s:\n%s%s" % (documento, r.stdout, r.stderr))

    def procedura(self, formule, lingua):
        """The Function Wizard's texts and typed formulas, in an office running in lingua."""
        pipe = "krt%d" % os.getpid()
        ambiente = dict(self.ambiente, LC_ALL="it_IT.UTF-8" if lingua == "it" else "C.UTF-8", LANGUAGE=lingua)
        office = subprocess.Popen(["soffice"] + self.env_args + ["--headless", "--norestore",
                                                                 "--accept=pipe,name=%s;urp;" % pipe],
                                  env=ambiente, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            r = subprocess.run(["/usr/bin/python3", os.path.join(os.path.dirname(__file__), "calc_procedura.py"),
                                pipe] + formule, env=ambiente, capture_output=True, text=True, timeout=300)
            office.wait(timeout=120)
        finally:
            if office.poll() is None:
                office.kill()
        if r.returncode != 0:
            raise RuntimeError("calc_procedura.py failed:\n" + r.stderr)
        return json.loads(r.stdout)


def prova_csv(lo, fallimenti):
    letto = lo.csv("colonna.fods", foglio())
    for i, (contenuto, formule) in enumerate(RIGHE):
        celle = (letto[i] if i < len(letto) else [])[1:] + [""] * len(formule)
        for (nome, argomenti), valore in zip(formule, celle):
            atteso = attesa(nome, argomenti, contenuto)
            if valore != atteso and not (atteso is None and valore.startswith(("Err:", "#"))):
                fallimenti.append("row %d %s%r: %r, expected %r" % (i + 1, nome, argomenti, valore, "an error" if atteso is None else atteso))
    print("CSV: LibreOffice recalculated %d rows" % len(RIGHE))


def prova_procedura(lo, fallimenti):
    """The Function Wizard in English and Italian (names, help, the arguments the functions take), and
    formulas typed by their names."""
    funzioni = {nome.upper(): [p for p in inspect.signature(f).parameters if p != "italiano"]
                for nome, f in inspect.getmembers(krtcalc, inspect.isfunction) if nome.startswith("krt")}
    lingue = ["en", "it"]
    if not os.path.isdir("/usr/lib/libreoffice/program/resource/it"):
        print("it: Function Wizard in Italian not checked: LibreOffice's Italian (libreoffice-l10n-it) is not installed")
        lingue.remove("it")
    mostrate = {}
    for lingua in lingue:
        esito = lo.procedura(['=KRTENCODE("C128";"Krt-128";0;1)', '=KRTWHY("EAN13";"12A")'], lingua)
        mostrate[lingua] = esito["functions"]
        if sorted(esito["functions"]) != sorted(funzioni):
            fallimenti.append("%s: the Function Wizard shows %s" % (lingua, sorted(esito["functions"])))
        for nome, f in esito["functions"].items():
            if not f["description"] or len(f["arguments"]) != len(funzioni.get(nome, [])) \
                    or not all(a[0] and a[1] for a in f["arguments"]):
                fallimenti.append("%s: the Function Wizard shows %s as %r" % (lingua, nome, f))
        attese = [krtcalc.krtencode("C128", "Krt-128", 0.0, 1.0), krtcalc.krtwhy("EAN13", "12A", None, lingua == "it")]
        if esito["cells"] != attese:
            fallimenti.append("%s: typed formulas gave %r, expected %r" % (lingua, esito["cells"], attese))
        print("%s: Function Wizard: %d KRT functions; KRTWHY: %s" % (lingua, len(esito["functions"]), esito["cells"][1]))
    for nome, f in mostrate.get("it", {}).items():
        inglese = mostrate["en"].get(nome, {})
        if f["description"] == inglese.get("description") or f["arguments"] == inglese.get("arguments"):
            fallimenti.append("%s: the same texts in English and Italian" % nome)


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
        lo = LibreOffice(cartella, sys.argv[1])
        prova_csv(lo, fallimenti)
        prova_procedura(lo, fallimenti)
    for f in fallimenti:
        print("FAIL:", f)
    return 1 if fallimenti else 0


if __name__ == "__main__":
    sys.exit(main())
