#include <gtest/gtest.h>

#include <set>
#include <string>

#include "gs1/catalogo_ai.h"
#include "gs1/validazione_ai.h"

namespace {

using namespace krt;

// A blank value is empty whatever the format.
TEST(CatalogoAI, EveryEntryHasAKnownFormatAndAUniqueAI) {
    std::set<std::string_view> ai;
    std::set<int> testi;
    for (const auto& voce : CatalogoAI) {
        EXPECT_NE(RegolaDelFormato(voce.formato).tipo, TipoFormato::Sconosciuto) << voce.ai;
        EXPECT_EQ(ValidaValoreAI("   ", voce.formato).idMessaggio, MessaggioCodiceVuoto) << voce.ai;
        EXPECT_TRUE(ai.insert(voce.ai).second) << "AI " << voce.ai << " twice";
        EXPECT_TRUE(testi.insert(voce.idTesto).second) << "text id " << voce.idTesto << " twice";
        const bool idValido = (voce.idTesto >= 600 && voce.idTesto <= 671) ||
                              (voce.idTesto >= 730 && voce.idTesto <= 764);
        EXPECT_TRUE(idValido) << voce.ai << " " << voce.idTesto;
    }
    EXPECT_EQ(ai.size(), 107u);
}

// The list order: AI 37 after 369, the US-unit texts among the metric ones.
TEST(CatalogoAI, ListOrder) {
    EXPECT_EQ(CercaAI("00"), 0u);
    EXPECT_EQ(CatalogoAI[*CercaAI("37") - 1].ai, "369");
    EXPECT_EQ(CatalogoAI[*CercaAI("321")].idTesto, 730);
    EXPECT_EQ(CercaAI("999"), std::nullopt);
    EXPECT_EQ(CercaAI(""), std::nullopt);
}

TEST(RegolaFormato, LimitAndDescription) {
    struct Caso {
        std::string_view formato;
        std::optional<int> limite;
        int idDescrizione;
        std::string_view testo, descrizione;
    };
    const Caso casi[] = {
        {"n18", 18, 691, "Integer of length %", "Integer of length 18"},
        {"av9", 9, 690, "massimo % caratteri", "massimo 9 caratteri"},
        {"nd6", 11, 694, "Float of length %", "Float of length 6"},
        {"nd18", 19, 694, "Float of length %", "Float of length 18"},
        {"nl19", 19, 695, "Integer, max length 19 %", "Integer, max length 19 %"},
        {"x9", std::nullopt, 0, "anything", ""},
    };
    for (const auto& c : casi) {
        EXPECT_EQ(LimiteValore(c.formato), c.limite) << c.formato;
        EXPECT_EQ(RegolaDelFormato(c.formato).limite, c.limite.value_or(0)) << c.formato;
        EXPECT_EQ(RegolaDelFormato(c.formato).idDescrizione, c.idDescrizione) << c.formato;
        EXPECT_EQ(ComponiDescrizione(c.formato, c.testo), c.descrizione) << c.formato;
    }
}

}  // namespace
