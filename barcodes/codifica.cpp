// The engine's entry: validates the content, appends the check characters asked for
// and hands the result to the encoder of the symbology.
#include "barcodes/codifica.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

#include "barcodes/codabar.h"
#include "barcodes/code128.h"
#include "barcodes/codice32.h"
#include "barcodes/controllo.h"
#include "barcodes/coppie25.h"
#include "barcodes/delta.h"
#include "barcodes/ean128.h"
#include "barcodes/ean_upc.h"
#include "barcodes/escape.h"
#include "barcodes/fullascii.h"
#include "barcodes/isbn.h"
#include "barcodes/validazione.h"

namespace krt {

namespace {

using Controllo = std::string (*)(std::string_view);
using Codificatore = std::string (*)(std::string_view);
using CodificatoreIn = void (*)(std::string_view, std::string&);

// The encoders of the table write into glifi, which is empty when they are called.
void Avvolgi(std::string& glifi, char inizio, std::string_view contenuto, char fine) {
    glifi.reserve(contenuto.size() + 2);
    glifi += inizio;
    glifi += contenuto;
    glifi += fine;
}

// Content between start and stop: Code 39 uses "#" at both ends, the others "*" and "#".
template <Controllo controllo, char inizio = '*'>
void Avvolto(std::string& contenuto, bool checkDigit, std::string& glifi) {
    if (checkDigit) contenuto = controllo(contenuto);
    Avvolgi(glifi, inizio, contenuto, '#');
}

template <Controllo controllo, Codificatore codifica>
void Codificato(std::string& contenuto, bool checkDigit, std::string& glifi) {
    if (checkDigit) contenuto = controllo(contenuto);
    glifi = codifica(contenuto);
}

// EAN/UPC: the check is formed on the leftmost digits that precede it.
template <std::size_t cifre>
void CheckEAN(std::string& contenuto) {
    contenuto.resize(std::min(contenuto.size(), cifre));
    contenuto += CifraCheckEAN(contenuto);
}

void CheckUPCE(std::string& contenuto) { contenuto = ConvertiUPCE(std::string_view(contenuto).substr(0, 7)); }

template <void (*controllo)(std::string&), CodificatoreIn codifica>
void CodificatoEAN(std::string& contenuto, bool checkDigit, std::string& glifi) {
    if (checkDigit) controllo(contenuto);
    codifica(contenuto, glifi);
}

template <std::size_t cifre, Codificatore codifica>
void AddOn(std::string& contenuto, bool, std::string& glifi) {
    glifi = codifica(std::string_view(contenuto).substr(0, cifre));
}

void Codice11(std::string& contenuto, bool checkDigit, std::string& glifi) {
    if (checkDigit) CalcolaCheck11(contenuto);
    Avvolgi(glifi, '*', contenuto, '#');
}

void MSI(std::string& contenuto, bool checkDigit, std::string& glifi) {
    if (checkDigit) contenuto = CalcolaCheckMSI(contenuto, 2);
    Avvolgi(glifi, '*', contenuto, '#');
}

// Bars, then the human-readable line "A" + the digits.
void Codice32ConTesto(std::string& contenuto, bool checkDigit, std::string& glifi) {
    if (checkDigit) contenuto = CalcolaCheck32(contenuto);
    glifi += '|';
    glifi += CodificaCodice32(contenuto);
    glifi += "\r\nA";
    glifi += contenuto;
}

void Code128(std::string& contenuto, bool, std::string& glifi) { CodificaCode128(contenuto, glifi); }
void Ean128(std::string& contenuto, bool, std::string& glifi) { CodificaEan128(contenuto, glifi); }
void Code39Full(std::string& contenuto, bool checkDigit, std::string& glifi) {
    glifi = CodificaCode39Full(contenuto, checkDigit);
}
void Code93Full(std::string& contenuto, bool checkDigit, std::string& glifi) {
    glifi = CodificaCode93Full(contenuto, checkDigit);
}

// The hyphenated ISBN above the bars of its EAN-13 number, whatever the check option.
void ConTestoISBN(std::string_view marcatore, std::string_view numero, std::string_view ean12, bool isbn13,
                  std::string& glifi) {
    std::string isbn10, isbn13Testo;
    ConvertiISBN(CalcolaCheckISBN(numero), isbn10, isbn13Testo);
    glifi += marcatore;
    glifi += CodificaTestoISBN(isbn13 ? isbn13Testo : isbn10);
    glifi += "\r\n";
    glifi += CodificaEAN13(CalcolaCheckEAN(ean12));
}

void ISBN10(std::string& contenuto, bool, std::string& glifi) {
    const std::string_view nove = std::string_view(contenuto).substr(0, 9);
    ConTestoISBN("--$", nove, "978" + std::string(nove), false, glifi);
}

void ISBN13(std::string& contenuto, bool, std::string& glifi) {
    const std::string_view dodici = std::string_view(contenuto).substr(0, 12);
    ConTestoISBN("$", dodici, dodici, true, glifi);
}

struct Simbologia {
    std::uint64_t chiave;  // ChiaveCodice of the code
    void (*codifica)(std::string& contenuto, bool checkDigit, std::string& glifi);
    unsigned codiceMassimo;  // codes reading escapes: the highest character code they can draw

    constexpr Simbologia(std::string_view codice, void (*codificatore)(std::string&, bool, std::string&),
                         unsigned massimo = 255)
        : chiave(ChiaveCodice(codice)), codifica(codificatore), codiceMassimo(massimo) {}
};

constexpr TabellaCodici Simbologie(std::array<Simbologia, 31>{{
    {"POSTNET", Avvolto<CalcolaCheckPostnet>},
    {"C39", Avvolto<CalcolaCheck39, '#'>},
    {"C39FULL", Code39Full, 127},
    {"C93", Avvolto<CalcolaCheck93>},
    {"C93FULL", Code93Full, 127},
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
    {"EAN13", CodificatoEAN<CheckEAN<12>, CodificaEAN13>},
    {"UPCA", CodificatoEAN<CheckEAN<11>, CodificaUPCA>},
    {"EAN8", CodificatoEAN<CheckEAN<7>, CodificaEAN8>},
    {"UPCE", CodificatoEAN<CheckUPCE, CodificaUPCE>},
    {"ADD2", AddOn<2, CodificaAddOn2>},
    {"ADD5", AddOn<5, CodificaAddOn5>},
    {"C32", Codificato<CalcolaCheck32, CodificaCodice32>},
    {"C32HRC", Codice32ConTesto},
    {"CBAR", Codificato<CalcolaCheckCodabar, CodificaCodabar>},
    {"C128", Code128, 132},
    {"E128", Ean128, 132},
    {"ISBN", ISBN10},
    {"ISBN13", ISBN13},
}});

}  // namespace

std::string CodificaBarcode(std::string contenuto, std::string codice, bool checkDigit) {
    std::string glifi;
    CodificaBarcode(contenuto, codice, checkDigit, glifi);
    return glifi;
}

Rifiuto CodificaBarcode(std::string& contenuto, std::string_view codice, bool checkDigit, std::string& glifi) {
    glifi.clear();
    const std::uint64_t chiave = ChiaveCodice(codice, true);
    if (Rifiuto r = VerificaCodicePerChiave(contenuto, chiave, checkDigit)) return r;
    const Simbologia* s = Simbologie.Trova(chiave);
    if (s == nullptr) return {};
    s->codifica(contenuto, checkDigit, glifi);
    // The codes that read escapes refuse, leaving the content as it was, a character
    // beyond what they can draw.
    if (glifi.empty()) return CarattereOltre(contenuto, s->codiceMassimo);
    return {};
}

}  // namespace krt
