#include <gtest/gtest.h>

#include <string>

#include "barcodes/codabar.h"

namespace {

TEST(Codabar, SeparatorsBetweenCharacters) {
    const struct {
        std::string contenuto;
        std::string atteso;
    } casi[] = {
        {"A12B", "A|1|2|B"}, {"a1239b", "a|1|2|3|9|b"}, {"A1B", "A|1|B"}, {"", ""},
    };
    for (const auto& c : casi) EXPECT_EQ(krt::CodificaCodabar(c.contenuto), c.atteso) << c.contenuto;
}

}  // namespace
