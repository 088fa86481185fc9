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
        {krt::CodificaEAN13, "EAN13", "400638133393", ""},
        {krt::CodificaEAN13, "EAN13", "400638133393A", ""},
    };
    for (const auto& c : casi)
        EXPECT_EQ(c.encoder(c.cifre), c.atteso) << c.nome << " of \"" << c.cifre << "\"";
}

}  // namespace
