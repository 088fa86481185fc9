// The glyph routines of the fixed-alphabet symbologies: worked examples at the edges of each
// rule (parity patterns, number systems, base 32 carries, Full ASCII classes).
#include <gtest/gtest.h>

#include <string>

#include "barcodes/codabar.h"
#include "barcodes/codice32.h"
#include "barcodes/controllo.h"
#include "barcodes/coppie25.h"
#include "barcodes/delta.h"
#include "barcodes/errori.h"
#include "barcodes/fullascii.h"
#include "barcodes/ean_upc.h"

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
    {"EAN13", krt::CodificaEAN13, "4006381333931", "4|AaGDib!pppvpn|"},
    {"EAN13_ABBABA", krt::CodificaEAN13, "9999999999999", "9|JjjJjJ!vvvvvv|"},
    {"EAN13_short", krt::CodificaEAN13, "400638133393", ""},
    {"EAN13_letter", krt::CodificaEAN13, "400638133393A", ""},
    {"EAN8", krt::CodificaEAN8, "96385074", "|JGDI!rmtq|"},
    {"EAN8_short", krt::CodificaEAN8, "9638507", ""},
    {"UPCA", krt::CodificaUPCA, "036000291452", "|ADGAAA!ovnqro|"},
    {"UPCE_check5", krt::CodificaUPCE, "01234565", "0|bCDefG#"},
    {"UPCE_system1", krt::CodificaUPCE, "11234565", "1|BcdEFg#"},
    {"UPCE_check0", krt::CodificaUPCE, "00000000", "0|aaaAAA#"},
    {"UPCE_last6", krt::ConvertiUPCE, "0123456", "01234565"},
    {"UPCE_last0", krt::ConvertiUPCE, "0123450", "01234505"},
    {"UPCE_last3", krt::ConvertiUPCE, "0123453", "01234531"},
    {"UPCE_last4", krt::ConvertiUPCE, "0123454", "01234543"},
    {"UPCE_six", krt::ConvertiUPCE, "012345", ""},
    {"ADD2_AA", krt::CodificaAddOn2, "12", "-+L_M"},
    {"ADD2_AB", krt::CodificaAddOn2, "13", "-+L_X"},
    {"ADD2_BA_firstTwo", krt::CodificaAddOn2, "1499", "-+V_O"},
    {"ADD2_BB", krt::CodificaAddOn2, "15", "-+V_Z"},
    {"ADD5_BABAA", krt::CodificaAddOn5, "52495", "-+Z_M_Y_T_P"},
    {"ADD5_BBAAA", krt::CodificaAddOn5, "00000", "-+U_U_K_K_K"},
    {"ADD5_four", krt::CodificaAddOn5, "1234", ""},
    {"Pairs", krt::CodificaCoppie25, "0123", "*HhSb#"},
    {"Pairs_53_77", krt::CodificaCoppie25, "5377", "*\\`@~#"},
    {"Pairs_odd", krt::CodificaCoppie25, "123", "*Lf#"},
    {"Pairs_none", krt::CodificaCoppie25, "7", "*#"},
    {"C32", krt::CodificaCodice32, "123456788", "*EWYUJV#"},
    {"C32_max", krt::CodificaCodice32, "999999999", "*_[WTQa#"},
    {"C32_carry", krt::CodificaCodice32, "000000032", "*BBBBCB#"},
    {"C32_26", krt::CodificaCodice32, "000000026", "*BBBBB\\#"},
    {"Codabar", krt::CodificaCodabar, "a1239b", "a|1|2|3|9|b"},
    {"Codabar_empty", krt::CodificaCodabar, "", ""},
    {"Delta", krt::CodificaDelta, "12O", "*|1|2|O|#"},
    {"Delta_empty", krt::CodificaDelta, "", "*|#"},
    // Full ASCII: one character of each class of the table, both symbologies.
    {"C39F_classes", C39F, std::string("\0\x01\x1B\x1F !/:;@[`az{\x7F", 16), "#%U$A%A%E_/A/O/Z%F%V%K%W+A+Z%P%T#"},
    {"C93F_classes", C93F, std::string("\0\x01\x1B\x1F !/:;@[`az{\x7F", 16), "*bUaAbAbE_cAcOcZbFbVbKbWdAdZbPbT#"},
    {"C39F_escapes", C39F, "\\t\\\\", "#$I%L#"},
    {"C39F_above127", C39F, "\\d128", ""},
    {"C93F_latin1", C93F, "\xE9", ""},
    {"C39F_checkOnExpanded", C39FCheck, "Ab-1", "#A+B/M1$#"},
    {"C39F_checkEmpty", C39FCheck, "", "#0#"},
};

class Glifi : public testing::TestWithParam<Riga> {};

TEST_P(Glifi, Atteso) { EXPECT_EQ(GetParam().routine(GetParam().ingresso), GetParam().atteso); }

INSTANTIATE_TEST_SUITE_P(Righe, Glifi, testing::ValuesIn(Righe), [](const auto& i) { return std::string(i.param.nome); });

// A long Code 32 content wraps, six glyphs still come out;
// Full ASCII writes back its decoded content and its check is that of the expanded text.
TEST(Glifi, Proprieta) {
    // A pair's first glyph draws the first three bars and the first two spaces, the second glyph
    // the rest: two pairs share a glyph exactly when they share those elements of the patterns.
    const char* const Barre[] = {"nnwwn", "wnnnw", "nwnnw", "wwnnn", "nnwnw", "wnwnn", "nwwnn", "nnnww", "wnnwn", "nwnwn"};
    auto parti = [&](int n) {
        const std::string a = Barre[n / 10], b = Barre[n % 10];
        return std::pair{a.substr(0, 3) + b.substr(0, 2), a.substr(3) + b.substr(2)};
    };
    auto glifi = [](int n) { return krt::CodificaCoppie25(std::string{char('0' + n / 10), char('0' + n % 10)}); };
    for (int n = 0; n < 100; ++n) {
        ASSERT_EQ(glifi(n).size(), 4u) << n;
        for (int m = 0; m < n; ++m) {
            EXPECT_EQ(glifi(n)[1] == glifi(m)[1], parti(n).first == parti(m).first) << n << " " << m;
            EXPECT_EQ(glifi(n)[2] == glifi(m)[2], parti(n).second == parti(m).second) << n << " " << m;
        }
    }
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
