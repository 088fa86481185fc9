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

struct Testo {
    std::int16_t offset;
    int id;
    const char* atteso;  // UTF-8
};

TEST_F(Stringhe, TestiNelleDueLingue) {
    const Testo casi[] = {
        {0, 92, "Error"},
        {1000, 92, "Errore"},
        {0, 93, "The value introduced is not allowed"},
        {1000, 93, "Il valore digitato non è ammesso"},
        {0, 94, "Length: "},
        {1000, 94, "Lunghezza: "},
        {1000, 689, "Il codice è vuoto!"},
        {0, 690, "Alfanumerico variabile, massimo % caratteri"},
        {1000, 690, "Alfanumerico variabile, massimo % caratteri"},
        {0, 263, "Select barcode symbology"},
        {1000, 291, "I&nglese"},
        {0, 282, "Narrow short"},
        {1000, 283, "Largo e corto"},
        {0, 300, "Loading fonts, please wait..."},
        {1000, 300, "Caricamento font, attendere..."},
        {0, 429, "Delta-Distance A"},
        {1000, 430, "2 di 5 Invertito"},
        {0, 600, "00   SSCC-18"},
        {0, 621, "314   Area, Square Meters"},
        {0, 650, "8001 Roll products - Width, Length, Core Diameter, Direction and Splices"},
        {0, 764, "369  Gross Volume, Cubic Yards"},
        {1000, 90, "O&k"},
        {0, 91, "&Abort"},
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

struct Errore {
    std::int16_t offset;
    int id;
    ErroreTabellaStringhe::Motivo motivo;
};

TEST_F(Stringhe, OverflowEIdMancante) {
    using M = ErroreTabellaStringhe::Motivo;
    const Errore casi[] = {
        {1000, 31768, M::Overflow},  // 32768
        {1000, 32767, M::Overflow},
        {0, 32768, M::Overflow},     // the id itself is not 16-bit
        {0, -32769, M::Overflow},
        {-1000, -31769, M::Overflow},
        {0, 99, M::IdMancante},
        {1000, 99, M::IdMancante},
        {0, 31767, M::IdMancante},
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
    struct Intervallo {
        int da, a;
    };
    const Intervallo quotati[] = {{90, 98}, {260, 286}, {289, 292}, {300, 300}, {400, 435},
                                  {600, 671}, {680, 701}, {730, 764}};
    for (const auto& r : quotati)
        for (int id = r.da; id <= r.a; ++id) EXPECT_NO_THROW(krt::CaricaStringaFissa(id)) << "id " << id;
}

}  // namespace
