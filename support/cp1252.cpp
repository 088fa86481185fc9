#include "support/cp1252.h"

namespace krt {

namespace {

// Characters of the bytes 0x80-0x9F; every other byte is the character of the same code.
constexpr char16_t kDa80A9F[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80-87
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 88-8F
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90-97
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 98-9F
};

std::optional<char> Codice(char16_t carattere) {
    if (carattere < 0x80 || (carattere >= 0xA0 && carattere <= 0xFF)) return static_cast<char>(carattere);
    for (unsigned i = 0; i < 32; ++i)
        if (kDa80A9F[i] == carattere) return static_cast<char>(0x80 + i);
    return std::nullopt;
}

}  // namespace

QString DaWindows1252(std::string_view byte) {
    QString testo(static_cast<qsizetype>(byte.size()), Qt::Uninitialized);
    QChar* destinazione = testo.data();
    for (const char b : byte) {
        const auto codice = static_cast<unsigned char>(b);
        *destinazione++ = QChar(codice >= 0x80 && codice <= 0x9F ? kDa80A9F[codice - 0x80] : char16_t{codice});
    }
    return testo;
}

std::optional<std::string> AWindows1252(QStringView testo) {
    std::string byte;
    byte.reserve(static_cast<std::size_t>(testo.size()));
    for (const QChar c : testo) {
        const auto codice = Codice(c.unicode());
        if (!codice) return std::nullopt;
        byte += *codice;
    }
    return byte;
}

std::string AWindows1252Sostituendo(QStringView testo, char sostituto) {
    std::string byte;
    byte.reserve(static_cast<std::size_t>(testo.size()));
    for (qsizetype i = 0; i < testo.size(); ++i) {
        const char16_t c = testo[i].unicode();
        // A character outside the basic plane is one replacement, not two.
        if (QChar::isHighSurrogate(c) && i + 1 < testo.size() && QChar::isLowSurrogate(testo[i + 1].unicode())) ++i;
        byte += Codice(c).value_or(sostituto);
    }
    return byte;
}

}  // namespace krt
