#include "support/stringhe.h"

#include <gtest/gtest.h>

#include "resources/tabella_stringhe.h"
#include "support/cp1252.h"

namespace {

using krt::ErroreTabellaStringhe;

// Resets the language after each test.
class Stringhe : public ::testing::Test {
protected:
    void TearDown() override { krt::ImpostaOffsetLingua(krt::kOffsetInglese); }
};

// The language offset chooses the text; UTF-8 letters come through.
TEST_F(Stringhe, TestiNelleDueLingue) {
    const struct {
        std::int16_t offset;
        int id;
        const char* atteso;  // UTF-8
    } casi[] = {
        {0, 93, "The value introduced is not allowed"},
        {1000, 93, "Il valore digitato non è ammesso"},
        {1000, 283, "Largo e corto"},
        {0, 650, "8001 Roll products - Width, Length, Core Diameter, Direction and Splices"},
    };
    for (const auto& c : casi) {
        krt::ImpostaOffsetLingua(c.offset);
        EXPECT_EQ(krt::CaricaStringa(c.id), QString::fromUtf8(c.atteso)) << "id " << c.id << " offset " << c.offset;
    }
}

TEST_F(Stringhe, FissaIgnoraLaLingua) {
    krt::ImpostaOffsetLingua(krt::kOffsetItaliano);
    EXPECT_EQ(krt::CaricaStringaFissa(278), QStringLiteral("Normal"));
    EXPECT_EQ(krt::CaricaStringaFissa(1278), QStringLiteral("Normale"));
    EXPECT_EQ(krt::CaricaStringa(278), QStringLiteral("Normale"));
}

TEST_F(Stringhe, OverflowEIdMancante) {
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
        }
    }
}

// Every text has its other-language twin and fits the single-byte code page of the
// options record and the engine.
TEST_F(Stringhe, TabellaCompletaERappresentabile) {
    const auto tabella = krt::TabellaStringhe();
    ASSERT_FALSE(tabella.empty());
    for (const auto& voce : tabella) {
        const int gemello = voce.id < 1000 ? voce.id + 1000 : voce.id - 1000;
        EXPECT_NO_THROW(krt::CaricaStringaFissa(gemello)) << "id " << voce.id;
        const QString testo = QString::fromUtf8(voce.testo.data(), static_cast<qsizetype>(voce.testo.size()));
        EXPECT_TRUE(krt::AWindows1252(testo).has_value()) << "id " << voce.id;
    }
    const struct {
        int da, a;
    } quotati[] = {{90, 98}, {260, 286}, {289, 292}, {300, 300}, {400, 435},
                                  {600, 671}, {680, 701}, {730, 764}};
    for (const auto& r : quotati)
        for (int id = r.da; id <= r.a; ++id) EXPECT_NO_THROW(krt::CaricaStringaFissa(id)) << "id " << id;
}

}  // namespace
