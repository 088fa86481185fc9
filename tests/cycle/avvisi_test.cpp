// Warnings about accepted contents, the facts of a refused complete number, readable HRC
// and printed width: one table per function, each row naming itself.
#include <gtest/gtest.h>

#include <optional>

#include "cycle/avvisi.h"

namespace {

using namespace krt;

TEST(Avvisi, CheckDigitErrato) {
    const struct {
        const char *nome, *codice, *contenuto;
        std::optional<char> atteso;
    } casi[] = {
        {"EAN-13 right", "EAN13", "5901234123457", std::nullopt},
        {"EAN-13 wrong", "EAN13", "5901234123458", '7'},
        {"EAN-13 short: not a whole number", "EAN13", "590123412345", std::nullopt},
        {"EAN-8 wrong", "EAN8", "96385070", '4'},
        {"UPC-E checked on its UPC-A form", "UPCE", "01234560", '5'},
        {"UCC-ITF 14 wrong", "ITF", "15400141288760", '3'},
        {"a letter: the rules refuse it, no warning", "EAN13", "59012341234A7", std::nullopt},
        {"Code 39 has no such digit", "C39", "5901234123458", std::nullopt},
        {"ISBN is always completed", "ISBN13", "9780306406150", std::nullopt},
    };
    for (const auto& c : casi) {
        SCOPED_TRACE(c.nome);
        EXPECT_EQ(CheckDigitErrato(c.codice, c.contenuto), c.atteso);
    }
}

TEST(Avvisi, CheckDigitInPiu) {
    const struct {
        const char *nome, *codice, *contenuto;
        bool check;
        std::optional<std::size_t> daDigitare;
        std::optional<char> checkErrato;
    } casi[] = {
        {"EAN-13 whole with Check Digit ticked", "EAN13", "5901234123457", true, 12, std::nullopt},
        {"its last digit wrong too", "EAN13", "5901234123450", true, 12, '7'},
        {"unticked: the length is right", "EAN13", "5901234123457", false, std::nullopt, std::nullopt},
        {"12 typed: fine", "EAN13", "590123412345", true, std::nullopt, std::nullopt},
        {"ISBN-10 whole, X check", "ISBN", "080442957X", false, 9, std::nullopt},
        {"ISBN-13 whole, wrong check", "ISBN13", "9780306406150", false, 12, '7'},
        {"UPC-E whole", "UPCE", "01234565", true, 7, std::nullopt},
        {"an X ends only an ISBN-10", "EAN13", "590123412345X", true, std::nullopt, std::nullopt},
    };
    for (const auto& c : casi) {
        SCOPED_TRACE(c.nome);
        const auto esito = CheckDigitInPiu(c.codice, c.contenuto, c.check);
        ASSERT_EQ(esito.has_value(), c.daDigitare.has_value());
        if (!esito) continue;
        EXPECT_EQ(std::tie(esito->digitate, esito->daDigitare, esito->checkErrato),
                  std::tuple(*c.daDigitare + 1, *c.daDigitare, c.checkErrato));
    }
}

TEST(Avvisi, ChiaviEDateGS1) {
    const struct {
        const char *ai, *valore;
        std::optional<char> check;
        bool dataImpossibile;
    } casi[] = {
        {"00", "376104250021234569", std::nullopt, false},
        {"00", "376104250021234560", '9', false},
        {"01", "09501234567890", '1', false},
        {"01", "0950123456789", std::nullopt, false},   // one digit short
        {"01", "0950123456789A", std::nullopt, false},  // not all digits
        {"414", "5412345000010", '3', false},
        {"10", "5412345000010", std::nullopt, false},
        // dates: months 13, 00 and 01, 31 April, 29 February in and out of a leap year, day 00, too short, not a date
        {"11", "241301", std::nullopt, true},  {"11", "240001", std::nullopt, true},
        {"17", "240131", std::nullopt, false}, {"17", "240431", std::nullopt, true},
        {"15", "240229", std::nullopt, false}, {"15", "230229", std::nullopt, true},
        {"13", "241200", std::nullopt, false}, {"17", "2412", std::nullopt, false},
        {"20", "241301", std::nullopt, false},
    };
    for (const auto& c : casi) {
        SCOPED_TRACE(std::string(c.ai) + " " + c.valore);
        EXPECT_EQ(CheckDigitChiaveGS1(c.ai, c.valore), c.check);
        EXPECT_EQ(DataGS1Impossibile(c.ai, c.valore), c.dataImpossibile);
    }
    EXPECT_TRUE(PrefissoISBNErrato("123456789012"));
    EXPECT_FALSE(PrefissoISBNErrato("979123456789"));
}

TEST(Avvisi, HRCLeggibile) {
    const struct {
        const char* hrc;
        bool codice128;
        const char* atteso;
    } casi[] = {
        {"AB\\t12\\x0412", true, "AB<HT>12<EOT>12"},
        {"01\\x8110AB", true, "01<FNC1>10AB"},
        {"\\x81", false, "\x81"},
        {"A\\\\B\\x7F", false, "A\\B<DEL>"},
        {"A\\qB", true, "A\\qB"},  // no character: left as typed
    };
    for (const auto& c : casi) EXPECT_EQ(HRCLeggibile(c.hrc, c.codice128), c.atteso) << c.hrc;
}

TEST(Avvisi, LarghezzaMm) {
    EXPECT_NEAR(LarghezzaMm(2.5, 36), 31.75, 1e-9);  // one em at 72 points is an inch
}

}  // namespace
