#pragma once
#include <string>
#include <string_view>

namespace krt {
std::string CodificaCodice32(std::string_view contenuto);  // 9 digits -> six base-32 glyphs
}
