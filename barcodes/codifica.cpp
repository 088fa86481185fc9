// The engine's entry: validates the content, appends the check characters asked for
// and hands the result to the encoder of the symbology.
#include "barcodes/codifica.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

#include "barcodes/escape.h"
#include "barcodes/simbologie.h"
#include "barcodes/validazione.h"

namespace krt {

namespace {

struct Codifica {
    std::uint64_t chiave = 0;  // ChiaveCodice of the code
    Codificatore codifica = nullptr;
    unsigned codiceMassimo = 255;  // codes reading escapes: the highest character code they can draw
};

// The encoder of every row of the symbology table, found by code in one step.
constexpr auto Codifiche = [] {
    std::array<Codifica, Simbologie.size()> righe{};
    for (std::size_t i = 0; i < righe.size(); ++i)
        righe[i] = {ChiaveCodice(Simbologie[i].codice), Simbologie[i].codifica, Simbologie[i].codiceMassimo};
    return TabellaCodici(righe);
}();

}  // namespace

std::string CodificaBarcode(std::string contenuto, std::string codice, bool checkDigit) {
    std::string glifi;
    CodificaBarcode(contenuto, codice, checkDigit, glifi);
    return glifi;
}

Rifiuto CodificaBarcode(std::string& contenuto, std::string_view codice, bool checkDigit, std::string& glifi) {
    glifi.clear();
    const std::uint64_t chiave = ChiaveCodice(codice, true);
    if (Rifiuto r = VerificaCodicePerChiave(contenuto, chiave, checkDigit)) return r;
    const Codifica* s = Codifiche.Trova(chiave);
    if (s == nullptr) return {};
    s->codifica(contenuto, checkDigit, glifi);
    // The codes that read escapes refuse, leaving the content as it was, a character
    // beyond what they can draw.
    if (glifi.empty()) return CarattereOltre(contenuto, s->codiceMassimo);
    return {};
}

}  // namespace krt
