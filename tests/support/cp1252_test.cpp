#include "support/cp1252.h"

#include <gtest/gtest.h>

namespace {

// Every byte comes back unchanged through both ways out.
TEST(Cp1252, OgniByteTornaUguale) {
    std::string tutti;
    for (int b = 0; b < 256; ++b) tutti += static_cast<char>(b);
    const QString testo = krt::DaWindows1252(tutti);
    ASSERT_EQ(testo.size(), 256);
    EXPECT_EQ(krt::AWindows1252(testo).value_or(""), tutti);
    EXPECT_EQ(krt::AWindows1252Sostituendo(testo), tutti);
    // Not Latin-1: the euro sign, a hole kept as its C1 control, the last letter of the range.
    EXPECT_EQ(testo.mid(0x80, 2) + testo[0x9F], QStringLiteral("\u20AC\u0081\u0178"));
}

TEST(Cp1252, CaratteriSenzaCodice) {
    const struct {
        const char16_t* testo;
        const char* sostituito;
    } casi[] = {
        {u"\u0080", "?"},          // a C1 control that the code page does not keep
        {u"a\u009Fb", "a?b"},
        {u"\u2192", "?"},          // arrow
        {u"x\u0100", "x?"},        // Latin Extended-A outside the page
        {u"\U0001F600!", "?!"},    // one replacement for a surrogate pair
        {u"x\U0001F600", "x?"},    // the pair at the end
        {u"\xD800-", "?-"},        // lone surrogates
        {u"a\xDC00", "a?"},
    };
    for (const auto& c : casi) {
        const QString testo = QString::fromUtf16(c.testo);
        EXPECT_FALSE(krt::AWindows1252(testo).has_value()) << c.sostituito;
        EXPECT_EQ(krt::AWindows1252Sostituendo(testo), c.sostituito);
    }
}

}  // namespace
