// ISBN-10 / ISBN-13: check characters, conversion, hyphenation and the text line.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace krt {

std::string CalcolaCheckISBN(std::string_view numero);
// 0 valid, -1 empty, -2 bad length, -3 bad character, -4 bad ISBN-10 check, -5 bad ISBN-13 check.
std::int16_t ConvertiISBN(std::string_view isbn, std::string& isbn10, std::string& isbn13);
std::string ScomponiISBN(std::string_view isbn);
std::string TrovaGruppoISBN(std::string_view isbn);
std::string LeggiIntervalliEditore(std::string_view gruppo);
std::size_t LunghezzaIntervallo(std::string_view cifre, std::string_view lista);
std::string NormalizzaISBN(std::string_view testo);
std::size_t TrovaCarattereNonValido(std::string_view testo, std::string_view ammessi);  // 1-based, 0 = none
std::string SostituisciTesto(std::string_view testo, std::string_view cerca, std::string_view sostituto);
std::string CodificaTestoISBN(std::string_view sillabato);

}  // namespace krt
