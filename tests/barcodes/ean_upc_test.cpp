#include <gtest/gtest.h>

#include <string>

#include "barcodes/ean_upc.h"

namespace {

struct CasoGlifi {
    std::string (*encoder)(std::string_view);
    const char* nome;
    std::string cifre;
    std::string atteso;
};

TEST(EanUpc, GlyphStrings) {
    const CasoGlifi casi[] = {
        {krt::CodificaEAN13, "EAN13", "4006381333931", "4|AaGDib!pppvpn|"},
        {krt::CodificaEAN13, "EAN13", "0000000000000", "0|AAAAAA!mmmmmm|"},
        {krt::CodificaEAN13, "EAN13", "9999999999999", "9|JjjJjJ!vvvvvv|"},  // parity ABBABA
        {krt::CodificaEAN13, "EAN13", "400638133393", ""},
        {krt::CodificaEAN13, "EAN13", "400638133393A", ""},
        {krt::CodificaEAN8, "EAN8", "96385074", "|JGDI!rmtq|"},
        {krt::CodificaEAN8, "EAN8", "9638507", ""},
        {krt::CodificaUPCA, "UPCA", "036000291452", "|ADGAAA!ovnqro|"},
        // UPC-E: parity by the check digit, swapped for number system 1.
        {krt::CodificaUPCE, "UPCE", "01234565", "0|bCDefG#"},  // 5: BAABBA
        {krt::CodificaUPCE, "UPCE", "11234565", "1|BcdEFg#"},
        {krt::CodificaUPCE, "UPCE", "00000000", "0|aaaAAA#"},  // 0: BBBAAA
        {krt::ConvertiUPCE, "ConvertiUPCE", "0123456", "01234565"},  // 01234500006 -> 5
        {krt::ConvertiUPCE, "ConvertiUPCE", "0123450", "01234505"},  // 01200000345
        {krt::ConvertiUPCE, "ConvertiUPCE", "0123453", "01234531"},  // 01230000045
        {krt::ConvertiUPCE, "ConvertiUPCE", "0123454", "01234543"},  // 01234000005
        {krt::ConvertiUPCE, "ConvertiUPCE", "012345", ""},
        {krt::CodificaAddOn2, "ADD2", "12", "-+L_M"},    // 12 mod 4 = 0: AA
        {krt::CodificaAddOn2, "ADD2", "13", "-+L_X"},    // 1: AB
        {krt::CodificaAddOn2, "ADD2", "1499", "-+V_O"},  // 14 mod 4 = 2: BA, leftmost two only
        {krt::CodificaAddOn2, "ADD2", "15", "-+V_Z"},    // 3: BB
        {krt::CodificaAddOn5, "ADD5", "52495", "-+Z_M_Y_T_P"},  // s = 1: BABAA
        {krt::CodificaAddOn5, "ADD5", "00000", "-+U_U_K_K_K"},  // s = 0: BBAAA
        {krt::CodificaAddOn5, "ADD5", "1234", ""},
    };
    for (const auto& c : casi)
        EXPECT_EQ(c.encoder(c.cifre), c.atteso) << c.nome << " of \"" << c.cifre << "\"";
}

}  // namespace
