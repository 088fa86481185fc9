#include <gtest/gtest.h>

#include <string>

#include "barcodes/codifica.h"

namespace {

struct CasoCodifica {
    const char* codice;
    bool check;
    std::string contenuto;
    std::string atteso;
};

TEST(Codifica, DispatchByCode) {
    const CasoCodifica casi[] = {
        {"C39", false, "abc", "#ABC#"},
        {"c39", false, "abc", "#ABC#"},  // the code is upper-cased first
        {"C39", true, "CODE39", "#CODE39W#"},
        {"C93", true, "TEST", "*TEST8M#"},
        {"CIP", false, "1234567", "*1234567#"},
        {"CIP", true, "123456", "*1234568#"},
        {"POSTNET", true, "12345", "*123455#"},
        {"PLESSEY", true, "01234", "*012340D#"},
        {"DELTA", true, "12o", "*|1|2|O|6|#"},
        {"C25", true, "1234", "*HhSbHj#"},                  // 01234 + 8
        {"ITF", true, "1", "*ApApApApApApEy#"},             // 0000000000001 + 7
        {"CIND25", true, "1234", "*12348#"},
        {"C25INV", true, "ABC", "*ABC0#"},
        {"C25COMP", false, "x", "*x#"},
        {"C11", true, "12345678901", "*123456789014-#"},
        {"CMSI", true, "1234", "*123447#"},
        {"EAN13", true, "400638133393", "4|AaGDib!pppvpn|"},
        {"UPCA", true, "03600029145", "|ADGAAA!ovnqro|"},
        {"EAN8", true, "9638507", "|JGDI!rmtq|"},
        {"UPCE", true, "123456", "0|bCDefG#"},  // padded to 0123456, check 5 from the expansion
        {"ADD2", true, "12", "-+L_M"},
        {"C32", true, "12345678", "*EWYUJV#"},
        {"C32HRC", true, "12345678", "|*EWYUJV#\r\nA123456788"},
        {"CBAR", true, "a123b", "a|1|2|3|9|b"},
        {"CBAR", false, "A12", ""},
        {"UPCE", true, "2345678", ""},
        {"XYZ", false, "123", ""},
    };
    for (const auto& c : casi)
        EXPECT_EQ(krt::CodificaBarcode(c.contenuto, c.codice, c.check), c.atteso)
            << c.codice << (c.check ? " +check" : "") << " \"" << c.contenuto << "\"";
}

// The text line stands above the bars; the check option makes no difference.
TEST(Codifica, IsbnTextLineAndBars) {
    const CasoCodifica casi[] = {
        {"ISBN", false, "030640615", "--$%.(%;.)%;&:.'\r\n9|HiaDaG!qmsnrt|"},
        {"ISBN", true, "030640615", "--$%.(%;.)%;&:.'\r\n9|HiaDaG!qmsnrt|"},
        {"ISBN13", true, "978030640615", "$><=.%.(%;.)%;&:.<\r\n9|HiaDaG!qmsnrt|"},
        {"ISBN", true, "1234567890", ""},
    };
    for (const auto& c : casi)
        EXPECT_EQ(krt::CodificaBarcode(c.contenuto, c.codice, c.check), c.atteso)
            << c.codice << " \"" << c.contenuto << "\"";
}

}  // namespace
