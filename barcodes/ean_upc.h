// EAN-13, EAN-8, UPC-A, UPC-E and the 2/5-digit add-ons for the EAN font family.
#pragma once
#include <string>
#include <string_view>

namespace krt {

std::string CodificaEAN13(std::string_view cifre);  // 13 digits
std::string CodificaEAN8(std::string_view cifre);   // 8 digits
std::string CodificaUPCA(std::string_view cifre);   // 12 digits
std::string CodificaUPCE(std::string_view cifre);   // 8 digits
std::string ConvertiUPCE(std::string_view cifre);   // 7 digits -> 8 (check appended)
std::string CodificaAddOn2(std::string_view cifre);
std::string CodificaAddOn5(std::string_view cifre);

// The same four, writing the glyphs into glifi ("" when refused) to reuse its storage.
void CodificaEAN13(std::string_view cifre, std::string& glifi);
void CodificaEAN8(std::string_view cifre, std::string& glifi);
void CodificaUPCA(std::string_view cifre, std::string& glifi);
void CodificaUPCE(std::string_view cifre, std::string& glifi);

}  // namespace krt
