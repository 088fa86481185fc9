#include "text/formatta.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct Caso {
    std::string testo;
    std::string atteso;
};

TEST(FormattaEscape, OgniClasseDiCarattere) {
    const Caso casi[] = {
        {"", ""},
        {"A\\B", "A\\\\B"},
        {std::string("A\0B", 3), "A\\0B"},
        {"say \"hi\"", "say \"hi\""},
        {"\xE9", "\\xE9"},
        {"10AB\x81" "3101", "10AB\\x813101"},
        {"\n", "\\n"},
        {"\x01", "\\x01"},
        {"\x7F", "\\x7F"},
        {"\xC8", "\\xC8"},
        {"\a\b\t\n\v\f\r", "\\a\\b\\t\\n\\v\\f\\r"},
        {"\x1F\x0E\x06", "\\x1F\\x0E\\x06"},
        {" ~", " ~"},
        {"\xFF\x80", "\\xFF\\x80"},
    };
    for (const auto& c : casi) EXPECT_EQ(krt::FormattaEscape(c.testo), c.atteso) << "testo: " << c.testo;
}

}  // namespace
