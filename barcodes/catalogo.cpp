// Placeholder bodies: replaced by the real unit.
#include "barcodes/catalogo.h"

namespace krt {

std::string ScegliFontFamiglia(std::string_view /*famigliaBase*/, std::string_view /*stile*/) { return {}; }
const std::array<VoceCatalogo, 36> Catalogo{};

}  // namespace krt
