"""The Python module over libkrt: what it adds to the C interface (str in and out, the
sequence call, exceptions carrying the reason)."""
import unittest

import krt


class EncodeTest(unittest.TestCase):
    def test_sequence_call_agrees_with_single_calls(self):
        contents = ["978882030000", "12345678901", "97888203000A", "", "400638133393"]
        many = krt.encode_many("EAN13", iter(contents), check=True)
        for content, glyphs in zip(contents, many):
            with self.subTest(content=content):
                try:
                    self.assertEqual(glyphs, krt.encode("EAN13", content, check=True))
                except krt.Refused:
                    self.assertEqual(glyphs, "")

    def test_glyphs_beyond_ascii_come_back_as_str(self):
        glyphs = krt.encode("E128", "010950110153000310ABC")
        self.assertTrue(any(ord(c) > 127 for c in glyphs))
        self.assertEqual(krt.encode_many("e128", ("010950110153000310ABC",)), [glyphs])

    def test_refusals_and_faults(self):
        rows = [
            ("letter in EAN-13", lambda: krt.encode("EAN13", "97888203000A"), krt.Refused, "character"),
            ("too long", lambda: krt.encode("C128", "x" * 5000), krt.Refused, "length"),
            ("empty entry content", lambda: krt.entry("Code 39", ""), krt.Refused, "empty"),
            ("no Windows-1252 code", lambda: krt.encode("C128", "ab\u4e00"), krt.Refused, "character"),
            ("strict sequence", lambda: krt.encode_many("EAN13", ["1", "x"], strict=True), krt.Refused, None),
            ("bad escape", lambda: krt.encode("C128", "\\q"), krt.Error, None),
            ("unknown symbology", lambda: krt.encode_many("EAN14", ["1"]), krt.Error, None),
            ("ISBN letter O", lambda: krt.isbn("0-3O6-40615-2"), krt.Refused, "character"),
        ]
        for name, call, exception, kind in rows:
            with self.subTest(name):
                with self.assertRaises(exception) as caught:
                    call()
                self.assertTrue(str(caught.exception))
                if kind is not None:
                    self.assertEqual(caught.exception.kind, kind)
        with self.assertRaises(krt.Refused) as caught:
            krt.encode_many("EAN13", ["1", "x"], strict=True)
        self.assertEqual((caught.exception.index, caught.exception.position, caught.exception.character),
                         (1, 1, ord("x")))
        with self.assertRaises(krt.Refused) as caught:
            krt.entry("Codice 39", "ab\u00e7", italian=True)
        self.assertIn("\u00e7", str(caught.exception))  # the Italian text names the character
        with self.assertRaises(krt.Refused) as caught:
            krt.encode("C128", "x" * 5000)
        self.assertEqual((caught.exception.minimum, caught.exception.maximum), (1, 4096))
        with self.assertRaises(TypeError):
            krt.encode_many("EAN13", [b"123"])


class EntryTest(unittest.TestCase):
    def test_entry_gs1_isbn(self):
        e = krt.entry("EAN 13 Add-on 5", "97888203000012345", check=True)
        self.assertEqual((e.main, e.addon, e.check), ("978882030000", "12345", True))
        self.assertEqual(e.glyphs[:len(krt.encode("EAN13", "978882030000", True))],
                         krt.encode("EAN13", "978882030000", True))
        g = krt.gs1({"01": "09501101530003", "10": "ABC"})
        self.assertEqual(g.hrc, "(01)09501101530003(10)ABC")
        self.assertEqual(krt.gs1_text(g.hrc), g)
        with self.assertRaises(krt.Refused) as caught:
            krt.gs1([("01", "09501101530003"), ("17", "2612")])
        self.assertEqual(caught.exception.position, 2)
        self.assertEqual(krt.isbn(krt.isbn("0-306-40615-2", 13), 10), "0-306-40615-2")


if __name__ == "__main__":
    unittest.main()
