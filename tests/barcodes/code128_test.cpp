#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "barcodes/code128.h"
#include "barcodes/ean128.h"
#include "barcodes/errori.h"

namespace {

std::vector<int> Codici(const std::string& s) {
    std::vector<int> v;
    for (char c : s) v.push_back(static_cast<unsigned char>(c));
    return v;
}

const std::string Fnc1 = "\x81";

struct CasoValori {
    std::string contenuto;
    std::vector<int> valori;  // including the check value
    std::vector<int> glifi;   // empty: not given, derived from valori by the font's map
};

// Glyph of a symbol value in the Code 128 font.
int Glifo(int v) { return v == 94 ? 150 : v == 95 ? 151 : v == 96 ? 152 : v + 33; }

void Verifica(std::string (*codifica)(std::string&), const std::vector<CasoValori>& casi, bool inserisciFnc1) {
    for (const auto& c : casi) {
        std::vector<int> glifi = c.glifi;
        if (glifi.empty()) {
            for (int v : c.valori) glifi.push_back(Glifo(v));
            glifi.push_back(139);
        }
        std::string contenuto = c.contenuto;
        EXPECT_EQ(Codici(codifica(contenuto)), glifi) << "content \"" << c.contenuto << "\"";
        if (!inserisciFnc1) {
            std::vector<int> senzaCheck(c.valori.begin(), c.valori.end() - 1);
            std::vector<int> valori;
            for (auto v : krt::ValoriCode128(contenuto)) valori.push_back(v);  // decoded by now
            EXPECT_EQ(valori, senzaCheck) << "content \"" << c.contenuto << "\"";
        }
    }
}

TEST(Code128, WorkedValues) {
    Verifica(krt::CodificaCode128,
             {
                 {"", {104, 1}, {137, 34, 139}},
                 {"1234", {105, 12, 34, 82}, {138, 45, 67, 115, 139}},
                 {"ABC", {104, 33, 34, 35, 1}, {137, 66, 67, 68, 34, 139}},
                 {"12345", {105, 12, 34, 100, 21, 54}, {138, 45, 67, 133, 54, 87, 139}},
                 {"AB12345", {104, 33, 34, 17, 99, 23, 45, 7}, {137, 66, 67, 50, 132, 56, 78, 40, 139}},
                 {"A1234B", {104, 33, 99, 12, 34, 100, 34, 78}, {137, 66, 132, 45, 67, 133, 67, 111, 139}},
                 {"123a", {104, 17, 18, 19, 65, 62}, {137, 50, 51, 52, 98, 95, 139}},
                 {"\x01" "AB", {103, 65, 33, 34, 27}, {136, 98, 66, 67, 60, 139}},
                 {"AB\x01", {104, 33, 34, 101, 65, 47}, {137, 66, 67, 134, 98, 80, 139}},
                 {"A\x01" "b", {103, 33, 65, 100, 66, 6}, {136, 66, 98, 133, 99, 39, 139}},
                 {"a\x01" "b", {104, 65, 98, 65, 66, 0}, {137, 98, 131, 98, 99, 33, 139}},
             },
             false);
}

TEST(Code128, FunctionCharactersAndDigitRuns) {
    Verifica(krt::CodificaCode128,
             {
                 // A leading FNC1 before four digits: FNC1 is written in set C and set C goes on.
                 {Fnc1 + "1234", {105, 102, 12, 34, 24}, {138, 135, 45, 67, 57, 139}},
                 {"\\x81" "1234", {105, 102, 12, 34, 24}, {}},
                 // FNC1 at an even count keeps set C; at an odd count it ends the run.
                 {"12" + Fnc1 + "34", {105, 12, 102, 34, 11}, {}},
                 {"123" + Fnc1 + "4567", {104, 17, 18, 19, 102, 99, 45, 67, 2}, {}},
                 // Three characters only: no Start C even with a run of four.
                 {"12" + Fnc1, {104, 99, 12, 102, 18}, {}},
                 // Typed code 128 and an escaped 0 are both NUL.
                 {"A\x80", {104, 33, 101, 64, 16}, {}},
                 {"A\\d000", {104, 33, 101, 64, 16}, {}},
                 {Fnc1 + Fnc1 + Fnc1 + Fnc1 + "A", {105, 102, 102, 102, 100, 102, 33, 74}, {}},
             },
             false);
}

TEST(Code128, ChoiceOfSet) {
    const struct {
        std::string resto;
        int set;
    } casi[] = {
        {"", 104}, {"1234", 105}, {"123", 104}, {"123a", 104}, {"\x01", 103}, {"A\x01", 103},
        {"a\x01", 104}, {"\x80", 103}, {Fnc1 + "\x01", 103}, {Fnc1 + "12", 105}, {"1" + Fnc1 + "23", 104},
        {"\xFF" "b", 104},
    };
    for (const auto& c : casi) EXPECT_EQ(krt::ScegliSetCode128(c.resto), c.set) << "rest \"" << c.resto << "\"";
}

TEST(Code128, RefusalsAndFaults) {
    for (const std::string contenuto : {"\\d133", "AB\xC8", "\\d200\\q"}) {
        std::string c = contenuto;
        EXPECT_EQ(krt::CodificaCode128(c), "") << contenuto;
        c = contenuto;
        EXPECT_EQ(krt::CodificaEan128(c), "") << contenuto;
    }
    for (const std::string contenuto : {"ab\\qc", "abc\\"}) {
        std::string c = contenuto;
        EXPECT_THROW(krt::CodificaCode128(c), krt::EscapeNonValido) << contenuto;
        c = contenuto;
        EXPECT_THROW(krt::CodificaEan128(c), krt::EscapeNonValido) << contenuto;
    }
    // "z" is 90 in set B: the weighted value of symbol 365 is beyond 32767.
    std::string lungo(364, 'z');
    EXPECT_NO_THROW(krt::CodificaCode128(lungo));
    lungo = std::string(365, 'z');
    EXPECT_THROW(krt::CodificaCode128(lungo), krt::OverflowCheckSum);
}

TEST(Code128, ContentIsReplacedByItsDecodedText) {
    std::string contenuto = "A\\tB";
    krt::CodificaCode128(contenuto);
    EXPECT_EQ(contenuto, "A\tB");
}

TEST(Code128, TenThousandCharacters) {
    std::string spazi(10000, ' ');  // value 0 everywhere: no overflow
    EXPECT_EQ(krt::CodificaCode128(spazi).size(), 10003u);
    std::string misto;
    while (misto.size() < 10000) misto += "1234\x01" "a" + Fnc1 + "5";
    EXPECT_GT(krt::ValoriCode128(misto).size(), 5000u);
    EXPECT_THROW(krt::CodificaCode128(misto), krt::OverflowCheckSum);
}

// The values read back as a reader would: set changes, shifts, digit pairs, FNC1 as 0x81,
// FNC2-4 as 0x82-0x84 and NUL for value 64 in set A.
std::string Rileggi(const std::vector<std::uint8_t>& v) {
    std::string t;
    int set = v.at(0);
    for (std::size_t i = 1; i < v.size(); ++i) {
        int s = set;
        if (v[i] == 98 && set != 105) s = 207 - set, ++i;  // shift: one character of the other set
        const int x = v[i];
        if (s == 105 && x < 100) t += std::to_string(100 + x).substr(1);
        else if (x == 102) t += '\x81';
        else if (s == 105 || x == 99 || (x == 100 && s == 103) || (x == 101 && s == 104)) set = x == 99 ? 105 : 204 - x;
        else if (x >= 96) t += static_cast<char>(x == 96 ? 0x83 : x == 97 ? 0x82 : 0x84);
        else t += static_cast<char>(s == 103 && x >= 64 ? x - 64 : x + 32);
    }
    return t;
}

// Random contents of every class of character: the values read back to the content.
TEST(Code128, RiletturaDiContenutiCasuali) {
    const std::string alfabeto = std::string("0123456789012345678901234AZ a~") + "\x01\x1F\x81\x81\x82" + std::string(1, '\0');
    std::mt19937 rng(128);
    for (int prova = 0; prova < 5000; ++prova) {
        std::string t;
        for (int i = static_cast<int>(rng() % 24); i > 0; --i) t += alfabeto[rng() % alfabeto.size()];
        const auto valori = krt::ValoriCode128(t);
        ASSERT_EQ(Rileggi(valori), t) << testing::PrintToString(Codici(t));
    }
}

TEST(Ean128, WorkedValues) {
    Verifica(krt::CodificaEan128,
             {
                 {"0195012345678903",
                  {105, 102, 1, 95, 1, 23, 45, 67, 89, 3, 31},
                  {138, 135, 34, 151, 34, 56, 78, 100, 122, 36, 64, 139}},
                 {"10ABC", {104, 102, 17, 16, 33, 34, 35, 79}, {137, 135, 50, 49, 66, 67, 68, 112, 139}},
                 // A separator at an even count keeps set C.
                 {"10123456\\x81" "217", {105, 102, 10, 12, 34, 56, 102, 21, 100, 23, 76}, {}},
                 // Parentheses are data.
                 {"(01)", {104, 102, 8, 16, 17, 9, 74}, {}},
             },
             true);
}

}  // namespace
