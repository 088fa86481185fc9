// What the window tells about each symbology entry: the content hint under the
// content box, the styles its font families offer, and the fixed states of the
// option boxes. One data table, read by the window's AggiornaAttributi.
#pragma once
#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace krt {

// String-table ids of the hint words and of the style names.
namespace IdAttributi {
inline constexpr int Lunghezza = 94;  // "Length: "
inline constexpr int Caratteri = 95;
inline constexpr int Cifre = 96;
inline constexpr int Alfabeto = 97;
inline constexpr int Variabile = 98;
inline constexpr int PrimoStile = 278;  // Normal, Narrow, Wide, Short, Narrow short, Wide short
}  // namespace IdAttributi

// A piece of the hint: a string-table word (parola != 0), or a literal that may
// differ with the check digit box ticked (the user then types one digit less).
struct PezzoSuggerimento {
    int parola = 0;
    std::string_view senzaCheck;
    std::string_view conCheck;
};

// How an entry sets the option boxes when it is selected.
enum class RegolaOpzioni : std::uint8_t {
    Libera,         // both boxes keep their value and are enabled
    HRCSpuntato,    // EAN and UPC: HRC ticked, still enabled
    HRCBloccato,    // EAN 8: HRC ticked and disabled
    ISBN,           // HRC and check digit ticked and disabled: always produced
};

// Style bits: bit k stands for the style of string id PrimoStile + k.
inline constexpr std::uint8_t kTuttiGliStili = 0b111111;
inline constexpr std::uint8_t kNormaleCorto = 0b001001;
inline constexpr std::uint8_t kSoloNormale = 0b000001;

struct RigaAttributi {
    std::array<std::int16_t, 8> voci{};          // display ids of the entries, 0 ends the list
    std::array<PezzoSuggerimento, 7> pezzi{};    // unused pieces are empty
    std::uint8_t stili = kNormaleCorto;
    bool stileAttivo = true;                     // false: cmbStile disabled (Code 32)
    RegolaOpzioni regola = RegolaOpzioni::Libera;
};

// The row of a display id (400-435); the row for "none of the above" for any other id.
const RigaAttributi& RigaAttributiPerVoce(int idVoce);

// String ids of the styles the row offers, in the combo's order.
std::vector<int> StiliOfferti(const RigaAttributi& riga);

// The hint after "Length: ": the pieces joined, each word read through parola(id).
std::string ComponiSuggerimento(const RigaAttributi& riga, bool checkDigit,
                                const std::function<std::string(int id)>& parola);

}  // namespace krt
