// The encoders of the symbology table: each writes the glyphs of a validated content into
// glifi (empty when called), appending the check characters when asked. Small enough to
// be written here, so that the table can name them at compile time.
#pragma once
#include <algorithm>
#include <string>
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

namespace krt::codificatori {

using Controllo = std::string (*)(std::string_view);
using Codificatore = std::string (*)(std::string_view);
using CodificatoreIn = void (*)(std::string_view, std::string&);

// The encoders of the table write into glifi, which is empty when they are called.
inline void Avvolgi(std::string& glifi, char inizio, std::string_view contenuto, char fine) {
    glifi.reserve(contenuto.size() + 2);
    glifi += inizio;
    glifi += contenuto;
    glifi += fine;
}

// Content between start and stop: Code 39 uses "#" at both ends, the others "*" and "#".
template <Controllo controllo, char inizio = '*'>
inline void Avvolto(std::string& contenuto, bool checkDigit, std::string& glifi) {
    if (checkDigit) contenuto = controllo(contenuto);
    Avvolgi(glifi, inizio, contenuto, '#');
}

template <Controllo controllo, Codificatore codifica>
inline void Codificato(std::string& contenuto, bool checkDigit, std::string& glifi) {
    if (checkDigit) contenuto = controllo(contenuto);
    glifi = codifica(contenuto);
}

// EAN/UPC: the check is formed on the leftmost digits that precede it.
template <std::size_t cifre>
inline void CheckEAN(std::string& contenuto) {
    contenuto.resize(std::min(contenuto.size(), cifre));
    contenuto += CifraCheckEAN(contenuto);
}

inline void CheckUPCE(std::string& contenuto) { contenuto = ConvertiUPCE(std::string_view(contenuto).substr(0, 7)); }

template <void (*controllo)(std::string&), CodificatoreIn codifica>
inline void CodificatoEAN(std::string& contenuto, bool checkDigit, std::string& glifi) {
    if (checkDigit) controllo(contenuto);
    codifica(contenuto, glifi);
}

template <std::size_t cifre, Codificatore codifica>
inline void AddOn(std::string& contenuto, bool, std::string& glifi) {
    glifi = codifica(std::string_view(contenuto).substr(0, cifre));
}

inline void Codice11(std::string& contenuto, bool checkDigit, std::string& glifi) {
    if (checkDigit) CalcolaCheck11(contenuto);
    Avvolgi(glifi, '*', contenuto, '#');
}

inline void MSI(std::string& contenuto, bool checkDigit, std::string& glifi) {
    if (checkDigit) contenuto = CalcolaCheckMSI(contenuto, 2);
    Avvolgi(glifi, '*', contenuto, '#');
}

// Bars, then the human-readable line "A" + the digits.
inline void Codice32ConTesto(std::string& contenuto, bool checkDigit, std::string& glifi) {
    if (checkDigit) contenuto = CalcolaCheck32(contenuto);
    glifi += '|';
    glifi += CodificaCodice32(contenuto);
    glifi += "\r\nA";
    glifi += contenuto;
}

inline void Code128(std::string& contenuto, bool, std::string& glifi) { CodificaCode128(contenuto, glifi); }
inline void Ean128(std::string& contenuto, bool, std::string& glifi) { CodificaEan128(contenuto, glifi); }
inline void Code39Full(std::string& contenuto, bool checkDigit, std::string& glifi) {
    glifi = CodificaCode39Full(contenuto, checkDigit);
}
inline void Code93Full(std::string& contenuto, bool checkDigit, std::string& glifi) {
    glifi = CodificaCode93Full(contenuto, checkDigit);
}

// The hyphenated ISBN above the bars of its EAN-13 number, whatever the check option.
inline void ConTestoISBN(std::string_view marcatore, std::string_view numero, std::string_view ean12, bool isbn13,
                  std::string& glifi) {
    std::string isbn10, isbn13Testo;
    ConvertiISBN(CalcolaCheckISBN(numero), isbn10, isbn13Testo);
    glifi += marcatore;
    glifi += CodificaTestoISBN(isbn13 ? isbn13Testo : isbn10);
    glifi += "\r\n";
    glifi += CodificaEAN13(CalcolaCheckEAN(ean12));
}

inline void ISBN10(std::string& contenuto, bool, std::string& glifi) {
    const std::string_view nove = std::string_view(contenuto).substr(0, 9);
    ConTestoISBN("--$", nove, "978" + std::string(nove), false, glifi);
}

inline void ISBN13(std::string& contenuto, bool, std::string& glifi) {
    const std::string_view dodici = std::string_view(contenuto).substr(0, 12);
    ConTestoISBN("$", dodici, dodici, true, glifi);
}

// Check routines of the HRC text that take more than the content.
inline std::string CheckMSI2(std::string_view s) { return CalcolaCheckMSI(s, 2); }
inline std::string Check11(std::string_view s) {
    std::string copia(s);
    return CalcolaCheck11(copia);
}

}  // namespace krt::codificatori
