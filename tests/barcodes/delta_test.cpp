#include <gtest/gtest.h>

#include <string>

#include "barcodes/delta.h"

namespace {

TEST(Delta, StartSeparatorsStop) {
    const struct {
        std::string contenuto;
        std::string atteso;
    } casi[] = {{"12O", "*|1|2|O|#"}, {"", "*|#"}, {"K", "*|K|#"}};
    for (const auto& c : casi) EXPECT_EQ(krt::CodificaDelta(c.contenuto), c.atteso) << c.contenuto;
}

}  // namespace
