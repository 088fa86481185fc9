// Content validation and the small text helpers it shares with the rest of the program.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "barcodes/rifiuto.h"

namespace krt {

// ASCII-only character tests: safe for any byte, whatever the locale or the sign of char.
constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }
constexpr char InMaiuscolo(char c) { return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c; }
constexpr char InMinuscolo(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c; }
// Exact comparison of two short keys (symbology codes), written out so that a table
// lookup costs a few instructions per row instead of a library call.
constexpr bool StessoCodice(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (a[i] != b[i]) return false;
    return true;
}
// A symbology code as one integer: its bytes from the lowest up (upper-cased first when
// asked), its length in the top byte. Codes are at most seven bytes long, so tables keyed
// by code compare one word per row; a longer text gives NessunCodice, which no row carries.
constexpr std::uint64_t NessunCodice = ~std::uint64_t{0};
constexpr std::uint64_t ChiaveCodice(std::string_view codice, bool maiuscolo = false) {
    if (codice.size() > 7) return NessunCodice;
    std::uint64_t chiave = std::uint64_t{codice.size()} << 56;
    for (std::size_t i = 0; i < codice.size(); ++i) {
        const char c = maiuscolo ? InMaiuscolo(codice[i]) : codice[i];
        chiave |= std::uint64_t{static_cast<unsigned char>(c)} << (8 * i);
    }
    return chiave;
}

// A table keyed by code, found in one step: each row goes to one of 128 places by
// (key * multiplier) >> 57, the multiplier being tried at compile time until no two rows
// share a place. A lookup reads one place and compares one key. Each row has a `chiave`.
template <class Riga, std::size_t N>
class TabellaCodici {
public:
    constexpr explicit TabellaCodici(const std::array<Riga, N>& righe) : righe_(righe) {
        for (std::size_t i = 0; i < N; ++i)
            for (std::size_t j = i + 1; j < N; ++j)
                if (righe_[i].chiave == righe_[j].chiave) throw "two rows with the same code";
        while (!Distribuisci()) moltiplicatore_ += 2;
    }

    constexpr const Riga* Trova(std::uint64_t chiave) const {
        const std::size_t riga = posti_[Posto(chiave)];
        return riga != 0 && righe_[riga - 1].chiave == chiave ? &righe_[riga - 1] : nullptr;
    }

private:
    static constexpr std::size_t Posti = 128;
    static_assert(N < Posti);

    constexpr std::size_t Posto(std::uint64_t chiave) const {
        return static_cast<std::size_t>((chiave * moltiplicatore_) >> 57);
    }

    // Places every row (its index + 1); false at the first place taken twice.
    constexpr bool Distribuisci() {
        posti_ = {};
        for (std::size_t i = 0; i < N; ++i) {
            std::uint8_t& posto = posti_[Posto(righe_[i].chiave)];
            if (posto != 0) return false;
            posto = static_cast<std::uint8_t>(i + 1);
        }
        return true;
    }

    std::array<Riga, N> righe_;
    std::uint64_t moltiplicatore_ = 0x9E3779B97F4A7C15;  // odd, bits well spread
    std::array<std::uint8_t, Posti> posti_{};
};

// Value of a digit character, 0 for any other character.
constexpr int ValoreCifra(char c) { return IsDigit(c) ? c - '0' : 0; }

// Whether the content may be encoded with the symbology code (any case): no refusal, or why
// not. An empty content is refused for every code. On acceptance the content may be
// rewritten (zero padding on the left, upper case).
Rifiuto VerificaCodice(std::string& contenuto, std::string_view codice, bool checkDigit);
// The same for a code given by its ChiaveCodice.
Rifiuto VerificaCodicePerChiave(std::string& contenuto, std::uint64_t chiave, bool checkDigit);
// True when VerificaCodice accepts the content of the (upper-case) code.
bool ValidaCodice(std::string& contenuto, std::string_view codice, bool checkDigit);

// True when every character is "0"-"9" (true for "").
bool SoloCifre(std::string_view testo);

// Pads on the left with the first character of riempimento up to lunghezza,
// or keeps the leftmost lunghezza characters of a longer text.
std::string RiempiSinistra(std::string_view testo, std::size_t lunghezza, std::string_view riempimento);

}  // namespace krt
