// Placeholder bodies: replaced by the real unit.
#include "barcodes/controllo.h"

namespace krt {

std::string CalcolaCheckEAN(std::string_view /*contenuto*/) { return {}; }
std::string CalcolaCheck39(std::string_view /*contenuto*/) { return {}; }
std::string CalcolaCheck93(std::string_view /*contenuto*/) { return {}; }
std::string CalcolaCheck25(std::string_view /*contenuto*/) { return {}; }
std::string CalcolaCheckMod10(std::string_view /*contenuto*/) { return {}; }
std::string CalcolaCheck11(std::string& /*contenuto*/) { return {}; }
std::string CalcolaCheckMSI(std::string_view /*contenuto*/, int /*modo*/) { return {}; }
std::string CalcolaCheckCIP(std::string_view /*contenuto*/) { return {}; }
std::string CalcolaCheckPostnet(std::string_view /*contenuto*/) { return {}; }
std::string CalcolaCheckPlessey(std::string_view /*contenuto*/) { return {}; }
std::string CalcolaCheckDelta(std::string_view /*contenuto*/) { return {}; }
std::string CalcolaCheck32(std::string_view /*contenuto*/) { return {}; }
std::string CalcolaCheckCodabar(std::string_view /*contenuto*/) { return {}; }

}  // namespace krt
