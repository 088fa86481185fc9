// Full ASCII Code 39 and Code 93: every character 0-127 as one or two native characters.
#pragma once
#include <string>

namespace krt {
std::string CodificaCode39Full(std::string& contenuto, bool checkDigit);
std::string CodificaCode93Full(std::string& contenuto, bool checkDigit);
}
