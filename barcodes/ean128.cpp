// GS1-128: the Code 128 value string with FNC1 right after the start character.
// The content does not hold the leading FNC1; separators after variable-length
// values are FNC1 characters (code 129) written in the content, usually as "\x81".
#include "barcodes/ean128.h"

#include "barcodes/code128.h"
#include "barcodes/escape.h"

namespace krt {

void CodificaEan128(std::string& contenuto, std::string& glifi) {
    glifi.clear();
    if (!DecodificaEscapeInPosto(contenuto, 132) || !ValoriCode128(contenuto, glifi)) return;
    constexpr char Fnc1 = 102;
    glifi.insert(glifi.begin() + 1, Fnc1);
    GlifiCode128InPosto(glifi);
}

std::string CodificaEan128(std::string& contenuto) {
    std::string glifi;
    CodificaEan128(contenuto, glifi);
    return glifi;
}

}  // namespace krt
