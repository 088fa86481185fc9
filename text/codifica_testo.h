// Windows-1252 <-> UTF-8 without Qt: the engine speaks Windows-1252 bytes,
// terminals and pipes speak UTF-8.
#pragma once
#include <array>
#include <string>
#include <string_view>

namespace krt {

// Code points of the bytes 0x80-0x9F; the unassigned bytes map to themselves.
inline constexpr std::array<char16_t, 32> Cp1252Alto{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80-87
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 88-8F
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90-97
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 98-9F
};

// The character of a Windows-1252 byte: every byte converts.
constexpr char16_t CarattereCp1252(unsigned char b) {
    return b >= 0x80 && b < 0xA0 ? Cp1252Alto[b - 0x80] : char16_t{b};
}

// The byte of a character, -1 for a character Windows-1252 cannot hold.
int ByteCp1252(char32_t cp);

// Appends the UTF-8 form of the Windows-1252 bytes. The five bytes the code page leaves
// unassigned (0x81, 0x8D, 0x8F, 0x90, 0x9D) become the control characters of the same
// value, as Windows converts them, so every byte survives a round trip.
void AccodaCp1252InUtf8(std::string& uscita, std::string_view byte);

// Converts UTF-8 text to Windows-1252 bytes (uscita is replaced). On a malformed UTF-8
// sequence or a character without a Windows-1252 code returns false and a one-line reason.
bool Utf8InCp1252(std::string_view testo, std::string& uscita, std::string& errore);

// True when testo is well-formed UTF-8 (whatever its characters).
bool Utf8BenFormato(std::string_view testo);

// Appends UTF-8 text as a JSON string literal (quotes included). Malformed UTF-8 bytes
// are written as U+FFFD so that the output always parses.
void AccodaStringaJson(std::string& uscita, std::string_view utf8);

}  // namespace krt
