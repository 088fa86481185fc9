#include "support/cp1252.h"

#include "text/codifica_testo.h"

namespace krt {

namespace {

std::optional<char> Codice(char16_t carattere) {
    const int b = ByteCp1252(carattere);
    if (b < 0) return std::nullopt;
    return static_cast<char>(b);
}

}  // namespace

QString DaWindows1252(std::string_view byte) {
    QString testo(static_cast<qsizetype>(byte.size()), Qt::Uninitialized);
    QChar* destinazione = testo.data();
    for (const char b : byte) {
        const auto codice = static_cast<unsigned char>(b);
        *destinazione++ = QChar(CarattereCp1252(codice));
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
