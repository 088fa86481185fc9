// Placeholder bodies: replaced by the real unit.
#include "barcodes/isbn.h"

namespace krt {

std::string CalcolaCheckISBN(std::string_view /*numero*/) { return {}; }
std::int16_t ConvertiISBN(std::string_view /*isbn*/, std::string& /*isbn10*/, std::string& /*isbn13*/) { return {}; }
std::string ScomponiISBN(std::string_view /*isbn*/) { return {}; }
std::string TrovaGruppoISBN(std::string_view /*isbn*/) { return {}; }
std::string LeggiIntervalliEditore(std::string_view /*gruppo*/) { return {}; }
std::size_t LunghezzaIntervallo(std::string_view /*cifre*/, std::string_view /*lista*/) { return {}; }
std::string NormalizzaISBN(std::string_view /*testo*/) { return {}; }
std::size_t TrovaCarattereNonValido(std::string_view /*testo*/, std::string_view /*ammessi*/) { return {}; }
std::string SostituisciTesto(std::string_view /*testo*/, std::string_view /*cerca*/, std::string_view /*sostituto*/) { return {}; }
std::string CodificaTestoISBN(std::string_view /*sillabato*/) { return {}; }

}  // namespace krt
