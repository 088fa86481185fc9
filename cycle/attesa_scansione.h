// The decision half of the scan check, without Qt: which reader format an entry needs,
// what the reader should report for a generate cycle, and what a reading means.
#pragma once
#include <string>
#include <string_view>

#include "barcodes/simbologie.h"
#include "cycle/voce.h"

namespace krt {

// What a reader should report for one generate cycle.
struct AttesaScansione {
    FormatoLettore formato = FormatoLettore::Nessuno;
    bool addOn = false;          // an EAN/UPC add-on follows the main symbol
    bool asciiEsteso = false;    // Code 39 read in its Full ASCII form
    bool senzaCheck93 = false;   // Code 93 drawn without its two check characters
    std::string testo;           // the data as the reader reports it (UTF-8)
};

// The reader format of an entry, Nessuno for MSI, Plessey, Code 11, Postnet,
// Delta-Distance A, Code 32, Code CIP and the 2 of 5 variants other than Interleaved.
FormatoLettore FormatoPerCodice(std::string_view codice);

// The expected reading of an accepted cycle: the content plus the check characters the
// engine added, written as the reader reports it: Code 39 spaces for "_", Code 93
// without its check characters (readers verify and drop them), Codabar start and stop
// in upper case with the alternates read as A-D, Code 128 with FNC1 as GS (0x1D) and
// a leading FNC1 (GS1) not reported, EAN/UPC digits with the check digit and a space
// before the add-on, ISBN as its EAN-13 number. May throw the engine's faults.
AttesaScansione AttesaPerVoce(const VoceCatalogo& voce, const GenerazioneVoce& generazione);

// One reading of an image.
struct LetturaScansione {
    bool letto = false;
    std::string formato;  // reader's format name
    std::string testo;    // UTF-8
};

enum class EsitoScansione {
    Letto,              // read, with the expected data
    LettoDiverso,       // read, with other data
    NonLetto,
    NonLetto93,         // Code 93 without check characters: readers refuse it
    NessunLettore,
};

EsitoScansione ValutaScansione(const AttesaScansione& attesa, const LetturaScansione& lettura);

}  // namespace krt
