// Placeholder bodies: replaced by the real unit.
#include "barcodes/codifica.h"

namespace krt {

std::string CodificaBarcode(std::string /*contenuto*/, std::string /*codice*/, bool /*checkDigit*/) { return {}; }

}  // namespace krt
