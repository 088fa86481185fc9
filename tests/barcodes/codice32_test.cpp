#include <gtest/gtest.h>

#include <string>

#include "barcodes/codice32.h"

namespace {

TEST(Codice32, BaseThirtyTwoGlyphs) {
    const struct {
        std::string cifre;
        std::string atteso;
    } casi[] = {
        {"000000000", "*BBBBBB#"},
        {"999999999", "*_[WTQa#"},  // 29, 25, 21, 18, 15, 31
        {"123456788", "*EWYUJV#"},
        {"000000031", "*BBBBBa#"},
        {"000000032", "*BBBBCB#"},
        {"000000026", "*BBBBB\\#"},
    };
    for (const auto& c : casi) EXPECT_EQ(krt::CodificaCodice32(c.cifre), c.atteso) << c.cifre;
}

// A long content must not overflow: the number wraps, six glyphs still come out.
TEST(Codice32, LongContent) {
    EXPECT_EQ(krt::CodificaCodice32(std::string(10000, '9')).size(), 8u);
}

}  // namespace
