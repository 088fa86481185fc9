#include <gtest/gtest.h>

#include <string>

#include "barcodes/controllo.h"
#include "barcodes/errori.h"
#include "barcodes/fullascii.h"

namespace {

TEST(FullAscii, EveryRowOfTheTable) {
    const struct {
        int codice;
        const char* code39;
        const char* code93;
    } casi[] = {
        {0, "%U", "bU"},   {1, "$A", "aA"},   {26, "$Z", "aZ"},  {27, "%A", "bA"},  {31, "%E", "bE"},
        {32, "_", "_"},    {33, "/A", "cA"},  {36, "/D", "cD"},  {37, "/E", "cE"},  {43, "/K", "cK"},
        {45, "/M", "cM"},  {46, "/N", "cN"},  {47, "/O", "cO"},  {48, "0", "0"},    {57, "9", "9"},
        {58, "/Z", "cZ"},  {59, "%F", "bF"},  {63, "%J", "bJ"},  {64, "%V", "bV"},  {65, "A", "A"},
        {90, "Z", "Z"},    {91, "%K", "bK"},  {95, "%O", "bO"},  {96, "%W", "bW"},  {97, "+A", "dA"},
        {122, "+Z", "dZ"}, {123, "%P", "bP"}, {127, "%T", "bT"},
    };
    for (const auto& c : casi) {
        std::string contenuto(1, static_cast<char>(c.codice));
        EXPECT_EQ(krt::CodificaCode39Full(contenuto, false), std::string("#") + c.code39 + "#") << "code " << c.codice;
        contenuto = std::string(1, static_cast<char>(c.codice));
        EXPECT_EQ(krt::CodificaCode93Full(contenuto, false), std::string("*") + c.code93 + "#") << "code " << c.codice;
    }
}

TEST(FullAscii, Contents) {
    const struct {
        std::string contenuto;
        bool check;
        std::string code39;
        std::string code93;
    } casi[] = {
        {"Ab-1", false, "#A+B/M1#", "*AdBcM1#"},
        {"", false, "##", "*#"},
        {"", true, "#0#", "*" + krt::CalcolaCheck93("") + "#"},
        {"a", false, "#+A#", "*dA#"},
        {" ", false, "#_#", "*_#"},
        {"\\d127", false, "#%T#", "*bT#"},
        {"\\d128", false, "", ""},
        {"A\\x81", false, "", ""},
        {"\xE9", false, "", ""},
        {"\\t\\\\", false, "#$I%L#", "*aIbL#"},
        // The check is computed on the expanded characters: "A+B/M1" sums to 125, 125 mod 43 = 39 ("$").
        {"Ab-1", true, "#A+B/M1$#", "*" + krt::CalcolaCheck93("AdBcM1") + "#"},
    };
    for (const auto& c : casi) {
        std::string contenuto = c.contenuto;
        EXPECT_EQ(krt::CodificaCode39Full(contenuto, c.check), c.code39) << c.contenuto << " check " << c.check;
        contenuto = c.contenuto;
        EXPECT_EQ(krt::CodificaCode93Full(contenuto, c.check), c.code93) << c.contenuto << " check " << c.check;
    }
}

TEST(FullAscii, EscapesAreDecodedFirst) {
    std::string contenuto = "a\\x42";
    EXPECT_EQ(krt::CodificaCode39Full(contenuto, false), "#+AB#");
    EXPECT_EQ(contenuto, "aB");
    contenuto = "ab\\q";
    EXPECT_THROW(krt::CodificaCode93Full(contenuto, true), krt::EscapeNonValido);
}

}  // namespace
