// Code 128 beyond what the reader shows of a symbol (rilettura_test.cpp reads them back):
// the values of the function characters, the set a rest begins in, refusals, faults and
// the bound of the weighted sum.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "barcodes/code128.h"
#include "barcodes/ean128.h"
#include "barcodes/errori.h"

namespace {

const std::string Fnc1 = "\x81";

TEST(Code128, ValoriDeiCaratteriFunzione) {
    const struct {
        std::string contenuto;
        std::vector<std::uint8_t> valori;  // start and data, no check
    } casi[] = {
        {"\x01\x82\x83\x84", {103, 65, 97, 96, 101}},  // FNC2, FNC3, FNC4 in set A
        {"a\x82\x83\x84\x80", {104, 65, 97, 96, 100, 101, 64}},
        {Fnc1 + Fnc1 + Fnc1 + Fnc1 + "A", {105, 102, 102, 102, 100, 102, 33}},
        {"12" + Fnc1, {104, 99, 12, 102}},  // three characters get no Start C
    };
    for (const auto& c : casi)
        EXPECT_EQ(krt::ValoriCode128(c.contenuto), c.valori) << testing::PrintToString(c.contenuto);
    EXPECT_TRUE(krt::ValoriCode128("A\x85").empty());
}

TEST(Code128, ChoiceOfSet) {
    const struct {
        std::string resto;
        int set;
    } casi[] = {
        {"", 104}, {"1234", 105}, {"123", 104}, {"123a", 104}, {"\x01", 103}, {"A\x01", 103},
        {"a\x01", 104}, {"\x80", 103}, {Fnc1 + "\x01", 103}, {Fnc1 + "12", 105}, {"1" + Fnc1 + "23", 104},
        {"\xFF" "b", 104}, {" ", 104},
    };
    for (const auto& c : casi) EXPECT_EQ(krt::ScegliSetCode128(c.resto), c.set) << testing::PrintToString(c.resto);
}

// Refusals answer "", faults throw; the content is replaced by its decoded text; the weighted
// sum overflows past 364 characters of value 90 and never for spaces (value 0).
TEST(Code128, RefusalsFaultsAndLength) {
    const struct {
        std::string contenuto;
        bool guasto;
    } casi[] = {{"\\d133", false}, {"AB\xC8", false}, {"\\d200\\q", false}, {"ab\\qc", true}, {"abc\\", true}};
    using Codifica = std::string (*)(std::string&);
    for (const Codifica codifica : {static_cast<Codifica>(krt::CodificaCode128),
                                    static_cast<Codifica>(krt::CodificaEan128)})
        for (const auto& [testo, guasto] : casi) {
            std::string c = testo;
            if (guasto)
                EXPECT_THROW(codifica(c), krt::EscapeNonValido) << testo;
            else
                EXPECT_EQ(codifica(c), "") << testo;
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

}  // namespace
