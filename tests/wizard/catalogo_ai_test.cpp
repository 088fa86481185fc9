#include <gtest/gtest.h>

#include <set>
#include <string>

#include "wizard/catalogo_ai.h"

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
    const Caso casi[] = {
        {1, "00", "n18", 600},     {2, "01", "n14", 601},     {4, "10", "av20", 603},
        {13, "23", "nl19", 612},   {17, "30", "nv8", 616},    {18, "310", "nd6", 617},
        {22, "314", "nd6", 621},   {25, "320", "nd6", 624},   {26, "321", "nd6", 730},
        {35, "330", "nd6", 625},   {69, "369", "nd6", 764},   {70, "37", "nv8", 634},
        {71, "390", "nd15", 635},  {72, "391", "nd18", 636},  {84, "421", "n3av9", 648},
        {88, "8003", "n14av16", 652}, {91, "8006", "n18", 655}, {107, "99", "av30", 671},
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
        {"n2", 2, 691, "Integer of length %", "Integer of length 2"},
        {"n14", 14, 691, "Integer of length %", "Integer of length 14"},
        {"n18", 18, 691, "Integer of length %", "Integer of length 18"},
        {"av9", 9, 690, "massimo % caratteri", "massimo 9 caratteri"},
        {"av30", 30, 690, "massimo % caratteri", "massimo 30 caratteri"},
        {"nd6", 11, 694, "Float of length %", "Float of length 6"},
        {"nd15", 16, 694, "Float of length %", "Float of length 15"},
        {"nd18", 19, 694, "Float of length %", "Float of length 18"},
        {"nl19", 19, 695, "Integer, max length 19 %", "Integer, max length 19 %"},
        {"nv8", 8, 696, "Integer, max length 8", "Integer, max length 8"},
        {"n14av16", 30, 692, "Integer of length 14 ...", "Integer of length 14 ..."},
        {"n3av9", 12, 693, "Integer of length 3 ...", "Integer of length 3 ..."},
        {"x9", std::nullopt, 0, "anything", ""},
    };
    for (const auto& c : casi) {
        EXPECT_EQ(LimiteValore(c.formato), c.limite) << c.formato;
        EXPECT_EQ(RegolaDelFormato(c.formato).idDescrizione, c.idDescrizione) << c.formato;
        EXPECT_EQ(ComponiDescrizione(c.formato, c.testo), c.descrizione) << c.formato;
    }
}

}  // namespace
