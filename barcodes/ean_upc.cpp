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

void CodificaEAN13(std::string_view cifre, std::string& glifi) {
    glifi.clear();
    if (!CifreEsatte(cifre, 13)) return;
    const std::string_view parita = ParitaEAN13[ValoreCifra(cifre[0])];
    char g[16];
    g[0] = cifre[0];
    g[1] = GuardiaNormale;
    for (std::size_t i = 0; i < 6; ++i) g[2 + i] = Glifo(parita[i] == 'A' ? SetA : SetB, cifre[1 + i]);
    g[8] = GuardiaCentrale;
    for (std::size_t i = 0; i < 6; ++i) g[9 + i] = Glifo(SetC, cifre[7 + i]);
    g[15] = GuardiaNormale;
    glifi.assign(g, sizeof g);
}

void CodificaEAN8(std::string_view cifre, std::string& glifi) {
    glifi.clear();
    if (!CifreEsatte(cifre, 8)) return;
    glifi += GuardiaNormale;
    AggiungiInSet(glifi, cifre.substr(0, 4), SetA);
    glifi += GuardiaCentrale;
    AggiungiInSet(glifi, cifre.substr(4, 4), SetC);
    glifi += GuardiaNormale;
}

void CodificaUPCA(std::string_view cifre, std::string& glifi) {
    glifi.clear();
    if (!CifreEsatte(cifre, 12)) return;
    glifi += GuardiaNormale;
    AggiungiInSet(glifi, cifre.substr(0, 6), SetA);
    glifi += GuardiaCentrale;
    AggiungiInSet(glifi, cifre.substr(6, 6), SetC);
    glifi += GuardiaNormale;
}

// The check digit is not drawn: it chooses the parity. Number system 1 swaps the sets.
void CodificaUPCE(std::string_view cifre, std::string& glifi) {
    glifi.clear();
    if (!CifreEsatte(cifre, 8)) return;
    const bool scambia = cifre[0] == '1';
    glifi += cifre[0];
    glifi += GuardiaNormale;
    AggiungiConParita(glifi, cifre.substr(1, 6), ParitaUPCE[ValoreCifra(cifre[7])], scambia ? SetB : SetA,
                      scambia ? SetA : SetB);
    glifi += GuardiaFinaleUPCE;
}

std::string CodificaEAN13(std::string_view cifre) {
    std::string glifi;
    CodificaEAN13(cifre, glifi);
    return glifi;
}

std::string CodificaEAN8(std::string_view cifre) {
    std::string glifi;
    CodificaEAN8(cifre, glifi);
    return glifi;
}

std::string CodificaUPCA(std::string_view cifre) {
    std::string glifi;
    CodificaUPCA(cifre, glifi);
    return glifi;
}

std::string CodificaUPCE(std::string_view cifre) {
    std::string glifi;
    CodificaUPCE(cifre, glifi);
    return glifi;
}

// Expands the zero-suppressed number to UPC-A and appends the check digit of that.
std::string ConvertiUPCE(std::string_view cifre) {
    if (!CifreEsatte(cifre, 7)) return {};
    const std::string_view d = cifre.substr(1);  // d[0] .. d[5] are d1 .. d6
    std::string upca(1, cifre[0]);
    upca.reserve(11);
    switch (d[5]) {
        case '0': case '1': case '2':
            upca.append(d.substr(0, 2)).append(1, d[5]).append("0000").append(d.substr(2, 3));
            break;
        case '3':
            upca.append(d.substr(0, 3)).append("00000").append(d.substr(3, 2));
            break;
        case '4':
            upca.append(d.substr(0, 4)).append("00000").append(1, d[4]);
            break;
        default:
            upca.append(d.substr(0, 5)).append("0000").append(1, d[5]);
            break;
    }
    std::string risultato(cifre);
    risultato += CalcolaCheckEAN(upca).back();
    return risultato;
}

// Uses the two leftmost digits.
std::string CodificaAddOn2(std::string_view cifre) {
    cifre = cifre.substr(0, 2);
    if (!CifreEsatte(cifre, 2)) return {};
    const int valore = 10 * ValoreCifra(cifre[0]) + ValoreCifra(cifre[1]);
    return CodificaAddOn(cifre, ParitaAddOn2[static_cast<std::size_t>(valore % 4)]);
}

// Uses the five leftmost digits.
std::string CodificaAddOn5(std::string_view cifre) {
    cifre = cifre.substr(0, 5);
    if (!CifreEsatte(cifre, 5)) return {};
    int s = 0;
    for (std::size_t i = 0; i < 5; ++i) s += (i % 2 == 0 ? 3 : 9) * ValoreCifra(cifre[i]);
    return CodificaAddOn(cifre, ParitaAddOn5[static_cast<std::size_t>(s % 10)]);
}

}  // namespace krt
