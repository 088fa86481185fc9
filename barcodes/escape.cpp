// Backslash escapes: one-letter forms, "\dNNN" decimal, "\NNN" octal and "\xNN"
// hexadecimal. The readers are lenient on purpose: digits are not checked against
// their base, and short escapes at the end of the content simply have fewer digits.
#include "barcodes/escape.h"

#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "barcodes/errori.h"
#include "barcodes/validazione.h"

namespace krt {

namespace {

struct EscapeSemplice {
    char lettera;  // upper case: letters match without regard to case
    unsigned char codice;
};

constexpr std::array<EscapeSemplice, 11> EscapeSemplici{{
    {'A', 7}, {'B', 8}, {'F', 12}, {'N', 10}, {'R', 13}, {'T', 9}, {'V', 11},
    {'\\', 92}, {'?', 63}, {'\'', 39}, {'"', 34},
}};

// Why an escape gave no character.
enum class Mancanza { Nessuna, LetteraSconosciuta, BarraFinale, ValoreNegativo };

struct Lettura {
    unsigned char codice = 0;
    Mancanza mancanza = Mancanza::Nessuna;
};

// Upper case of a Windows-1252 byte (ASCII letters and the accented Latin letters).
constexpr unsigned char Maiuscolo1252(unsigned char c) {
    if (c >= 'a' && c <= 'z') return static_cast<unsigned char>(c - 32);
    if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return static_cast<unsigned char>(c - 32);
    switch (c) {
        case 0x9A: return 0x8A;  // s caron
        case 0x9C: return 0x8C;  // oe
        case 0x9E: return 0x8E;  // z caron
        case 0xFF: return 0x9F;  // y diaeresis
        default: return c;
    }
}

// Up to n characters from the 1-based position, fewer at the end of the text.
std::string_view Porzione(std::string_view testo, std::size_t posizione, std::size_t n) {
    if (posizione == 0 || posizione > testo.size()) return {};
    return testo.substr(posizione - 1, n);
}

Lettura DaValore(long long valore) {
    if (valore < 0) return {0, Mancanza::ValoreNegativo};
    return {static_cast<unsigned char>(valore > 255 ? 255 : valore), Mancanza::Nessuna};
}

Lettura Leggi(std::string_view contenuto, std::size_t& posizione) {
    if (posizione == 0) posizione = 1;
    if (posizione > contenuto.size()) {  // nothing left: a caller that does not loop properly
        ++posizione;
        return {0, Mancanza::BarraFinale};
    }
    const char c = contenuto[posizione - 1];
    ++posizione;
    if (c != '\\') return {static_cast<unsigned char>(c), Mancanza::Nessuna};

    if (posizione > contenuto.size()) return {0, Mancanza::BarraFinale};
    const char lettera = InMaiuscolo(contenuto[posizione - 1]);
    for (const auto& e : EscapeSemplici) {
        if (e.lettera == lettera) {
            ++posizione;
            return {e.codice, Mancanza::Nessuna};
        }
    }
    if (lettera == 'D') {
        const double numero = LeggiNumero(Porzione(contenuto, posizione + 1, 3));
        posizione += 4;
        // Rounded to a whole number, halves to the even neighbour.
        return DaValore(static_cast<long long>(std::nearbyint(numero)));
    }
    if (IsDigit(lettera)) {
        const std::int32_t valore = ConvertiDaBase(Porzione(contenuto, posizione, 3), 8);
        posizione += 3;
        return DaValore(valore);
    }
    if (lettera == 'X') {
        const std::int32_t valore = ConvertiDaBase(Porzione(contenuto, posizione + 1, 2), 16);
        posizione += 3;
        return DaValore(valore);
    }
    return {0, Mancanza::LetteraSconosciuta};  // only the backslash is consumed
}

[[noreturn]] void Rifiuta(std::string_view contenuto, std::size_t inizio, std::size_t fine,
                          Mancanza mancanza) {
    std::string testo(Porzione(contenuto, inizio, fine > inizio ? fine - inizio : 1));
    std::string messaggio;
    switch (mancanza) {
        case Mancanza::BarraFinale:
            messaggio = "The content ends with a backslash that starts no escape sequence";
            break;
        case Mancanza::ValoreNegativo:
            messaggio = "The escape sequence \"" + testo + "\" at position " +
                        std::to_string(inizio) + " gives a negative character code";
            break;
        default:
            messaggio = "Unknown escape sequence \"" + std::string(Porzione(contenuto, inizio, 2)) +
                        "\" at position " + std::to_string(inizio);
            break;
    }
    throw EscapeNonValido(messaggio);
}

}  // namespace

std::string LeggiCarattereEscape(std::string_view contenuto, std::size_t& posizione) {
    const Lettura l = Leggi(contenuto, posizione);
    if (l.mancanza != Mancanza::Nessuna) return {};
    return std::string(1, static_cast<char>(l.codice));
}

std::int32_t ConvertiDaBase(std::string_view cifre, int base) {
    // Only a few characters come from an escape; longer texts saturate instead of wrapping.
    constexpr long long Massimo = std::numeric_limits<std::int32_t>::max();
    constexpr long long Minimo = std::numeric_limits<std::int32_t>::min();
    long long numero = 0;
    for (char ch : cifre) {
        const unsigned char c = Maiuscolo1252(static_cast<unsigned char>(ch));
        const int cifra = c > '9' ? c - 55 : c - 48;
        numero = numero * base + cifra;
        if (numero > Massimo) numero = Massimo;
        if (numero < Minimo) numero = Minimo;
    }
    return static_cast<std::int32_t>(numero);
}

std::string DecodificaEscape(std::string_view contenuto) {
    return *DecodificaEscape(contenuto, 255);
}

std::optional<std::string> DecodificaEscape(std::string_view contenuto, unsigned codiceMassimo) {
    std::string decodificato;
    decodificato.reserve(contenuto.size());
    std::size_t posizione = 1;
    while (posizione <= contenuto.size()) {
        const std::size_t inizio = posizione;
        const Lettura l = Leggi(contenuto, posizione);
        if (l.mancanza != Mancanza::Nessuna) Rifiuta(contenuto, inizio, posizione, l.mancanza);
        if (l.codice > codiceMassimo) return std::nullopt;
        decodificato += static_cast<char>(l.codice);
    }
    return decodificato;
}

bool DecodificaEscapeInPosto(std::string& contenuto, unsigned codiceMassimo) {
    if (contenuto.find('\\') == std::string::npos) {  // every character stands for itself
        for (const char c : contenuto)
            if (static_cast<unsigned char>(c) > codiceMassimo) return false;
        return true;
    }
    auto decodificato = DecodificaEscape(contenuto, codiceMassimo);
    if (!decodificato) return false;
    contenuto = std::move(*decodificato);
    return true;
}

Rifiuto CarattereOltre(std::string_view contenuto, unsigned codiceMassimo) {
    for (std::size_t posizione = 1; posizione <= contenuto.size();) {
        const std::size_t inizio = posizione;
        const Lettura l = Leggi(contenuto, posizione);
        if (l.mancanza != Mancanza::Nessuna) return Rifiuto::Di(MotivoRifiuto::Escape);
        if (l.codice > codiceMassimo) return Rifiuto::InCarattere(inizio, static_cast<char>(l.codice));
    }
    return {};
}

double LeggiNumero(std::string_view testo) {
    std::size_t i = 0;
    while (i < testo.size() && (testo[i] == ' ' || testo[i] == '\t')) ++i;
    bool negativo = false;
    if (i < testo.size() && (testo[i] == '+' || testo[i] == '-')) negativo = testo[i++] == '-';
    double numero = 0;
    for (; i < testo.size() && IsDigit(testo[i]); ++i) numero = numero * 10 + (testo[i] - '0');
    if (i < testo.size() && testo[i] == '.') {
        double peso = 0.1;
        for (++i; i < testo.size() && IsDigit(testo[i]); ++i, peso /= 10) numero += peso * (testo[i] - '0');
    }
    return negativo ? -numero : numero;
}

}  // namespace krt
