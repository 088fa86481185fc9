// Writing the wizard's lines as GS1-128 element strings, and the whole content with
// its human readable "(AI)value" text.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace krt {

// One element string: the piece written into the content, and the AI and value as
// the readable text shows them (the decimal and length AIs gain their extra digit).
struct ElementoAI {
    std::string pezzo;
    std::string ai;
    std::string valore;
};

// The element string of a value for the catalogue entry at indice (0-based).
// Variable-length values shorter than their maximum end with the field separator;
// an unknown format code, or an index outside the catalogue, writes nothing.
ElementoAI ComponiElementoAI(std::size_t indice, std::string_view valore);

// One line of the code under construction: catalogue index and the value as inserted.
struct RigaCodice {
    std::size_t indice;
    std::string valore;
};

struct CodiceComposto {
    std::string contenuto; // escaped content (FormattaEscape), ready for the content box
    std::string hrc;       // "(AI)value" readable text, not escaped
};

// The content of the lines in order: their element strings, a separator left at the
// very end removed, then escaped. Lines are not validated here (ValidaValoreAI is).
CodiceComposto ComponiCodiceAI(const std::vector<RigaCodice>& righe);

// Outcome of a check or parse that a program without dialog reports itself.
struct EsitoRigheAI {
    std::vector<RigaCodice> righe;
    int idMessaggio = 0;     // a wizard message id when a value is refused, else 0
    std::string errore;      // English text of the refusal, "" when all is well
};

// Checks an "AI=VALUE" list as the wizard's Insert would (value box limit, then
// ValidaValoreAI, "n18" completion) and gives the lines to compose.
EsitoRigheAI PreparaRigheAI(const std::vector<std::pair<std::string, std::string>>& coppie);

// Reads a "(AI)VALUE(AI)VALUE..." line: each AI is a catalogue AI in parentheses, a
// value runs up to the next "(" that opens a catalogue AI closed by ")". The lines
// are checked as by PreparaRigheAI.
EsitoRigheAI LeggiRigaGS1(std::string_view riga);

}  // namespace krt
