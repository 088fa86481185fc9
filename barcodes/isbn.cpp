// ISBN-10 and ISBN-13: check characters, conversion between the two forms,
// hyphenation by registration group and publisher ranges, and the text line that the
// EAN font draws above the bars.
#include "barcodes/isbn.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "barcodes/controllo.h"
#include "barcodes/errori.h"
#include "barcodes/escape.h"
#include "barcodes/validazione.h"

namespace krt {

namespace {

// Smallest prefix of each block of registration groups; an entry's length is the
// length of every group in its block.
constexpr std::string_view Gruppi = "0,80,950,9960,99900";

struct IntervalliGruppo {
    int gruppo;
    std::string_view inizi;  // publisher range starts, ascending as strings
};

// clang-format off
constexpr std::array<IntervalliGruppo, 131> Editori{{
    {0, "00,200,7000,85000,900000,9500000"},
    {1, "00000000,55000,869800,9999900"},
    {2, "00,200,40000000,500,7000,84000,900000,9500000"},
    {3, "00,200,7000,85000,900000,9500000"},
    {4, "00,200,7000,85000,900000,9500000"},
    {5, "00,200,7000,85000,900000,9500000"},
    {7, "00,100,5000,80000,900000"},
    {80, "00,200,7000,85000,900000"},
    {81, "00,200,7000,85000,900000"},
    {82, "00,200,7000,90000,990000"},
    {83, "00,200,7000,85000,900000"},
    {84, "00,200,7000,85000,900000,95000,9700"},
    {85, "00,200,7000,85000,900000"},
    {86, "00,300,7000,80000,900000"},
    {87, "00,400,7000,85000,970000"},
    {88, "00,200,7000,85000,900000"},
    {89, "00,300,7000,85000,950000"},
    {90, "00,200,5000,70000,800000,9000000"},
    {91, "0,20,500,6500000,7000,8000000,85000,9500000,970000"},
    {92, "0,60,800,9000"},
    {93, "0000000"},
    {950, "00,500,9000,99000"},
    {951, "0,20,550,8900,95000"},
    {952, "00,200,5000,89,9500,99000"},
    {953, "0,10,150,6000,96000"},
    {954, "00,400,8000,90000"},
    {955, "0,20,550,800000,9000,95000"},
    {956, "00,200,7000"},
    {957, "00,440,8500,97000"},
    {958, "0,600,9000,95000"},
    {959, "00,200,7000"},
    {960, "00,200,7000,85000"},
    {961, "00,200,6000,90000"},
    {962, "00,200,7000,85000"},
    {963, "00,200,7000,85000"},
    {964, "00,300,5500,90000"},
    {965, "00,200,7000,90000"},
    {966, "00,500,7000,90000"},
    {967, "0,60,900,9900,99900"},
    {968, "000000,10,400,500000,6000,800,900000"},
    {969, "0,20,400,8000"},
    {970, "00,600,9000,91000"},
    {971, "00,500,8500,91000"},
    {972, "0,20,550,8000,95000"},
    {973, "0,20,550,9000,95000"},
    {974, "00,200,7000,85000,900000"},
    {975, "00,300,6000,92000,980000"},
    {976, "0,40,600,8000,95000"},
    {977, "00,200,5000,70000"},
    {978, "000,2000,30000"},
    {979, "0,20,300000,400,700000,8000,95000"},
    {980, "00,200,6000"},
    {981, "00,200,3000"},
    {982, "00,100,500000"},
    {983, "000,2000,300000,50,800,9000,99000"},
    {984, "00,400,8000,90000"},
    {985, "00,400,6000,90000"},
    {986, "000000"},
    {987, "00,500,9000,99000"},
    {9952, "00000"},
    {9953, "0,20,9000"},
    {9954, "00,8000"},
    {9955, "00,400"},
    {9956, "00000"},
    {9957, "00,8000"},
    {9958, "0,10,500,7000,9000"},
    {9959, "00"},
    {9960, "00,600,9000"},
    {9961, "0,50,800,9500"},
    {9962, "00000"},
    {9963, "0,30,550,7500"},
    {9964, "0,70,950"},
    {9965, "00,400,9000"},
    {9966, "00,70000,800,9600"},
    {9967, "00000"},
    {9968, "0,10,700,9700"},
    {9970, "00,400,9000"},
    {9971, "0,60,900,9900"},
    {9972, "0,40,600,9000"},
    {9973, "0,10,700,9700"},
    {9974, "0,30,550,7500"},
    {9975, "0,50,900,9500"},
    {9976, "0,60,900,99000,9990"},
    {9977, "00,900,9900"},
    {9978, "00,950,9900"},
    {9979, "0,50,800,9000"},
    {9980, "0,40,900,9900"},
    {9981, "0,20,800,9500"},
    {9982, "00,40000,800,9900"},
    {9983, "00,500,80,950,9900"},
    {9984, "00,500,9000"},
    {9985, "0,50,800,9000"},
    {9986, "00,400,9000"},
    {9987, "00,400,8800"},
    {9988, "0,30,550,7500"},
    {9989, "0,30,600,9700"},
    {99901, "00"},
    {99903, "0,20,900"},
    {99904, "0,60,900"},
    {99905, "0,60,900"},
    {99906, "0,60,900"},
    {99908, "0,10,900"},
    {99909, "0,40,950"},
    {99910, "0000"},
    {99911, "00,600"},
    {99912, "0,60,900"},
    {99913, "0,30,600"},
    {99914, "0,50,900"},
    {99915, "0,50,800"},
    {99916, "0,30,700"},
    {99917, "0,30"},
    {99918, "0,40,900"},
    {99919, "0,40,900"},
    {99920, "0,50,900"},
    {99921, "0,20,700"},
    {99922, "0,50"},
    {99923, "0,20,800"},
    {99924, "0,30"},
    {99925, "0,40,800"},
    {99926, "0000,600"},
    {99927, "0,30,600"},
    {99928, "0,50,800"},
    {99929, "0000"},
    {99930, "0,50,800"},
    {99931, "0000"},
    {99932, "0,10"},
    {99933, "00,300"},
    {99934, "0"},
    {99935, "0000"},
    {99936, "0000"},
    {99937, "0,20"},
}};
// clang-format on

constexpr bool InOrdine() {
    for (std::size_t i = 1; i < Editori.size(); ++i)
        if (Editori[i - 1].gruppo >= Editori[i].gruppo) return false;
    return true;
}
static_assert(InOrdine(), "the group table is searched by bisection");

constexpr std::string_view CaratteriISBN = "0123456789X-";
constexpr std::string_view GlifiISBN = "%&'():;<=>?.";

// Value of an ISBN character taken as a digit: its code minus 48 (so "X" is 40).
constexpr int Valore(char c) { return static_cast<unsigned char>(c) - 48; }

// ISBN-10 check character of the first nine characters.
char CheckISBN10(std::string_view numero) {
    long long somma = 0;
    for (std::size_t i = 0; i < 9 && i < numero.size(); ++i) somma += Valore(numero[i]) * static_cast<long long>(10 - i);
    const long long r = ((somma % 11) + 11) % 11;
    if (r == 0) return '0';
    if (11 - r == 10) return 'X';
    return static_cast<char>('0' + (11 - r));
}

// EAN check digit of the first twelve characters: weights 1, 3, 1, 3 ...
char CheckISBN13(std::string_view numero) {
    long long somma = 0;
    for (std::size_t i = 0; i < 12 && i < numero.size(); ++i) somma += Valore(numero[i]) * (i % 2 == 0 ? 1 : 3);
    return static_cast<char>('0' + ((10 - somma % 10) % 10 + 10) % 10);
}

// 1-based substring, clamped to the text like a lenient Mid.
std::string_view Mid(std::string_view testo, std::size_t inizio, std::size_t n = std::string_view::npos) {
    if (inizio == 0 || inizio > testo.size()) return {};
    return testo.substr(inizio - 1, n);
}

}  // namespace

std::string CalcolaCheckISBN(std::string_view numero) {
    if (numero.size() == 12) return CalcolaCheckEAN(numero);
    std::string risultato(numero);
    risultato += '-';
    risultato += CheckISBN10(numero);
    return risultato;
}

std::int16_t ConvertiISBN(std::string_view isbn, std::string& isbn10, std::string& isbn13) {
    std::string pulito = SostituisciTesto(SostituisciTesto(isbn, "-", ""), " ", "");
    for (char& c : pulito) c = InMaiuscolo(c);

    if (pulito.empty()) return -1;
    if (pulito.size() != 10 && pulito.size() != 13) return -2;
    if (TrovaCarattereNonValido(pulito, pulito.size() == 10 ? "0123456789X" : "0123456789") != 0) return -3;

    if (pulito.size() == 10) {
        // An "X" among the first nine passes the character test and weighs 40 there.
        long long somma = 0;
        for (std::size_t i = 0; i < 9; ++i) somma += Valore(pulito[i]) * static_cast<long long>(10 - i);
        somma += pulito[9] == 'X' ? 10 : Valore(pulito[9]);
        if (somma % 11 != 0) return -4;
        std::string tredici = "978" + pulito.substr(0, 9);
        tredici += CheckISBN13(tredici);
        isbn10 = ScomponiISBN(pulito);
        isbn13 = ScomponiISBN(tredici);
        return 0;
    }

    if (CheckISBN13(pulito) != pulito[12]) return -5;
    // The prefix is not examined: a "979" number gets an ISBN-10 as well.
    std::string dieci = pulito.substr(3, 9);
    dieci += CheckISBN10(dieci);
    isbn13 = ScomponiISBN(pulito);
    isbn10 = ScomponiISBN(dieci);
    return 0;
}

std::string ScomponiISBN(std::string_view isbn) {
    std::string prefisso;
    if (isbn.size() == 13) {
        prefisso = std::string(isbn.substr(0, 3)) + "-";
        isbn = isbn.substr(3);
    }
    const std::string gruppo = TrovaGruppoISBN(isbn);
    const std::size_t g = gruppo.size();
    const std::string_view resto = g < 9 ? Mid(isbn, g + 1, 9 - g) : std::string_view{};
    const std::string_view check = Mid(isbn, 10, 1);

    const std::string lista = LeggiIntervalliEditore(gruppo);
    const std::size_t p = lista.empty() ? 0 : LunghezzaIntervallo(resto, lista);
    std::string risultato = prefisso + gruppo + "-";
    if (lista.empty() || g + p == 9) {
        risultato += resto;
    } else {
        risultato += resto.substr(0, std::min(p, resto.size()));
        risultato += "-";
        risultato += Mid(resto, p + 1);
    }
    risultato += "-";
    risultato += check;
    return risultato;
}

std::string TrovaGruppoISBN(std::string_view isbn) {
    const std::size_t n = LunghezzaIntervallo(NormalizzaISBN(isbn), Gruppi);
    return std::string(isbn.substr(0, std::min(n, isbn.size())));
}

std::string LeggiIntervalliEditore(std::string_view gruppo) {
    const double numero = LeggiNumero(gruppo);
    if (!(numero >= 0 && numero <= 99999) || numero != std::floor(numero)) return {};
    const int chiave = static_cast<int>(numero);
    const auto it = std::lower_bound(Editori.begin(), Editori.end(), chiave,
                                     [](const IntervalliGruppo& e, int k) { return e.gruppo < k; });
    if (it == Editori.end() || it->gruppo != chiave) return {};
    return std::string(it->inizi);
}

std::size_t LunghezzaIntervallo(std::string_view cifre, std::string_view lista) {
    // Entries are compared with the digits as plain strings, character code by code.
    bool trovata = false;
    std::size_t lunghezza = 0;
    if (!lista.empty()) {
        std::size_t inizio = 0;
        for (;;) {
            const std::size_t virgola = lista.find(',', inizio);
            const std::string_view voce = lista.substr(inizio, virgola == std::string_view::npos ? virgola : virgola - inizio);
            if (voce.compare(cifre) > 0) break;
            trovata = true;
            lunghezza = voce.size();
            if (virgola == std::string_view::npos) break;
            inizio = virgola + 1;
        }
    }
    if (!trovata)
        throw IntervalloNonValido("No range of the list \"" + std::string(lista) + "\" starts at or below \"" +
                                  std::string(cifre) + "\"");
    return lunghezza;
}

std::string NormalizzaISBN(std::string_view testo) {
    std::string risultato;
    risultato.reserve(testo.size());
    for (char c : testo) {
        if (c == '-') continue;
        risultato += c == 'x' ? 'X' : c;
    }
    return risultato;
}

std::size_t TrovaCarattereNonValido(std::string_view testo, std::string_view ammessi) {
    const std::size_t p = testo.find_first_not_of(ammessi);
    return p == std::string_view::npos ? 0 : p + 1;
}

std::string SostituisciTesto(std::string_view testo, std::string_view cerca, std::string_view sostituto) {
    if (cerca.empty()) return std::string(testo);
    std::string risultato;
    risultato.reserve(testo.size());
    std::size_t inizio = 0;
    for (std::size_t p; (p = testo.find(cerca, inizio)) != std::string_view::npos; inizio = p + cerca.size()) {
        risultato += testo.substr(inizio, p - inizio);
        risultato += sostituto;
    }
    risultato += testo.substr(inizio);
    return risultato;
}

std::string CodificaTestoISBN(std::string_view sillabato) {
    std::string glifi;
    glifi.reserve(sillabato.size());
    for (std::size_t i = 0; i < sillabato.size(); ++i) {
        const std::size_t p = CaratteriISBN.find(sillabato[i]);
        if (p == std::string_view::npos)
            throw EscapeNonValido("The ISBN text line cannot show the character at position " + std::to_string(i + 1) +
                                  " of \"" + std::string(sillabato) + "\"");
        glifi += GlifiISBN[p];
    }
    return glifi;
}

}  // namespace krt
