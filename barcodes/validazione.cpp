// Content validation: which contents each symbology accepts, and their normal form.
#include "barcodes/validazione.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "barcodes/controllo.h"

namespace krt {

namespace {

constexpr std::string_view Alfabeto39 = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-._$/+%";
constexpr std::string_view Alfabeto11 = "0123456789-";
constexpr std::string_view AlfabetoPlessey = "0123456789ABCDEF";
constexpr std::string_view AlfabetoDelta = "0123456789KLMO";
constexpr std::string_view InizioFineCodabar = "ABCDEMT*";
constexpr std::string_view DatiCodabar = "0123456789-$:/.+";

bool TuttiIn(std::string_view testo, std::string_view alfabeto) {
    return std::all_of(testo.begin(), testo.end(),
                       [&](char c) { return alfabeto.find(c) != std::string_view::npos; });
}

std::string Maiuscolo(std::string_view testo) {
    std::string risultato(testo);
    for (char& c : risultato) c = InMaiuscolo(c);
    return risultato;
}

// Digits only, no longer than the fixed length L of the code (see the table below),
// zero-filled on the left up to L.
bool RegolaFissa(std::string& contenuto, std::size_t lunghezza, bool) {
    if (contenuto.size() > lunghezza || !SoloCifre(contenuto)) return false;
    if (contenuto.size() < lunghezza) contenuto.insert(0, lunghezza - contenuto.size(), '0');
    return true;
}

bool RegolaUPCE(std::string& contenuto, std::size_t lunghezza, bool checkDigit) {
    const bool accettato = RegolaFissa(contenuto, lunghezza, checkDigit);
    // Number system 0 or 1 only.
    return accettato && (contenuto.front() == '0' || contenuto.front() == '1');
}

// ZIP, ZIP+4 or delivery point: 5, 9 or 11 digits, one more without the check option.
bool RegolaPostnet(std::string& contenuto, std::size_t, bool checkDigit) {
    const std::size_t k = checkDigit ? 0 : 1;
    const std::size_t n = contenuto.size();
    if (!SoloCifre(contenuto) || n > 11 + k) return false;
    const std::size_t lunghezza = n <= 5 + k ? 5 + k : n <= 9 + k ? 9 + k : 11 + k;
    return RegolaFissa(contenuto, lunghezza, checkDigit);
}

// Without the check option the seventh digit is not compared, only the remainder tested.
bool RegolaCIP(std::string& contenuto, std::size_t lunghezza, bool checkDigit) {
    return RegolaFissa(contenuto, lunghezza, checkDigit) && !CalcolaCheckCIP(contenuto).empty();
}

// One leading zero where needed so that content plus check digit is an even count.
bool RegolaInterleaved(std::string& contenuto, std::size_t, bool checkDigit) {
    if (!SoloCifre(contenuto)) return false;
    const std::size_t n = contenuto.size();
    const bool aggiungi = checkDigit ? n % 2 == 0 : n % 2 == 1;
    if (aggiungi) contenuto.insert(contenuto.begin(), '0');
    return true;
}

bool RegolaCifre(std::string& contenuto, std::size_t, bool) { return SoloCifre(contenuto); }

bool RegolaCodice11(std::string& contenuto, std::size_t, bool) { return TuttiIn(contenuto, Alfabeto11); }

bool RegolaMSI(std::string& contenuto, std::size_t, bool checkDigit) {
    return SoloCifre(contenuto) && contenuto.size() <= (checkDigit ? 13u : 15u);
}

bool Accetta(std::string&, std::size_t, bool) { return true; }

// Upper case, a length limit and an alphabet; the content is rewritten only on acceptance.
bool AccettaMaiuscolo(std::string& contenuto, std::size_t massimo, std::string_view alfabeto) {
    if (contenuto.size() > massimo) return false;
    std::string maiuscolo = Maiuscolo(contenuto);
    if (!TuttiIn(maiuscolo, alfabeto)) return false;
    contenuto = std::move(maiuscolo);
    return true;
}

bool RegolaCodice39(std::string& contenuto, std::size_t, bool) {
    return AccettaMaiuscolo(contenuto, std::string::npos, Alfabeto39);
}

bool RegolaPlessey(std::string& contenuto, std::size_t, bool) {
    return AccettaMaiuscolo(contenuto, 15, AlfabetoPlessey);
}

bool RegolaDelta(std::string& contenuto, std::size_t, bool checkDigit) {
    return AccettaMaiuscolo(contenuto, checkDigit ? 15 : 16, AlfabetoDelta);
}

bool RegolaCodabar(std::string& contenuto, std::size_t, bool) {
    std::string maiuscolo = Maiuscolo(contenuto);
    if (maiuscolo.size() < 3) return false;
    if (InizioFineCodabar.find(maiuscolo.front()) == std::string_view::npos ||
        InizioFineCodabar.find(maiuscolo.back()) == std::string_view::npos)
        return false;
    if (!TuttiIn(std::string_view(maiuscolo).substr(1, maiuscolo.size() - 2), DatiCodabar)) return false;
    contenuto = std::move(maiuscolo);
    return true;
}

struct Regola {
    std::uint64_t chiave;  // ChiaveCodice of the code
    bool (*valida)(std::string& contenuto, std::size_t lunghezza, bool checkDigit);
    std::uint8_t conCheck = 0;    // fixed length with the check option, 0 for none
    std::uint8_t senzaCheck = 0;  // and without it

    constexpr Regola(std::string_view codice, bool (*regola)(std::string&, std::size_t, bool),
                     std::uint8_t lunghezzaConCheck = 0, std::uint8_t lunghezzaSenzaCheck = 0)
        : chiave(ChiaveCodice(codice)), valida(regola), conCheck(lunghezzaConCheck),
          senzaCheck(lunghezzaSenzaCheck) {}
};

// Codes not listed (the Inverted and Compressed 2 of 5 among them) are accepted unchanged.
constexpr TabellaCodici Regole(std::array<Regola, 29>{{
    {"UPCE", RegolaUPCE, 7, 8},
    {"EAN8", RegolaFissa, 7, 8},    {"EAN13", RegolaFissa, 12, 13}, {"ISBN", RegolaFissa, 9, 9},
    {"ISBN13", RegolaFissa, 12, 12}, {"UPCA", RegolaFissa, 11, 12},  {"ADD2", RegolaFissa, 2, 2},
    {"ADD5", RegolaFissa, 5, 5},
    {"POSTNET", RegolaPostnet},
    {"CIP", RegolaCIP, 6, 7},
    {"C25", RegolaInterleaved},
    {"CIND25", RegolaCifre},     {"C5BARS", RegolaCifre}, {"C3BARS", RegolaCifre},
    {"CBCD", RegolaCifre},
    {"C11", RegolaCodice11},
    {"CMSI", RegolaMSI},
    {"C32", RegolaFissa, 8, 9},   {"C32HRC", RegolaFissa, 8, 9}, {"ITF", RegolaFissa, 13, 14},
    {"C128", Accetta},           {"E128", Accetta},       {"C39FULL", Accetta},
    {"C93FULL", Accetta},
    {"C39", RegolaCodice39},     {"C93", RegolaCodice39},  // one alphabet for both
    {"PLESSEY", RegolaPlessey},
    {"DELTA", RegolaDelta},
    {"CBAR", RegolaCodabar},
}});

}  // namespace

bool ValidaCodice(std::string& contenuto, std::string_view codice, bool checkDigit) {
    return ValidaCodicePerChiave(contenuto, ChiaveCodice(codice), checkDigit);
}

bool ValidaCodicePerChiave(std::string& contenuto, std::uint64_t chiave, bool checkDigit) {
    const Regola* r = Regole.Trova(chiave);
    if (r == nullptr) return true;
    return r->valida(contenuto, checkDigit ? r->conCheck : r->senzaCheck, checkDigit);
}

namespace {

// Eight characters at once: a byte is a digit when its high nibble is 3 and stays 3
// once 6 is added (no byte carries into the next).
bool OttoCifre(const char* otto) {
    constexpr std::uint64_t Alti = 0xF0F0F0F0F0F0F0F0, Tre = 0x3030303030303030, Sei = 0x0606060606060606;
    std::uint64_t x;
    std::memcpy(&x, otto, sizeof x);
    return (x & Alti) == Tre && ((x + Sei) & Alti) == Tre;
}

}  // namespace

bool SoloCifre(std::string_view testo) {
    const std::size_t n = testo.size();
    if (n < 8) return std::all_of(testo.begin(), testo.end(), [](char c) { return IsDigit(c); });
    for (std::size_t i = 0; i + 8 < n; i += 8)
        if (!OttoCifre(testo.data() + i)) return false;
    return OttoCifre(testo.data() + n - 8);  // the last eight, overlapping the words before
}

std::string RiempiSinistra(std::string_view testo, std::size_t lunghezza, std::string_view riempimento) {
    if (testo.size() > lunghezza) return std::string(testo.substr(0, lunghezza));
    const char c = riempimento.empty() ? ' ' : riempimento.front();
    std::string risultato(lunghezza - testo.size(), c);
    risultato += testo;
    return risultato;
}

}  // namespace krt
