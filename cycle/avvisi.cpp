#include "cycle/avvisi.h"

#include <algorithm>
#include <array>

#include "barcodes/ean_upc.h"
#include "barcodes/escape.h"

namespace krt {

namespace {

bool SoloCifre(std::string_view testo) {
    return !testo.empty() && std::all_of(testo.begin(), testo.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// Full length (check digit included) of the numbers whose last digit is a check digit.
std::size_t LunghezzaIntera(std::string_view codice) {
    if (codice == "EAN13" || codice == "ISBN13") return 13;
    if (codice == "EAN8" || codice == "UPCE") return 8;
    if (codice == "UPCA") return 12;
    if (codice == "ITF") return 14;
    if (codice == "ISBN") return 10;
    return 0;
}

// The check character of a number without it: "X" stands for 10 in an ISBN-10.
std::optional<char> CheckDi(std::string_view codice, std::string_view corpo) {
    if (codice == "UPCE") {
        const std::string intero = ConvertiUPCE(corpo);
        if (intero.size() != 8) return std::nullopt;
        return intero.back();
    }
    if (codice == "ISBN") {
        int somma = 0;
        for (std::size_t i = 0; i < corpo.size(); ++i) somma += static_cast<int>(10 - i) * (corpo[i] - '0');
        const int resto = (11 - somma % 11) % 11;
        return resto == 10 ? 'X' : static_cast<char>('0' + resto);
    }
    return CifraCheckGS1(corpo);
}

std::optional<char> CheckSbagliato(std::string_view codice, std::string_view intero) {
    const std::string_view corpo = intero.substr(0, intero.size() - 1);
    if (!SoloCifre(corpo)) return std::nullopt;
    const std::optional<char> atteso = CheckDi(codice, corpo);
    if (!atteso || *atteso == intero.back()) return std::nullopt;
    return atteso;
}

int Numero(std::string_view due) { return (due[0] - '0') * 10 + (due[1] - '0'); }

}  // namespace

char CifraCheckGS1(std::string_view cifre) {
    int somma = 0;
    int peso = 3;
    for (auto it = cifre.rbegin(); it != cifre.rend(); ++it, peso = 4 - peso) somma += peso * (*it - '0');
    return static_cast<char>('0' + (10 - somma % 10) % 10);
}

std::optional<char> CheckDigitErrato(std::string_view codice, std::string_view contenuto) {
    if (codice == "ISBN" || codice == "ISBN13") return std::nullopt;  // always completed by KRT
    const std::size_t intera = LunghezzaIntera(codice);
    if (intera == 0 || contenuto.size() != intera || !SoloCifre(contenuto)) return std::nullopt;
    return CheckSbagliato(codice, contenuto);
}

std::optional<CifraInPiu> CheckDigitInPiu(std::string_view codice, std::string_view contenuto, bool check) {
    const bool isbn = codice == "ISBN" || codice == "ISBN13";
    const std::size_t intera = LunghezzaIntera(codice);
    if (intera == 0 || !(check || isbn) || contenuto.size() != intera) return std::nullopt;
    const std::string_view corpo = contenuto.substr(0, intera - 1);
    const char ultimo = contenuto.back() == 'x' ? 'X' : contenuto.back();
    const bool x = codice == "ISBN" && ultimo == 'X';
    if (!SoloCifre(corpo) || !(x || SoloCifre(contenuto.substr(intera - 1)))) return std::nullopt;
    CifraInPiu esito{intera, intera - 1, std::nullopt};
    if (const std::optional<char> atteso = CheckDi(codice, corpo); atteso && *atteso != ultimo)
        esito.checkErrato = atteso;
    return esito;
}

bool PrefissoISBNErrato(std::string_view contenuto) {
    if (contenuto.size() < 3 || !SoloCifre(contenuto.substr(0, 3))) return false;
    return contenuto.substr(0, 3) != "978" && contenuto.substr(0, 3) != "979";
}

std::optional<char> CheckDigitChiaveGS1(std::string_view ai, std::string_view valore) {
    std::size_t lunghezza = 0;
    if (ai == "00")
        lunghezza = 18;
    else if (ai == "01" || ai == "02")
        lunghezza = 14;
    else if (ai.size() == 3 && ai >= "410" && ai <= "415")
        lunghezza = 13;
    if (lunghezza == 0 || valore.size() != lunghezza || !SoloCifre(valore)) return std::nullopt;
    return CheckSbagliato("GS1", valore);
}

bool DataGS1Impossibile(std::string_view ai, std::string_view valore) {
    if (ai.size() != 2 || ai < "11" || ai > "17" || valore.size() != 6 || !SoloCifre(valore)) return false;
    const int anno = Numero(valore.substr(0, 2)), mese = Numero(valore.substr(2, 2)),
              giorno = Numero(valore.substr(4, 2));
    if (mese < 1 || mese > 12) return true;
    constexpr std::array<int, 12> giorni{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    // Two-digit years: a multiple of 4 is a leap year in the century GS1 places them in.
    const int ultimo = giorni[static_cast<std::size_t>(mese - 1)] + (mese == 2 && anno % 4 == 0 ? 1 : 0);
    return giorno > ultimo;
}

std::string HRCLeggibile(std::string_view hrc, bool codice128) {
    static constexpr std::array<std::string_view, 32> nomi{
        "NUL", "SOH", "STX", "ETX", "EOT", "ENQ", "ACK", "BEL", "BS",  "HT", "LF",  "VT",  "FF", "CR", "SO", "SI",
        "DLE", "DC1", "DC2", "DC3", "DC4", "NAK", "SYN", "ETB", "CAN", "EM", "SUB", "ESC", "FS", "GS", "RS", "US"};
    static constexpr std::array<std::string_view, 5> funzioni{"NUL", "FNC1", "FNC2", "FNC3", "FNC4"};
    std::string leggibile;
    std::size_t posizione = 1;  // 1-based, as the escape reader counts
    while (posizione <= hrc.size()) {
        const std::size_t inizio = posizione;
        std::string carattere;
        try {
            carattere = LeggiCarattereEscape(hrc, posizione);
        } catch (const std::exception&) {
            carattere.clear();
        }
        if (posizione <= inizio) posizione = inizio + 1;
        if (carattere.size() != 1) {
            leggibile.append(hrc.substr(inizio - 1, posizione - inizio));
            continue;
        }
        const auto codice = static_cast<unsigned char>(carattere[0]);
        if (codice < 32)
            leggibile.append("<").append(nomi[codice]).append(">");
        else if (codice == 127)
            leggibile.append("<DEL>");
        else if (codice128 && codice >= 128 && codice <= 132)
            leggibile.append("<").append(funzioni[codice - 128]).append(">");
        else
            leggibile += carattere;
    }
    return leggibile;
}

double LarghezzaMm(double larghezzaEm, double punti) { return larghezzaEm * punti * 25.4 / 72.0; }

}  // namespace krt
