// Content validation: which contents each symbology accepts, and their normal form.
#include "barcodes/validazione.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "barcodes/controllo.h"
#include "barcodes/simbologie.h"

namespace krt {

namespace {

constexpr std::string_view Alfabeto39 = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-._$/+%";
constexpr std::string_view Alfabeto11 = "0123456789-";
constexpr std::string_view AlfabetoPlessey = "0123456789ABCDEF";
constexpr std::string_view AlfabetoDelta = "0123456789KLMO";
constexpr std::string_view InizioFineCodabar = "ABCDEMT*";
constexpr std::string_view DatiCodabar = "0123456789-$:/.+";

// The first character outside the alphabet, upper-cased first when asked.
Rifiuto PrimoFuori(std::string_view testo, std::string_view alfabeto, bool maiuscolo = false) {
    for (std::size_t i = 0; i < testo.size(); ++i) {
        const char c = maiuscolo ? InMaiuscolo(testo[i]) : testo[i];
        if (alfabeto.find(c) == std::string_view::npos) return Rifiuto::InCarattere(i + 1, testo[i]);
    }
    return {};
}

constexpr std::string_view Cifre = "0123456789";

Rifiuto SoloCifreOppure(std::string_view testo) { return SoloCifre(testo) ? Rifiuto{} : PrimoFuori(testo, Cifre); }

// Digits only, no longer than the fixed length L of the code (see the table below),
// zero-filled on the left up to L.
Rifiuto RegolaFissa(std::string& contenuto, std::size_t lunghezza, bool) {
    if (Rifiuto r = SoloCifreOppure(contenuto)) return r;
    if (contenuto.size() > lunghezza) return Rifiuto::DiLunghezza(1, lunghezza);
    if (contenuto.size() < lunghezza) contenuto.insert(0, lunghezza - contenuto.size(), '0');
    return {};
}

Rifiuto RegolaUPCE(std::string& contenuto, std::size_t lunghezza, bool checkDigit) {
    if (Rifiuto r = RegolaFissa(contenuto, lunghezza, checkDigit)) return r;
    // Number system 0 or 1 only.
    if (contenuto.front() != '0' && contenuto.front() != '1') return Rifiuto::Di(MotivoRifiuto::Struttura);
    return {};
}

// ZIP, ZIP+4 or delivery point: 5, 9 or 11 digits, one more without the check option.
Rifiuto RegolaPostnet(std::string& contenuto, std::size_t, bool checkDigit) {
    const std::size_t k = checkDigit ? 0 : 1;
    const std::size_t n = contenuto.size();
    if (Rifiuto r = SoloCifreOppure(contenuto)) return r;
    if (n > 11 + k) return Rifiuto::DiLunghezza(1, 11 + k);
    const std::size_t lunghezza = n <= 5 + k ? 5 + k : n <= 9 + k ? 9 + k : 11 + k;
    return RegolaFissa(contenuto, lunghezza, checkDigit);
}

// Without the check option the seventh digit is not compared, only the remainder tested.
Rifiuto RegolaCIP(std::string& contenuto, std::size_t lunghezza, bool checkDigit) {
    if (Rifiuto r = RegolaFissa(contenuto, lunghezza, checkDigit)) return r;
    if (CalcolaCheckCIP(contenuto).empty()) return Rifiuto::Di(MotivoRifiuto::Intervallo);
    return {};
}

// One leading zero where needed so that content plus check digit is an even count.
Rifiuto RegolaInterleaved(std::string& contenuto, std::size_t, bool checkDigit) {
    if (Rifiuto r = SoloCifreOppure(contenuto)) return r;
    const std::size_t n = contenuto.size();
    const bool aggiungi = checkDigit ? n % 2 == 0 : n % 2 == 1;
    if (aggiungi) contenuto.insert(contenuto.begin(), '0');
    return {};
}

Rifiuto RegolaCifre(std::string& contenuto, std::size_t, bool) { return SoloCifreOppure(contenuto); }

Rifiuto RegolaCodice11(std::string& contenuto, std::size_t, bool) { return PrimoFuori(contenuto, Alfabeto11); }

Rifiuto RegolaMSI(std::string& contenuto, std::size_t, bool checkDigit) {
    if (Rifiuto r = SoloCifreOppure(contenuto)) return r;
    const std::size_t massimo = checkDigit ? 13 : 15;
    if (contenuto.size() > massimo) return Rifiuto::DiLunghezza(1, massimo);
    return {};
}

Rifiuto Accetta(std::string&, std::size_t, bool) { return {}; }

// Upper case, a length limit and an alphabet; the content is rewritten only on acceptance.
Rifiuto AccettaMaiuscolo(std::string& contenuto, std::size_t massimo, std::string_view alfabeto) {
    if (Rifiuto r = PrimoFuori(contenuto, alfabeto, true)) return r;
    if (contenuto.size() > massimo) return Rifiuto::DiLunghezza(1, massimo);
    for (char& c : contenuto) c = InMaiuscolo(c);
    return {};
}

Rifiuto RegolaCodice39(std::string& contenuto, std::size_t, bool) {
    return AccettaMaiuscolo(contenuto, std::string::npos, Alfabeto39);
}

Rifiuto RegolaPlessey(std::string& contenuto, std::size_t, bool) {
    return AccettaMaiuscolo(contenuto, 15, AlfabetoPlessey);
}

Rifiuto RegolaDelta(std::string& contenuto, std::size_t, bool checkDigit) {
    return AccettaMaiuscolo(contenuto, checkDigit ? 15 : 16, AlfabetoDelta);
}

// A start character, data characters, a stop character.
Rifiuto RegolaCodabar(std::string& contenuto, std::size_t, bool) {
    const std::size_t n = contenuto.size();
    if (n < 3) return Rifiuto::DiLunghezza(3, 0);
    if (InizioFineCodabar.find(InMaiuscolo(contenuto.front())) == std::string_view::npos ||
        InizioFineCodabar.find(InMaiuscolo(contenuto.back())) == std::string_view::npos)
        return Rifiuto::Di(MotivoRifiuto::Struttura);
    if (Rifiuto r = PrimoFuori(std::string_view(contenuto).substr(1, n - 2), DatiCodabar, true)) return r.Spostato(1);
    for (char& c : contenuto) c = InMaiuscolo(c);
    return {};
}

using FunzioneRegola = Rifiuto (*)(std::string& contenuto, std::size_t lunghezza, bool checkDigit);

constexpr FunzioneRegola FunzioneDi(RegolaValidazione regola) {
    switch (regola) {
        case RegolaValidazione::Libera: return Accetta;
        case RegolaValidazione::Fissa: return RegolaFissa;
        case RegolaValidazione::UPCE: return RegolaUPCE;
        case RegolaValidazione::Postnet: return RegolaPostnet;
        case RegolaValidazione::CIP: return RegolaCIP;
        case RegolaValidazione::Interleaved: return RegolaInterleaved;
        case RegolaValidazione::Cifre: return RegolaCifre;
        case RegolaValidazione::Codice11: return RegolaCodice11;
        case RegolaValidazione::MSI: return RegolaMSI;
        case RegolaValidazione::Codice39: return RegolaCodice39;
        case RegolaValidazione::Plessey: return RegolaPlessey;
        case RegolaValidazione::Delta: return RegolaDelta;
        case RegolaValidazione::Codabar: return RegolaCodabar;
    }
    return Accetta;
}

struct Regola {
    std::uint64_t chiave = 0;  // ChiaveCodice of the code
    FunzioneRegola valida = nullptr;
    std::uint8_t conCheck = 0;    // fixed length with the check option, 0 for none
    std::uint8_t senzaCheck = 0;  // and without it
};

// The validation rule of every row of the symbology table, found by code in one step.
constexpr auto Regole = [] {
    std::array<Regola, Simbologie.size()> righe{};
    for (std::size_t i = 0; i < righe.size(); ++i) {
        const DescrittoreSimbologia& d = Simbologie[i];
        righe[i] = {ChiaveCodice(d.codice), FunzioneDi(d.validazione), d.conCheck, d.senzaCheck};
    }
    return TabellaCodici(righe);
}();

}  // namespace

bool ValidaCodice(std::string& contenuto, std::string_view codice, bool checkDigit) {
    return !VerificaCodicePerChiave(contenuto, ChiaveCodice(codice), checkDigit);
}

Rifiuto VerificaCodice(std::string& contenuto, std::string_view codice, bool checkDigit) {
    return VerificaCodicePerChiave(contenuto, ChiaveCodice(codice, true), checkDigit);
}

Rifiuto VerificaCodicePerChiave(std::string& contenuto, std::uint64_t chiave, bool checkDigit) {
    if (contenuto.empty()) return Rifiuto::Di(MotivoRifiuto::Vuoto);
    const Regola* r = Regole.Trova(chiave);
    if (r == nullptr) return {};  // an unknown code: the encoder has nothing to draw either
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
