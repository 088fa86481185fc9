// Interleaved 2 of 5 and UCC-ITF 14: one glyph pair per pair of digits.
#pragma once
#include <string>
#include <string_view>

namespace krt {
std::string CodificaCoppie25(std::string_view cifre);
}
