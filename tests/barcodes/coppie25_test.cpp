#include <gtest/gtest.h>

#include <set>
#include <string>

#include "barcodes/coppie25.h"

namespace {

TEST(Coppie25, PairGlyphs) {
    const struct {
        std::string cifre;
        std::string atteso;
    } casi[] = {
        {"00", "*Ap#"},   {"01", "*Hh#"},     {"13", "*Qb#"},     {"99", "*Jm#"},
        {"53", "*\\`#"},  {"77", "*@~#"},     {"1234", "*LfNi#"}, {"0123", "*HhSb#"},
        {"123", "*Lf#"},  {"", "*#"},         {"7", "*#"},
    };
    for (const auto& c : casi) EXPECT_EQ(krt::CodificaCoppie25(c.cifre), c.atteso) << c.cifre;
}

// Every pair has its own two glyphs: a slip in the table would make two pairs look alike.
TEST(Coppie25, EveryPairDistinct) {
    std::set<std::string> visti;
    for (int n = 0; n < 100; ++n) {
        const std::string cifre{static_cast<char>('0' + n / 10), static_cast<char>('0' + n % 10)};
        const std::string glifi = krt::CodificaCoppie25(cifre);
        ASSERT_EQ(glifi.size(), 4u) << cifre;
        EXPECT_TRUE(visti.insert(glifi).second) << cifre << " repeats " << glifi;
    }
}

}  // namespace
