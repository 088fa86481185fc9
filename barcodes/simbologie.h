// Everything KRT knows about each symbology, in one row: its code, how its content is
// validated, its fixed lengths, the check routine of its readable text, its encoder, how
// the text under the bars is formed and which reader format checks a drawn symbol. Every
// other table (validation, encoding, catalogue, entry rules, scan check) is derived from
// this one; a new symbology is one row plus its encoder.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "barcodes/codificatori.h"

namespace krt {

enum class TipoSimbologia : std::uint8_t {
    Code39, Code39Full, Code93, Code93Full, Interleaved25, Itf14, Industrial25, Barre5, Barre3, Bcd,
    Invertito25, Compresso25, Code11, Msi, Ean13, UpcA, Ean8, UpcE, AddOn2, AddOn5, Code32, Code32Hrc,
    Codabar, Code128, Ean128, Isbn10, Isbn13, Cip, Plessey, Delta, Postnet,
};

// How a content is validated (see validazione.cpp).
enum class RegolaValidazione : std::uint8_t {
    Libera,       // accepted unchanged (escapes are read by the encoder)
    Fissa,        // digits, zero-filled up to the fixed length
    UPCE,         // Fissa, number system 0 or 1
    Postnet,      // 5, 9 or 11 digits (one more without the check option)
    CIP,          // Fissa, and a check character must exist
    Interleaved,  // digits, a leading zero to make an even count
    Cifre,        // digits
    Codice11,     // digits and "-"
    MSI,          // up to 13 digits (15 without the check option)
    Codice39,     // the Code 39 alphabet, upper-cased
    Plessey,      // hex digits, up to 15, upper-cased
    Delta,        // digits and K L M O, up to 15 (16), upper-cased
    Codabar,      // start, data, stop, upper-cased
};

// The text under the bars.
enum class RegolaHRC : std::uint8_t {
    Nessuna,             // none (EAN/UPC, ISBN, Code 32 draw their own)
    Calcolata,           // the content, completed by the check routine when asked
    Asterischi,          // Calcolata in "*...*" with "_" shown as space
    AsterischiConCheck,  // "_" as space always, the asterisks only with the check included
    Minuscola,           // Calcolata in lower case
    Contenuto,           // the content as typed
    TestoWizard,         // the GS1 wizard's text, or else the content
};

// The reader format that checks a drawn symbol; Nessuno: no reader for it.
enum class FormatoLettore : std::uint8_t { Nessuno, Code39, Code93, Code128, EAN8, EAN13, UPCA, UPCE, ITF, Codabar };

using RoutineCheck = std::string (*)(std::string_view);
using Codificatore = void (*)(std::string& contenuto, bool checkDigit, std::string& glifi);

struct DescrittoreSimbologia {
    TipoSimbologia simbologia;
    std::string_view codice;
    RegolaValidazione validazione;
    std::uint8_t conCheck;    // fixed length with the check option (0: none)
    std::uint8_t senzaCheck;  // and without it
    RoutineCheck check;       // check routine of the readable text, nullptr for none
    Codificatore codifica;
    RegolaHRC hrc;
    FormatoLettore lettore;
    std::uint8_t codiceMassimo = 255;  // codes reading escapes: the highest character code drawn
};

namespace simbologie_ {
using namespace codificatori;
using R = RegolaValidazione;
using H = RegolaHRC;
using L = FormatoLettore;
using S = TipoSimbologia;
inline constexpr std::array<DescrittoreSimbologia, 31> Righe{{
    {S::Code39, "C39", R::Codice39, 0, 0, CalcolaCheck39, Avvolto<CalcolaCheck39, '#'>, H::Asterischi, L::Code39},
    {S::Code39Full, "C39FULL", R::Libera, 0, 0, CalcolaCheck39, Code39Full, H::Asterischi, L::Code39, 127},
    {S::Code93, "C93", R::Codice39, 0, 0, CalcolaCheck93, Avvolto<CalcolaCheck93>, H::AsterischiConCheck, L::Code93},
    {S::Code93Full, "C93FULL", R::Libera, 0, 0, CalcolaCheck93, Code93Full, H::AsterischiConCheck, L::Code93, 127},
    {S::Interleaved25, "C25", R::Interleaved, 0, 0, CalcolaCheck25, Codificato<CalcolaCheck25, CodificaCoppie25>,
     H::Calcolata, L::ITF},
    {S::Itf14, "ITF", R::Fissa, 13, 14, CalcolaCheck25, Codificato<CalcolaCheck25, CodificaCoppie25>, H::Calcolata,
     L::ITF},
    {S::Industrial25, "CIND25", R::Cifre, 0, 0, CalcolaCheckMod10, Avvolto<CalcolaCheckMod10>, H::Calcolata, L::Nessuno},
    {S::Barre5, "C5BARS", R::Cifre, 0, 0, CalcolaCheckMod10, Avvolto<CalcolaCheckMod10>, H::Calcolata, L::Nessuno},
    {S::Barre3, "C3BARS", R::Cifre, 0, 0, CalcolaCheckMod10, Avvolto<CalcolaCheckMod10>, H::Calcolata, L::Nessuno},
    {S::Bcd, "CBCD", R::Cifre, 0, 0, CalcolaCheckMod10, Avvolto<CalcolaCheckMod10>, H::Calcolata, L::Nessuno},
    {S::Invertito25, "C25INV", R::Libera, 0, 0, CalcolaCheckMod10, Avvolto<CalcolaCheckMod10>, H::Calcolata, L::Nessuno},
    {S::Compresso25, "C25COMP", R::Libera, 0, 0, CalcolaCheckMod10, Avvolto<CalcolaCheckMod10>, H::Calcolata,
     L::Nessuno},
    {S::Code11, "C11", R::Codice11, 0, 0, Check11, Codice11, H::Calcolata, L::Nessuno},
    {S::Msi, "CMSI", R::MSI, 0, 0, CheckMSI2, MSI, H::Calcolata, L::Nessuno},
    {S::Ean13, "EAN13", R::Fissa, 12, 13, nullptr, CodificatoEAN<CheckEAN<12>, CodificaEAN13>, H::Nessuna, L::EAN13},
    {S::UpcA, "UPCA", R::Fissa, 11, 12, nullptr, CodificatoEAN<CheckEAN<11>, CodificaUPCA>, H::Nessuna, L::UPCA},
    {S::Ean8, "EAN8", R::Fissa, 7, 8, nullptr, CodificatoEAN<CheckEAN<7>, CodificaEAN8>, H::Nessuna, L::EAN8},
    {S::UpcE, "UPCE", R::UPCE, 7, 8, nullptr, CodificatoEAN<CheckUPCE, CodificaUPCE>, H::Nessuna, L::UPCE},
    {S::AddOn2, "ADD2", R::Fissa, 2, 2, nullptr, AddOn<2, CodificaAddOn2>, H::Nessuna, L::Nessuno},
    {S::AddOn5, "ADD5", R::Fissa, 5, 5, nullptr, AddOn<5, CodificaAddOn5>, H::Nessuna, L::Nessuno},
    {S::Code32, "C32", R::Fissa, 8, 9, nullptr, Codificato<CalcolaCheck32, CodificaCodice32>, H::Nessuna, L::Nessuno},
    {S::Code32Hrc, "C32HRC", R::Fissa, 8, 9, nullptr, Codice32ConTesto, H::Nessuna, L::Nessuno},
    {S::Codabar, "CBAR", R::Codabar, 0, 0, CalcolaCheckCodabar, Codificato<CalcolaCheckCodabar, CodificaCodabar>,
     H::Minuscola, L::Codabar},
    {S::Code128, "C128", R::Libera, 0, 0, nullptr, Code128, H::Contenuto, L::Code128, 132},
    {S::Ean128, "E128", R::Libera, 0, 0, nullptr, Ean128, H::TestoWizard, L::Code128, 132},
    {S::Isbn10, "ISBN", R::Fissa, 9, 9, nullptr, ISBN10, H::Nessuna, L::EAN13},
    {S::Isbn13, "ISBN13", R::Fissa, 12, 12, nullptr, ISBN13, H::Nessuna, L::EAN13},
    {S::Cip, "CIP", R::CIP, 6, 7, CalcolaCheckCIP, Avvolto<CalcolaCheckCIP>, H::Calcolata, L::Nessuno},
    {S::Plessey, "PLESSEY", R::Plessey, 0, 0, CalcolaCheckPlessey, Avvolto<CalcolaCheckPlessey>, H::Calcolata,
     L::Nessuno},
    {S::Delta, "DELTA", R::Delta, 0, 0, CalcolaCheckDelta, Codificato<CalcolaCheckDelta, CodificaDelta>, H::Calcolata,
     L::Nessuno},
    {S::Postnet, "POSTNET", R::Postnet, 0, 0, CalcolaCheckPostnet, Avvolto<CalcolaCheckPostnet>, H::Calcolata,
     L::Nessuno},
}};

constexpr bool InOrdine() {
    for (std::size_t i = 0; i < Righe.size(); ++i)
        if (static_cast<std::size_t>(Righe[i].simbologia) != i) return false;
    return true;
}
static_assert(InOrdine(), "one row per TipoSimbologia, in the order of the enum");
}  // namespace simbologie_

// The table, indexed by TipoSimbologia.
inline constexpr const std::array<DescrittoreSimbologia, 31>& Simbologie = simbologie_::Righe;

constexpr const DescrittoreSimbologia& Descrittore(TipoSimbologia s) { return Simbologie[static_cast<std::size_t>(s)]; }
constexpr std::string_view CodiceDi(TipoSimbologia s) { return Descrittore(s).codice; }

// The row of an (upper-case) code, nullptr for a code no row has.
constexpr const DescrittoreSimbologia* DescrittorePerCodice(std::string_view codice) {
    for (const auto& d : Simbologie)
        if (d.codice == codice) return &d;
    return nullptr;
}

}  // namespace krt
