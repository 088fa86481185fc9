// The glyph routines where the reader cannot judge them (rilettura_test.cpp reads the
// symbols of the test fonts back): the families without a test font, and the edges of
// the routines themselves.
#include <gtest/gtest.h>

#include <string>

#include "barcodes/codabar.h"
#include "barcodes/codice32.h"
#include "barcodes/controllo.h"
#include "barcodes/coppie25.h"
#include "barcodes/delta.h"
#include "barcodes/ean_upc.h"
#include "barcodes/errori.h"
#include "barcodes/fullascii.h"

namespace {

std::string C39F(std::string_view c) { std::string s(c); return krt::CodificaCode39Full(s, false); }
std::string C93F(std::string_view c) { std::string s(c); return krt::CodificaCode93Full(s, false); }
std::string C39FCheck(std::string_view c) { std::string s(c); return krt::CodificaCode39Full(s, true); }

struct Riga {
    const char* nome;
    std::string (*routine)(std::string_view);
    std::string ingresso, atteso;
};

const Riga Righe[] = {
    {"EAN13_short", krt::CodificaEAN13, "400638133393", ""},
    {"EAN13_letter", krt::CodificaEAN13, "400638133393A", ""},
    {"EAN8_short", krt::CodificaEAN8, "9638507", ""},
    {"UPCE_six", krt::ConvertiUPCE, "012345", ""},
    {"ADD2_firstTwo", krt::CodificaAddOn2, "1499", "-+V_O"},
    {"ADD5_four", krt::CodificaAddOn5, "1234", ""},
    {"Pairs_odd", krt::CodificaCoppie25, "123", "*Lf#"},
    {"Pairs_none", krt::CodificaCoppie25, "7", "*#"},
    {"C32", krt::CodificaCodice32, "123456788", "*EWYUJV#"},
    {"C32_max", krt::CodificaCodice32, "999999999", "*_[WTQa#"},
    {"C32_carry", krt::CodificaCodice32, "000000032", "*BBBBCB#"},
    {"C32_26", krt::CodificaCodice32, "000000026", "*BBBBB\\#"},
    {"Codabar_empty", krt::CodificaCodabar, "", ""},
    {"Delta", krt::CodificaDelta, "12O", "*|1|2|O|#"},
    {"Delta_empty", krt::CodificaDelta, "", "*|#"},
    {"C39F_above127", C39F, "\\d128", ""},
    {"C93F_latin1", C93F, "\xE9", ""},
    {"C39F_checkOnExpanded", C39FCheck, "Ab-1", "#A+B/M1$#"},
    {"C39F_checkEmpty", C39FCheck, "", "#0#"},
};

class Glifi : public testing::TestWithParam<Riga> {};

TEST_P(Glifi, Atteso) { EXPECT_EQ(GetParam().routine(GetParam().ingresso), GetParam().atteso); }

INSTANTIATE_TEST_SUITE_P(Righe, Glifi, testing::ValuesIn(Righe),
                         [](const auto& i) { return std::string(i.param.nome); });

// A long Code 32 content wraps, six glyphs still come out;
// Full ASCII writes back its decoded content and its check is that of the expanded text.
TEST(Glifi, Proprieta) {
    EXPECT_EQ(krt::CodificaCodice32(std::string(10000, '9')).size(), 8u);
    std::string contenuto = "a\\x42";
    EXPECT_EQ(krt::CodificaCode39Full(contenuto, false), "#+AB#");
    EXPECT_EQ(contenuto, "aB");
    contenuto = "Ab-1";
    EXPECT_EQ(krt::CodificaCode93Full(contenuto, true), "*AdBcM1" + krt::CalcolaCheck93("AdBcM1").substr(6) + "#");
    contenuto = "ab\\q";
    EXPECT_THROW(krt::CodificaCode93Full(contenuto, true), krt::EscapeNonValido);
}

}  // namespace
