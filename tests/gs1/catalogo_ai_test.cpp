#include <gtest/gtest.h>

#include <set>
#include <string>

#include "gs1/catalogo_ai.h"

namespace {

using namespace krt;

TEST(CatalogoAI, EveryEntryHasAKnownFormatAndAUniqueAI) {
    std::set<std::string_view> ai;
    std::set<int> testi;
    for (const auto& voce : CatalogoAI) {
        EXPECT_NE(RegolaDelFormato(voce.formato).tipo, TipoFormato::Sconosciuto) << voce.ai;
        EXPECT_TRUE(ai.insert(voce.ai).second) << "AI " << voce.ai << " twice";
        EXPECT_TRUE(testi.insert(voce.idTesto).second) << "text id " << voce.idTesto << " twice";
        const bool idValido = (voce.idTesto >= 600 && voce.idTesto <= 671) ||
                              (voce.idTesto >= 730 && voce.idTesto <= 764);
        EXPECT_TRUE(idValido) << voce.ai << " " << voce.idTesto;
    }
    EXPECT_EQ(ai.size(), 107u);
}

TEST(CatalogoAI, ListOrder) {
    struct Caso {
        std::size_t posizione; // 1-based, as in the list
        std::string_view ai, formato;
        int idTesto;
    };
    // The ends, the US-unit ids among the metric ones, and AI 37 after 369.
    const Caso casi[] = {
        {1, "00", "n18", 600},     {22, "314", "nd6", 621},  {26, "321", "nd6", 730},
        {35, "330", "nd6", 625},   {69, "369", "nd6", 764},  {70, "37", "nv8", 634},
        {88, "8003", "n14av16", 652}, {107, "99", "av30", 671},
    };
    for (const auto& c : casi) {
        const auto& voce = CatalogoAI[c.posizione - 1];
        EXPECT_EQ(voce.ai, c.ai) << "position " << c.posizione;
        EXPECT_EQ(voce.formato, c.formato) << "position " << c.posizione;
        EXPECT_EQ(voce.idTesto, c.idTesto) << "position " << c.posizione;
        EXPECT_EQ(CercaAI(c.ai), c.posizione - 1) << c.ai;
    }
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
        EXPECT_EQ(RegolaDelFormato(c.formato).idDescrizione, c.idDescrizione) << c.formato;
        EXPECT_EQ(ComponiDescrizione(c.formato, c.testo), c.descrizione) << c.formato;
    }
}

}  // namespace
