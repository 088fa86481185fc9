#!/usr/bin/env python3
"""Reference barcode fonts for KRT's tests.

Writes TrueType fonts that draw, glyph by glyph, the bars the KRT engine
expects of the installed ORB families, so that tests can render a glyph
string and read it back with a barcode reader:

    tools/testfonts/make_fonts.py OUTDIR

OUTDIR/unicode/ gets fonts whose character map is Unicode, reached through
Windows-1252 (byte 0x8B is U+2039, the bytes that code page leaves undefined
are their Latin-1 code points); OUTDIR/symbol/ gets the same fonts with a
symbol character map (U+F000 + byte), as older barcode fonts ship.

Families: ORB39, ORB93, ORB128, ORBEAN, ORB25 ITF, ORBITF14, ORBCODABAR, and
a "<family> Short" face (shorter bars) of each one except ORBEAN, which has a
single face for every style.

Every glyph is a row of modules: a bar is a filled rectangle, a space is
blank, the advance is the module count times the family's module width.
Start and stop glyphs carry blank modules on their outer side (both sides
when one glyph serves as start and stop) to give readers a quiet zone.
Digits and the ISBN text characters of ORBEAN are drawn as plain seven
segment figures without bars.

The bar patterns are those of the public symbology definitions: Code 39
(wide = 3 narrow), Code 93, Code 128, EAN/UPC, Interleaved 2 of 5
(wide = 3 narrow) and Codabar (wide = 3 narrow).

Needs Python 3 and fontTools only (Debian: python3-fonttools).
"""

import os
import sys
from dataclasses import dataclass, field

from fontTools.fontBuilder import FontBuilder
from fontTools.pens.ttGlyphPen import TTGlyphPen
from fontTools.ttLib.tables._c_m_a_p import CmapSubtable

UNITS_PER_EM = 1000
ASCENT = 850
DESCENT = 250
BAR_TOP = 800           # bar height of the Normal faces
BAR_TOP_SHORT = 400     # bar height of the Short faces
BEARER = 60             # thickness of the ITF-14 bearer bars

# Quiet zones, in modules. A glyph that is only ever a start (or a stop) gets a
# full quiet zone on its outer side. A glyph that serves at both ends gets the
# same margin on both sides, kept small enough that readers still accept it as
# the gap between two characters; the page around a symbol supplies the rest.
QUIET = 10
QUIET_SHARED_C39 = 5
QUIET_SHARED_CODABAR = 5
QUIET_EAN_UPCE_END = 3  # blank after the UPC-E end guard: with the 7 of "-" a 10-module gap before an add-on
EAN_TEXT_WIDTH = 7      # plain digits and ISBN text characters


@dataclass
class Glyph:
    modules: str                 # "1" bar, "0" blank, one character per module
    text: str = ""               # seven-segment figure drawn on a blank glyph
    text_low: bool = False       # figure below the baseline (leading EAN digit)


@dataclass
class Family:
    name: str                    # base family name, as the program asks for it
    module: int                  # module width in font units
    glyphs: dict = field(default_factory=dict)   # byte (0-255) -> Glyph
    bearers: bool = False
    has_short: bool = True


def runs_to_modules(widths, first_is_bar=True):
    """Widths of alternating bars and spaces -> module string."""
    out = []
    bar = first_is_bar
    for w in widths:
        out.append(("1" if bar else "0") * w)
        bar = not bar
    return "".join(out)


def nw_to_widths(pattern, wide=3):
    return [wide if c == "w" else 1 for c in pattern]


# --- Code 39 ---------------------------------------------------------------------------------
# Bar patterns of the five bars, "two of five" wide, for the rank 1..9, 10 of a character in its
# group; the group fixes which of the four spaces is wide.
C39_BARS = ["wnnnw", "nwnnw", "wwnnn", "nnwnw", "wnwnn", "nwwnn", "nnnww", "wnnwn", "nwnwn", "nnwwn"]
C39_GROUPS = [("1234567890", 1), ("ABCDEFGHIJ", 2), ("KLMNOPQRST", 3), ("UVWXYZ-._*", 0)]
C39_SPECIAL = {"$": "wwwn", "/": "wwnw", "+": "wnww", "%": "nwww"}   # all bars narrow


def c39_elements(ch):
    if ch in C39_SPECIAL:
        bars, spaces = "nnnnn", C39_SPECIAL[ch]
    else:
        for chars, wide_space in C39_GROUPS:
            if ch in chars:
                bars = C39_BARS[chars.index(ch)]
                spaces = "".join("w" if i == wide_space else "n" for i in range(4))
                break
        else:
            raise KeyError(ch)
    return "".join(b + s for b, s in zip(bars, spaces)) + bars[4]


def family_code39():
    fam = Family("ORB39", module=40)
    for ch in "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-._$/+%":
        fam.glyphs[ord(ch)] = Glyph(runs_to_modules(nw_to_widths(c39_elements(ch))) + "0")
    start_stop = runs_to_modules(nw_to_widths(c39_elements("*"))) + "0"
    margin = "0" * QUIET_SHARED_C39
    for ch in "#*":
        fam.glyphs[ord(ch)] = Glyph(margin + start_stop + margin)
    return fam


# --- Code 93 ---------------------------------------------------------------------------------
# Nine-module patterns (bit 8 = first module) of the 47 values: 0-9, A-Z, "-", ".", space, "$",
# "/", "+", "%", then the four shift characters.
C93_ALPHABET = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-._$/+%abcd"
C93_PATTERNS = [
    0x114, 0x148, 0x144, 0x142, 0x128, 0x124, 0x122, 0x150, 0x112, 0x10A,
    0x1A8, 0x1A4, 0x1A2, 0x194, 0x192, 0x18A, 0x168, 0x164, 0x162, 0x134,
    0x11A, 0x158, 0x14C, 0x146, 0x12C, 0x116, 0x1B4, 0x1B2, 0x1AC, 0x1A6,
    0x196, 0x19A, 0x16C, 0x166, 0x136, 0x13A,
    0x12E, 0x1D4, 0x1D2, 0x1CA, 0x16E, 0x176, 0x1AE,
    0x126, 0x1DA, 0x1D6, 0x132,
]
C93_START_STOP = 0x15E


def bits9(value):
    return format(value, "09b")


def family_code93():
    fam = Family("ORB93", module=70)
    for ch, pattern in zip(C93_ALPHABET, C93_PATTERNS):
        fam.glyphs[ord(ch)] = Glyph(bits9(pattern))
    fam.glyphs[ord("*")] = Glyph("0" * QUIET + bits9(C93_START_STOP))
    fam.glyphs[ord("#")] = Glyph(bits9(C93_START_STOP) + "1" + "0" * QUIET)   # stop + termination bar
    return fam


# --- Code 128 --------------------------------------------------------------------------------
# Bar and space widths of the symbol values 0-105; the stop pattern has a seventh element.
C128_WIDTHS = [
    "212222", "222122", "222221", "121223", "121322", "131222", "122213", "122312", "132212", "221213",
    "221312", "231212", "112232", "122132", "122231", "113222", "123122", "123221", "223211", "221132",
    "221231", "213212", "223112", "312131", "311222", "321122", "321221", "312212", "322112", "322211",
    "212123", "212321", "232121", "111323", "131123", "131321", "112313", "132113", "132311", "211313",
    "231113", "231311", "112133", "112331", "132131", "113123", "113321", "133121", "313121", "211331",
    "231131", "213113", "213311", "213131", "311123", "311321", "331121", "312113", "312311", "332111",
    "314111", "221411", "431111", "111224", "111422", "121124", "121421", "141122", "141221", "112214",
    "112412", "122114", "122411", "142112", "142211", "241211", "221114", "413111", "241112", "134111",
    "111242", "121142", "121241", "114212", "124112", "124211", "411212", "421112", "421211", "212141",
    "214121", "412121", "111143", "111341", "131141", "114113", "114311", "411113", "411311", "113141",
    "114131", "311141", "411131", "211412", "211214", "211232",
]
C128_STOP = "2331112"


def c128_glyph_code(value):
    """Glyph byte that draws a symbol value."""
    if value <= 93:
        return value + 33
    if value <= 96:
        return value + 56          # 94-96 -> 150-152
    return value + 33              # 97-105 -> 130-138


def family_code128():
    fam = Family("ORB128", module=60)
    for value, widths in enumerate(C128_WIDTHS):
        modules = runs_to_modules([int(c) for c in widths])
        if value >= 103:           # start characters
            modules = "0" * QUIET + modules
        fam.glyphs[c128_glyph_code(value)] = Glyph(modules)
    fam.glyphs[139] = Glyph(runs_to_modules([int(c) for c in C128_STOP]) + "0" * QUIET)
    return fam


# --- EAN / UPC -------------------------------------------------------------------------------
EAN_SET_A = ["0001101", "0011001", "0010011", "0111101", "0100011",
             "0110001", "0101111", "0111011", "0110111", "0001011"]


def ean_set_c(d):
    return "".join("1" if m == "0" else "0" for m in EAN_SET_A[d])


def ean_set_b(d):
    return ean_set_c(d)[::-1]


ISBN_TEXT = ("0123456789X-", "%&'():;<=>?.")


def family_ean():
    fam = Family("ORBEAN", module=90, has_short=False)
    for d in range(10):
        fam.glyphs[65 + d] = Glyph(EAN_SET_A[d])
        fam.glyphs[97 + d] = Glyph(ean_set_b(d))
        fam.glyphs[109 + d] = Glyph(ean_set_c(d))
        fam.glyphs[75 + d] = Glyph(EAN_SET_A[d])      # add-on, set A
        fam.glyphs[85 + d] = Glyph(ean_set_b(d))      # add-on, set B
        fam.glyphs[48 + d] = Glyph("0" * EAN_TEXT_WIDTH, text=str(d), text_low=True)
    # The normal guard also stands inside the symbol (EAN-13 end, UPC-A start), so it carries no
    # blank of its own: the quiet zones come from the leading digit and the page around the symbol.
    fam.glyphs[ord("|")] = Glyph("101")
    fam.glyphs[ord("!")] = Glyph("01010")
    fam.glyphs[ord("#")] = Glyph("010101" + "0" * QUIET_EAN_UPCE_END)
    fam.glyphs[ord("+")] = Glyph("1011")
    fam.glyphs[ord("_")] = Glyph("01")
    fam.glyphs[ord("-")] = Glyph("0" * 7)
    fam.glyphs[ord("$")] = Glyph("0" * 4)
    for shown, ch in zip(*ISBN_TEXT):
        fam.glyphs[ord(ch)] = Glyph("0" * EAN_TEXT_WIDTH, text=shown)
    return fam


# --- Interleaved 2 of 5 ----------------------------------------------------------------------
I25_DIGITS = ["nnwwn", "wnnnw", "nwnnw", "wwnnn", "nnwnw", "wnwnn", "nwwnn", "nnnww", "wnnwn", "nwnwn"]

# Glyph characters of the pairs 00 to 99: first glyph, second glyph.
I25_PAIRS = [
    (65, 112), (72, 104), (70, 104), (88, 100), (65, 116), (72, 111), (70, 111), (65, 118), (72, 109), (70, 109),
    (69, 114), (79, 102), (76, 102), (81, 98), (69, 119), (79, 108), (76, 108), (69, 121), (79, 106), (76, 106),
    (67, 114), (77, 102), (74, 102), (83, 98), (67, 119), (77, 108), (74, 108), (67, 121), (77, 106), (74, 106),
    (78, 110), (80, 97), (82, 97), (90, 96), (78, 105), (80, 101), (82, 101), (78, 103), (80, 99), (82, 99),
    (65, 114), (72, 102), (70, 102), (88, 98), (65, 119), (72, 108), (70, 108), (65, 121), (72, 106), (70, 106),
    (73, 110), (84, 97), (87, 97), (92, 96), (73, 105), (84, 101), (87, 101), (73, 103), (84, 99), (87, 99),
    (71, 110), (86, 97), (89, 97), (94, 96), (71, 105), (86, 101), (89, 101), (71, 103), (86, 99), (89, 99),
    (64, 122), (68, 120), (66, 120), (75, 107), (64, 124), (68, 113), (66, 113), (64, 126), (68, 115), (66, 115),
    (69, 112), (79, 104), (76, 104), (81, 100), (69, 116), (79, 111), (76, 111), (69, 118), (79, 109), (76, 109),
    (67, 112), (77, 104), (74, 104), (83, 100), (67, 116), (77, 111), (74, 111), (67, 118), (77, 109), (74, 109),
]


def i25_halves(pair):
    """Elements of a digit pair split into the two glyphs: (b1 s1 b2 s2 b3), (s3 b4 s4 b5 s5)."""
    bars, spaces = I25_DIGITS[pair // 10], I25_DIGITS[pair % 10]
    elements = "".join(b + s for b, s in zip(bars, spaces))
    return elements[:5], elements[5:]


def i25_assignment():
    """Character -> (elements, first element is a bar), derived from the pair table."""
    chars = {}
    for pair, codes in enumerate(I25_PAIRS):
        for code, elements, bar_first in zip(codes, i25_halves(pair), (True, False)):
            seen = chars.setdefault(code, (elements, bar_first))
            if seen != (elements, bar_first):
                raise ValueError(f"pair table: character {code} stands for {seen} and {elements}")
    return chars


def family_i25(name, module, bearers):
    fam = Family(name, module=module, bearers=bearers)
    for code, (elements, bar_first) in i25_assignment().items():
        fam.glyphs[code] = Glyph(runs_to_modules(nw_to_widths(elements), bar_first))
    fam.glyphs[ord("*")] = Glyph("0" * QUIET + "1010")
    fam.glyphs[ord("#")] = Glyph("11101" + "0" * QUIET)
    return fam


# --- Codabar ---------------------------------------------------------------------------------
# Seven elements (bar first), "1" = wide.
CODABAR = {
    "0": "0000011", "1": "0000110", "2": "0001001", "3": "1100000", "4": "0010010",
    "5": "1000010", "6": "0100001", "7": "0100100", "8": "0110000", "9": "1001000",
    "-": "0001100", "$": "0011000", ":": "1000101", "/": "1010001", ".": "1010100",
    "+": "0010101", "A": "0011010", "B": "0101001", "C": "0001011", "D": "0001110",
}
CODABAR_START_STOP = {"A": "AaTt", "B": "BbMm", "C": "Cc*", "D": "DdEe"}


def family_codabar():
    fam = Family("ORBCODABAR", module=50)

    def modules(ch):
        return runs_to_modules([3 if c == "1" else 1 for c in CODABAR[ch]])

    for ch in "0123456789-$:/.+":
        fam.glyphs[ord(ch)] = Glyph(modules(ch))
    margin = "0" * QUIET_SHARED_CODABAR
    for ch, alternates in CODABAR_START_STOP.items():
        for alt in alternates:
            fam.glyphs[ord(alt)] = Glyph(margin + modules(ch) + margin)
    fam.glyphs[ord("|")] = Glyph("0")
    return fam


def all_families():
    return [family_code39(), family_code93(), family_code128(), family_ean(),
            family_i25("ORB25 ITF", 50, bearers=False), family_i25("ORBITF14", 50, bearers=True),
            family_codabar()]


# --- Drawing ---------------------------------------------------------------------------------
# Seven segments: a top, b upper right, c lower right, d bottom, e lower left, f upper left, g middle.
SEGMENTS = {
    "0": "abcdef", "1": "bc", "2": "abdeg", "3": "abcdg", "4": "bcfg", "5": "acdfg",
    "6": "acdefg", "7": "abc", "8": "abcdefg", "9": "abcdfg", "-": "g",
}


def rectangle(pen, x0, y0, x1, y1):
    """Clockwise rectangle, the outer contour direction of TrueType."""
    pen.moveTo((x0, y0))
    pen.lineTo((x0, y1))
    pen.lineTo((x1, y1))
    pen.lineTo((x1, y0))
    pen.closePath()


def draw_figure(pen, ch, x0, y0, w, h):
    t = max(w // 6, 12)
    if ch == "X":
        for a, b in (((x0, y0), (x0 + w - t, y0 + h)), ((x0 + w - t, y0), (x0, y0 + h))):
            pen.moveTo(a)
            pen.lineTo(b)
            pen.lineTo((b[0] + t, b[1]))
            pen.lineTo((a[0] + t, a[1]))
            pen.closePath()
        return
    mid = y0 + h // 2
    boxes = {
        "a": (x0, y0 + h - t, x0 + w, y0 + h), "d": (x0, y0, x0 + w, y0 + t),
        "g": (x0, mid - t // 2, x0 + w, mid - t // 2 + t),
        "f": (x0, mid, x0 + t, y0 + h), "b": (x0 + w - t, mid, x0 + w, y0 + h),
        "e": (x0, y0, x0 + t, mid), "c": (x0 + w - t, y0, x0 + w, mid),
    }
    for seg in SEGMENTS[ch]:
        rectangle(pen, *boxes[seg])


def draw_glyph(fam, glyph, bar_top):
    pen = TTGlyphPen(None)
    m = fam.module
    bar_bottom = 0
    if fam.bearers:
        rectangle(pen, 0, 0, len(glyph.modules) * m, BEARER)
        rectangle(pen, 0, bar_top - BEARER, len(glyph.modules) * m, bar_top)
        bar_bottom, bar_top = BEARER, bar_top - BEARER
    x = 0
    while x < len(glyph.modules):
        if glyph.modules[x] == "1":
            end = x
            while end < len(glyph.modules) and glyph.modules[end] == "1":
                end += 1
            rectangle(pen, x * m, bar_bottom, end * m, bar_top)
            x = end
        else:
            x += 1
    if glyph.text:
        width = len(glyph.modules) * m
        if glyph.text_low:
            height = DESCENT - 40
            draw_figure(pen, glyph.text, (width - height * 2 // 3) // 2, -DESCENT + 20, height * 2 // 3, height)
        else:
            draw_figure(pen, glyph.text, width // 5, 100, width * 3 // 5, 600)
    return pen.glyph()


# --- Character maps --------------------------------------------------------------------------
def unicode_of_byte(b):
    """Windows-1252 reading of a byte; its five undefined bytes keep their Latin-1 code point."""
    try:
        return ord(bytes([b]).decode("cp1252"))
    except UnicodeDecodeError:
        return b


def make_cmap(mapping, symbol):
    sub = CmapSubtable.newSubtable(4)
    sub.platformID, sub.platEncID, sub.language = 3, (0 if symbol else 1), 0
    sub.cmap = dict(mapping)
    return sub


# --- Font assembly ---------------------------------------------------------------------------
def build_font(fam, family_name, bar_top, symbol):
    names = [".notdef"] + [f"b{b:02X}" for b in sorted(fam.glyphs)]
    glyphs = {".notdef": TTGlyphPen(None).glyph()}
    metrics = {".notdef": (fam.module * 4, 0)}
    for b in sorted(fam.glyphs):
        g = fam.glyphs[b]
        glyf = draw_glyph(fam, g, bar_top)
        glyphs[f"b{b:02X}"] = glyf
        metrics[f"b{b:02X}"] = (len(g.modules) * fam.module, 0)   # left side bearing fixed below

    fb = FontBuilder(UNITS_PER_EM, isTTF=True)
    fb.font.recalcTimestamp = False
    fb.setupGlyphOrder(names)
    fb.setupGlyf(glyphs)
    glyf_table = fb.font["glyf"]
    for name in names:
        g = glyf_table[name]
        lsb = g.xMin if getattr(g, "numberOfContours", 0) else 0
        metrics[name] = (metrics[name][0], lsb)
    fb.setupHorizontalMetrics(metrics)
    fb.setupHorizontalHeader(ascent=ASCENT, descent=-DESCENT)

    if symbol:
        mapping = {0xF000 + b: f"b{b:02X}" for b in fam.glyphs}
    else:
        mapping = {unicode_of_byte(b): f"b{b:02X}" for b in fam.glyphs}
    fb.setupCharacterMap(mapping)          # fills the tables the other steps expect ...
    fb.font["cmap"].tables = [make_cmap(mapping, symbol)]   # ... then only the one map we mean

    ps_name = family_name.replace(" ", "") + "-Regular"
    fb.setupNameTable({
        "familyName": family_name, "styleName": "Regular",
        "uniqueFontIdentifier": f"KRT test font: {family_name} ({'symbol' if symbol else 'unicode'})",
        "fullName": family_name, "psName": ps_name, "version": "Version 1.000",
    }, mac=False)
    if symbol:
        for rec in fb.font["name"].names:
            rec.platEncID = 0
    advances = [metrics[n][0] for n in names[1:]]
    fb.setupOS2(
        version=4, achVendID="KRT ", fsType=0, fsSelection=0x40,
        xAvgCharWidth=sum(advances) // len(advances),
        sTypoAscender=ASCENT, sTypoDescender=-DESCENT, sTypoLineGap=0,
        usWinAscent=ASCENT, usWinDescent=DESCENT,
        ulCodePageRange1=(1 << 31) if symbol else 1,
        usDefaultChar=0, usBreakChar=(0xF020 if symbol else 32),
    )
    fb.setupPost()
    return fb.font


def file_name(family_name):
    return family_name.replace(" ", "_") + ".ttf"


def faces(fam):
    yield fam.name, BAR_TOP
    if fam.has_short:
        yield fam.name + " Short", BAR_TOP_SHORT


def main(argv):
    if len(argv) != 2:
        sys.stderr.write("usage: make_fonts.py OUTDIR\n")
        return 2
    out = argv[1]
    count = 0
    for variant, symbol in (("unicode", False), ("symbol", True)):
        folder = os.path.join(out, variant)
        os.makedirs(folder, exist_ok=True)
        for fam in all_families():
            for family_name, bar_top in faces(fam):
                build_font(fam, family_name, bar_top, symbol).save(os.path.join(folder, file_name(family_name)))
                count += 1
    print(f"make_fonts: {count} fonts written to {out}/{{unicode,symbol}}")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
