// Code 128 with automatic code set selection.
#pragma once
#include <string>
#include <string_view>

namespace krt {

// Replaces the content by its escape-decoded text and returns the glyph string,
// or "" when a decoded character is above 132. Throws EscapeNonValido, OverflowCheckSum.
std::string CodificaCode128(std::string& contenuto);

// 103 (set A), 104 (set B) or 105 (set C): the set in which the rest is best begun.
int ScegliSetCode128(std::string_view resto);

}  // namespace krt
