// The engine's entry: what each code accepts and how it rewrites the content, why it refuses,
// and the glyphs of the families without a test font (the others are read back in
// rilettura_test.cpp).
#include <gtest/gtest.h>

#include <string>

#include "barcodes/codifica.h"
#include "barcodes/validazione.h"

namespace {

// The content as rewritten when accepted, else the refusal and its details.
std::string Esito(const krt::Rifiuto& r, const std::string& contenuto) {
    static const char* const Motivi[] = {"",      "empty",  "length", "character", "structure",
                                         "range", "escape", "overflow"};
    std::string esito = r ? Motivi[static_cast<int>(r.motivo)] : contenuto;
    if (r.motivo == krt::MotivoRifiuto::Lunghezza)
        esito += " " + std::to_string(r.minimo) + "-" + std::to_string(r.massimo);
    if (r.motivo == krt::MotivoRifiuto::Carattere) esito += " " + std::to_string(r.posizione) + " " + r.carattere;
    return esito;
}

TEST(Validazione, AcceptsRewritesOrRefuses) {
    const struct {
        const char* codice;
        bool check;
        std::string contenuto, esito;
        std::string glifi = "";  // worked glyphs, for the families without a test font
    } casi[] = {
        {"C39", false, "", "empty"},
        {"EAN13", true, "123", "000000000123"},
        {"EAN13", true, "12345678901234", "length 1-12"},
        {"EAN13", false, "1234567890123", "1234567890123"},
        {"EAN13", false, "12345678901234", "length 1-13"},
        {"EAN13", true, "12a4", "character 3 a"},
        {"UPCA", true, "1", "00000000001"},
        {"UPCE", true, "123456", "0123456"},
        {"UPCE", true, "2345678", "structure"},  // number system 2
        {"UPCE", true, "12345678", "length 1-7"},
        {"UPCE", false, "12345678", "12345678"},
        {"ISBN", false, "30640615", "030640615"},
        {"ADD2", true, "5", "05"},
        {"POSTNET", true, "1234567", "001234567"},
        {"POSTNET", true, "12345", "12345", "*123455#"},
        {"POSTNET", true, "1234567890123", "length 1-11"},
        {"POSTNET", false, "1234567", "0001234567"},
        {"POSTNET", false, "1234567890123", "length 1-12"},
        {"CIP", true, "000003", "range"},    // remainder 10
        {"CIP", false, "0000030", "range"},  // same remainder test on seven digits
        {"CIP", false, "1234567", "1234567", "*1234567#"},
        {"CIP", true, "123456", "123456", "*1234568#"},
        {"CIP", true, "1234567", "length 1-6"},
        {"C25", true, "1234", "01234"},
        {"C25", true, "123", "123"},
        {"C25", false, "123", "0123"},
        {"C25", true, "12a", "character 3 a"},
        {"ITF", true, "1", "0000000000001"},
        {"ITF", false, "123", "00000000000123"},
        {"CIND25", false, "007", "007"},
        {"CIND25", true, "1234", "1234", "*12348#"},
        {"C25INV", true, "ABC", "ABC", "*ABC0#"},
        {"C25COMP", false, "x", "x", "*x#"},
        {"CBCD", true, "1-2", "character 2 -"},
        {"C11", true, "12-34", "12-34"},
        {"C11", true, "12345678901", "12345678901", "*123456789014-#"},
        {"CMSI", true, "1234567890123", "1234567890123"},
        {"CMSI", true, "1234", "1234", "*123447#"},
        {"CMSI", true, "12345678901234", "length 1-13"},
        {"CMSI", false, "123456789012345", "123456789012345"},
        {"C32", true, "1", "00000001"},
        {"C32", true, "12345678", "12345678", "*EWYUJV#"},
        {"C32HRC", true, "12345678", "12345678", "|*EWYUJV#\r\nA123456788"},
        {"C32", false, "1234567890", "length 1-9"},
        {"C128", false, "any \\x41", "any \\x41"},  // escapes are read when encoding
        {"C128", false, "AB\xC8", "character 3 \xC8"},
        {"E128", false, "A\\d200B", "character 2 \xC8"},
        {"C39FULL", true, "\xE9", "character 1 \xE9"},
        {"C39FULL", false, "x\xE9", "character 2 \xE9"},
        {"c39", false, "a_b-c.d$/+%", "A_B-C.D$/+%", "#A_B-C.D$/+%#"},  // the code is upper-cased first
        {"C39", false, "ab!", "character 3 !"},
        {"C93", false, "TE*T", "character 3 *"},
        {"PLESSEY", true, "0123456789abcdef", "length 1-15"},
        {"PLESSEY", false, "0123456789abcde", "0123456789ABCDE"},
        {"PLESSEY", true, "01234", "01234", "*012340D#"},
        {"DELTA", true, "12o", "12O", "*|1|2|O|6|#"},
        {"DELTA", true, "12n", "character 3 n"},
        {"DELTA", true, "1234567890123456", "length 1-15"},
        {"DELTA", false, "1234567890123456", "1234567890123456"},
        {"CBAR", false, "a123b", "A123B"},
        {"CBAR", false, "A1", "length 3-0"},
        {"CBAR", false, "A12", "structure"},  // the last character is no stop character
        {"CBAR", false, "A1x2B", "character 3 x"},
        {"CBAR", false, "*-$:/.+e", "*-$:/.+E"},
        {"CBAR", false, "tAm", "character 2 A"},
    };
    for (const auto& c : casi) {
        SCOPED_TRACE(std::string(c.codice) + (c.check ? " +check " : " ") + testing::PrintToString(c.contenuto));
        std::string contenuto = c.contenuto, copia = c.contenuto, glifi;
        const krt::Rifiuto r = krt::VerificaCodice(contenuto, c.codice, c.check);
        EXPECT_EQ(krt::ValidaCodice(copia, c.codice, c.check), !r);
        // The entry refuses what validation refuses, and more where it reads escapes.
        const krt::Rifiuto rc = krt::CodificaBarcode(copia = c.contenuto, c.codice, c.check, glifi);
        EXPECT_EQ(Esito(rc, contenuto), c.esito);
        EXPECT_TRUE(!r || Esito(r, "") == Esito(rc, ""));
        EXPECT_EQ(glifi.empty(), static_cast<bool>(rc));
        if (!c.glifi.empty()) EXPECT_EQ(glifi, c.glifi);
    }
}

TEST(Validazione, Helpers) {
    EXPECT_TRUE(krt::SoloCifre(""));
    EXPECT_FALSE(krt::SoloCifre("\xB2"));  // superscript two is no digit
    // Eight characters are tested at once: one stranger at any place of any word is seen.
    for (const std::size_t lunghezza : {7u, 8u, 9u, 12u, 13u, 16u, 17u}) {
        const std::string cifre(lunghezza, '7');
        EXPECT_TRUE(krt::SoloCifre(cifre)) << lunghezza;
        for (std::size_t posto = 0; posto < lunghezza; ++posto) {
            for (const char estraneo : {'/', ':', '\xB5', '\0', 'p'}) {
                std::string s = cifre;
                s[posto] = estraneo;
                EXPECT_FALSE(krt::SoloCifre(s)) << "length " << lunghezza << ", byte " << int(estraneo) << " at "
                                                << posto;
            }
        }
    }
    EXPECT_EQ(krt::RiempiSinistra("12", 5, "0"), "00012");
    EXPECT_EQ(krt::RiempiSinistra("12", 5, "xy"), "xxx12");
    EXPECT_EQ(krt::RiempiSinistra("123456", 4, "0"), "1234");
    EXPECT_EQ(krt::RiempiSinistra("", 0, "0"), "");
    EXPECT_EQ(krt::CodificaBarcode("123", "XYZ", false), "");  // no such code
}

}  // namespace
