#!/usr/bin/env python3
"""Self-check of the reference barcode fonts written by make_fonts.py.

    check_fonts.py FONTDIR      (FONTDIR holds unicode/ and symbol/)

Reads the fonts back with fontTools and checks names, character maps and
geometry (bars are rectangles on one module grid, advances whole modules),
checks the Interleaved 2 of 5 glyphs of all 100 digit pairs, then lays out
glyph strings of worked examples and has zbarimg (zbar-tools) read them,
drawn three ways: from the glyph outlines module by module, by FreeType
(PIL), and by hb-view when it is installed.

Exit status 0 when everything holds, 1 on a fault, 77 when zbarimg is
missing (the checks that need no reader have then passed).
"""

import math
import os
import shutil
import subprocess
import sys
import tempfile

from fontTools.ttLib import TTFont
from PIL import Image, ImageDraw, ImageFont

FAMILIES = ["ORB39", "ORB93", "ORB128", "ORBEAN", "ORB25 ITF", "ORBITF14", "ORBCODABAR"]
SHORT_FACES = [f + " Short" for f in FAMILIES if f != "ORBEAN"]
VARIANTS = ("unicode", "symbol")
SCAN_Y = 150          # font units: crosses the bars of every face, misses the EAN leading digit
BAR_FOOT = 60         # bars start at the baseline, or on the bottom bearer bar of ITF-14

# Widths of the five elements of each digit in Interleaved 2 of 5.
I25_DIGITS = ["nnwwn", "wnnnw", "nwnnw", "wwnnn", "nnwnw", "wnwnn", "nwwnn", "nnnww", "wnnwn", "nwnwn"]
# The engine's pair table: glyph characters (first, second) of the pairs 00 to 99.
I25_PAIRS = ("ApHhFhXdAtHoFoAvHmFm" "ErOfLfQbEwOlLlEyOjLj" "CrMfJfSbCwMlJlCyMjJj" "NnPaRaZ`NiPeReNgPcRc"
             "ArHfFfXbAwHlFlAyHjFj" "InTaWa\\`IiTeWeIgTcWc" "GnVaYa^`GiVeYeGgVcYc" "@zDxBxKk@|DqBq@~DsBs"
             "EpOhLhQdEtOoLoEvOmLm" "CpMhJhSdCtMoJoCvMmJm")

# (face, glyph bytes, reader results that must all appear, quiet zone from the font alone)
SAMPLES = [
    ("ORB39", b"#ABCX#", ["CODE-39:ABCX"], False),
    ("ORB39 Short", b"#CODE_39N#", ["CODE-39:CODE 39N"], False),
    ("ORB93", None, ["CODE-93:TEST"], True),                    # "*TEST" + C + K + "#", built below
    ("ORB93 Short", None, ["CODE-93:Ab-1"], True),              # Full ASCII "AdBcM1" + C + K
    ("ORB128", bytes([137, 66, 67, 68, 34, 139]), ["CODE-128:ABC"], True),
    ("ORB128", bytes([137, 66, 67, 50, 132, 56, 78, 40, 139]), ["CODE-128:AB12345"], True),
    ("ORB128 Short", bytes([138, 45, 67, 115, 139]), ["CODE-128:1234"], True),
    ("ORBEAN", b"4|AaGDib!pppvpn|", ["EAN-13:4006381333931"], True),
    ("ORBEAN", b"|JGDI!rmtq|", ["EAN-8:96385074"], False),
    # zbar reports UPC-A, and UPC-E expanded to UPC-A, as EAN-13 with a leading 0.
    ("ORBEAN", b"|ADGAAA!ovnqro|", ["EAN-13:0036000291452"], False),
    ("ORBEAN", b"0|bCDefG#", ["EAN-13:0012345000065"], False),
    ("ORBEAN", b"4|AaGDib!pppvpn|-+L_M", ["EAN-13:4006381333931", "EAN-2:12"], True),
    ("ORBEAN", b"0|bCDefG#-+V_M_X_O_P", ["EAN-13:0012345000065", "EAN-5:12345"], False),
    ("ORB25 ITF", b"*LfNi#", ["I2/5:1234"], True),
    ("ORB25 ITF Short", None, ["I2/5:0123456789"], True),      # pairs from the table
    ("ORBITF14", None, ["I2/5:00012345678905"], True),
    ("ORBITF14 Short", None, ["I2/5:15400141288763"], True),
    ("ORBCODABAR", b"A|1|2|3|9|B", ["Codabar:A1239B"], False),
    ("ORBCODABAR Short", b"t|1|2|-|$|e", ["Codabar:A12-$D"], False),
    ("ORBCODABAR", b"c|4|0|:|/|.|+|*", ["Codabar:C40:/.+C"], False),
]

C93_ALPHABET = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-._$/+%abcd"


def code93_checked(text):
    for limit in (20, 15):
        total = sum((i % limit + 1) * C93_ALPHABET.index(c) for i, c in enumerate(reversed(text)))
        text += C93_ALPHABET[total % 47]
    return text


def itf_glyphs(digits):
    pairs = "".join(I25_PAIRS[2 * int(digits[i:i + 2]):2 * int(digits[i:i + 2]) + 2] for i in range(0, len(digits), 2))
    return ("*" + pairs + "#").encode("ascii")


def sample_glyphs(face, glyphs, expected):
    if glyphs is not None:
        return glyphs
    data = expected[0].split(":", 1)[1]
    if face.startswith("ORB93"):
        native = "TEST" if data == "TEST" else "AdBcM1"
        return ("*" + code93_checked(native) + "#").encode("ascii")
    return itf_glyphs(data)


def unicode_of_byte(b):
    try:
        return ord(bytes([b]).decode("cp1252"))
    except UnicodeDecodeError:
        return b


def font_path(folder, variant, face):
    return os.path.join(folder, variant, face.replace(" ", "_") + ".ttf")


class Checker:
    def __init__(self):
        self.faults = 0

    def expect(self, ok, what):
        print(("ok    " if ok else "FAIL  ") + what)
        if not ok:
            self.faults += 1
        return ok


class FaceReader:
    """A font read back: byte -> (advance, bar intervals crossing the scan line)."""

    def __init__(self, path, variant):
        self.font = TTFont(path)
        self.variant = variant
        subtables = self.font["cmap"].tables
        wanted = (3, 0) if variant == "symbol" else (3, 1)
        self.cmap_ok = [(t.platformID, t.platEncID) for t in subtables] == [wanted]
        cmap = subtables[0].cmap
        key = (lambda b: 0xF000 + b) if variant == "symbol" else unicode_of_byte
        self.glyph_of = {b: cmap[key(b)] for b in range(256) if key(b) in cmap}
        self.unmapped = set(cmap) - {key(b) for b in range(256)}
        self.glyf = self.font["glyf"]
        self.hmtx = self.font["hmtx"]

    def family(self):
        return self.font["name"].getDebugName(1)

    def advance(self, b):
        return self.hmtx[self.glyph_of[b]][0]

    def bars(self, b):
        """Bar intervals of a glyph on the scan line; every contour there must be a rectangle.

        Figures drawn higher up (the ISBN text line of ORBEAN) are not bars and are passed over."""
        glyph = self.glyf[self.glyph_of[b]]
        if glyph.numberOfContours <= 0:
            return []
        coords, ends, _ = glyph.getCoordinates(self.glyf)
        out, start = [], 0
        for end in ends:
            pts = list(coords[start:end + 1])
            start = end + 1
            xs, ys = {p[0] for p in pts}, {p[1] for p in pts}
            if not min(ys) <= SCAN_Y <= max(ys) or min(ys) > BAR_FOOT:
                continue
            if len(pts) != 4 or len(xs) != 2 or len(ys) != 2:
                raise ValueError(f"byte {b}: a contour on the bar line is not a rectangle")
            out.append((min(xs), max(xs)))
        return sorted(out)

    def layout(self, glyphs):
        """Merged bar intervals and total width of a glyph string."""
        x, bars = 0, []
        for b in glyphs:
            for x0, x1 in self.bars(b):
                if bars and bars[-1][1] >= x + x0:
                    bars[-1] = (bars[-1][0], max(bars[-1][1], x + x1))
                else:
                    bars.append((x + x0, x + x1))
            x += self.advance(b)
        return bars, x


def check_face(chk, reader, face):
    chk.expect(reader.family() == face, f"{face} {reader.variant}: family name {reader.family()!r}")
    chk.expect(reader.cmap_ok and not reader.unmapped, f"{face} {reader.variant}: one character map of the variant")
    symbol_bit = bool(reader.font["OS/2"].ulCodePageRange1 & (1 << 31))
    chk.expect(symbol_bit == (reader.variant == "symbol"), f"{face} {reader.variant}: OS/2 symbol code page bit")
    hhea = reader.font["hhea"]
    chk.expect(hhea.ascent > 0 > hhea.descent and hhea.ascent - hhea.descent >= 800,
               f"{face} {reader.variant}: line metrics {hhea.ascent}/{hhea.descent}")
    edges = [reader.advance(b) for b in reader.glyph_of]
    for b in reader.glyph_of:
        edges += [x for bar in reader.bars(b) for x in bar]
    module = 0
    for e in edges:
        module = math.gcd(module, e)
    chk.expect(module >= 20, f"{face} {reader.variant}: all advances and bar edges on a grid of {module} units")
    return module


def check_i25_pairs(chk, reader, face, module):
    """Every digit pair: the two glyphs draw its ten interleaved elements, narrow 1 and wide 3 modules."""
    assignment, bad = {}, []
    for pair in range(100):
        bars, spaces = I25_DIGITS[pair // 10], I25_DIGITS[pair % 10]
        elements = "".join(b + s for b, s in zip(bars, spaces))
        first, second = I25_PAIRS[2 * pair], I25_PAIRS[2 * pair + 1]
        for ch, half in ((first, elements[:5]), (second, elements[5:])):
            if assignment.setdefault(ch, half) != half:
                bad.append(f"{pair:02d}: {ch!r} stands for {assignment[ch]} and {half}")
        bars_drawn, width = reader.layout((first + second).encode("ascii"))
        runs, x = [], 0
        for x0, x1 in bars_drawn:
            runs += [x0 - x, x1 - x0] if x0 > x else [x1 - x0]
            x = x1
        runs.append(width - x)
        drawn = "".join({module: "n", 3 * module: "w"}.get(r, "?") for r in runs)
        if drawn != elements:
            bad.append(f"{pair:02d}: drawn {drawn}, expected {elements}")
    chk.expect(not bad and len(assignment) == 56,
               f"{face} {reader.variant}: 100 pairs, {len(assignment)} characters, one pattern each" +
               ("" if not bad else "; " + "; ".join(bad[:5])))


def modules_image(bars, width, module, margin_modules, px=3, height=80):
    scale = px / module
    margin = margin_modules * px
    img = Image.new("L", (round(width * scale) + 2 * margin, height), 255)
    draw = ImageDraw.Draw(img)
    for x0, x1 in bars:
        draw.rectangle([margin + round(x0 * scale), 0, margin + round(x1 * scale) - 1, height - 1], fill=0)
    return img


def text_of(glyphs, variant):
    if variant == "symbol":
        return "".join(chr(0xF000 + b) for b in glyphs)
    return "".join(chr(unicode_of_byte(b)) for b in glyphs)


def freetype_image(path, glyphs, variant, size=90, margin=60):
    font = ImageFont.truetype(path, size, encoding="symb" if variant == "symbol" else "unic")
    text = text_of(glyphs, variant)
    width = round(font.getlength(text))
    img = Image.new("L", (width + 2 * margin, size * 2), 255)
    ImageDraw.Draw(img).text((margin, size // 2), text, font=font, fill=0)
    return img


def hbview_image(path, glyphs, variant, out):
    # HarfBuzz reaches a symbol map with the plain byte value (U+00xx -> U+F0xx).
    text = "".join(chr(b) for b in glyphs) if variant == "symbol" else text_of(glyphs, variant)
    run = subprocess.run(["hb-view", "--font-size=90", "--margin=60", "--output-format=png", "-o", out,
                          "--text=" + text, path], capture_output=True, text=True)
    return run.returncode == 0 and os.path.exists(out)


def zbar(png):
    run = subprocess.run(["zbarimg", "-q", "-Sean2.enable", "-Sean5.enable", "-Si25.min-length=4", png],
                         capture_output=True, text=True)
    return run.stdout.splitlines()


def main(argv):
    if len(argv) != 2:
        sys.stderr.write("usage: check_fonts.py FONTDIR\n")
        return 2
    folder = argv[1]
    chk = Checker()
    readers, modules = {}, {}
    for variant in VARIANTS:
        for face in FAMILIES + SHORT_FACES:
            path = font_path(folder, variant, face)
            if not chk.expect(os.path.exists(path), f"{face} {variant}: {path}"):
                continue
            reader = readers[variant, face] = FaceReader(path, variant)
            modules[variant, face] = check_face(chk, reader, face)
            if face.startswith(("ORB25 ITF", "ORBITF14")):
                check_i25_pairs(chk, reader, face, modules[variant, face])
    if chk.faults:
        print(f"check_fonts: {chk.faults} faults before decoding")
        return 1
    if not shutil.which("zbarimg"):
        print("check_fonts: zbarimg not found (Debian zbar-tools): nothing decoded")
        return 77
    hb = shutil.which("hb-view") is not None
    with tempfile.TemporaryDirectory() as tmp:
        for n, (face, glyphs, expected, own_quiet) in enumerate(SAMPLES):
            glyphs = sample_glyphs(face, glyphs, expected)
            for variant in VARIANTS:
                reader, module = readers[variant, face], modules[variant, face]
                path = font_path(folder, variant, face)
                bars, width = reader.layout(glyphs)
                renders = [("outlines", modules_image(bars, width, module, 10))]
                if own_quiet:
                    renders.append(("outlines, no page margin", modules_image(bars, width, module, 0)))
                renders.append(("FreeType", freetype_image(path, glyphs, variant)))
                for how, img in renders:
                    png = os.path.join(tmp, f"{n}-{variant}-{len(how)}.png")
                    img.save(png)
                    got = zbar(png)
                    chk.expect(all(e in got for e in expected),
                               f"{face} {variant} {how}: {glyphs!r} reads {got}, expected {expected}")
                if hb:
                    png = os.path.join(tmp, f"{n}-{variant}-hb.png")
                    if chk.expect(hbview_image(path, glyphs, variant, png), f"{face} {variant} hb-view renders"):
                        got = zbar(png)
                        chk.expect(all(e in got for e in expected),
                                   f"{face} {variant} hb-view: {glyphs!r} reads {got}, expected {expected}")
    print(f"check_fonts: {chk.faults} faults" + ("" if hb else " (hb-view not installed: not tried)"))
    return 1 if chk.faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
