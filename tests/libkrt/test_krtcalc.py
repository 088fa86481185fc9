"""The Calc functions' own logic, without the office: what a cell argument means, the
characters a cell needs for each character map, and refusals as Rifiutato."""
import importlib
import inspect
import os
import sys
import unittest
import xml.etree.ElementTree as ET
from unittest import mock

import krt
import krtcalc


class Argomenti(unittest.TestCase):
    def test_si_no(self):
        for valore, atteso in [(None, False), (0.0, False), (1.0, True), (-2.0, True), ("", False), ("vero", True),
                               (" TRUE ", True), ("Sì", True), ("falso", False), ("0", False), (((1.0,),), True)]:
            with self.subTest(valore=valore):
                self.assertIs(krtcalc.vero(valore), atteso)
        self.assertTrue(krtcalc.vero(None, True))
        for valore in ["forse", ((1.0, 0.0),)]:
            with self.subTest(valore=valore), self.assertRaises(krtcalc.Rifiutato):
                krtcalc.vero(valore)

    def test_contenuto(self):
        for valore, atteso in [(5901234123457.0, "5901234123457"), (12.5, "12.5"), ("0012", "0012"), (None, ""),
                               (((42.0,),), "42")]:
            with self.subTest(valore=valore):
                self.assertEqual(krtcalc.testo(valore), atteso)


class Mappe(unittest.TestCase):
    def test_ogni_byte_nelle_due_letture(self):
        # Every glyph byte, as libkrt gives it (Windows-1252 reading), through both maps.
        glifi = "".join(chr(b) if b in (0x81, 0x8D, 0x8F, 0x90, 0x9D) else bytes([b]).decode("cp1252")
                        for b in range(0x20, 0x100)) + "\r\n"
        self.assertEqual(krtcalc.per_la_mappa(glifi, False), glifi)
        self.assertEqual(krtcalc.per_la_mappa(glifi, True), "".join(chr(0xF000 + b) for b in range(0x20, 0x100)) + "\r\n")

    def test_code128_nelle_due_mappe(self):
        glifi = krt.encode("C128", "Krt-128")  # with glyph bytes where the two maps part
        self.assertTrue(any(0x80 <= krtcalc.BYTE_DI[c] <= 0x9F for c in glifi))
        for simbolo in (None, 1.0):
            self.assertEqual(krtcalc.krtencode("c128", "Krt-128", None, simbolo),
                             krtcalc.per_la_mappa(glifi, bool(simbolo)))


class Funzioni(unittest.TestCase):
    def test_rifiuti_e_motivi(self):
        for chiamata in [lambda: krtcalc.krtencode("EAN13", "12A"), lambda: krtcalc.krtencode("NOSUCH", "1"),
                         lambda: krtcalc.krtentry("EAN 13", "1", "forse"), lambda: krtcalc.krtgs1("(01)123"),
                         lambda: krtcalc.krtisbn("12345"), lambda: krtcalc.krthrc("No entry", "1")]:
            with self.assertRaises(krtcalc.Rifiutato):
                chiamata()
        self.assertEqual(krtcalc.krtwhy("EAN13", 5901234123457.0, 0.0), "")
        inglese, italiano = krtcalc.krtwhy("EAN13", "12A"), krtcalc.krtwhy("EAN13", "12A", None, True)
        self.assertTrue(inglese and italiano and inglese != italiano)
        self.assertIn("forse", krtcalc.krtwhy("EAN13", "1", "forse"))

    def test_valori(self):
        self.assertEqual(krtcalc.krtisbn(8845292614.0), "978-88-452-9261-3")
        self.assertEqual(krtcalc.krthrc("Code 39", "abc", True), krt.entry("Code 39", "abc", True, False, True).hrc)
        self.assertEqual(krtcalc.krtgs1(" (01)09501101530003 "), krt.gs1_text("(01)09501101530003").glyphs)
        self.assertEqual(krtcalc.krtentry("EAN 13 Add-on 2", "590123412345712", True),
                         krt.entry("EAN 13 Add-on 2", "590123412345712", True).glyphs)

    def test_senza_modulo_ogni_cella_dice_perche(self):
        with mock.patch.dict(sys.modules, {"krt": None}):
            senza = importlib.reload(krtcalc)
            self.assertIn("python3-krt", senza.krtwhy("EAN13", "1"))
            with self.assertRaises(senza.Rifiutato):
                senza.krtencode("EAN13", "1")
        importlib.reload(krtcalc)


class ProceduraGuidata(unittest.TestCase):
    def test_testi_nelle_due_lingue(self):
        # What Calc's Function Wizard shows (CalcAddIns.xcu, in the extension's manifest): each function and its
        # arguments, in the order the function takes them, named and explained in English and in Italian.
        cartella = os.path.join(os.path.dirname(krtcalc.__file__), "..")
        nome, lingua = "{http://openoffice.org/2001/registry}name", "{http://www.w3.org/XML/1998/namespace}lang"
        funzioni = ET.parse(os.path.join(cartella, "CalcAddIns.xcu")).find(".//node[@%s='AddInFunctions']" % nome)
        self.assertEqual({f.get(nome): [a.get(nome) for a in f.find("node")] for f in funzioni},
                         {n: [a for a in inspect.signature(f).parameters if a != "italiano"]
                          for n, f in inspect.getmembers(krtcalc, inspect.isfunction) if n.startswith("krt")})
        for nodo in list(funzioni) + [a for f in funzioni for a in f.find("node")]:
            testi = {p.get(nome): {v.get(lingua): v.text for v in p} for p in nodo.findall("prop")}
            with self.subTest(nodo.get(nome)):
                self.assertTrue(all(testi[p].get(l) for p in ("DisplayName", "Description") for l in ("en", "it")))
                self.assertNotEqual(testi["Description"]["en"], testi["Description"]["it"])
        with open(os.path.join(cartella, "META-INF", "manifest.xml"), encoding="utf-8") as f:
            self.assertIn('manifest:full-path="CalcAddIns.xcu"', f.read())


if __name__ == "__main__":
    unittest.main()
