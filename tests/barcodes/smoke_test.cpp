#include <gtest/gtest.h>
#include "barcodes/codifica.h"

TEST(Codifica, UnknownCodeGivesNoSymbol) {
    EXPECT_EQ(krt::CodificaBarcode("123", "XYZ", false), "");
}
