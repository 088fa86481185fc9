#include <gtest/gtest.h>

#include <set>
#include <string>

#include "barcodes/catalogo.h"
#include "barcodes/codifica.h"

namespace {

// Names find entries, so none is used twice; every entry has a face in the Normal style.
TEST(Catalogo, EntriesInIdOrder) {
    ASSERT_EQ(krt::Catalogo.size(), 36u);
    std::set<std::string_view> inglesi, italiani;
    for (std::size_t i = 0; i < krt::Catalogo.size(); ++i) {
        const auto& v = krt::Catalogo[i];
        EXPECT_EQ(v.id, 400 + static_cast<int>(i));
        EXPECT_TRUE(inglesi.insert(v.inglese).second) << v.inglese;
        EXPECT_TRUE(italiani.insert(v.italiano).second) << v.italiano;
        EXPECT_EQ(krt::ScegliFontFamiglia(v.famiglia, "Normal"), v.famiglia) << v.id;
    }
}

TEST(Catalogo, FontFamilyByStyle) {
    const struct {
        std::string_view base, stile, atteso;
    } casi[] = {
        {"ORB39", "Stretto e corto", "ORB39 Narrow Short"},
        {"ORB93", "Largo", "ORB93 Wide"},
        {"ORB25 ITF", "Narrow", ""},
        {"ORB25 ITF", "Corto", "ORB25 ITF Short"},
        {"ORBDELTA DA", "Short", "ORBDELTA DA Short"},
        {"ORB128", "Normale", "ORB128"},
        {"ORB128", "Largo e corto", ""},
        {"ORB39", "Wide short", "ORB39 Wide Short"},  // Code CIP's family
        {"ORB39", "wide short", ""},                  // style texts are exact
        {"ORB39", "Bold", ""},
        {"ORBPOSTNET", "Bold", "ORBPOSTNET"},  // the single families ignore even unknown styles
        {"ORBEAN", "", "ORBEAN"},
        {"ORBXYZ", "Normal", ""},
        {"", "Normal", ""},
    };
    for (const auto& c : casi)
        EXPECT_EQ(krt::ScegliFontFamiglia(c.base, c.stile), c.atteso) << c.base << " / " << c.stile;
}

}  // namespace
