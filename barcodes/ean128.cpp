// GS1-128: the Code 128 value string with FNC1 right after the start character.
// The content does not hold the leading FNC1; separators after variable-length
// values are FNC1 characters (code 129) written in the content, usually as "\x81".
#include "barcodes/ean128.h"

#include "barcodes/code128.h"
#include "barcodes/escape.h"

namespace krt {

std::string CodificaEan128(std::string& contenuto) {
    auto decodificato = DecodificaEscape(contenuto, 132);
    if (!decodificato) return {};
    contenuto = std::move(*decodificato);
    auto valori = ValoriCode128(contenuto);
    constexpr std::uint8_t Fnc1 = 102;
    valori.insert(valori.begin() + 1, Fnc1);
    return GlifiCode128(valori);
}

}  // namespace krt
