// The options record and its file layout: 240 bytes, little-endian, no header. Texts are
// Windows-1252 bytes padded on the right with spaces.
//
//   offset size field            offset size field
//        0  128 NomeFontHRC         168    2 HRC
//      128    2 GrassettoHRC        170    2 CheckDigit
//      130    2 CorsivoHRC          172    2 Dimensione
//      132    2 BarratoHRC          174   64 Stile
//      134    2 SottolineatoHRC     238    2 CheckDigitInHRC
//      136    2 DimensioneHRC
//      138   30 Simbologia
#pragma once
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace krt {

inline constexpr std::size_t kDimensioneRecordConfigurazione = 240;

// 16-bit booleans of the record.
inline constexpr std::int16_t kVero = -1;
inline constexpr std::int16_t kFalso = 0;

// A text of exactly N single-byte characters: a longer text is cut, a shorter one padded
// on the right with spaces.
template <std::size_t N>
class TestoFisso {
public:
    static constexpr std::size_t kLunghezza = N;

    TestoFisso() { caratteri_.fill(' '); }
    TestoFisso(std::string_view testo) { Imposta(testo); }  // NOLINT: reads like the field it fills

    void Imposta(std::string_view testo) {
        caratteri_.fill(' ');
        std::copy_n(testo.begin(), std::min(N, testo.size()), caratteri_.begin());
    }
    // All N characters, padding included.
    std::string_view Testo() const { return {caratteri_.data(), N}; }
    // Without the spaces around it.
    std::string Rifilato() const {
        const auto inizio = Testo().find_first_not_of(' ');
        if (inizio == std::string_view::npos) return {};
        return std::string(Testo().substr(inizio, Testo().find_last_not_of(' ') + 1 - inizio));
    }

    friend bool operator==(const TestoFisso&, const TestoFisso&) = default;

private:
    std::array<char, N> caratteri_;
};

struct Configurazione {
    TestoFisso<128> NomeFontHRC;
    std::int16_t GrassettoHRC = kFalso;
    std::int16_t CorsivoHRC = kFalso;
    std::int16_t BarratoHRC = kFalso;
    std::int16_t SottolineatoHRC = kFalso;
    std::int16_t DimensioneHRC = 0;  // points
    TestoFisso<30> Simbologia;       // display text of the symbology, in the language it was chosen in
    std::int16_t HRC = 0;            // option box value, 0 or 1
    std::int16_t CheckDigit = 0;     // option box value, 0 or 1
    std::int16_t Dimensione = 0;     // barcode size in points
    TestoFisso<64> Stile;            // display text of the style
    std::int16_t CheckDigitInHRC = kFalso;

    friend bool operator==(const Configurazione&, const Configurazione&) = default;
};

// The first-run values: "Courier" 10 points plain, both boxes clear, size 100, no
// symbology, the style stileNormale (string 278 in the current language). CheckDigitInHRC
// keeps its value.
void ApplicaPredefiniti(Configurazione& configurazione, std::string_view stileNormale);

std::array<std::uint8_t, kDimensioneRecordConfigurazione> ScriviRecordConfigurazione(const Configurazione& configurazione);

// Reads the record from the start of dati (only the first 240 bytes count). A field
// keeps its value from predefinita when its bytes are not all there (a short file) or
// when they hold what the program never writes (see the .cpp).
Configurazione LeggiRecordConfigurazione(std::span<const std::uint8_t> dati, const Configurazione& predefinita);

}  // namespace krt
