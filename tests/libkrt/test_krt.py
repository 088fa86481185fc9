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
        rows = [  # name, call, exception, attributes it carries
            ("letter in EAN-13", lambda: krt.encode("EAN13", "97888203000A"), krt.Refused, {"kind": "character"}),
            ("too long", lambda: krt.encode("C128", "x" * 5000), krt.Refused,
             {"kind": "length", "minimum": 1, "maximum": 4096}),
            ("empty entry content", lambda: krt.entry("Code 39", ""), krt.Refused, {"kind": "empty"}),
            ("no Windows-1252 code", lambda: krt.encode("C128", "ab\u4e00"), krt.Refused, {"kind": "character"}),
            ("strict sequence", lambda: krt.encode_many("EAN13", ["1", "x"], strict=True), krt.Refused,
             {"index": 1, "position": 1, "character": ord("x")}),
            ("bad escape", lambda: krt.encode("C128", "\\q"), krt.Error, {}),
            ("unknown symbology", lambda: krt.encode_many("EAN14", ["1"]), krt.Error, {}),
            ("ISBN letter O", lambda: krt.isbn("0-3O6-40615-2"), krt.Refused, {"kind": "character"}),
            ("bytes in a sequence", lambda: krt.encode_many("EAN13", [b"123"]), TypeError, {}),
        ]
        for name, call, exception, attributes in rows:
            with self.subTest(name):
                with self.assertRaises(exception) as caught:
                    call()
                self.assertTrue(str(caught.exception))
                for attribute, value in attributes.items():
                    self.assertEqual(getattr(caught.exception, attribute), value)
        with self.assertRaises(krt.Refused) as caught:
            krt.entry("Codice 39", "ab\u00e7", italian=True)
        self.assertIn("\u00e7", str(caught.exception))  # the Italian text names the character


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
