"""The spreadsheet functions of KRT without the office around them: what a cell argument
means, the calls to libkrt (through the krt module) and the characters a cell needs for the
barcode font's character map.

Every function answers the cell's text or raises Rifiutato, which the add-in turns into a
Calc error value. Arguments come as Calc passes an `any`: None when left out, a float for a
number or a logical value, a str for text, a tuple of rows for a range.
"""


class Rifiutato(Exception):
    """Content refused, an unknown symbology or entry, or an argument that means nothing."""


try:
    import krt
    ErroreKrt = krt.Error
except ImportError as e:  # the office's Python does not find the module: every call says so
    krt = None
    ErroreKrt = Rifiutato
    MANCANTE = "KRT's Python module cannot be loaded (Debian package python3-krt): %s" % e


# Byte -> character of the Windows-1252 reading: the characters a Unicode-map font draws. The
# five bytes that code page leaves undefined read as their Latin-1 code points (as libkrt
# returns them).
def _lettura_1252(b: int) -> str:
    try:
        return bytes([b]).decode("cp1252")
    except UnicodeDecodeError:
        return chr(b)


BYTE_DI = {_lettura_1252(b): b for b in range(256)}

VERI = {"1", "TRUE", "VERO", "YES", "SI", "SÌ", "Y", "S"}
FALSI = {"0", "FALSE", "FALSO", "NO", "N"}


def _cella(valore):
    """The one value of a one-cell range."""
    while isinstance(valore, tuple):
        if len(valore) != 1:
            raise Rifiutato("a range of more than one cell")
        valore = valore[0]
    return valore


def vero(valore, predefinito: bool = False) -> bool:
    """A yes/no argument: left out or an empty cell is the default, a number is true when not
    0, a text TRUE/FALSE (VERO/FALSO, 1/0, YES/NO, SÌ/NO)."""
    valore = _cella(valore)
    if valore is None:
        return predefinito
    if isinstance(valore, (bool, int, float)):
        return valore != 0
    if isinstance(valore, str):
        t = valore.strip().upper()
        if t == "":
            return predefinito
        if t in VERI:
            return True
        if t in FALSI:
            return False
    raise Rifiutato("not a yes/no value: %r" % (valore,))


def testo(valore) -> str:
    """A content argument as text: a whole number without a decimal point or exponent (a code
    typed into a number cell), other numbers as Python writes them. Leading zeros of a number
    cell are already lost: such codes belong in text cells."""
    valore = _cella(valore)
    if valore is None:
        return ""
    if isinstance(valore, bool):
        return "1" if valore else "0"
    if isinstance(valore, (int, float)):
        if float(valore).is_integer() and abs(valore) < 1e18:
            return str(int(valore))
        return repr(float(valore))
    return str(valore)


def per_la_mappa(glifi: str, simbolo: bool) -> str:
    """The glyph string as a cell must hold it for the font's character map. libkrt gives the
    Windows-1252 reading, which is what a Unicode-map font draws; a symbol-map font draws byte
    b at U+F000+b. Line breaks and other control characters stay as they are."""
    if not simbolo:
        return glifi
    uscita = []
    for c in glifi:
        b = BYTE_DI.get(c)
        if b is None:
            raise Rifiutato("character %r has no byte in the barcode font" % c)
        uscita.append(chr(0xF000 + b) if b >= 0x20 else c)
    return "".join(uscita)


def _libreria():
    if krt is None:
        raise Rifiutato(MANCANTE)
    return krt


def _chiama(nome, *argomenti):
    try:
        return getattr(_libreria(), nome)(*argomenti)
    except ErroreKrt as e:  # krt.Refused too
        raise Rifiutato(str(e)) from e


def krtencode(symbology, content, check=None, symbol=None) -> str:
    return per_la_mappa(_chiama("encode", str(symbology).strip(), testo(content), vero(check)), vero(symbol))


def krtentry(entry, content, check=None, hrc=None, symbol=None) -> str:
    voce = _chiama("entry", str(entry).strip(), testo(content), vero(check), vero(hrc))
    return per_la_mappa(voce.glyphs, vero(symbol))


def krthrc(entry, content, check=None) -> str:
    """The human readable text, with the check characters when check is set."""
    c = vero(check)
    return _chiama("entry", str(entry).strip(), testo(content), c, False, c).hrc


def krtgs1(text, symbol=None) -> str:
    return per_la_mappa(_chiama("gs1_text", testo(text).strip()).glyphs, vero(symbol))


def krtisbn(text) -> str:
    return _chiama("isbn", testo(text), 13)


def krtwhy(symbology, content, check=None, italiano=False) -> str:
    """Why KRTENCODE with the same arguments refuses: "" when it does not."""
    try:
        _libreria().encode(str(symbology).strip(), testo(content), vero(check), italiano)
    except (ErroreKrt, Rifiutato) as e:
        return str(e)
    return ""
