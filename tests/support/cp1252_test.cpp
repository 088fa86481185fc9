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

struct Coppia {
    unsigned char byte;
    char16_t carattere;
};

TEST(Cp1252, CaratteriDiConfine) {
    const Coppia coppie[] = {
        {0x00, 0x0000}, {0x7F, 0x007F}, {0x80, 0x20AC}, {0x81, 0x0081}, {0x8B, 0x2039}, {0x8D, 0x008D},
        {0x8F, 0x008F}, {0x90, 0x0090}, {0x92, 0x2019}, {0x9D, 0x009D}, {0x9F, 0x0178}, {0xA0, 0x00A0},
        {0xE8, 0x00E8}, {0xFF, 0x00FF},
    };
    for (const auto& c : coppie) {
        const std::string byte(1, static_cast<char>(c.byte));
        EXPECT_EQ(krt::DaWindows1252(byte), QString(QChar(c.carattere))) << "byte " << int(c.byte);
        EXPECT_EQ(krt::AWindows1252(QString(QChar(c.carattere))), byte) << "byte " << int(c.byte);
    }
}

struct SenzaCodice {
    const char16_t* testo;
    const char* sostituito;
};

TEST(Cp1252, CaratteriSenzaCodice) {
    const SenzaCodice casi[] = {
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
