// The preview's text and the rich text made from it.
//
// Barcode fonts come with one of two character maps: a Unicode map, where byte
// 0x8B of a glyph string is drawn for U+2039 (its Windows-1252 character), or a
// symbol map, where it is drawn for U+008B (its Latin-1 reading, which Qt passes
// on as U+F08B). The preview reads each glyph string the way its font answers,
// and the rich text keeps the choice: a symbol-map font is declared with the
// symbol character set, and its bytes go out as they are.
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include <QString>

#include "mainwindow/rtf.h"

class QFont;
class QMimeData;
class QTextDocument;

namespace krt {

// The characters the preview inserts for a glyph string drawn with font:
// the Windows-1252 reading when the font has every character of it, the
// Latin-1 reading when only that one is complete. "\r\n" stays a line break.
QString LeggiGlifi(std::string_view glifi, const QFont& font);

// The preview as rich-text runs, one per format fragment; paragraph ends are
// "\r\n" at the end of the run before them. Characters of the Latin-1 reading
// (U+0080-U+009F, U+F000-U+F0FF) mark their family as a symbol-map font.
std::vector<SegmentoRtf> SegmentiDocumento(const QTextDocument& documento);

// The clipboard format of rich text on this platform.
QString FormatoAppuntiRtf();

// Clipboard data holding only the rich text.
QMimeData* DatiAppuntiRtf(const std::string& rtf);

}  // namespace krt
