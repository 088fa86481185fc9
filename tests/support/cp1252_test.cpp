#include "support/cp1252.h"

#include <gtest/gtest.h>

namespace {

TEST(Cp1252, TuttiI256ByteTornanoUguali) {
    std::string tutti;
    for (int b = 0; b < 256; ++b) tutti += static_cast<char>(b);
    const QString testo = krt::DaWindows1252(tutti);
    ASSERT_EQ(testo.size(), 256);
    const auto ritorno = krt::AWindows1252(testo);
    ASSERT_TRUE(ritorno.has_value());
    EXPECT_EQ(*ritorno, tutti);
    EXPECT_EQ(krt::AWindows1252Sostituendo(testo), tutti);
}

TEST(Cp1252, CaratteriDiConfine) {
    const struct {
        unsigned char byte;
        char16_t carattere;
    } coppie[] = {
        {0x7F, 0x007F}, {0x80, 0x20AC}, {0x81, 0x0081}, {0x8B, 0x2039}, {0x9D, 0x009D}, {0x9F, 0x0178},
        {0xA0, 0x00A0}, {0xFF, 0x00FF},
    };
    for (const auto& c : coppie) {
        const std::string byte(1, static_cast<char>(c.byte));
        EXPECT_EQ(krt::DaWindows1252(byte), QString(QChar(c.carattere))) << "byte " << int(c.byte);
        EXPECT_EQ(krt::AWindows1252(QString(QChar(c.carattere))), byte) << "byte " << int(c.byte);
    }
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
        {u"\xD800", "?"},          // lone surrogate
    };
    for (const auto& c : casi) {
        const QString testo = QString::fromUtf16(c.testo);
        EXPECT_FALSE(krt::AWindows1252(testo).has_value()) << c.sostituito;
        EXPECT_EQ(krt::AWindows1252Sostituendo(testo), c.sostituito);
    }
}

}  // namespace
