// Check character routines: each returns its input with the check character(s) appended.
#pragma once
#include <string>
#include <string_view>

namespace krt {

std::string CalcolaCheckEAN(std::string_view contenuto);
char CifraCheckEAN(std::string_view contenuto);  // the EAN check digit alone
std::string CalcolaCheck39(std::string_view contenuto);
std::string CalcolaCheck93(std::string_view contenuto);
std::string CalcolaCheck25(std::string_view contenuto);
std::string CalcolaCheckMod10(std::string_view contenuto);
std::string CalcolaCheck11(std::string& contenuto);  // also appends to its argument
std::string CalcolaCheckMSI(std::string_view contenuto, int modo);
std::string CalcolaCheckCIP(std::string_view contenuto);  // "" when the remainder is 10
std::string CalcolaCheckPostnet(std::string_view contenuto);
std::string CalcolaCheckPlessey(std::string_view contenuto);
std::string CalcolaCheckDelta(std::string_view contenuto);
std::string CalcolaCheck32(std::string_view contenuto);
std::string CalcolaCheckCodabar(std::string_view contenuto);

}  // namespace krt
