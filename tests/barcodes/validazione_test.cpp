#include <gtest/gtest.h>

#include <string>

#include "barcodes/codifica.h"
#include "barcodes/validazione.h"

namespace {

struct CasoValidazione {
    const char* codice;
    bool check;
    std::string contenuto;
    bool accettato;
    std::string normalizzato;  // checked only when accepted
};

TEST(Validazione, AcceptsAndNormalises) {
    const CasoValidazione casi[] = {
        {"EAN13", true, "123", true, "000000000123"},
        {"EAN13", true, "1234567890123", false, ""},
        {"EAN13", false, "1234567890123", true, "1234567890123"},
        {"UPCA", true, "1", true, "00000000001"},
        {"UPCE", true, "123456", true, "0123456"},
        {"UPCE", true, "2345678", false, ""},  // number system 2
        {"UPCE", true, "1234567", true, "1234567"},
        {"UPCE", true, "12345678", false, ""},
        {"UPCE", false, "12345678", true, "12345678"},
        {"ISBN", false, "30640615", true, "030640615"},
        {"ISBN13", true, "9780306406", true, "009780306406"},
        {"ADD2", true, "5", true, "05"},
        {"POSTNET", true, "1234567", true, "001234567"},
        {"POSTNET", true, "1234567890", true, "01234567890"},
        {"POSTNET", true, "123456789012", false, ""},
        {"POSTNET", false, "1234567", true, "0001234567"},
        {"POSTNET", false, "123456789012", true, "123456789012"},
        {"POSTNET", false, "1234567890123", false, ""},
        {"CIP", true, "000003", false, ""},    // remainder 10
        {"CIP", false, "0000030", false, ""},  // same remainder test on seven digits
        {"CIP", false, "1234567", true, "1234567"},
        {"CIP", true, "1234567", false, ""},
        {"C25", true, "1234", true, "01234"},
        {"C25", true, "123", true, "123"},
        {"C25", false, "123", true, "0123"},
        {"C25", true, "12a", false, ""},
        {"ITF", true, "1", true, "0000000000001"},
        {"ITF", false, "123", true, "00000000000123"},
        {"CIND25", false, "007", true, "007"},
        {"CBCD", true, "1-2", false, ""},
        {"C11", true, "", false, ""},
        {"C11", true, "12-34", true, "12-34"},
        {"C11", true, "12 34", false, ""},
        {"CMSI", true, "1234567890123", true, "1234567890123"},
        {"CMSI", true, "12345678901234", false, ""},
        {"CMSI", false, "123456789012345", true, "123456789012345"},
        {"CMSI", false, "1234567890123456", false, ""},
        {"C32", true, "1", true, "00000001"},
        {"C32", false, "1234567890", false, ""},
        {"C128", false, "anything \\q", true, "anything \\q"},
        {"C39FULL", true, "\xE9", true, "\xE9"},
        {"C39", false, "abc", true, "ABC"},
        {"C39", false, "a b", false, ""},
        {"C39", false, "a_b-c.d$/+%", true, "A_B-C.D$/+%"},
        {"C93", false, "TE*T", false, ""},
        {"PLESSEY", true, "0123456789abcdef", false, ""},  // 16 characters
        {"PLESSEY", false, "0123456789abcde", true, "0123456789ABCDE"},
        {"DELTA", true, "12O", true, "12O"},
        {"DELTA", true, "12n", false, ""},
        {"DELTA", true, "klmo", true, "KLMO"},
        {"DELTA", true, "1234567890123456", false, ""},
        {"DELTA", false, "1234567890123456", true, "1234567890123456"},
        {"CBAR", false, "a123b", true, "A123B"},
        {"CBAR", false, "A1B", true, "A1B"},
        {"CBAR", false, "A12", false, ""},  // the last character is no stop character
        {"CBAR", false, "A1", false, ""},
        {"CBAR", false, "*-$:/.+e", true, "*-$:/.+E"},
        {"CBAR", false, "tAm", false, ""},
        {"C25INV", false, "ABC", true, "ABC"},
        {"XYZ", true, "whatever", true, "whatever"},
    };
    for (const auto& c : casi) {
        std::string contenuto = c.contenuto;
        const bool accettato = krt::ValidaCodice(contenuto, c.codice, c.check);
        EXPECT_EQ(accettato, c.accettato) << c.codice << (c.check ? " +check" : "") << " \"" << c.contenuto << "\"";
        if (accettato && c.accettato) {
            EXPECT_EQ(contenuto, c.normalizzato) << c.codice << " \"" << c.contenuto << "\"";
        }
    }
}

TEST(Validazione, Helpers) {
    EXPECT_TRUE(krt::SoloCifre(""));
    EXPECT_TRUE(krt::SoloCifre("0123456789"));
    EXPECT_FALSE(krt::SoloCifre("12 "));
    EXPECT_FALSE(krt::SoloCifre("\xB2"));  // superscript two is no digit
    // Eight characters are tested at once: one stranger at any place of any word is seen.
    for (const std::size_t lunghezza : {7u, 8u, 9u, 12u, 13u, 16u, 17u}) {
        const std::string cifre(lunghezza, '7');
        EXPECT_TRUE(krt::SoloCifre(cifre)) << lunghezza;
        for (std::size_t posto = 0; posto < lunghezza; ++posto) {
            for (const char estraneo : {'/', ':', '\xB5', '\0', 'p'}) {
                std::string s = cifre;
                s[posto] = estraneo;
                EXPECT_FALSE(krt::SoloCifre(s)) << "length " << lunghezza << ", byte " << int(estraneo) << " at "
                                                << posto;
            }
        }
    }

    EXPECT_EQ(krt::RiempiSinistra("12", 5, "0"), "00012");
    EXPECT_EQ(krt::RiempiSinistra("12", 5, "xy"), "xxx12");
    EXPECT_EQ(krt::RiempiSinistra("123456", 4, "0"), "1234");
    EXPECT_EQ(krt::RiempiSinistra("", 0, "0"), "");
}

}  // namespace

// Why a content is refused: the kind, and where it tells them the position or the lengths.
TEST(Validazione, ReasonOfTheRefusal) {
    using M = krt::MotivoRifiuto;
    const struct {
        const char* codice;
        bool check;
        std::string contenuto;
        M motivo;
        std::size_t posizione = 0;  // Carattere
        char carattere = 0;
        unsigned minimo = 0, massimo = 0;  // Lunghezza (massimo 0: no longest)
    } casi[] = {
        {"C39", false, "", M::Vuoto},
        {"EAN13", true, "12345678901234", M::Lunghezza, 0, 0, 1, 12},
        {"EAN13", false, "12345678901234", M::Lunghezza, 0, 0, 1, 13},
        {"POSTNET", true, "1234567890123", M::Lunghezza, 0, 0, 1, 11},
        {"CBAR", false, "A1", M::Lunghezza, 0, 0, 3, 0},
        {"EAN13", true, "12a4", M::Carattere, 3, 'a'},
        {"C39", false, "ab!", M::Carattere, 3, '!'},
        {"CBAR", false, "A1x2B", M::Carattere, 3, 'x'},
        {"C128", false, "AB\xC8", M::Carattere, 3, '\xC8'},
        {"E128", false, "A\\d200B", M::Carattere, 2, '\xC8'},
        {"C39FULL", false, "x\xE9", M::Carattere, 2, '\xE9'},
        {"CBAR", false, "A12", M::Struttura},
        {"UPCE", true, "2345678", M::Struttura},
        {"CIP", true, "000003", M::Intervallo},
        {"C39", false, "abc", M::Nessuno},
    };
    for (const auto& c : casi) {
        SCOPED_TRACE(std::string(c.codice) + (c.check ? " +check \"" : " \"") + c.contenuto + "\"");
        std::string contenuto = c.contenuto, glifi;
        const krt::Rifiuto r = krt::CodificaBarcode(contenuto, c.codice, c.check, glifi);
        EXPECT_EQ(r.motivo, c.motivo);
        EXPECT_EQ(glifi.empty(), c.motivo != M::Nessuno);
        EXPECT_EQ(r.posizione, c.posizione);
        EXPECT_EQ(r.carattere, c.carattere);
        EXPECT_EQ(r.minimo, c.minimo);
        EXPECT_EQ(r.massimo, c.massimo);
    }
}
