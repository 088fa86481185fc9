#include <gtest/gtest.h>

#include <string>

#include "gs1/catalogo_ai.h"
#include "gs1/validazione_ai.h"

namespace {

using namespace krt;

struct CasoValore {
    const char* formato;
    std::string valore;
    int idMessaggio;     // 0: accepted
    std::string inserito; // value to insert when accepted ("" = as given)
};

TEST(ValidaValoreAI, DecisionPerFormatCode) {
    const CasoValore casi[] = {
        // "n18": 17 digits are completed, 18 digits must carry their check digit.
        {"n18", "12345678901234567", 0, "123456789012345675"},
        {"n18", "123456789012345675", 0, ""},
        {"n18", "123456789012345670", MessaggioValoreNonAmmesso, ""},
        {"n18", "1234567890123456", MessaggioLunghezzaErrata, ""},
        {"n18", "1234567890123456A", MessaggioNonIntero, ""},
        {"n18", "12345678901234567A", MessaggioNonIntero, ""},
        // The check digit of a completed value is taken on the text as typed.
        {"n18", " 12345678901234567", 0, "123456789012345673"},
        // Exactly N digits, no check digit verified.
        {"n6", "123456", 0, ""},
        {"n6", "12345", MessaggioLunghezzaErrata, ""},
        {"n6", "12a456", MessaggioNonIntero, ""},
        {"n6", "1e3456", MessaggioNonIntero, ""},
        // Any character, blanks and backslashes too.
        {"av20", "A\\B", 0, ""},
        {"av9", "\x01\x7F", 0, ""},
        // Variable-length numbers.
        {"nv8", "123", 0, ""},
        {"nv8", "12.3", MessaggioNonIntero, ""},
        {"nl19", "1234", 0, ""},
        {"nl19", "x", MessaggioNonIntero, ""},
        // Digits, then free text.
        {"n14av16", "1234567890123", MessaggioLunghezzaErrata, ""},
        {"n14av16", "1234567890123X", MessaggioPrime14NonCifre, ""},
        {"n14av16", "12345678901234ABC", 0, ""},
        {"n3av9", "12", MessaggioLunghezzaErrata, ""},
        {"n3av9", "12A", MessaggioPrime3NonCifre, ""},
        {"n3av9", "380ABC", 0, ""},
        // Decimals: leading zeros count without a point, not with one.
        {"nd6", "12.5", 0, ""},
        {"nd6", "1234567", MessaggioLunghezzaErrata, ""},
        {"nd6", "0001234.5", 0, ""},
        {"nd6", "1234567.5", MessaggioLunghezzaErrata, ""},
        {"nd6", "1.1234567890", MessaggioLunghezzaErrata, ""},
        {"nd6", "0.0000001", 0, ""},
        {"nd6", "abc", MessaggioNonNumero, ""},
        {"nd15", "1234567890123456", MessaggioLunghezzaErrata, ""},
        {"nd18", "1234567890.12345678", 0, ""},
        // Unknown codes accept anything that is not blank.
        {"zz", "x", 0, ""},
        {"n6", "", MessaggioCodiceVuoto, ""},
    };
    for (const auto& c : casi) {
        const auto esito = ValidaValoreAI(c.valore, c.formato);
        const auto atteso = c.inserito.empty() ? c.valore : c.inserito;
        EXPECT_EQ(esito.accettato, c.idMessaggio == 0) << c.formato << " \"" << c.valore << "\"";
        EXPECT_EQ(esito.idMessaggio, c.idMessaggio) << c.formato << " \"" << c.valore << "\"";
        if (c.idMessaggio == 0) {
            EXPECT_EQ(esito.valore, atteso) << c.formato << " \"" << c.valore << "\"";
        }
    }
}

TEST(NumberGrammar, IntegerAndDecimal) {
    const struct {
        std::string testo;
        bool intero, decimale;
    } casi[] = {
        {"12", true, true},     {" 12 ", true, true},  {"0", true, true},
        {"12.5", false, true},  {"12.", false, true},  {".5", false, true},
        {".", false, false},    {"", false, false},    {"  ", false, false},
        {"-5", false, false},   {"-0", false, false},  {"+5", false, false},
        {"1e3", false, false},  {"1,5", false, false}, {"1 2", false, false},
        {"1.2.3", false, false}, {"12a", false, false},
    };
    for (const auto& c : casi) {
        EXPECT_EQ(ValidaNumeroIntero(c.testo), c.intero) << "\"" << c.testo << "\"";
        EXPECT_EQ(ValidaNumeroDecimale(c.testo), c.decimale) << "\"" << c.testo << "\"";
    }
}

TEST(CalcolaCheckGS1, WeightsByLength) {
    const struct {
        std::string cifre, atteso;
    } casi[] = {
        {"12345678901234567", "5"}, // SSCC data: first digit weighs 3
        {"400638133393", "1"},      // 12 characters: even positions weigh 3
        {"0950123456789", "1"},     // GTIN-14 data
        {"1A", "7"},                // a non-digit counts 0
        {"", "0"},
        {"0000000000000", "0"},
    };
    for (const auto& c : casi) EXPECT_EQ(CalcolaCheckGS1(c.cifre), c.atteso) << "\"" << c.cifre << "\"";
}

}  // namespace
