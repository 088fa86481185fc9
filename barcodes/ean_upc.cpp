// Placeholder bodies: replaced by the real unit.
#include "barcodes/ean_upc.h"

namespace krt {

std::string CodificaEAN13(std::string_view /*cifre*/) { return {}; }
std::string CodificaEAN8(std::string_view /*cifre*/) { return {}; }
std::string CodificaUPCA(std::string_view /*cifre*/) { return {}; }
std::string CodificaUPCE(std::string_view /*cifre*/) { return {}; }
std::string ConvertiUPCE(std::string_view /*cifre*/) { return {}; }
std::string CodificaAddOn2(std::string_view /*cifre*/) { return {}; }
std::string CodificaAddOn5(std::string_view /*cifre*/) { return {}; }

}  // namespace krt
