"""KRT barcode font encoder: content to the glyph strings of the ORB barcode fonts.

    >>> import krt
    >>> krt.encode("EAN13", "978882030000", check=True)   # the glyph string, a str
    >>> krt.encode_many("EAN13", column, check=True)       # a list of str, "" where refused
    >>> krt.entry("EAN 13 + 2", "97888203000012").glyphs   # what the window draws
    >>> krt.gs1([("01", "09501101530003"), ("10", "ABC")]).hrc
    >>> krt.isbn("88-203-0000-X", 13)

Content and glyphs are str; the library converts them to and from Windows-1252, so a
character that code page lacks is refused. Refused content raises Refused (with the
reason); content the engine cannot read (a bad escape, a check sum overflow) and unknown
symbologies raise Error.
"""
from dataclasses import dataclass
from typing import Iterable, Optional, Sequence, Tuple


class Error(Exception):
    """A fault of the library: `status` is the C status (krt.h), str(e) its text."""

    def __init__(self, message: str, status: int = 0):
        super().__init__(message)
        self.status = status


class Refused(Error):
    """Content not allowed. `kind` is "empty", "length", "character", "structure", "range",
    "escape" or "overflow"; `position` the 1-based refused character (or GS1 pair), 0 when
    the reason has no place; `character` the refused byte (Windows-1252) or 0; `minimum` and
    `maximum` the lengths allowed for "length" (maximum 0: at least minimum); `index` the
    position in the sequence given to encode_many, else None."""

    def __init__(self, message: str, kind: str = "structure", position: int = 0, character: int = 0,
                 index: Optional[int] = None, minimum: int = 0, maximum: int = 0):
        super().__init__(message, 1)
        self.reason = message
        self.kind = kind
        self.position = position
        self.character = character
        self.minimum = minimum
        self.maximum = maximum
        self.index = index


@dataclass(frozen=True)
class Entry:
    """What the window draws for one content."""
    glyphs: str   # main glyphs followed by the add-on glyphs
    code: str     # symbology code of the main part
    main: str     # main part, normalised
    addon: str    # add-on part, "" without add-on
    family: str   # font family for the style, "" when the style has no face
    hrc: str      # human readable text
    content: str  # content as the engine reads it (GS1-128: the escaped element strings)
    check: bool   # check characters used


from . import _krt  # noqa: E402  (the exceptions above are raised from it)


def encode(symbology: str, content: str, check: bool = False, italian: bool = False) -> str:
    """Glyph string of content for a symbology code ("EAN13", "C128" ..., any case).
    italian: the text of a refusal's reason."""
    return _krt.encode(symbology, content, check, italian)


def encode_many(symbology: str, contents: Iterable[str], check: bool = False, strict: bool = False) -> list:
    """Glyph strings of many contents in one call: "" for each content not encoded, or with
    strict=True the Refused/Error of the first one (its `index` says which)."""
    return _krt.encode_many(symbology, contents, check, strict)


def entry(name: str, content: str, check: bool = False, hrc: bool = False, check_in_hrc: bool = False,
          style: str = "Normal", italian: bool = False) -> Entry:
    """The window's cycle for a display name (English or Italian) or a code: add-on split,
    glyphs, font family for the style and human readable text. italian: reason texts."""
    return Entry(*_krt.entry(name, content, check, hrc, check_in_hrc, style, italian))


def gs1(pairs: Sequence[Tuple[str, str]], style: str = "Normal", italian: bool = False) -> Entry:
    """GS1-128 from (AI, value) pairs (or a dict), checked as the wizard checks them."""
    if isinstance(pairs, dict):
        pairs = list(pairs.items())
    return Entry(*_krt.gs1(list(pairs), style, italian))


def gs1_text(text: str, style: str = "Normal", italian: bool = False) -> Entry:
    """GS1-128 from "(01)09501101530003(10)ABC"."""
    return Entry(*_krt.gs1_text(text, style, italian))


def isbn(number: str, form: int = 13, italian: bool = False) -> str:
    """An ISBN-10 or ISBN-13 (check character included) hyphenated in the form 10 or 13."""
    return _krt.isbn(number, form, italian)


__version__ = _krt.version()
__all__ = ["Entry", "Error", "Refused", "encode", "encode_many", "entry", "gs1", "gs1_text", "isbn"]
