#!/usr/bin/env python3
"""The Calc functions in a real LibreOffice: krt.oxt installed into a throwaway profile, a
generated sheet recalculated headless and saved as CSV, each cell compared with krt-encode;
then, for each character map of the reference test fonts, a sheet of symbols set in the
barcode fonts exported to PDF, rasterised and read back with ZXing.

    calc_e2e.py KRT_OXT KRT_ENCODE FONTS_DIR LEGGI_PGM

Exit 77 (skipped) without soffice, unopkg, pdftoppm or LibreOffice's Python (python3-uno).
The krt module must be importable (PYTHONPATH), and is passed on to LibreOffice.
"""
import csv
import json
import os
import shutil
import subprocess
import sys
import tempfile
import time
from xml.sax.saxutils import escape

SALTA = 77


def q(s: str) -> str:
    """A text as a formula string literal, escaped for an XML attribute."""
    return escape('"' + s.replace('"', '""') + '"', {'"': "&quot;"})


# Rows of the CSV sheet: (formula name, arguments after the content, krt-encode arguments or
# None for a refused content, content).
ENCODE = [
    ("EAN13", "1", ["--check", "EAN13"], "590123412345"),
    ("EAN13", "0", ["EAN13"], 5901234123457.0),  # a number cell
    ("C128", "0", ["C128"], "Krt-128 abc"),
    ("C39", "1", ["--check", "C39"], "KRT-2024"),
    ("CBAR", "0", ["CBAR"], "A40156B"),
    ("C25", "0", ["C25"], "1234567890"),
    ("EAN13", "1", None, "12A"),
    ("NOSUCH", "0", None, "123"),
]
ENTRY = [
    ("EAN 13 Add-on 5", "59012341234552495"),
    ("ISBN-13", "978030640615"),
    ("Codice 39", "abc-1"),
    ("Code 32", "12345678"),
]


def krt_encode(eseguibile, argomenti, contenuto=None, formato="codes", ingresso=b""):
    if isinstance(contenuto, float):
        contenuto = "%d" % contenuto
    r = subprocess.run([eseguibile, "--output=" + formato] + argomenti + ([contenuto] if contenuto else []),
                       input=ingresso, capture_output=True)
    if r.returncode != 0:
        return None
    if formato == "json":
        return json.loads(r.stdout.decode("utf-8"))
    return bytes(int(n) for n in r.stdout.split())


def lettura(codici: bytes, simbolo: bool) -> str:
    """What a cell must hold for the glyph bytes: Windows-1252 reading (undefined bytes as
    their Latin-1 code points) for a Unicode-map font, U+F000+byte for a symbol-map font."""
    return "".join(chr(b) if b < 0x20 else chr(0xF000 + b) if simbolo else bytes([b]).decode("cp1252", "ignore")
                   or chr(b) for b in codici)


FUNZIONE = "ORG.KRT.CALC.FUNZIONI."


def foglio(righe, stili="", colonne='<table:table-column table:number-columns-repeated="8"/>') -> str:
    corpo = "".join("<table:table-row%s>%s</table:table-row>\n" % (attributi, "".join(celle)) for attributi, celle in righe)
    return f"""<?xml version="1.0" encoding="UTF-8"?>
<office:document xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0"
 xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0" xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0"
 xmlns:style="urn:oasis:names:tc:opendocument:xmlns:style:1.0" xmlns:fo="urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0"
 xmlns:of="urn:oasis:names:tc:opendocument:xmlns:of:1.2" office:version="1.2"
 office:mimetype="application/vnd.oasis.opendocument.spreadsheet">
<office:automatic-styles>{stili}</office:automatic-styles>
<office:body><office:spreadsheet><table:table table:name="KRT">{colonne}
{corpo}</table:table></office:spreadsheet></office:body></office:document>
"""


def testo(s):
    if isinstance(s, float):
        return '<table:table-cell office:value-type="float" office:value="%r"/>' % s
    return '<table:table-cell office:value-type="string"><text:p>%s</text:p></table:table-cell>' % escape(s)


def formula(nome, *argomenti, stile=""):
    attributo = ' table:style-name="%s"' % stile if stile else ""
    return '<table:table-cell%s table:formula="of:=%s%s(%s)"/>' % (attributo, FUNZIONE, nome, ";".join(argomenti))


class LibreOffice:
    def __init__(self, cartella, oxt, fonts=None):
        self.cartella = cartella
        os.makedirs(cartella, exist_ok=True)
        profilo = "file://" + os.path.join(cartella, "profilo")
        # --shared into a cache of this run: unopkg refuses a user installation to root.
        self.env_args = ["-env:UserInstallation=" + profilo,
                         "-env:UNO_SHARED_PACKAGES_CACHE=file://" + os.path.join(cartella, "condivisi")]
        # LibreOffice embeds the system's Python, which finds its library through the first
        # python3 on PATH: another installation first (a virtual environment, pyenv) breaks it.
        self.ambiente = dict(os.environ, HOME=os.path.join(cartella, "home"),
                             PATH="/usr/bin:" + os.environ.get("PATH", ""))
        os.makedirs(self.ambiente["HOME"], exist_ok=True)
        if fonts:
            conf = os.path.join(cartella, "fonts.conf")
            with open(conf, "w") as f:
                f.write('<?xml version="1.0"?>\n<!DOCTYPE fontconfig SYSTEM "fonts.dtd">\n<fontconfig>\n'
                        '  <include ignore_missing="yes">/etc/fonts/fonts.conf</include>\n'
                        f'  <dir>{escape(fonts)}</dir>\n  <cachedir>{escape(cartella)}/cache-font</cachedir>\n'
                        '</fontconfig>\n')
            self.ambiente["FONTCONFIG_FILE"] = conf
        r = subprocess.run(["unopkg", "add", "--shared"] + self.env_args + [oxt], env=self.ambiente,
                           capture_output=True, text=True, timeout=300)
        if r.returncode != 0:
            raise RuntimeError("unopkg add failed:\n" + r.stdout + r.stderr)

    def converti(self, documento, filtro):
        r = subprocess.run(["soffice"] + self.env_args + ["--headless", "--convert-to", filtro, "--outdir",
                                                          self.cartella, documento],
                           env=self.ambiente, capture_output=True, text=True, timeout=300)
        uscita = os.path.splitext(documento)[0] + "." + filtro.split(":")[0]
        if not os.path.exists(uscita):
            raise RuntimeError("soffice did not convert %s:\n%s%s" % (documento, r.stdout, r.stderr))
        return uscita


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


def prova_csv(lo, krt_encode_exe, cartella, fallimenti):
    import krt
    righe, attesi = [], []

    def aggiungi(contenuto, codici, quarta, *celle):
        """A row: the content, then a formula per (function, arguments), "A" standing for the content's cell."""
        a = "[.A%d]" % (len(righe) + 1)
        righe.append(("", [testo(contenuto)] + [formula(f, *(a if x == "A" else x for x in argomenti))
                                                for f, argomenti in celle]))
        attesi.append((contenuto, codici, quarta))

    for simbologia, check, argomenti, contenuto in ENCODE:
        codici = krt_encode(krt_encode_exe, argomenti, contenuto) if argomenti else None
        motivo = ""
        if codici is None:
            try:
                krt.encode(simbologia, contenuto, check == "1")
            except krt.Error as e:
                motivo = str(e)
        s = q(simbologia)
        aggiungi(contenuto, codici, motivo, ("KRTENCODE", (s, "A", check)), ("KRTENCODE", (s, "A", check, "1")),
                 ("KRTWHY", (s, "A", check)))
    for voce, contenuto in ENTRY:
        js = krt_encode(krt_encode_exe, ["--check", "--hrc", "--check-in-hrc", voce], contenuto, "json")
        v = q(voce)
        aggiungi(contenuto, krt_encode(krt_encode_exe, ["--check", "--hrc", voce], contenuto), js["hrc"],
                 ("KRTENTRY", (v, "A", "1", "1")), ("KRTENTRY", (v, "A", "1", "1", "1")), ("KRTHRC", (v, "A", "1")))
    gs1 = "(01)09501101530003(10)ABC"
    aggiungi(gs1, krt_encode(krt_encode_exe, ["--gs1-input", "EAN 128"], ingresso=gs1.encode()), "978-0-306-40615-7",
             ("KRTGS1", ("A",)), ("KRTGS1", ("A", "1")), ("KRTISBN", (q("0-306-40615-2"),)))

    documento = os.path.join(cartella, "colonna.fods")
    with open(documento, "w", encoding="utf-8") as f:
        f.write(foglio(righe))
    inizio = time.monotonic()
    uscita = lo.converti(documento, "csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,true,false,false")
    print("CSV: LibreOffice recalculated %d rows in %.1f s" % (len(righe), time.monotonic() - inizio))
    with open(uscita, newline="", encoding="utf-8") as f:
        letto = list(csv.reader(f))
    for i, (contenuto, codici, quarta) in enumerate(attesi):
        cella = letto[i] + [""] * 4 if i < len(letto) else [""] * 4
        nome = "row %d (%s)" % (i + 1, contenuto)
        if codici is None:
            if not all(c.startswith(("Err:", "#")) for c in cella[1:3]):
                fallimenti.append("%s: refused content gave %r, %r instead of an error" % (nome, cella[1], cella[2]))
        else:
            for colonna, simbolo in ((1, False), (2, True)):
                if cella[colonna] != lettura(codici, simbolo):
                    fallimenti.append("%s, symbol=%s: %r != %r" % (nome, simbolo, cella[colonna], lettura(codici, simbolo)))
        if cella[3] != quarta:
            fallimenti.append("%s: fourth column %r != %r" % (nome, cella[3], quarta))


# Rows of the PDF sheet: (formula, arguments, font family, what the reader must find).
SCANSIONI = [
    ("KRTENCODE", (q("C128"), q("Krt-128 abc"), "0"), "ORB128", "Code128\tKrt-128 abc"),
    ("KRTENCODE", (q("EAN13"), q("590123412345"), "1"), "ORBEAN", "EAN-13\t5901234123457"),
    ("KRTENTRY", (q("EAN 13 Add-on 5"), q("59012341234552495"), "1", "0"), "ORBEAN", "EAN-13\t5901234123457 52495"),
    ("KRTGS1", (q("(01)09501101530003(10)ABC"),), "ORB128", "Code128\t010950110153000310ABC"),
    ("KRTENCODE", (q("C39"), q("KRT-2024"), "0"), "ORB39", "Code39\tKRT-2024"),
]


# Arguments the Function Wizard must show, per language.
ARGOMENTI = {
    "en": {"KRTENCODE": ["symbology", "content", "check", "symbol"], "KRTENTRY": ["entry", "content", "check", "hrc", "symbol"],
           "KRTHRC": ["entry", "content", "check"], "KRTGS1": ["text", "symbol"], "KRTISBN": ["text"],
           "KRTWHY": ["symbology", "content", "check"]},
    "it": {"KRTENCODE": ["simbologia", "contenuto", "controllo", "simbolo"],
           "KRTENTRY": ["voce", "contenuto", "controllo", "hrc", "simbolo"], "KRTHRC": ["voce", "contenuto", "controllo"],
           "KRTGS1": ["testo", "simbolo"], "KRTISBN": ["testo"], "KRTWHY": ["simbologia", "contenuto", "controllo"]},
}


def prova_procedura(lo, krt_encode_exe, fallimenti):
    """The Function Wizard in English and Italian, and the functions typed by their names."""
    import krt
    codici = krt_encode(krt_encode_exe, ["C128"], "Krt-128")
    descrizioni = {}
    lingue = ["en", "it"]
    if not os.path.isdir("/usr/lib/libreoffice/program/resource/it"):
        print("it: Function Wizard in Italian not checked: LibreOffice's Italian (libreoffice-l10n-it) is not installed")
        lingue.remove("it")
    for lingua in lingue:
        esito = lo.procedura(['=KRTENCODE("C128";"Krt-128";0;1)', '=KRTWHY("EAN13";"12A")'], lingua)
        funzioni = esito["functions"]
        descrizioni[lingua] = {nome: f["description"] for nome, f in funzioni.items()}
        for nome, argomenti in ARGOMENTI[lingua].items():
            f = funzioni.get(nome)
            if f is None or not f["description"] or [a[0] for a in f["arguments"]] != argomenti \
                    or not all(a[1] for a in f["arguments"]):
                fallimenti.append("%s: the Function Wizard shows %s as %r" % (lingua, nome, f))
        attese = [lettura(codici, True), ""]
        try:
            krt.encode("EAN13", "12A", False, lingua == "it")
        except krt.Refused as e:
            attese[1] = str(e)
        if esito["cells"] != attese:
            fallimenti.append("%s: typed formulas gave %r, expected %r" % (lingua, esito["cells"], attese))
        print("%s: Function Wizard: %d KRT functions; KRTWHY: %s" % (lingua, len(funzioni), esito["cells"][1]))
    for nome in ARGOMENTI["en"] if "it" in descrizioni else []:
        if descrizioni["en"].get(nome) == descrizioni["it"].get(nome):
            fallimenti.append("%s: the same description in English and Italian" % nome)


def prova_pdf(lo, variante, leggi_pgm, cartella, fallimenti):
    simbolo = "1" if variante == "symbol" else "0"
    stili = ['<style:style style:name="riga" style:family="table-row">'
             '<style:table-row-properties fo:break-before="page" style:row-height="3cm"/></style:style>'
             '<style:style style:name="colonna" style:family="table-column">'
             '<style:table-column-properties style:column-width="17cm"/></style:style>']
    righe = []
    for i, (nome, argomenti, famiglia, _) in enumerate(SCANSIONI):
        stili.append(f'<style:style style:name="b{i}" style:family="table-cell"><style:text-properties '
                     f'style:font-name="{famiglia}" fo:font-family="{famiglia}" fo:font-size="24pt"/></style:style>')
        righe.append((' table:style-name="riga"', [formula(nome, *argomenti, simbolo, stile="b%d" % i)]))
    documento = os.path.join(cartella, "simboli_%s.fods" % variante)
    with open(documento, "w", encoding="utf-8") as f:
        f.write(foglio(righe, "".join(stili), '<table:table-column table:style-name="colonna"/>'))
    inizio = time.monotonic()
    pdf = lo.converti(documento, "pdf")
    print("%s: LibreOffice exported %d symbols to PDF in %.1f s" % (variante, len(righe), time.monotonic() - inizio))
    base = os.path.join(cartella, "pagina_" + variante)
    subprocess.run(["pdftoppm", "-r", "300", "-gray", pdf, base], check=True, timeout=120)
    pagine = sorted(p for p in os.listdir(cartella) if p.startswith("pagina_" + variante))
    if len(pagine) != len(SCANSIONI):
        fallimenti.append("%s: %d pages for %d symbols" % (variante, len(pagine), len(SCANSIONI)))
    for pagina, (nome, argomenti, famiglia, atteso) in zip(pagine, SCANSIONI):
        r = subprocess.run([leggi_pgm, os.path.join(cartella, pagina)], capture_output=True, text=True)
        letto = r.stdout.strip()
        leggibili = ";".join(argomenti).replace("&quot;", '"')
        print("%-8s %-10s %-42s -> %s" % (variante, nome, leggibili, letto or "NOT READ"))
        if letto != atteso:
            fallimenti.append("%s %s(%s): read %r, expected %r" % (variante, nome, leggibili, letto, atteso))


def main():
    oxt, krt_encode_exe, fonts, leggi_pgm = sys.argv[1:5]
    mancanti = [p for p in ("soffice", "unopkg", "pdftoppm") if shutil.which(p) is None]
    if not mancanti and subprocess.run(["/usr/bin/python3", "-c", "import uno"], capture_output=True).returncode:
        mancanti.append("LibreOffice's Python (python3-uno)")
    if mancanti:
        print("SKIPPED: %s not installed (Debian libreoffice-calc, python3-uno, poppler-utils; `make test-e2e` "
              "installs them): the Calc functions are not run in LibreOffice" % ", ".join(mancanti))
        return SALTA
    fallimenti = []
    # KRT_CALC_CARTELLA keeps the sheets, PDFs and pages in that folder for a look.
    conserva = os.environ.get("KRT_CALC_CARTELLA")
    with tempfile.TemporaryDirectory(prefix="krt-calc-") as temporanea:
        cartella = os.path.abspath(conserva) if conserva else temporanea
        lo = LibreOffice(os.path.join(cartella, "csv"), oxt)
        prova_csv(lo, krt_encode_exe, os.path.join(cartella, "csv"), fallimenti)
        prova_procedura(lo, krt_encode_exe, fallimenti)
        for variante in ("unicode", "symbol"):
            sotto = os.path.join(cartella, variante)
            prova_pdf(LibreOffice(sotto, oxt, os.path.join(fonts, variante)), variante, leggi_pgm, sotto, fallimenti)
    for f in fallimenti:
        print("FAIL:", f)
    return 1 if fallimenti else 0


if __name__ == "__main__":
    sys.exit(main())
