// Windows-1252 <-> UTF-8 (see codifica_testo.h).
#include "text/codifica_testo.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace krt {

namespace {

constexpr char32_t NonValido = 0xFFFFFFFF;

// UTF-8 form of every byte, built once from the table above: up to three bytes and
// how many of them count.
struct Utf8DiByte {
    std::array<char, 3> byte;
    std::uint8_t lunghezza;
};
constexpr std::array<Utf8DiByte, 256> CostruisciUtf8DiByte() {
    std::array<Utf8DiByte, 256> t{};
    for (std::size_t b = 0; b < t.size(); ++b) {
        const char32_t cp = CarattereCp1252(static_cast<unsigned char>(b));
        if (cp < 0x80) {
            t[b] = {{static_cast<char>(cp), 0, 0}, 1};
        } else if (cp < 0x800) {
            t[b] = {{static_cast<char>(0xC0 | (cp >> 6)), static_cast<char>(0x80 | (cp & 0x3F)), 0}, 2};
        } else {
            t[b] = {{static_cast<char>(0xE0 | (cp >> 12)), static_cast<char>(0x80 | ((cp >> 6) & 0x3F)),
                     static_cast<char>(0x80 | (cp & 0x3F))},
                    3};
        }
    }
    return t;
}
constexpr std::array<Utf8DiByte, 256> TabellaUtf8 = CostruisciUtf8DiByte();
static_assert(sizeof(Utf8DiByte) == 4);

// Length of the leading run of ASCII bytes, which both encodings write alike.
// Eight bytes at a time: batch lines are mostly ASCII.
std::size_t LunghezzaAscii(std::string_view testo) {
    std::size_t n = 0;
    for (; n + 8 <= testo.size(); n += 8) {
        std::uint64_t otto;
        std::memcpy(&otto, testo.data() + n, 8);
        if ((otto & 0x8080808080808080ULL) != 0) break;
    }
    while (n < testo.size() && static_cast<unsigned char>(testo[n]) < 0x80) ++n;
    return n;
}

void AccodaPuntoCodice(std::string& uscita, char32_t cp) {
    if (cp < 0x80) {
        uscita += static_cast<char>(cp);
    } else if (cp < 0x800) {
        uscita += static_cast<char>(0xC0 | (cp >> 6));
        uscita += static_cast<char>(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        uscita += static_cast<char>(0xE0 | (cp >> 12));
        uscita += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        uscita += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        uscita += static_cast<char>(0xF0 | (cp >> 18));
        uscita += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
        uscita += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        uscita += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

// Reads one UTF-8 character at i and moves past it. A malformed sequence (bad lead byte,
// missing continuation, overlong form, surrogate, beyond U+10FFFF) gives NonValido and
// moves past its first byte only.
char32_t LeggiUtf8(std::string_view testo, std::size_t& i) {
    const auto b0 = static_cast<unsigned char>(testo[i]);
    if (b0 < 0x80) {
        ++i;
        return b0;
    }
    int seguito = 0;
    char32_t cp = 0;
    char32_t minimo = 0;
    if ((b0 & 0xE0) == 0xC0) {
        seguito = 1, cp = b0 & 0x1F, minimo = 0x80;
    } else if ((b0 & 0xF0) == 0xE0) {
        seguito = 2, cp = b0 & 0x0F, minimo = 0x800;
    } else if ((b0 & 0xF8) == 0xF0) {
        seguito = 3, cp = b0 & 0x07, minimo = 0x10000;
    } else {
        ++i;
        return NonValido;
    }
    if (i + static_cast<std::size_t>(seguito) >= testo.size()) {  // sequence cut short
        ++i;
        return NonValido;
    }
    for (int k = 1; k <= seguito; ++k) {
        const auto b = static_cast<unsigned char>(testo[i + static_cast<std::size_t>(k)]);
        if ((b & 0xC0) != 0x80) {
            ++i;
            return NonValido;
        }
        cp = (cp << 6) | (b & 0x3F);
    }
    if (cp < minimo || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) {
        ++i;
        return NonValido;
    }
    i += static_cast<std::size_t>(seguito) + 1;
    return cp;
}

// Windows-1252 byte of a code point, -1 when the code page has none.
}  // namespace

int ByteCp1252(char32_t cp) {
    if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) return static_cast<int>(cp);
    for (std::size_t k = 0; k < Cp1252Alto.size(); ++k)
        if (Cp1252Alto[k] == cp) return static_cast<int>(0x80 + k);
    return -1;
}

void AccodaCp1252InUtf8(std::string& uscita, std::string_view byte) {
    const std::size_t ascii = LunghezzaAscii(byte);
    uscita.append(byte.substr(0, ascii));
    byte.remove_prefix(ascii);
    // The rest a piece at a time through a buffer with room for three UTF-8 bytes per
    // byte and one more: each byte copies its whole table entry as one word, and only
    // its own count moves on.
    constexpr std::size_t Pezzo = 128;
    char utf8[3 * Pezzo + 1];
    while (!byte.empty()) {
        const std::string_view parte = byte.substr(0, Pezzo);
        char* p = utf8;
        for (const char c : parte) {
            const Utf8DiByte& u = TabellaUtf8[static_cast<unsigned char>(c)];
            std::memcpy(p, &u, sizeof u);
            p += u.lunghezza;
        }
        uscita.append(utf8, static_cast<std::size_t>(p - utf8));
        byte.remove_prefix(parte.size());
    }
}

bool Utf8InCp1252(std::string_view testo, std::string& uscita, std::string& errore) {
    std::size_t i = LunghezzaAscii(testo);
    uscita.assign(testo.substr(0, i));
    while (i < testo.size()) {
        const std::size_t inizio = i;
        const char32_t cp = LeggiUtf8(testo, i);
        if (cp == NonValido) {
            errore = "malformed UTF-8 at byte " + std::to_string(inizio + 1);
            return false;
        }
        const int b = ByteCp1252(cp);
        if (b < 0) {
            char nome[16];
            std::snprintf(nome, sizeof nome, "U+%04X", static_cast<unsigned>(cp));
            errore = std::string("character ") + nome + " has no Windows-1252 code";
            return false;
        }
        uscita += static_cast<char>(b);
        const std::size_t ascii = LunghezzaAscii(testo.substr(i));
        uscita.append(testo.substr(i, ascii));
        i += ascii;
    }
    return true;
}

bool Utf8BenFormato(std::string_view testo) {
    for (std::size_t i = 0; i < testo.size();)
        if (LeggiUtf8(testo, i) == NonValido) return false;
    return true;
}

void AccodaStringaJson(std::string& uscita, std::string_view utf8) {
    static constexpr char Esadecimali[] = "0123456789abcdef";
    uscita += '"';
    std::size_t i = 0;
    while (i < utf8.size()) {
        const auto b = static_cast<unsigned char>(utf8[i]);
        if (b >= 0x80) {
            const std::size_t inizio = i;
            const char32_t cp = LeggiUtf8(utf8, i);
            if (cp == NonValido)
                AccodaPuntoCodice(uscita, 0xFFFD);
            else
                uscita.append(utf8.substr(inizio, i - inizio));
            continue;
        }
        ++i;
        switch (b) {
            case '"': uscita += "\\\""; break;
            case '\\': uscita += "\\\\"; break;
            case '\n': uscita += "\\n"; break;
            case '\r': uscita += "\\r"; break;
            case '\t': uscita += "\\t"; break;
            default:
                if (b < 0x20) {
                    uscita += "\\u00";
                    uscita += Esadecimali[b >> 4];
                    uscita += Esadecimali[b & 0xF];
                } else {
                    uscita += static_cast<char>(b);
                }
        }
    }
    uscita += '"';
}

}  // namespace krt
