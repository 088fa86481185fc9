// Code 32: the nine digits read as one number and written as six base-32 glyphs.
#include "barcodes/codice32.h"

#include <cstdint>

#include "barcodes/validazione.h"

namespace krt {

namespace {

constexpr std::string_view CifreBase32 = "BCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_`a";
static_assert(CifreBase32.size() == 32);
constexpr int GlifiCodice32 = 6;  // 32^6 is above 10^9

}  // namespace

std::string CodificaCodice32(std::string_view contenuto) {
    // Unsigned arithmetic: a longer (unvalidated) content wraps around instead of overflowing.
    std::uint64_t numero = 0;
    for (char c : contenuto) numero = numero * 10 + static_cast<std::uint64_t>(ValoreCifra(c));
    std::string risultato(GlifiCodice32 + 2, '#');
    risultato.front() = '*';
    for (int i = GlifiCodice32; i >= 1; --i) {
        risultato[static_cast<std::size_t>(i)] = CifreBase32[numero % 32];
        numero /= 32;
    }
    return risultato;
}

}  // namespace krt
