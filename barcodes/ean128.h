// GS1-128: Code 128 with FNC1 after the start character.
#pragma once
#include <string>

namespace krt {
std::string CodificaEan128(std::string& contenuto);
// The same, writing the glyphs into glifi to reuse its storage.
void CodificaEan128(std::string& contenuto, std::string& glifi);
}
