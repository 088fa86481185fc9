// Content validation: which contents each symbology accepts, and their normal form.
#include "barcodes/validazione.h"

#include <algorithm>
#include <array>

#include "barcodes/controllo.h"

namespace krt {

namespace {

constexpr std::string_view Alfabeto39 = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-._$/+%";
constexpr std::string_view Alfabeto11 = "0123456789-";
constexpr std::string_view AlfabetoPlessey = "0123456789ABCDEF";
constexpr std::string_view AlfabetoDelta = "0123456789KLMO";
constexpr std::string_view InizioFineCodabar = "ABCDEMT*";
constexpr std::string_view DatiCodabar = "0123456789-$:/.+";

// Fixed lengths: with the check option the user types one digit less.
struct Lunghezza {
    std::string_view codice;
    std::size_t conCheck;
    std::size_t senzaCheck;
};

constexpr std::array<Lunghezza, 12> LunghezzeFisse = {{
    {"EAN8", 7, 8},   {"EAN13", 12, 13}, {"UPCA", 11, 12}, {"UPCE", 7, 8},
    {"ISBN", 9, 9},   {"ISBN13", 12, 12}, {"ADD2", 2, 2},  {"ADD5", 5, 5},
    {"C32", 8, 9},    {"C32HRC", 8, 9},  {"ITF", 13, 14},  {"CIP", 6, 7},
}};

std::size_t LunghezzaFissa(std::string_view codice, bool checkDigit) {
    for (const auto& l : LunghezzeFisse)
        if (StessoCodice(l.codice, codice)) return checkDigit ? l.conCheck : l.senzaCheck;
    return 0;
}

bool TuttiIn(std::string_view testo, std::string_view alfabeto) {
    return std::all_of(testo.begin(), testo.end(),
                       [&](char c) { return alfabeto.find(c) != std::string_view::npos; });
}

std::string Maiuscolo(std::string_view testo) {
    std::string risultato(testo);
    for (char& c : risultato) c = InMaiuscolo(c);
    return risultato;
}

// Digits only, no longer than L, zero-filled on the left up to L.
bool RegolaLunghezzaFissa(std::string& contenuto, std::size_t lunghezza) {
    if (contenuto.size() > lunghezza || !SoloCifre(contenuto)) return false;
    if (contenuto.size() < lunghezza) contenuto.insert(0, lunghezza - contenuto.size(), '0');
    return true;
}

bool RegolaFissa(std::string& contenuto, std::string_view codice, bool checkDigit) {
    return RegolaLunghezzaFissa(contenuto, LunghezzaFissa(codice, checkDigit));
}

bool RegolaUPCE(std::string& contenuto, std::string_view codice, bool checkDigit) {
    const bool accettato = RegolaFissa(contenuto, codice, checkDigit);
    // Number system 0 or 1 only.
    return accettato && (contenuto.front() == '0' || contenuto.front() == '1');
}

// ZIP, ZIP+4 or delivery point: 5, 9 or 11 digits, one more without the check option.
bool RegolaPostnet(std::string& contenuto, std::string_view, bool checkDigit) {
    const std::size_t k = checkDigit ? 0 : 1;
    const std::size_t n = contenuto.size();
    if (!SoloCifre(contenuto) || n > 11 + k) return false;
    const std::size_t lunghezza = n <= 5 + k ? 5 + k : n <= 9 + k ? 9 + k : 11 + k;
    return RegolaLunghezzaFissa(contenuto, lunghezza);
}

// Without the check option the seventh digit is not compared, only the remainder tested.
bool RegolaCIP(std::string& contenuto, std::string_view codice, bool checkDigit) {
    return RegolaFissa(contenuto, codice, checkDigit) && !CalcolaCheckCIP(contenuto).empty();
}

// One leading zero where needed so that content plus check digit is an even count.
bool RegolaInterleaved(std::string& contenuto, std::string_view, bool checkDigit) {
    if (!SoloCifre(contenuto)) return false;
    const std::size_t n = contenuto.size();
    const bool aggiungi = checkDigit ? n % 2 == 0 : n % 2 == 1;
    if (aggiungi) contenuto.insert(contenuto.begin(), '0');
    return true;
}

bool RegolaCifre(std::string& contenuto, std::string_view, bool) { return SoloCifre(contenuto); }

bool RegolaCodice11(std::string& contenuto, std::string_view, bool) { return TuttiIn(contenuto, Alfabeto11); }

bool RegolaMSI(std::string& contenuto, std::string_view, bool checkDigit) {
    return SoloCifre(contenuto) && contenuto.size() <= (checkDigit ? 13u : 15u);
}

bool Accetta(std::string&, std::string_view, bool) { return true; }

// Upper case, a length limit and an alphabet; the content is rewritten only on acceptance.
bool AccettaMaiuscolo(std::string& contenuto, std::size_t massimo, std::string_view alfabeto) {
    if (contenuto.size() > massimo) return false;
    std::string maiuscolo = Maiuscolo(contenuto);
    if (!TuttiIn(maiuscolo, alfabeto)) return false;
    contenuto = std::move(maiuscolo);
    return true;
}

bool RegolaCodice39(std::string& contenuto, std::string_view, bool) {
    return AccettaMaiuscolo(contenuto, std::string::npos, Alfabeto39);
}

bool RegolaPlessey(std::string& contenuto, std::string_view, bool) {
    return AccettaMaiuscolo(contenuto, 15, AlfabetoPlessey);
}

bool RegolaDelta(std::string& contenuto, std::string_view, bool checkDigit) {
    return AccettaMaiuscolo(contenuto, checkDigit ? 15 : 16, AlfabetoDelta);
}

bool RegolaCodabar(std::string& contenuto, std::string_view, bool) {
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
    std::string_view codice;
    bool (*valida)(std::string& contenuto, std::string_view codice, bool checkDigit);
};

// Codes not listed (the Inverted and Compressed 2 of 5 among them) are accepted unchanged.
constexpr std::array<Regola, 29> Regole = {{
    {"UPCE", RegolaUPCE},
    {"EAN8", RegolaFissa},       {"EAN13", RegolaFissa}, {"ISBN", RegolaFissa},
    {"ISBN13", RegolaFissa},     {"UPCA", RegolaFissa},  {"ADD2", RegolaFissa},
    {"ADD5", RegolaFissa},
    {"POSTNET", RegolaPostnet},
    {"CIP", RegolaCIP},
    {"C25", RegolaInterleaved},
    {"CIND25", RegolaCifre},     {"C5BARS", RegolaCifre}, {"C3BARS", RegolaCifre},
    {"CBCD", RegolaCifre},
    {"C11", RegolaCodice11},
    {"CMSI", RegolaMSI},
    {"C32", RegolaFissa},        {"C32HRC", RegolaFissa}, {"ITF", RegolaFissa},
    {"C128", Accetta},           {"E128", Accetta},       {"C39FULL", Accetta},
    {"C93FULL", Accetta},
    {"C39", RegolaCodice39},     {"C93", RegolaCodice39},  // one alphabet for both
    {"PLESSEY", RegolaPlessey},
    {"DELTA", RegolaDelta},
    {"CBAR", RegolaCodabar},
}};

}  // namespace

bool ValidaCodice(std::string& contenuto, std::string_view codice, bool checkDigit) {
    for (const auto& r : Regole)
        if (StessoCodice(r.codice, codice)) return r.valida(contenuto, codice, checkDigit);
    return true;
}

bool SoloCifre(std::string_view testo) {
    return std::all_of(testo.begin(), testo.end(), [](char c) { return IsDigit(c); });
}

std::string RiempiSinistra(std::string_view testo, std::size_t lunghezza, std::string_view riempimento) {
    if (testo.size() > lunghezza) return std::string(testo.substr(0, lunghezza));
    const char c = riempimento.empty() ? ' ' : riempimento.front();
    std::string risultato(lunghezza - testo.size(), c);
    risultato += testo;
    return risultato;
}

}  // namespace krt
