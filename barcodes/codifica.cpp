// The engine's entry: validates the content, appends the check characters asked for
// and hands the result to the encoder of the symbology.
#include "barcodes/codifica.h"

#include <array>
#include <string_view>

#include "barcodes/codabar.h"
#include "barcodes/code128.h"
#include "barcodes/codice32.h"
#include "barcodes/controllo.h"
#include "barcodes/coppie25.h"
#include "barcodes/delta.h"
#include "barcodes/ean128.h"
#include "barcodes/ean_upc.h"
#include "barcodes/fullascii.h"
#include "barcodes/isbn.h"
#include "barcodes/validazione.h"

namespace krt {

namespace {

using Controllo = std::string (*)(std::string_view);
using Codificatore = std::string (*)(std::string_view);

std::string Avvolgi(char inizio, std::string_view contenuto, char fine) {
    std::string risultato;
    risultato.reserve(contenuto.size() + 2);
    risultato += inizio;
    risultato += contenuto;
    risultato += fine;
    return risultato;
}

// Content between start and stop: Code 39 uses "#" at both ends, the others "*" and "#".
template <Controllo controllo, char inizio = '*'>
std::string Avvolto(std::string& contenuto, bool checkDigit) {
    if (checkDigit) contenuto = controllo(contenuto);
    return Avvolgi(inizio, contenuto, '#');
}

template <Controllo controllo, Codificatore codifica>
std::string Codificato(std::string& contenuto, bool checkDigit) {
    if (checkDigit) contenuto = controllo(contenuto);
    return codifica(contenuto);
}

// EAN/UPC: the check is formed on the leftmost digits that precede it.
template <std::size_t cifre, Controllo controllo, Codificatore codifica>
std::string CodificatoEAN(std::string& contenuto, bool checkDigit) {
    if (checkDigit) contenuto = controllo(std::string_view(contenuto).substr(0, cifre));
    return codifica(contenuto);
}

template <std::size_t cifre, Codificatore codifica>
std::string AddOn(std::string& contenuto, bool) {
    return codifica(std::string_view(contenuto).substr(0, cifre));
}

std::string Codice11(std::string& contenuto, bool checkDigit) {
    if (checkDigit) CalcolaCheck11(contenuto);
    return Avvolgi('*', contenuto, '#');
}

std::string MSI(std::string& contenuto, bool checkDigit) {
    if (checkDigit) contenuto = CalcolaCheckMSI(contenuto, 2);
    return Avvolgi('*', contenuto, '#');
}

// Bars, then the human-readable line "A" + the digits.
std::string Codice32ConTesto(std::string& contenuto, bool checkDigit) {
    if (checkDigit) contenuto = CalcolaCheck32(contenuto);
    std::string risultato = "|";
    risultato += CodificaCodice32(contenuto);
    risultato += "\r\nA";
    risultato += contenuto;
    return risultato;
}

std::string Code128(std::string& contenuto, bool) { return CodificaCode128(contenuto); }
std::string Ean128(std::string& contenuto, bool) { return CodificaEan128(contenuto); }
std::string Code39Full(std::string& contenuto, bool checkDigit) { return CodificaCode39Full(contenuto, checkDigit); }
std::string Code93Full(std::string& contenuto, bool checkDigit) { return CodificaCode93Full(contenuto, checkDigit); }

// The hyphenated ISBN above the bars of its EAN-13 number, whatever the check option.
std::string ConTestoISBN(std::string_view marcatore, std::string_view numero, std::string_view ean12,
                         bool isbn13) {
    std::string isbn10, isbn13Testo;
    ConvertiISBN(CalcolaCheckISBN(numero), isbn10, isbn13Testo);
    std::string risultato(marcatore);
    risultato += CodificaTestoISBN(isbn13 ? isbn13Testo : isbn10);
    risultato += "\r\n";
    risultato += CodificaEAN13(CalcolaCheckEAN(ean12));
    return risultato;
}

std::string ISBN10(std::string& contenuto, bool) {
    const std::string_view nove = std::string_view(contenuto).substr(0, 9);
    return ConTestoISBN("--$", nove, "978" + std::string(nove), false);
}

std::string ISBN13(std::string& contenuto, bool) {
    const std::string_view dodici = std::string_view(contenuto).substr(0, 12);
    return ConTestoISBN("$", dodici, dodici, true);
}

struct Simbologia {
    std::string_view codice;
    std::string (*codifica)(std::string& contenuto, bool checkDigit);
};

constexpr std::array<Simbologia, 31> Simbologie = {{
    {"POSTNET", Avvolto<CalcolaCheckPostnet>},
    {"C39", Avvolto<CalcolaCheck39, '#'>},
    {"C39FULL", Code39Full},
    {"C93", Avvolto<CalcolaCheck93>},
    {"C93FULL", Code93Full},
    {"CIP", Avvolto<CalcolaCheckCIP>},
    {"PLESSEY", Avvolto<CalcolaCheckPlessey>},
    {"DELTA", Codificato<CalcolaCheckDelta, CodificaDelta>},
    {"C25", Codificato<CalcolaCheck25, CodificaCoppie25>},
    {"ITF", Codificato<CalcolaCheck25, CodificaCoppie25>},
    {"CIND25", Avvolto<CalcolaCheckMod10>},
    {"C5BARS", Avvolto<CalcolaCheckMod10>},
    {"C3BARS", Avvolto<CalcolaCheckMod10>},
    {"CBCD", Avvolto<CalcolaCheckMod10>},
    {"C25INV", Avvolto<CalcolaCheckMod10>},
    {"C25COMP", Avvolto<CalcolaCheckMod10>},
    {"C11", Codice11},
    {"CMSI", MSI},
    {"EAN13", CodificatoEAN<12, CalcolaCheckEAN, CodificaEAN13>},
    {"UPCA", CodificatoEAN<11, CalcolaCheckEAN, CodificaUPCA>},
    {"EAN8", CodificatoEAN<7, CalcolaCheckEAN, CodificaEAN8>},
    {"UPCE", CodificatoEAN<7, ConvertiUPCE, CodificaUPCE>},
    {"ADD2", AddOn<2, CodificaAddOn2>},
    {"ADD5", AddOn<5, CodificaAddOn5>},
    {"C32", Codificato<CalcolaCheck32, CodificaCodice32>},
    {"C32HRC", Codice32ConTesto},
    {"CBAR", Codificato<CalcolaCheckCodabar, CodificaCodabar>},
    {"C128", Code128},
    {"E128", Ean128},
    {"ISBN", ISBN10},
    {"ISBN13", ISBN13},
}};

}  // namespace

std::string CodificaBarcode(std::string contenuto, std::string codice, bool checkDigit) {
    for (char& c : codice) c = InMaiuscolo(c);
    if (!ValidaCodice(contenuto, codice, checkDigit)) return {};
    for (const auto& s : Simbologie)
        if (StessoCodice(s.codice, codice)) return s.codifica(contenuto, checkDigit);
    return {};
}

}  // namespace krt
