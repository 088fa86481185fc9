// Code 128 with automatic code set selection.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace krt {

// Replaces the content by its escape-decoded text and returns the glyph string,
// or "" when a decoded character is above 132. Throws EscapeNonValido, OverflowCheckSum.
std::string CodificaCode128(std::string& contenuto);
// The same, writing the glyphs into glifi to reuse its storage.
void CodificaCode128(std::string& contenuto, std::string& glifi);

// 103 (set A), 104 (set B) or 105 (set C): the set in which the rest is best begun.
int ScegliSetCode128(std::string_view resto);

// Symbol values of decoded content from the start character on, without the check
// character; empty when a code is above 132.
std::vector<std::uint8_t> ValoriCode128(std::string_view decodificato);
// The same values appended to valori, one byte each; false (nothing appended) when a
// code is above 132.
bool ValoriCode128(std::string_view decodificato, std::string& valori);

// Appends the modulo 103 check value to the values, maps them to glyphs and adds
// the stop glyph. Throws OverflowCheckSum when a weighted value exceeds 32767.
std::string GlifiCode128(const std::vector<std::uint8_t>& valori);
// The same in place: the values held in glifi, one byte each, become their glyphs,
// followed by the check and stop glyphs. Nothing for no values.
void GlifiCode128InPosto(std::string& glifi);

}  // namespace krt
