// The single entry of the engine: content + symbology code + check option -> glyph string.
#pragma once
#include <string>
#include <string_view>

#include "barcodes/rifiuto.h"

namespace krt {

// Returns the glyph string (Windows-1252 bytes), or "" when the content is refused
// or the code is unknown. May throw EscapeNonValido / OverflowCheckSum (see errori.h).
std::string CodificaBarcode(std::string contenuto, std::string codice, bool checkDigit);

// The same for callers that encode many contents one after the other: the glyphs are
// written into glifi ("" when refused), and contenuto may be rewritten on the way
// (padding, upper case, check characters, decoded escapes), so that the storage of both
// serves again for the next content. After a fault glifi holds no useful text.
// Returns why the content was refused (Rifiuto::Nessuno with glyphs when encoded; an
// unknown code gives neither glyphs nor a reason: callers resolve codes first).
Rifiuto CodificaBarcode(std::string& contenuto, std::string_view codice, bool checkDigit, std::string& glifi);

}  // namespace krt
