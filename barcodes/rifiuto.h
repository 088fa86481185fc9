// Why a content is refused: the value that validation and the engine's entry return.
#pragma once
#include <cstddef>
#include <cstdint>

namespace krt {

enum class MotivoRifiuto : std::uint8_t {
    Nessuno,    // accepted
    Vuoto,      // no content at all
    Lunghezza,  // too few or too many characters (minimo ... massimo)
    Carattere,  // a character the symbology cannot hold (posizione, carattere)
    Struttura,  // a start/stop or number-system rule (Codabar, UPC-E)
    Intervallo, // a value outside what the symbology can form (no CIP check, no ISBN range)
    Escape,     // an escape sequence that yields no character
    Overflow,   // the Code 128 check sum overflows
};

struct Rifiuto {
    MotivoRifiuto motivo = MotivoRifiuto::Nessuno;
    std::size_t posizione = 0;  // 1-based over the content as typed (Carattere)
    char carattere = 0;         // the refused byte (Windows-1252), or the decoded code of an escape;
                                // 0 for a typed character that Windows-1252 cannot hold
    std::uint16_t minimo = 0;   // allowed lengths (Lunghezza): minimo ... massimo characters
    std::uint16_t massimo = 0;

    explicit constexpr operator bool() const { return motivo != MotivoRifiuto::Nessuno; }  // true when refused

    static constexpr Rifiuto Di(MotivoRifiuto m) { return {m}; }
    static constexpr Rifiuto InCarattere(std::size_t posizione, char c) {
        return {MotivoRifiuto::Carattere, posizione, c};
    }
    static constexpr Rifiuto DiLunghezza(std::size_t minimo, std::size_t massimo) {
        return {MotivoRifiuto::Lunghezza, 0, 0, static_cast<std::uint16_t>(minimo), static_cast<std::uint16_t>(massimo)};
    }
    // The same refusal with its position moved by the characters that precede the part checked.
    constexpr Rifiuto Spostato(std::size_t prima) const {
        Rifiuto r = *this;
        if (r.posizione != 0) r.posizione += prima;
        return r;
    }
};

}  // namespace krt
