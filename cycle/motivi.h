// Why a content is refused, as the user reads it (English or Italian).
#pragma once
#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

#include "barcodes/rifiuto.h"
#include "text/csv.h"

namespace krt {

// The text of a refusal (UTF-8, one sentence) in the language of offsetLingua (0 English,
// 1000 Italian). codice is the symbology code the content was checked with: it tells the
// structure rule (Codabar start/stop, UPC-E number system) and the range (CIP check).
// "" for no refusal.
std::string TestoRifiuto(const Rifiuto& rifiuto, std::string_view codice, int offsetLingua = 0);

// The refusal an engine fault stands for (a bad escape, a check sum overflow, a number
// outside the ISBN ranges); no refusal for any other exception.
Rifiuto RifiutoDaGuasto(const std::exception& guasto);

// The name of the kind of refusal: "empty", "length", "character", "structure", "range",
// "escape", "overflow"; "" for no refusal.
std::string_view NomeMotivo(MotivoRifiuto motivo);

// Lists: why a file is not CSV (lower case, to follow "line N: "), and the refusals of a
// row that has more fields than the header or lacks the content column (colonna 1-based).
std::string TestoGuastoCsv(GuastoCsv guasto, int offsetLingua = 0);
std::string TestoCampiInEccesso(std::size_t campi, std::size_t intestazione, int offsetLingua = 0);
std::string TestoCampoMancante(std::size_t colonna, int offsetLingua = 0);

// The text of a string-table id (UTF-8) in the language of offsetLingua; "" when missing.
std::string_view TestoStringa(int id, int offsetLingua = 0);

}  // namespace krt
