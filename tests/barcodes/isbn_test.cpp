#include <gtest/gtest.h>

#include <string>

#include "barcodes/codifica.h"
#include "barcodes/controllo.h"
#include "barcodes/ean_upc.h"
#include "barcodes/errori.h"
#include "barcodes/isbn.h"
#include "barcodes/validazione.h"

namespace {

// Conversions; for the numbers converted, the check digit and the text line above the bars
// of both entries (the bars are read back in rilettura_test.cpp).
TEST(Isbn, Conversioni) {
    const struct {
        std::string isbn;
        int stato;
        std::string isbn10, isbn13;  // "keep" when the outputs must stay as they were
    } casi[] = {
        {"", -1, "keep", "keep"},
        {"123", -2, "keep", "keep"},
        {"03064061521", -2, "keep", "keep"},
        {"030640615A", -3, "keep", "keep"},
        {"0306406153", -4, "keep", "keep"},
        {"9780306406158", -5, "keep", "keep"},
        {"0-306-40615-2", 0, "0-306-40615-2", "978-0-306-40615-7"},
        {"978 0 306 40615 7", 0, "0-306-40615-2", "978-0-306-40615-7"},
        {"884271710x", 0, "88-427-1710-X", "978-88-427-1710-2"},
        {"9604250590", 0, "960-425-059-0", "978-960-425-059-2"},
        {"9992150874", 0, "99921-50-87-4", "978-99921-50-87-0"},
        {"123456789X", 0, "1-23456789-X", "978-1-23456789-7"},
        // A "979" number is hyphenated with the same tables and still gets an ISBN-10.
        {"9790306406156", 0, "0-306-40615-2", "979-0-306-40615-6"},
        // An "X" among the first nine characters weighs 40.
        {"X000000007", 0, "X0000-00-00-7", "978-X0000-00-00-2"},
    };
    for (const auto& c : casi) {
        SCOPED_TRACE(c.isbn);
        std::string dieci = "keep", tredici = "keep";
        EXPECT_EQ(krt::ConvertiISBN(c.isbn, dieci, tredici), c.stato);
        EXPECT_EQ(dieci, c.isbn10);
        EXPECT_EQ(tredici, c.isbn13);
        const std::string nove = krt::NormalizzaISBN(dieci).substr(0, 9);
        const std::string dodici = krt::NormalizzaISBN(tredici).substr(0, 12);
        if (c.stato != 0 || !krt::SoloCifre(nove)) continue;
        EXPECT_EQ(krt::CalcolaCheckISBN(nove), nove + "-" + dieci.back());
        const std::string barre978 = krt::CodificaEAN13(krt::CalcolaCheckEAN("978" + nove));
        EXPECT_EQ(krt::CodificaBarcode(nove, "ISBN", false), "--$" + krt::CodificaTestoISBN(dieci) + "\r\n" + barre978);
        EXPECT_EQ(krt::CodificaBarcode(dodici, "ISBN13", true),
                  "$" + krt::CodificaTestoISBN(tredici) + "\r\n" + krt::CodificaEAN13(krt::CalcolaCheckEAN(dodici)));
    }
}

TEST(Isbn, Hyphenation) {
    const struct {
        std::string isbn, atteso;
    } casi[] = {
        {"0306406152", "0-306-40615-2"},
        {"0999999999", "0-9999999-9-9"},
        // Group 2: "40000000" stands before "500" as strings.
        {"240000000X", "2-40000000-X"},
        {"2500000001", "2-500-00000-1"},
        {"9165000001", "91-6500000-1"},
        {"9992150874", "99921-50-87-4"},
        // Groups without a publisher list.
        {"6123456784", "6-12345678-4"},
        {"9990212341", "99902-1234-1"},
    };
    for (const auto& c : casi) EXPECT_EQ(krt::ScomponiISBN(c.isbn), c.atteso) << c.isbn;
}

TEST(Isbn, RangeLookups) {
    const struct {
        std::string cifre, lista;
        std::size_t lunghezza;
    } casi[] = {
        {"0306406152", "0,80,950,9960,99900", 1},
        {"80", "0,80,950,9960,99900", 2},
        {"X", "0,80,950,9960,99900", 5},
        {"45", "00,200,40000000,500,7000", 8},  // compared as strings
    };
    for (const auto& c : casi) EXPECT_EQ(krt::LunghezzaIntervallo(c.cifre, c.lista), c.lunghezza) << c.cifre;
    EXPECT_THROW(krt::LunghezzaIntervallo("5", "6,7"), krt::IntervalloNonValido);
    EXPECT_THROW(krt::LunghezzaIntervallo("", "0,80"), krt::IntervalloNonValido);
    EXPECT_THROW(krt::LunghezzaIntervallo("5", ""), krt::IntervalloNonValido);

    EXPECT_EQ(krt::TrovaGruppoISBN("99921-50-87-4"), "99921");
    EXPECT_EQ(krt::TrovaGruppoISBN("953-1"), "953");
}

TEST(Isbn, PublisherLists) {
    const struct {
        std::string gruppo, lista;
    } casi[] = {
        {"0", "00,200,7000,85000,900000,9500000"},
        {"99937", "0,20"},
        {" 80", "00,200,7000,85000,900000"},
        {"6", ""}, {"99902", ""}, {"9.5", ""}, {"100000", ""},
    };
    for (const auto& c : casi) EXPECT_EQ(krt::LeggiIntervalliEditore(c.gruppo), c.lista) << c.gruppo;
    int gruppi = 0;
    for (int g = 0; g <= 99999; ++g) gruppi += !krt::LeggiIntervalliEditore(std::to_string(g)).empty();
    EXPECT_EQ(gruppi, 131);
}

TEST(Isbn, TextHelpers) {
    EXPECT_EQ(krt::CodificaTestoISBN("0123456789X-"), "%&'():;<=>?.");
    EXPECT_THROW(krt::CodificaTestoISBN("0-306-A"), krt::EscapeNonValido);
    EXPECT_THROW(krt::CodificaTestoISBN("x"), std::invalid_argument);
    EXPECT_EQ(krt::NormalizzaISBN("0-306-x"), "0306X");

    EXPECT_EQ(krt::TrovaCarattereNonValido("0123X", "0123456789X"), 0u);
    EXPECT_EQ(krt::TrovaCarattereNonValido("01A3", "0123456789"), 3u);
    EXPECT_EQ(krt::TrovaCarattereNonValido("", "0"), 0u);
}

}  // namespace
