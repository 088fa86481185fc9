// Content validation and the small text helpers it shares with the rest of the program.
#pragma once
#include <string>
#include <string_view>

namespace krt {

// True when the content may be encoded with the (upper-case) symbology code.
// May rewrite the content: zero padding on the left, upper case.
bool ValidaCodice(std::string& contenuto, std::string_view codice, bool checkDigit);

// True when every character is "0"-"9" (true for "").
bool SoloCifre(std::string_view testo);

// Pads on the left with the first character of riempimento up to lunghezza,
// or keeps the leftmost lunghezza characters of a longer text.
std::string RiempiSinistra(std::string_view testo, std::size_t lunghezza, std::string_view riempimento);

}  // namespace krt
