// Command line of krt-encode: the options as a table, read into OpzioniCli.
#pragma once
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace krt {

// Longer contents are refused: no barcode holds them, and the escape-reading encoders
// rescan the rest of the content at every code set decision.
constexpr std::size_t LunghezzaMassimaContenuto = 4096;

enum class FormatoUscita { Testo, Codici, Json };
enum class CodificaIngresso { Utf8, Cp1252 };

struct OpzioniCli {
    bool check = false;          // -c, --check
    bool hrc = false;            // --hrc
    bool checkInHRC = false;     // --check-in-hrc
    std::string stile = "Normal";
    FormatoUscita formato = FormatoUscita::Testo;
    CodificaIngresso ingresso = CodificaIngresso::Utf8;
    bool aiuto = false;
    bool versione = false;
    bool elenco = false;
    std::vector<std::string> ai;         // --ai AI=VALUE, in order (see cli/gs1.h)
    bool gs1Ingresso = false;            // --gs1-input
    bool csv = false;                    // --csv
    std::string colonna;                 // --column NAME|NUMBER, "" for the first
    char separatore = '\0';              // --delimiter, '\0' detects it from the header
    bool excel = false;                  // --excel
    std::vector<std::string> argomenti;  // SYMBOLOGY [CONTENT]
    // --export FILE and its sizing (see cli/esportazione.h).
    std::string esporta;
    std::string cartellaFont;            // --font-dir
    int dpi = 600;                       // --dpi
    double moduloMm = 0;                 // --module-width (mm); 0: from --size
    double punti = 0;                    // --size (points); with neither, a module of 0.33 mm
};

// One row of the option table. An option with a value takes it as "--name=value" or as
// the next argument. applica stores the option; it returns "" or a usage error.
struct DefinizioneOpzione {
    char breve;                    // '\0' when the option has no short form
    std::string_view lunga;        // without the leading "--"
    std::string_view valore;       // placeholder of the value in the help, "" for a flag
    std::string_view descrizione;  // one line of help
    std::string (*applica)(OpzioniCli& opzioni, std::string_view valore);
};

std::span<const DefinizioneOpzione> TabellaOpzioni();

// Reads argv[1...]. Returns "" or a one-line usage error.
std::string LeggiOpzioni(std::span<const char* const> argomenti, OpzioniCli& opzioni);

// The text of --help.
std::string TestoAiuto();

}  // namespace krt
