// Placeholder bodies: replaced by the real unit.
#include "barcodes/validazione.h"

namespace krt {

bool ValidaCodice(std::string& /*contenuto*/, std::string_view /*codice*/, bool /*checkDigit*/) { return {}; }
bool SoloCifre(std::string_view /*testo*/) { return {}; }
std::string RiempiSinistra(std::string_view /*testo*/, std::size_t /*lunghezza*/, std::string_view /*riempimento*/) { return {}; }

}  // namespace krt
