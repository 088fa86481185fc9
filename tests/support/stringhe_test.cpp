#include "support/stringhe.h"

#include <gtest/gtest.h>

#include "resources/tabella_stringhe.h"
#include "support/cp1252.h"

namespace {

using krt::ErroreTabellaStringhe;

// The language offset chooses the text, except for the fixed lookup; UTF-8 letters come through.
TEST(Stringhe, TestiNelleDueLingue) {
    const struct {
        std::int16_t offset;
        int id;
        bool fissa;          // CaricaStringaFissa
        const char* atteso;  // UTF-8
    } casi[] = {
        {0, 93, false, "The value introduced is not allowed"},
        {1000, 93, false, "Il valore digitato non è ammesso"},
        {1000, 278, false, "Normale"},
        {1000, 278, true, "Normal"},
        {1000, 1278, true, "Normale"},
    };
    for (const auto& c : casi) {
        krt::ImpostaOffsetLingua(c.offset);
        EXPECT_EQ(c.fissa ? krt::CaricaStringaFissa(c.id) : krt::CaricaStringa(c.id), QString::fromUtf8(c.atteso))
            << "id " << c.id << " offset " << c.offset;
    }
    krt::ImpostaOffsetLingua(krt::kOffsetInglese);
}

// Faults name their cause: an id (or id plus offset) beyond 16 bits, or an id with no text.
TEST(Stringhe, OverflowEIdMancante) {
    using M = ErroreTabellaStringhe::Motivo;
    const struct {
        std::int16_t offset;
        int id;
        ErroreTabellaStringhe::Motivo motivo;
    } casi[] = {
        {1000, 31768, M::Overflow},  // 32768
        {0, 32768, M::Overflow},     // the id itself is not 16-bit
        {0, -32769, M::Overflow},
        {-1000, -31769, M::Overflow},
        {0, 99, M::IdMancante},
        {1000, 1092, M::IdMancante},  // 2092
        {0, -1, M::IdMancante},
    };
    for (const auto& c : casi) {
        krt::ImpostaOffsetLingua(c.offset);
        try {
            krt::CaricaStringa(c.id);
            ADD_FAILURE() << "no error for id " << c.id << " offset " << c.offset;
        } catch (const ErroreTabellaStringhe& e) {
            EXPECT_EQ(e.motivo(), c.motivo) << "id " << c.id << " offset " << c.offset << ": " << e.what();
            EXPECT_NE(std::string(e.what()).find(c.motivo == M::Overflow ? "16-bit" : "no text"), std::string::npos);
        }
    }
    krt::ImpostaOffsetLingua(krt::kOffsetInglese);
}

// Every text fits the single-byte code page of the options record and the engine.
TEST(Stringhe, TabellaRappresentabileInWindows1252) {
    for (const auto& voce : krt::TabellaStringhe())
        EXPECT_TRUE(krt::AWindows1252(QString::fromUtf8(voce.testo.data(), static_cast<qsizetype>(voce.testo.size()))))
            << "id " << voce.id;
}

}  // namespace
