// Check character routines. Each returns its input with the check character(s) appended.
#include "barcodes/controllo.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <utility>

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

namespace {

// Adds the digit values of eight characters (a non-digit counts 0) to the sums of the
// odd places (first, third ...) and of the even places, all eight at once: the bytes that
// are digits keep their value and the others become 0, then each sum of four bytes is
// one multiplication.
void SommeOtto(const char* otto, unsigned& dispari, unsigned& pari) {
    constexpr std::uint64_t Uni = 0x0101010101010101;
    constexpr std::uint64_t Alterni = 0x00FF00FF00FF00FF;
    std::uint64_t x;
    std::memcpy(&x, otto, sizeof x);
    const std::uint64_t t = x ^ (Uni * '0');                             // a digit byte is now 0-9
    const std::uint64_t grandi = ((t & (Uni * 0x7F)) + Uni * 0x76) | t;  // bit 7: 10 or more
    const std::uint64_t nonCifre = ((grandi >> 7) & Uni) * 0xFF;
    const std::uint64_t valori = t & ~nonCifre;
    // The first, third ... characters are the low bytes of the four 16-bit lanes on a
    // little-endian machine, the high bytes on a big-endian one.
    std::uint64_t primi = valori & Alterni;
    std::uint64_t secondi = (valori >> 8) & Alterni;
    if constexpr (std::endian::native == std::endian::big) std::swap(primi, secondi);
    constexpr std::uint64_t Somma4 = 0x0001000100010001;  // the four lanes added into the top one
    dispari += static_cast<unsigned>((primi * Somma4) >> 48);
    pari += static_cast<unsigned>((secondi * Somma4) >> 48);
}

}  // namespace

// The rightmost digit always weighs 3 for the lengths in use (7, 11, 12).
char CifraCheckEAN(std::string_view contenuto) {
    unsigned dispari = 0, pari = 0;  // sums of the odd and the even places
    std::size_t i = 0;
    for (; i + 8 <= contenuto.size(); i += 8) SommeOtto(contenuto.data() + i, dispari, pari);
    for (; i < contenuto.size(); ++i) (i % 2 == 0 ? dispari : pari) += static_cast<unsigned>(ValoreCifra(contenuto[i]));
    const unsigned totale = contenuto.size() == 12 ? 3 * pari + dispari : 3 * dispari + pari;
    return static_cast<char>('0' + (10 - totale % 10) % 10);
}

std::string CalcolaCheckEAN(std::string_view contenuto) {
    std::string risultato(contenuto);
    risultato += CifraCheckEAN(contenuto);
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

// Weights 3, 1, 3, 1 ... from the leftmost digit.
std::string CalcolaCheck25(std::string_view contenuto) {
    int somma = 0;
    for (std::size_t i = 0; i < contenuto.size(); ++i)
        somma += (i % 2 == 0 ? 3 : 1) * ValoreCifra(contenuto[i]);
    std::string risultato(contenuto);
    risultato += static_cast<char>('0' + (10 - somma % 10) % 10);
    return risultato;
}

// The rightmost digit weighs 3 whatever the length; a non-digit counts as 0.
std::string CalcolaCheckMod10(std::string_view contenuto) {
    int dispari = 0, pari = 0;
    for (std::size_t i = 0; i < contenuto.size(); ++i)
        (i % 2 == 0 ? dispari : pari) += ValoreCifra(contenuto[i]);
    const int totale = contenuto.size() % 2 == 1 ? 3 * dispari + pari : 3 * pari + dispari;
    std::string risultato(contenuto);
    risultato += static_cast<char>('0' + (10 - totale % 10) % 10);
    return risultato;
}

namespace {

// Code 11: one check character over the text, weights 1..pesoMassimo from the right.
char Carattere11(std::string_view testo, int pesoMassimo) {
    int somma = 0;
    int peso = 1;
    for (auto it = testo.rbegin(); it != testo.rend(); ++it) {
        somma = (somma + peso * (*it == '-' ? 10 : ValoreCifra(*it))) % 11;
        peso = peso == pesoMassimo ? 1 : peso + 1;
    }
    return somma == 10 ? '-' : static_cast<char>('0' + somma);
}

}  // namespace

// C always; K as well when the content had more than 10 characters. The argument
// receives the same characters as the result.
std::string CalcolaCheck11(std::string& contenuto) {
    const bool conK = contenuto.size() > 10;
    contenuto += Carattere11(contenuto, 10);
    if (conK) contenuto += Carattere11(contenuto, 9);
    return contenuto;
}

// Modulo 10 (Luhn), then in mode 2 modulo 11 with weights 2..7 from the right.
// A modulo-11 value of 10 is written as ":".
std::string CalcolaCheckMSI(std::string_view contenuto, int modo) {
    int totale = 0;
    int conta = 1;
    for (auto it = contenuto.rbegin(); it != contenuto.rend(); ++it, ++conta) {
        const int d = ValoreCifra(*it);
        // Digits at odd counts are doubled; the decimal digits of the double are added.
        totale += conta % 2 == 1 ? (d < 5 ? 2 * d : 2 * d - 9) : d;
    }
    std::string risultato(contenuto);
    risultato += static_cast<char>('0' + (10 - totale % 10) % 10);
    if (modo != 2) return risultato;

    int somma = 0;
    int peso = 2;
    for (auto it = risultato.rbegin(); it != risultato.rend(); ++it) {
        somma += peso * ValoreCifra(*it);
        peso = peso == 7 ? 2 : peso + 1;
    }
    const int mancante = (11 - somma % 11) % 11;
    risultato += static_cast<char>('0' + mancante);
    return risultato;
}

// Weights 2, 3, 4 ... from the left; the check is the character 58 - r, and
// a remainder of 10 forms no check at all.
std::string CalcolaCheckCIP(std::string_view contenuto) {
    long long somma = 0;
    for (std::size_t i = 0; i < contenuto.size(); ++i)
        somma = (somma + static_cast<long long>(i + 2) * ValoreCifra(contenuto[i])) % 11;
    if (somma == 10) return {};
    std::string risultato(contenuto);
    risultato += static_cast<char>(58 - somma);
    return risultato;
}

std::string CalcolaCheckPostnet(std::string_view contenuto) {
    int somma = 0;
    for (char c : contenuto) somma = (somma + ValoreCifra(c)) % 10;
    std::string risultato(contenuto);
    risultato += static_cast<char>('0' + (10 - somma) % 10);
    return risultato;
}

namespace {

constexpr std::string_view CifreEsadecimali = "0123456789ABCDEF";

// Residues of x^(8+d) modulo x^8 + x^7 + x^6 + x^5 + x^3 + 1, for d = 0 .. 60.
constexpr std::size_t LunghezzaResidui = 61;
constexpr std::array<std::uint8_t, LunghezzaResidui> ResiduiPlessey = [] {
    constexpr unsigned generatore = 0x1E9;
    std::array<std::uint8_t, LunghezzaResidui> t{};
    unsigned r = generatore & 0xFF;  // x^8 itself, reduced
    for (auto& voce : t) {
        voce = static_cast<std::uint8_t>(r);
        r <<= 1;
        if (r & 0x100) r ^= generatore;
    }
    return t;
}();
static_assert(ResiduiPlessey[0] == 233 && ResiduiPlessey[1] == 59 && ResiduiPlessey[4] == 49 &&
              ResiduiPlessey[60] == 253);

// Bit reversal of a 4-bit value.
constexpr std::array<std::uint8_t, 16> Rovescio4 = {0, 8, 4, 12, 2, 10, 6, 14, 1, 9, 5, 13, 3, 11, 7, 15};

}  // namespace

// CRC over the hexadecimal characters, four bits each, least significant bit first.
// The residue table covers 15 characters; a longer content forms no check ("").
std::string CalcolaCheckPlessey(std::string_view contenuto) {
    const std::size_t bit = 4 * contenuto.size();
    if (bit > LunghezzaResidui) return {};
    unsigned crc = 0;
    for (std::size_t i = 0; i < contenuto.size(); ++i) {
        const int v = Posizione(CifreEsadecimali, contenuto[i]);
        for (std::size_t j = 0; j < 4; ++j)
            if (v > 0 && ((v >> j) & 1) != 0) crc ^= ResiduiPlessey[bit - 1 - (4 * i + j)];
    }
    std::string risultato(contenuto);
    risultato += CifreEsadecimali[Rovescio4[crc >> 4]];
    risultato += CifreEsadecimali[Rovescio4[crc & 15]];
    return risultato;
}

namespace {

// Place 13 ("_") is never admitted by validation.
constexpr std::string_view AlfabetoDelta = "0123456789KLM_O";

// Sum of the decimal digits of a value up to 28; a negative value counts as itself.
constexpr int SommaCifre(int v) { return v < 10 ? v : v / 10 + v % 10; }

}  // namespace

// From the right, the first, third, fifth ... values are doubled; their decimal digits are added.
std::string CalcolaCheckDelta(std::string_view contenuto) {
    int somma = 0;
    bool raddoppia = true;
    for (auto it = contenuto.rbegin(); it != contenuto.rend(); ++it, raddoppia = !raddoppia) {
        const int v = Posizione(AlfabetoDelta, *it);
        somma = (somma + SommaCifre(raddoppia ? 2 * v : v)) % 10;
    }
    std::string risultato(contenuto);
    risultato += static_cast<char>('0' + (10 - somma) % 10);
    return risultato;
}

// Even places doubled (digits of the product added), odd places added; the check
// is the total mod 10 itself, not its complement.
std::string CalcolaCheck32(std::string_view contenuto) {
    int totale = 0;
    for (std::size_t i = 0; i < contenuto.size(); ++i) {
        const int d = ValoreCifra(contenuto[i]);
        totale = (totale + (i % 2 == 1 ? SommaCifre(2 * d) : d)) % 10;
    }
    std::string risultato(contenuto);
    risultato += static_cast<char>('0' + totale);
    return risultato;
}

namespace {

constexpr std::string_view DatiCodabar = "0123456789-$:/.+";

// Value of a Codabar character: data 0-15, start/stop (lower case) 16-19.
constexpr int ValoreCodabar(char c) {
    constexpr std::string_view inizioFine[] = {"at", "bm", "c*", "de"};
    const int dato = Posizione(DatiCodabar, c);
    if (dato >= 0) return dato;
    for (int i = 0; i < 4; ++i)
        if (inizioFine[i].find(c) != std::string_view::npos) return 16 + i;
    return 0;
}

}  // namespace

// Result: start + data + check + stop, start and stop in lower case.
std::string CalcolaCheckCodabar(std::string_view contenuto) {
    if (contenuto.size() < 2) return {};
    const char inizio = InMinuscolo(contenuto.front());
    const char fine = InMinuscolo(contenuto.back());
    const std::string_view dati = contenuto.substr(1, contenuto.size() - 2);
    int somma = ValoreCodabar(inizio) + ValoreCodabar(fine);
    for (char c : dati) somma = (somma + ValoreCodabar(c)) % 16;
    const int resto = somma % 16;
    std::string risultato;
    risultato.reserve(contenuto.size() + 1);
    risultato += inizio;
    risultato += dati;
    risultato += resto == 0 ? '0' : DatiCodabar[static_cast<std::size_t>(16 - resto)];
    risultato += fine;
    return risultato;
}

}  // namespace krt
