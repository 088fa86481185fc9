// Windows-1252 <-> UTF-8 and JSON strings of krt-encode.
#include "text/codifica_testo.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace krt {
namespace {

// Every byte alone, after every byte and at every alignment of the word-at-a-time paths:
// the UTF-8 form reads back to the same bytes.
TEST(CodificaTesto, OgniCoppiaDiByteFaIlGiroCompleto) {
    std::string tutti;
    for (int a = 0; a < 256; ++a)
        for (int b = 0; b < 256; ++b) tutti += {static_cast<char>(a), static_cast<char>(b), 'x'};
    std::vector<std::string> prove;
    for (const std::size_t inizio : {0u, 1u, 3u, 7u}) prove.push_back(tutti.substr(inizio));
    for (int b = 0; b < 256; ++b) prove.emplace_back(1, static_cast<char>(b));  // and each byte alone
    for (const std::string& bytes : prove) {
        std::string utf8, ritorno, errore;
        AccodaCp1252InUtf8(utf8, bytes);
        ASSERT_TRUE(Utf8InCp1252(utf8, ritorno, errore)) << errore;
        ASSERT_EQ(ritorno, bytes) << "length " << bytes.size();
    }
    std::string utf8;
    AccodaCp1252InUtf8(utf8, "\xE9\x7F");
    EXPECT_EQ(utf8, "\xC3\xA9\x7F");
    utf8.clear();
    AccodaCp1252InUtf8(utf8, std::string(300, '\x80'));  // three UTF-8 bytes each, all through the buffer
    std::string euro;
    for (int i = 0; i < 300; ++i) euro += "\xE2\x82\xAC";
    EXPECT_EQ(utf8, euro);
}

// The conversion back, and the check of the form alone (the same reader).
TEST(CodificaTesto, DaUtf8) {
    struct Riga {
        const char* utf8;
        const char* cp1252;  // nullptr: refused
        const char* errore;  // part of the reason
    } const righe[] = {
        {"abc", "abc", ""},
        {"\xE2\x82\xAC", "\x80", ""},            // euro sign
        {"\xE2\x80\xB9\xC5\xB8", "\x8B\x9F", ""},  // U+2039, U+0178
        {"\xC3\xA9\xC3\xBF", "\xE9\xFF", ""},
        {"\xC2\x81", "\x81", ""},                // unassigned byte, kept as its control character
        {"\xC2\x80", nullptr, "U+0080"},         // a C1 control that the code page replaces
        {"\xC4\x81", nullptr, "U+0101 has no Windows-1252 code"},
        {"\xF0\x9F\x98\x80", nullptr, "U+1F600"},
        {"a\xFF", nullptr, "malformed UTF-8 at byte 2"},
        {"\xC3", nullptr, "malformed"},           // cut short
        {"\xC3\xA9\xC3", nullptr, "malformed UTF-8 at byte 3"},
        {"\xC0\xAF", nullptr, "malformed"},       // overlong
        {"\xED\xA0\x80", nullptr, "malformed"},   // surrogate
        {"\xED\xBF\xBF", nullptr, "malformed"},   // the last surrogate
        {"\xE2\x28\xA1", nullptr, "malformed"},   // bad continuation
    };
    for (const auto& r : righe) {
        std::string uscita, errore;
        const bool ok = Utf8InCp1252(r.utf8, uscita, errore);
        EXPECT_EQ(Utf8BenFormato(r.utf8), std::string_view(r.errore).find("malformed") == std::string_view::npos)
            << r.utf8;
        EXPECT_EQ(ok, r.cp1252 != nullptr) << "input \"" << r.utf8 << "\"";
        if (r.cp1252 != nullptr)
            EXPECT_EQ(uscita, r.cp1252) << "input \"" << r.utf8 << "\"";
        else
            EXPECT_NE(errore.find(r.errore), std::string::npos) << "input \"" << r.utf8 << "\": " << errore;
    }
}

TEST(CodificaTesto, StringaJson) {
    struct Riga {
        std::string utf8;
        const char* json;
    } const righe[] = {
        {"abc", "\"abc\""},
        {"a\"b\\c", "\"a\\\"b\\\\c\""},
        {"\r\n\t", "\"\\r\\n\\t\""},
        {std::string("\x00\x1f", 2), "\"\\u0000\\u001f\""},
        {"\xE2\x80\xB9", "\"\xE2\x80\xB9\""},
        {"a\xFF" "b", "\"a\xEF\xBF\xBD" "b\""},  // malformed byte as U+FFFD
    };
    for (const auto& r : righe) {
        std::string uscita;
        AccodaStringaJson(uscita, r.utf8);
        EXPECT_EQ(uscita, r.json) << "input \"" << r.utf8 << "\"";
    }
}

}  // namespace
}  // namespace krt
