// Interleaved 2 of 5 and UCC-ITF 14: every pair of digits is drawn by two glyphs.
#include "barcodes/coppie25.h"

#include "barcodes/validazione.h"

namespace krt {

namespace {

// Character codes of the two glyphs of each pair 00 .. 99.
constexpr unsigned char GlifiCoppia[100][2] = {
    {65, 112}, {72, 104}, {70, 104}, {88, 100}, {65, 116}, {72, 111}, {70, 111}, {65, 118}, {72, 109}, {70, 109},  // 00-09
    {69, 114}, {79, 102}, {76, 102}, {81, 98}, {69, 119}, {79, 108}, {76, 108}, {69, 121}, {79, 106}, {76, 106},  // 10-19
    {67, 114}, {77, 102}, {74, 102}, {83, 98}, {67, 119}, {77, 108}, {74, 108}, {67, 121}, {77, 106}, {74, 106},  // 20-29
    {78, 110}, {80, 97}, {82, 97}, {90, 96}, {78, 105}, {80, 101}, {82, 101}, {78, 103}, {80, 99}, {82, 99},  // 30-39
    {65, 114}, {72, 102}, {70, 102}, {88, 98}, {65, 119}, {72, 108}, {70, 108}, {65, 121}, {72, 106}, {70, 106},  // 40-49
    {73, 110}, {84, 97}, {87, 97}, {92, 96}, {73, 105}, {84, 101}, {87, 101}, {73, 103}, {84, 99}, {87, 99},  // 50-59
    {71, 110}, {86, 97}, {89, 97}, {94, 96}, {71, 105}, {86, 101}, {89, 101}, {71, 103}, {86, 99}, {89, 99},  // 60-69
    {64, 122}, {68, 120}, {66, 120}, {75, 107}, {64, 124}, {68, 113}, {66, 113}, {64, 126}, {68, 115}, {66, 115},  // 70-79
    {69, 112}, {79, 104}, {76, 104}, {81, 100}, {69, 116}, {79, 111}, {76, 111}, {69, 118}, {79, 109}, {76, 109},  // 80-89
    {67, 112}, {77, 104}, {74, 104}, {83, 100}, {67, 116}, {77, 111}, {74, 111}, {67, 118}, {77, 109}, {74, 109},  // 90-99
};

}  // namespace

// A last digit without its partner is dropped.
std::string CodificaCoppie25(std::string_view cifre) {
    std::string risultato;
    risultato.reserve(cifre.size() + 2);
    risultato += '*';
    for (std::size_t i = 0; i + 1 < cifre.size(); i += 2) {
        const int coppia = 10 * ValoreCifra(cifre[i]) + ValoreCifra(cifre[i + 1]);
        risultato += static_cast<char>(GlifiCoppia[coppia][0]);
        risultato += static_cast<char>(GlifiCoppia[coppia][1]);
    }
    risultato += '#';
    return risultato;
}

}  // namespace krt
