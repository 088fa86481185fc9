#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "barcodes/code128.h"
#include "barcodes/ean128.h"
#include "barcodes/errori.h"

namespace {

std::vector<int> Codici(const std::string& s) { return {s.begin(), s.end()}; }

const std::string Fnc1 = "\x81";

// The symbol values of a content (start to check), read off the glyph string: the font draws
// value v as v + 33, 94-96 as 150-152, starts from 136, and ends with the stop glyph 139.
std::vector<int> Valori(std::string (*codifica)(std::string&), std::string contenuto) {
    const std::string glifi = codifica(contenuto);
    std::vector<int> v;
    for (std::size_t i = 0; i + 1 < glifi.size(); ++i) {
        const int g = static_cast<unsigned char>(glifi[i]);
        v.push_back(g >= 150 ? g - 56 : g - 33);
    }
    EXPECT_EQ(static_cast<unsigned char>(glifi.back()), 139) << "stop glyph";
    return v;
}

TEST(Code128, WorkedValues) {
    const struct {
        std::string contenuto;
        std::vector<int> valori;  // start, data, check
    } casi[] = {
        {"", {104, 1}},
        {"1234", {105, 12, 34, 82}},
        {"12345", {105, 12, 34, 100, 21, 54}},
        {"AB12345", {104, 33, 34, 17, 99, 23, 45, 7}},
        {"A1234B", {104, 33, 99, 12, 34, 100, 34, 78}},
        {"123a", {104, 17, 18, 19, 65, 62}},
        {"\x01" "AB", {103, 65, 33, 34, 27}},
        {"AB\x01", {104, 33, 34, 101, 65, 47}},
        {"A\x01" "b", {103, 33, 65, 100, 66, 6}},
        {"a\x01" "b", {104, 65, 98, 65, 66, 0}},
        {"a~~~", {104, 65, 94, 94, 94, 88}},  // value 94 is glyph 150
        // FNC1: leading before four digits in set C; at an even count of a run it keeps set C,
        // at an odd count it ends the run; three characters get no Start C.
        {Fnc1 + "1234", {105, 102, 12, 34, 24}},
        {"\\x81" "1234", {105, 102, 12, 34, 24}},
        {"12" + Fnc1 + "34", {105, 12, 102, 34, 11}},
        {"123" + Fnc1 + "4567", {104, 17, 18, 19, 102, 99, 45, 67, 2}},
        {"12" + Fnc1, {104, 99, 12, 102, 18}},
        // Code 128 typed and an escaped 0 are both NUL.
        {"A\x80", {104, 33, 101, 64, 16}},
        {"A\\d000", {104, 33, 101, 64, 16}},
        {Fnc1 + Fnc1 + Fnc1 + Fnc1 + "A", {105, 102, 102, 102, 100, 102, 33, 74}},
    };
    for (const auto& c : casi)
        EXPECT_EQ(Valori(krt::CodificaCode128, c.contenuto), c.valori) << testing::PrintToString(Codici(c.contenuto));
}

TEST(Ean128, WorkedValues) {
    const struct {
        std::string contenuto;
        std::vector<int> valori;
    } casi[] = {
        {"0195012345678903", {105, 102, 1, 95, 1, 23, 45, 67, 89, 3, 31}},
        {"10ABC", {104, 102, 17, 16, 33, 34, 35, 79}},
        {"10123456\\x81" "217", {105, 102, 10, 12, 34, 56, 102, 21, 100, 23, 76}},  // even count: set C stays
        {"(01)", {104, 102, 8, 16, 17, 9, 74}},                                      // parentheses are data
    };
    for (const auto& c : casi) EXPECT_EQ(Valori(krt::CodificaEan128, c.contenuto), c.valori) << c.contenuto;
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

// Refusals answer "", faults throw; the content is replaced by its decoded text; the weighted
// sum overflows past 364 characters of value 90 and never for spaces (value 0).
TEST(Code128, RefusalsFaultsAndLength) {
    for (const std::string contenuto : {"\\d133", "AB\xC8", "\\d200\\q"}) {
        std::string c = contenuto, e = contenuto;
        EXPECT_EQ(krt::CodificaCode128(c), "") << contenuto;
        EXPECT_EQ(krt::CodificaEan128(e), "") << contenuto;
    }
    for (const std::string contenuto : {"ab\\qc", "abc\\"}) {
        std::string c = contenuto, e = contenuto;
        EXPECT_THROW(krt::CodificaCode128(c), krt::EscapeNonValido) << contenuto;
        EXPECT_THROW(krt::CodificaEan128(e), krt::EscapeNonValido) << contenuto;
    }
    std::string contenuto = "A\\tB";
    krt::CodificaCode128(contenuto);
    EXPECT_EQ(contenuto, "A\tB");
    std::string lungo(364, 'z');
    EXPECT_NO_THROW(krt::CodificaCode128(lungo));
    lungo = std::string(365, 'z');
    EXPECT_THROW(krt::CodificaCode128(lungo), krt::OverflowCheckSum);
    std::string spazi(10000, ' ');
    EXPECT_EQ(krt::CodificaCode128(spazi).size(), 10003u);
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

}  // namespace
