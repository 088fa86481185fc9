// Placeholder bodies: replaced by the real unit.
#include "barcodes/fullascii.h"

namespace krt {

std::string CodificaCode39Full(std::string& /*contenuto*/, bool /*checkDigit*/) { return {}; }
std::string CodificaCode93Full(std::string& /*contenuto*/, bool /*checkDigit*/) { return {}; }

}  // namespace krt
