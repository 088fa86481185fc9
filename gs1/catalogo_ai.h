// The Application Identifier catalogue of the GS1-128 wizard and the rules of its
// format codes (value box limit, description, kind of value).
#pragma once
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace krt {

// One catalogue entry. The display text is the string-table text of idTesto
// (Italian at idTesto + 1000); it starts with the AI in a 4-character column.
struct VoceAI {
    std::string_view ai;      // "00" ... "8102"
    std::string_view formato; // format code, e.g. "n18", "av20", "nd6"
    int idTesto;              // string-table id of the display text
};

inline constexpr std::size_t NumeroVociAI = 107;

// The catalogue in list order (the order is the catalogue's own, not sorted).
extern const std::array<VoceAI, NumeroVociAI> CatalogoAI;

// How a format code's value is checked and written.
enum class TipoFormato {
    Numerico,          // "n2" ... "n17": exactly N digits
    NumericoConCheck,  // "n18": 18 digits, the last a GS1 check digit
    Alfanumerico,      // "av9" ... "av30": up to N characters
    Decimale,          // "nd6", "nd15", "nd18": at most N significant digits
    NumericoLungo,     // "nl19": up to 19 digits, length digit in the AI
    NumericoVariabile, // "nv8": up to 8 digits
    NumericoPiuTesto,  // "n14av16", "n3av9": N digits, then free text
    Sconosciuto,       // any other code: no limit, nothing written
};

struct RegolaFormato {
    std::string_view codice;
    TipoFormato tipo;
    int n;                // the number N of the code (digits of the prefix for "n14av16", "n3av9")
    int limite;           // value box limit; a variable value shorter than this gets the separator
    int idDescrizione;    // string-table id of the description, 0 for none
    bool conNumero;       // the description's "%" is replaced by N
};

// The rule of a format code; tipo Sconosciuto (limite 0, no description) for any other text.
RegolaFormato RegolaDelFormato(std::string_view formato);

// The value box limit of a format code, or nullopt when the box has no limit.
std::optional<int> LimiteValore(std::string_view formato);

// The description shown under the value box: testoDescrizione is the string-table
// text of RegolaDelFormato(formato).idDescrizione ("%" becomes N where it applies).
std::string ComponiDescrizione(std::string_view formato, std::string_view testoDescrizione);

// Catalogue index of an AI ("01", "310" ...), nullopt when the catalogue lacks it.
std::optional<std::size_t> CercaAI(std::string_view ai);

// Field separator between a variable-length value and the next element string (FNC1).
inline constexpr char SeparatoreCampo = static_cast<char>(129);

}  // namespace krt
