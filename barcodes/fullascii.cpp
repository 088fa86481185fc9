// Full ASCII Code 39 and Code 93. Every character 0-127 becomes one native character
// or a shift character followed by a native one. Both fonts share the layout of the
// table; they differ only in how they write the four shifts.
//
// Two choices of these fonts differ from the usual charts: every character 33-47 is
// shifted (so "-", ".", "$", "%" and "+" too), and the space is written "_".
#include "barcodes/fullascii.h"

#include <array>
#include <string_view>

#include "barcodes/controllo.h"
#include "barcodes/escape.h"

namespace krt {

namespace {

enum Spostamento : signed char { Nessuno = -1, Dollaro = 0, Percento = 1, Barra = 2, Piu = 3 };

// Codes primo..ultimo become shift + (lettera + code - primo), or, without shift,
// the single character lettera + code - primo.
struct Riga {
    unsigned char primo, ultimo;
    Spostamento spostamento;
    char lettera;
};

constexpr std::array<Riga, 14> Righe{{
    {0, 0, Percento, 'U'},
    {1, 26, Dollaro, 'A'},
    {27, 31, Percento, 'A'},
    {32, 32, Nessuno, '_'},
    {33, 47, Barra, 'A'},
    {48, 57, Nessuno, '0'},
    {58, 58, Barra, 'Z'},
    {59, 63, Percento, 'F'},
    {64, 64, Percento, 'V'},
    {65, 90, Nessuno, 'A'},
    {91, 95, Percento, 'K'},
    {96, 96, Percento, 'W'},
    {97, 122, Piu, 'A'},
    {123, 127, Percento, 'P'},
}};

// One replacement: one or two characters.
struct Sostituto {
    std::array<char, 2> c{};
    unsigned char n = 0;
    constexpr std::string_view Testo() const { return {c.data(), n}; }
};

using Tabella = std::array<Sostituto, 128>;

constexpr Tabella CostruisciTabella(std::string_view spostamenti) {
    Tabella t{};
    for (const Riga& r : Righe) {
        for (unsigned codice = r.primo; codice <= r.ultimo; ++codice) {
            Sostituto& s = t[codice];
            const char carattere = static_cast<char>(r.lettera + (codice - r.primo));
            if (r.spostamento == Nessuno) {
                s.c = {carattere, 0};
                s.n = 1;
            } else {
                s.c = {spostamenti[static_cast<std::size_t>(r.spostamento)], carattere};
                s.n = 2;
            }
        }
    }
    return t;
}

constexpr Tabella Tabella39 = CostruisciTabella("$%/+");
constexpr Tabella Tabella93 = CostruisciTabella("abcd");

// Every code 0-127 has its replacement.
constexpr bool Completa(const Tabella& t) {
    for (const Sostituto& s : t)
        if (s.n == 0) return false;
    return true;
}
static_assert(Completa(Tabella39) && Completa(Tabella93));
static_assert(Tabella39['-'].Testo() == "/M" && Tabella93['a'].Testo() == "dA");

std::string Codifica(std::string& contenuto, bool checkDigit, const Tabella& tabella,
                     std::string (*calcolaCheck)(std::string_view), std::string_view start) {
    auto decodificato = DecodificaEscape(contenuto, 127);
    if (!decodificato) return {};
    contenuto = std::move(*decodificato);

    std::string espanso;
    espanso.reserve(2 * contenuto.size() + 4);
    for (char c : contenuto) espanso += tabella[static_cast<unsigned char>(c)].Testo();
    if (checkDigit) espanso = calcolaCheck(espanso);  // on the native characters, never the typed ones
    return std::string(start) + espanso + "#";
}

}  // namespace

std::string CodificaCode39Full(std::string& contenuto, bool checkDigit) {
    return Codifica(contenuto, checkDigit, Tabella39, CalcolaCheck39, "#");
}

std::string CodificaCode93Full(std::string& contenuto, bool checkDigit) {
    return Codifica(contenuto, checkDigit, Tabella93, CalcolaCheck93, "*");
}

}  // namespace krt
