// Backslash escapes in Code 128, GS1-128 and Full ASCII content.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "barcodes/rifiuto.h"

namespace krt {

// Reads one (possibly escaped) character at the 1-based position and advances it
// past what was consumed. Returns a one-character string, or "" for an escape that
// yields no character (unknown letter, trailing backslash, negative value).
std::string LeggiCarattereEscape(std::string_view contenuto, std::size_t& posizione);

// Lenient base-8/16 reader of an escape's digits (see escape.cpp).
std::int32_t ConvertiDaBase(std::string_view cifre, int base);

// Decodes every escape of the content; throws EscapeNonValido on an escape that
// yields no character.
std::string DecodificaEscape(std::string_view contenuto);

// Decodes character by character and stops at the first one whose code is above
// codiceMassimo: std::nullopt then, and what follows is not read. Throws
// EscapeNonValido on an escape met before that character.
std::optional<std::string> DecodificaEscape(std::string_view contenuto, unsigned codiceMassimo);

// DecodificaEscape(contenuto, codiceMassimo) in place: false, with the content left as it
// was, where that gives std::nullopt. A content without a backslash is not copied.
bool DecodificaEscapeInPosto(std::string& contenuto, unsigned codiceMassimo);

// The first character, read through its escapes, whose code is above codiceMassimo:
// its 1-based position in the content (where its escape starts) and its code; no
// refusal when there is none. The content's escapes are known to be readable.
Rifiuto CarattereOltre(std::string_view contenuto, unsigned codiceMassimo);

// Lenient decimal reader: leading blanks skipped, an optional sign, digits and one
// decimal point; reading stops at the first character that cannot continue the
// number, and no number at all reads as 0.
double LeggiNumero(std::string_view testo);

}  // namespace krt
