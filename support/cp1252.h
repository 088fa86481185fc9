// The one conversion between Windows-1252 bytes (content, glyphs, options record) and
// QString. All 256 bytes convert; the five bytes that Windows-1252 leaves undefined
// (0x81, 0x8D, 0x8F, 0x90, 0x9D) become U+0081, U+008D, U+008F, U+0090, U+009D and back.
#pragma once
#include <optional>
#include <string>
#include <string_view>

#include <QString>
#include <QStringView>

namespace krt {

QString DaWindows1252(std::string_view byte);

// std::nullopt when a character of the text has no Windows-1252 code.
std::optional<std::string> AWindows1252(QStringView testo);

// The same, with each character that has no code replaced by sostituto.
std::string AWindows1252Sostituendo(QStringView testo, char sostituto = '?');

}  // namespace krt
