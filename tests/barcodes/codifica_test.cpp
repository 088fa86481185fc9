#include <gtest/gtest.h>

#include <random>
#include <vector>
#include <string>

#include "barcodes/catalogo.h"
#include "barcodes/codifica.h"
#include "barcodes/errori.h"

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
        {"C11", false, "", ""},
        {"CMSI", true, "1234", "*123447#"},
        {"EAN13", true, "400638133393", "4|AaGDib!pppvpn|"},
        {"EAN13", false, "4006381333931", "4|AaGDib!pppvpn|"},
        {"UPCA", true, "03600029145", "|ADGAAA!ovnqro|"},
        {"EAN8", true, "9638507", "|JGDI!rmtq|"},
        {"UPCE", true, "123456", "0|bCDefG#"},  // padded to 0123456, check 5 from the expansion
        {"ADD2", true, "12", "-+L_M"},
        {"ADD5", true, "123", "-+U_U_L_M_N"},  // padded to 00123
        {"C32", true, "12345678", "*EWYUJV#"},
        {"C32HRC", true, "12345678", "|*EWYUJV#\r\nA123456788"},
        {"C32HRC", false, "123456788", "|*EWYUJV#\r\nA123456788"},
        {"CBAR", true, "a123b", "a|1|2|3|9|b"},
        {"CBAR", false, "a1b", "A|1|B"},
        {"CBAR", false, "A12", ""},
        {"EAN13", true, "4006381333931", ""},
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

// Arbitrary bytes, long contents, every code: a glyph string or a declared fault, nothing else.
TEST(Codifica, ArbitraryContentIsSafe) {
    std::mt19937 generatore(12345);
    std::uniform_int_distribution<int> byte(0, 255);
    std::uniform_int_distribution<int> cifra('0', '9');
    std::vector<std::string> codici;
    for (const auto& v : krt::Catalogo) codici.emplace_back(v.codice);
    codici.insert(codici.end(), {"C32HRC", "ADD2", "ADD5", "C25INV", "C25COMP"});
    for (const std::size_t lunghezza : {0u, 1u, 3u, 9u, 13u, 16u, 40u, 10000u}) {
        for (int giro = 0; giro < 4; ++giro) {
            std::string contenuto(lunghezza, '\0');
            for (char& c : contenuto) c = static_cast<char>(giro % 2 == 0 ? byte(generatore) : cifra(generatore));
            for (const auto& codice : codici) {
                for (const bool check : {false, true}) {
                    try {
                        (void)krt::CodificaBarcode(contenuto, codice, check);
                    } catch (const krt::EscapeNonValido&) {
                    } catch (const krt::OverflowCheckSum&) {
                    }
                }
            }
        }
    }
}

}  // namespace
