#pragma once
#include <string>
#include <string_view>

namespace krt {
std::string CodificaCodabar(std::string_view contenuto);
}
