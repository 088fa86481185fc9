// Windows-1252 <-> UTF-8 without Qt: the engine speaks Windows-1252 bytes,
// terminals and pipes speak UTF-8.
#pragma once
#include <string>
#include <string_view>

namespace krt {

// Appends the UTF-8 form of the Windows-1252 bytes. The five bytes the code page leaves
// unassigned (0x81, 0x8D, 0x8F, 0x90, 0x9D) become the control characters of the same
// value, as Windows converts them, so every byte survives a round trip.
void AccodaCp1252InUtf8(std::string& uscita, std::string_view byte);

// Converts UTF-8 text to Windows-1252 bytes (uscita is replaced). On a malformed UTF-8
// sequence or a character without a Windows-1252 code returns false and a one-line reason.
bool Utf8InCp1252(std::string_view testo, std::string& uscita, std::string& errore);

// Appends UTF-8 text as a JSON string literal (quotes included). Malformed UTF-8 bytes
// are written as U+FFFD so that the output always parses.
void AccodaStringaJson(std::string& uscita, std::string_view utf8);

}  // namespace krt
