#include <gtest/gtest.h>

#include <string>

#include "barcodes/controllo.h"

namespace {

struct CasoCheck {
    std::string (*routine)(std::string_view);
    const char* nome;
    std::string ingresso;
    std::string atteso;
};

std::string MSI2(std::string_view c) { return krt::CalcolaCheckMSI(c, 2); }
std::string MSI1(std::string_view c) { return krt::CalcolaCheckMSI(c, 1); }
std::string Check11(std::string_view c) {  // writes its result back into its argument too
    std::string argomento(c);
    const std::string risultato = krt::CalcolaCheck11(argomento);
    return argomento == risultato ? risultato : "not written back";
}

// The checks of the symbols the reader reads back are also seen in rilettura_test.cpp.
TEST(Controllo, ChecksAppendedToContent) {
    const CasoCheck casi[] = {
        {krt::CalcolaCheck39, "39", "", "0"},
        {krt::CalcolaCheck93, "93", "TEST93", "TEST93+6"},
        {krt::CalcolaCheck25, "25", "1234567890123", "12345678901231"},
        {krt::CalcolaCheckMod10, "Mod10", "1234", "12348"},
        {krt::CalcolaCheckMod10, "Mod10", "12345", "123457"},
        {krt::CalcolaCheckMod10, "Mod10", "ABC", "ABC0"},  // letters count as 0
        {Check11, "11", "123-45", "123-455"},
        {Check11, "11", "1234567890", "12345678901"},     // 10 characters: C only
        {Check11, "11", "12345678901", "123456789014-"},  // 11 characters: C and K, K = 10
        {Check11, "11", "", "0"},
        {MSI2, "MSI", "1234", "123447"},
        {MSI2, "MSI", "80523", "8052344"},
        {MSI2, "MSI", "999999999999999", "99999999999999951"},
        {MSI1, "MSI mode 1", "1234", "12344"},
        {krt::CalcolaCheckCIP, "CIP", "123456", "1234568"},
        {krt::CalcolaCheckCIP, "CIP", "000001", "0000013"},
        {krt::CalcolaCheckCIP, "CIP", "000000", "000000:"},  // remainder 0 gives ":"
        {krt::CalcolaCheckCIP, "CIP", "000003", ""},         // remainder 10
        {krt::CalcolaCheckPostnet, "Postnet", "12345", "123455"},
        {krt::CalcolaCheckPostnet, "Postnet", "001234567", "0012345672"},
        {krt::CalcolaCheckPlessey, "Plessey", "", "00"},
        {krt::CalcolaCheckPlessey, "Plessey", "1", "173"},
        {krt::CalcolaCheckPlessey, "Plessey", "01234", "012340D"},
        {krt::CalcolaCheckPlessey, "Plessey", "FFFF", "FFFF4B"},
        {krt::CalcolaCheckPlessey, "Plessey", "123456789ABCDEF", "123456789ABCDEF90"},
        {krt::CalcolaCheckPlessey, "Plessey", "123456789ABCDEF0", ""},  // beyond the residue table
        {krt::CalcolaCheckDelta, "Delta", "12O", "12O6"},
        {krt::CalcolaCheckDelta, "Delta", "KLMO", "KLMO2"},
        {krt::CalcolaCheckDelta, "Delta", "", "0"},
        {krt::CalcolaCheck32, "32", "12345678", "123456788"},
        {krt::CalcolaCheck32, "32", "00000000", "000000000"},
        {krt::CalcolaCheckCodabar, "Codabar", "T0E", "t0/e"},  // 16 + 19 = 35, r 3, place 13
        {krt::CalcolaCheckCodabar, "Codabar", "A0T", "a00t"},  // 32, r 0: "0"
        {krt::CalcolaCheckCodabar, "Codabar", "*+M", "*+.m"},  // 18 + 15 + 17 = 50, r 2, place 14
        {krt::CalcolaCheckCodabar, "Codabar", "AB", "a+b"},    // no data: 16 + 17 = 33, r 1, place 15
        // Outside the validated alphabets: a negative remainder forms no check.
        {krt::CalcolaCheck39, "39", "a", ""},
        {krt::CalcolaCheck39, "39", "\xE9", ""},
        {krt::CalcolaCheck93, "93", "?", ""},
        {krt::CalcolaCheck93, "93", "abcd", "abcdHO"},  // the shift characters are Code 93's own
        {krt::CalcolaCheckMod10, "Mod10", "\x80\xFF", "\x80\xFF" "0"},
    };
    for (const auto& c : casi)
        EXPECT_EQ(c.routine(c.ingresso), c.atteso) << c.nome << " of \"" << c.ingresso << "\"";
}

// The EAN sums read eight characters at a time: places and non-digits must come out as
// one character at a time would give them, whatever the length.
TEST(Controllo, CheckEANOverAnyLength) {
    const struct {
        std::string contenuto;
        char cifra;
    } casi[] = {
        {"590123412345", '7'},              // twelve: the even places weigh 3
        {"5901234123457", '6'},             // thirteen: the odd places weigh 3
        {"59012341:345", '9'},              // ':' follows '9' but is no digit
        {"5901234\xB5", '4'},               // a byte whose low bits read 5
        {"590123\xB5" "4123", '8'},         // the same in the first eight
        {std::string("9:/\xB9" "0p\xF0\0", 8), '3'},
        {"9780306406157890", '1'},
        {"97803064061578905", '6'},
        {"01234567890123456789012345", '3'},
        {"1", '7'},
        {"", '0'},
    };
    for (const auto& c : casi) {
        EXPECT_EQ(krt::CifraCheckEAN(c.contenuto), c.cifra) << "\"" << c.contenuto << "\"";
        EXPECT_EQ(krt::CalcolaCheckEAN(c.contenuto), c.contenuto + c.cifra) << "\"" << c.contenuto << "\"";
    }
}

}  // namespace
