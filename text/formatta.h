// C-style escaping of Windows-1252 text, the inverse of the content escape decoder.
#pragma once
#include <string>
#include <string_view>

namespace krt {

// Printable ASCII (32-126) stays as it is, except the backslash, which becomes "\\".
// Codes 0, 7-13 become "\0", "\a", "\b", "\t", "\n", "\v", "\f", "\r"; every other code
// becomes "\x" and two upper-case hex digits ("\x81" for the GS1 field separator).
// The double quote is printable and stays unchanged.
std::string FormattaEscape(std::string_view testo);

}  // namespace krt
