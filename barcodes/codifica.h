// The single entry of the engine: content + symbology code + check option -> glyph string.
#pragma once
#include <string>

namespace krt {

// Returns the glyph string (Windows-1252 bytes), or "" when the content is refused
// or the code is unknown. May throw EscapeNonValido / OverflowCheckSum (see errori.h).
std::string CodificaBarcode(std::string contenuto, std::string codice, bool checkDigit);

}  // namespace krt
