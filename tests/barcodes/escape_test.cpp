#include <gtest/gtest.h>

#include <string>

#include "barcodes/errori.h"
#include "barcodes/escape.h"

namespace {

constexpr int Vuoto = -1;  // the escape gives no character

struct CasoEscape {
    std::string contenuto;
    std::size_t posizione;  // 1-based, where the read starts
    int codice;             // code of the character read, or Vuoto
    std::size_t dopo;       // position after the read
};

TEST(Escape, OneCharacterReads) {
    const CasoEscape casi[] = {
        {"A", 1, 'A', 2},
        {"xy", 2, 'y', 3},
        {"\\A", 1, 7, 3}, {"\\N", 1, 10, 3}, {"\\v", 1, 11, 3}, {"\\\"", 1, 34, 3},
        // "\\d" is a backslash followed by "d", not a decimal escape.
        {"\\\\d", 1, 92, 3}, {"\\\\d", 3, 'd', 4},
        // Decimal: a lenient reader, rounded, capped at 255; always 3 characters.
        {"\\d065", 1, 'A', 6}, {"\\D065", 1, 'A', 6}, {"\\d65x", 1, 'A', 6},
        {"\\d 65", 1, 'A', 6}, {"\\d999", 1, 255, 6}, {"\\d129", 1, 129, 6},
        {"\\d000", 1, 0, 6}, {"\\dabc", 1, 0, 6}, {"\\d", 1, 0, 6},
        {"\\d1.5", 1, 2, 6}, {"\\d2.5", 1, 2, 6}, {"\\d-12", 1, Vuoto, 6},
        {"\\d-0", 1, 0, 6}, {"\\d1234", 1, 123, 6},
        // Octal: the digit and two more characters, digits not checked against the base.
        {"\\101", 1, 'A', 5}, {"\\201", 1, 129, 5}, {"\\777", 1, 255, 5},
        {"\\999", 1, 255, 5}, {"\\0", 1, 0, 5}, {"\\08", 1, 8, 5},
        // Hexadecimal: two characters, fewer at the end.
        {"\\x41", 1, 'A', 5}, {"\\X41", 1, 'A', 5}, {"\\xff", 1, 255, 5}, {"\\x81", 1, 129, 5},
        {"\\x4", 1, 4, 5}, {"\\x", 1, 0, 5}, {"\\xG0", 1, 255, 5}, {"\\x1 ", 1, 0, 5},
        {"\\x 1", 1, Vuoto, 5}, {"\\x\xE9" "0", 1, 255, 5},  // an accented letter reads as its capital
        // No character: only the backslash is consumed.
        {"\\q", 1, Vuoto, 2}, {"ab\\", 3, Vuoto, 4},
    };
    for (const auto& c : casi) {
        std::size_t pos = c.posizione;
        const std::string r = krt::LeggiCarattereEscape(c.contenuto, pos);
        EXPECT_EQ(r, c.codice == Vuoto ? "" : std::string(1, static_cast<char>(c.codice))) << c.contenuto;
        EXPECT_EQ(pos, c.dopo) << c.contenuto;
    }
}

TEST(Escape, WholeContent) {
    const struct {
        std::string contenuto;
        std::string atteso;
    } casi[] = {
        {"", ""},
        {"plain", "plain"},
        {"a\\tb\\d065\\x42\\103", "a\tbABC"},
        {"\\\\q", "\\q"},
        {"10AB\\x81" "217", "10AB\x81" "217"},
        {std::string("\\d000", 5), std::string(1, '\0')},
    };
    for (const auto& c : casi) EXPECT_EQ(krt::DecodificaEscape(c.contenuto), c.atteso) << c.contenuto;
}

TEST(Escape, NoCharacterIsAFault) {
    for (const std::string contenuto : {"abc\\", "ab\\qc", "\\d-12", "\\x 1", "\\"})
        EXPECT_THROW(krt::DecodificaEscape(contenuto), krt::EscapeNonValido) << contenuto;
}

TEST(Escape, StopsAtTheFirstCharacterAboveTheLimit) {
    // The limit is met before the faulty escape: a quiet refusal, not a fault.
    EXPECT_EQ(krt::DecodificaEscape("A\\d200\\q", 132), std::nullopt);
    EXPECT_THROW(krt::DecodificaEscape("\\qA\\d200", 132), krt::EscapeNonValido);
    EXPECT_EQ(krt::DecodificaEscape("\\d132", 132), std::optional<std::string>("\x84"));
    EXPECT_EQ(krt::DecodificaEscape("\\d128", 127), std::nullopt);
}

}  // namespace
