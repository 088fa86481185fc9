#include "text/formatta.h"

#include <gtest/gtest.h>

#include <string>

#include "barcodes/escape.h"

namespace {

// Printable ASCII stays (the backslash doubled), the named controls get their letter, every
// other byte "\x" and two upper-case digits; the content escape reader reads it all back.
TEST(FormattaEscape, OgniByteETornaIndietro) {
    EXPECT_EQ(krt::FormattaEscape(std::string("A\\B \"~\x7F\x81\xC8\a\b\t\n\v\f\r\x01\x1F\0", 19)),
              "A\\\\B \"~\\x7F\\x81\\xC8\\a\\b\\t\\n\\v\\f\\r\\x01\\x1F\\0");
    std::string tutti;
    for (int b = 255; b > 0; --b) tutti += static_cast<char>(b);
    tutti += '\0';  // "\0" only at the end: the characters after it would be read as its octal digits
    EXPECT_EQ(krt::DecodificaEscape(krt::FormattaEscape(tutti)), tutti);
}

}  // namespace
