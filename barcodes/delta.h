#pragma once
#include <string>
#include <string_view>

namespace krt {
std::string CodificaDelta(std::string_view contenuto);
}
