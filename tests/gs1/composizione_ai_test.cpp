#include <gtest/gtest.h>

#include <string>

#include "gs1/catalogo_ai.h"
#include "gs1/composizione_ai.h"

namespace {

using namespace krt;

const std::string Sep(1, SeparatoreCampo);

// The catalogue index of an AI (value() throws for an AI the catalogue lacks).
std::size_t Indice(std::string_view ai) { return CercaAI(ai).value(); }

TEST(ComponiElementoAI, PiecePerFormatCode) {
    struct Caso {
        std::string_view ai;
        std::string valore;
        std::string pezzo, aiLeggibile, valoreLeggibile;
    };
    const std::string venti = "ABCDEFGHIJKLMNOPQRST";
    const std::string trenta = "12345678901234" + std::string(16, 'X');
    const Caso casi[] = {
        // Fixed length: AI and value, never a separator.
        {"01", "09501234567890", "0109501234567890", "01", "09501234567890"},
        {"00", "123456789012345675", "00123456789012345675", "00", "123456789012345675"},
        // Variable length: a separator below the maximum, counted on the text as typed.
        {"10", "ABC", "10ABC" + Sep, "10", "ABC"},
        {"10", venti, "10" + venti, "10", venti},
        {"10", venti.substr(1), "10" + venti.substr(1) + Sep, "10", venti.substr(1)},
        {"30", "12345678", "3012345678", "30", "12345678"},
        {"8003", "12345678901234AB", "800312345678901234AB" + Sep, "8003", "12345678901234AB"},
        {"8003", trenta, "8003" + trenta, "8003", trenta},
        {"421", "380ABCDEFGHI", "421380ABCDEFGHI", "421", "380ABCDEFGHI"},
        // Decimals: the AI gains the count of decimals, the value N digits.
        {"310", "12.5", "3101000125", "3101", "000125"},
        {"310", "7", "3100000007", "3100", "000007"},
        {"310", "0001234.5", "3101012345", "3101", "012345"},
        {"310", " 0.0000001 ", "3107000001", "3107", "000001"},
        {"390", "12.34", "3902000000000001234", "3902", "000000000001234"},
        {"391", "1234567890.12345678", "3918123456789012345678", "3918", "123456789012345678"},
        // Length digit: pairs of digits, an even length gets a leading "0".
        {"23", "12345", "23212345", "232", "12345"},
        {"23", "1234", "232" "01234", "232", "01234"},
        {"23", "1234567890123456789", "2391234567890123456789", "239", "1234567890123456789"},
        {"23", "123456789012345678", "2390123456789012345678", "239", "0123456789012345678"},
    };
    for (const auto& c : casi) {
        const auto e = ComponiElementoAI(Indice(c.ai), c.valore);
        EXPECT_EQ(e.pezzo, c.pezzo) << "AI " << c.ai << " \"" << c.valore << "\"";
        EXPECT_EQ(e.ai, c.aiLeggibile) << "AI " << c.ai << " \"" << c.valore << "\"";
        EXPECT_EQ(e.valore, c.valoreLeggibile) << "AI " << c.ai << " \"" << c.valore << "\"";
    }
    EXPECT_EQ(ComponiElementoAI(CatalogoAI.size(), "1").pezzo, "");
}

TEST(ComponiCodiceAI, ContentAndReadableText) {
    struct Caso {
        const char* nome;
        std::vector<std::pair<std::string_view, std::string>> righe;
        std::string contenuto, hrc;
    };
    const std::string venti(20, 'A');
    const Caso casi[] = {
        {"worked example", {{"01", "09501234567890"}, {"10", "ABC"}, {"310", "12.5"}},
         "010950123456789010ABC\\x813101000125", "(01)09501234567890(10)ABC(3101)000125"},
        {"trailing separator stripped", {{"10", "AB"}}, "10AB", "(10)AB"},
        {"backslash doubled", {{"10", "A\\B"}}, "10A\\\\B", "(10)A\\B"},
        {"full-length value has no separator", {{"10", venti}, {"21", "7"}}, "10" + venti + "217",
         "(10)" + venti + "(21)7"},
        {"separator between variable values", {{"21", "X"}, {"10", "Y"}}, "21X\\x8110Y", "(21)X(10)Y"},
        {"only the last separator goes", {{"10", "A"}, {"30", "5"}}, "10A\\x81305", "(10)A(30)5"},
        {"readable text not escaped", {{"10", "\xE9"}}, "10\\xE9", "(10)\xE9"},
        {"no lines", {}, "", ""},
    };
    for (const auto& c : casi) {
        std::vector<RigaCodice> righe;
        for (const auto& [ai, valore] : c.righe) righe.push_back({Indice(ai), valore});
        const auto codice = ComponiCodiceAI(righe);
        EXPECT_EQ(codice.contenuto, c.contenuto) << c.nome;
        EXPECT_EQ(codice.hrc, c.hrc) << c.nome;
    }
}

TEST(LeggiRigaGS1, ParsedAndCheckedLikeTheWizard) {
    struct Caso {
        std::string riga;
        int idMessaggio;     // 0 when accepted
        std::string errore;  // English text, "" when accepted
        std::string contenuto;
    };
    const Caso casi[] = {
        {"(01)09501234567890(10)ABC(310)12.5", 0, "", "010950123456789010ABC\\x813101000125"},
        {"(00)12345678901234567", 0, "", "00123456789012345675"},
        {"(10)A(B)C(21)7", 0, "", "10A(B)C\\x81217"},
        {"(999)1", 0, "Unknown AI: 999", ""},
        {"01)1", 0, "Expected \"(AI)\" at position 1", ""},
        {"(01)123", 697, "Wrong length!", ""},
        {"(00)123456789012345670", 93, "The value introduced is not allowed", ""},
        {"(10)", 689, "The code is empty!", ""},
    };
    for (const auto& c : casi) {
        const auto esito = LeggiRigaGS1(c.riga);
        EXPECT_EQ(esito.idMessaggio, c.idMessaggio) << c.riga;
        EXPECT_EQ(esito.errore, c.errore) << c.riga;
        if (c.errore.empty()) {
            EXPECT_EQ(ComponiCodiceAI(esito.righe).contenuto, c.contenuto) << c.riga;
        }
    }
}

TEST(PreparaRigheAI, UnknownAIAndCompletion) {
    auto esito = PreparaRigheAI({{"00", "12345678901234567"}, {"10", "X"}});
    ASSERT_TRUE(esito.errore.empty());
    ASSERT_EQ(esito.righe.size(), 2u);
    EXPECT_EQ(esito.righe[0].valore, "123456789012345675");
    esito = PreparaRigheAI({{"10", "X"}, {"4", "1"}});
    EXPECT_EQ(esito.errore, "Unknown AI: 4");
    EXPECT_TRUE(esito.righe.empty());
}

}  // namespace
