// Entry lookup, the cycle on one entry, its HRC text, its refusal and what a reader should see.
#include "cycle/voce.h"

#include <gtest/gtest.h>

#include <string>

#include "cycle/attesa_scansione.h"
#include "cycle/elenco.h"

namespace krt {
namespace {

const VoceCatalogo& Voce(int id) {
    const VoceCatalogo* voce = VocePerId(id);
    if (voce == nullptr) throw std::logic_error("no entry " + std::to_string(id));
    return *voce;
}

int IdDi(const VoceCatalogo* voce) { return voce == nullptr ? 0 : voce->id; }

TEST(Voce, RicercaPerTestoNomeECodice) {
    enum Modo { Inglese, Italiano, Nome, Codice };
    struct Riga {
        Modo modo;
        const char* testo;
        int id;  // 0: no entry
    } const righe[] = {
        // every entry by its own display names: below
        {Inglese, "Codice 39", 0},         {Inglese, "code 39", 0},        {Nome, "codice 128", 424},
        {Nome, "EAN 13 ADD-ON 5", 417},    {Nome, "codabar/monarch", 411}, {Nome, "code 39 full ascii", 401},
        {Nome, "C39", 0},                  {Nome, "Xode 39", 0},           {Nome, "Code 3", 0},
        {Codice, "c39", 400},              {Codice, "C32HRC", 410},        {Codice, "add2", 413},
        {Codice, "ADD5", 414},             {Codice, "ISBN13", 435},        {Codice, "Code 39", 0},
    };
    for (const auto& r : righe) {
        const VoceCatalogo* voce = r.modo == Inglese    ? TrovaVoce(r.testo, 0)
                                   : r.modo == Italiano ? TrovaVoce(r.testo, 1000)
                                   : r.modo == Nome     ? TrovaVocePerNome(r.testo)
                                                        : TrovaVocePerCodice(r.testo);
        EXPECT_EQ(IdDi(voce), r.id) << "mode " << r.modo << " text \"" << r.testo << "\"";
    }
    for (const auto& voce : Catalogo) {  // every entry by its own display names
        EXPECT_EQ(IdDi(TrovaVoce(voce.inglese, 0)), voce.id) << voce.inglese;
        EXPECT_EQ(IdDi(TrovaVoce(voce.italiano, 1000)), voce.id) << voce.italiano;
    }
}

// The cycle on one entry: the check flag (always on for ISBN), the code, the family of the
// style, the parts as validation leaves them (an add-on split after the main code's length,
// characters past the add-on ignored, a missing add-on all zeros) and the HRC text. A
// content one digit too long for an entry without add-on is refused, not cut.
TEST(Voce, GeneraVoce) {
    struct Riga {
        int id;
        const char* contenuto;
        bool check, hrc;
        const char* stile;
        const char* codice;  // "": refused
        bool checkUsato = false;
        const char *famiglia = "", *principale = "", *addOn = "", *testoHRC = "";
    } const righe[] = {
        {434, "030640615", false, false, "Normal", "ISBN", true, "ORBEAN", "030640615", "", ""},
        {435, "978030640615", false, false, "Normal", "ISBN13", true, "ORBEAN", "978030640615", "", ""},
        {415, "123", true, true, "Normal", "EAN13", true, "ORBEAN", "000000000123", "", ""},
        {410, "12345678", true, true, "Narrow", "C32HRC", true, "ORB32", "12345678", "", ""},
        {410, "1", false, false, "Corto", "C32", false, "ORB32", "000000001", "", ""},
        {404, "12", true, false, "Narrow", "C25", true, "", "012", "", "012"},  // no such face
        {404, "12", true, false, "Short", "C25", true, "ORB25 ITF Short", "012", "", "012"},
        {427, "1", false, false, "Wide short", "CIP", false, "ORB39 Wide Short", "0000001", "", "0000001"},
        {400, "abc", false, true, "Corto", "C39", false, "ORB39 Short", "ABC", "", "*ABC*"},
        {413, "123456789", true, false, "Normal", "EAN8", true, "ORBEAN", "1234567", "89", ""},
        {413, "123456789", false, false, "Normal", "EAN8", false, "ORBEAN", "12345678", "09", ""},
        {417, "1234567890121234567", true, false, "Normal", "EAN13", true, "ORBEAN", "123456789012", "12345", ""},
        {420, "12345", true, false, "Normal", "UPCA", true, "ORBEAN", "00000012345", "00000", ""},
        {415, "", true, false, "Normal", ""},
        {416, "123456789012A1", true, false, "Normal", ""},
        {422, "2345678", true, false, "Normal", ""},
        {412, "12345678", true, false, "Normal", ""},
        {415, "1234567890123", true, false, "Normal", ""},
        {418, "123456789012", true, false, "Normal", ""},
        {421, "01234567", true, false, "Normal", ""},
    };
    for (const auto& r : righe) {
        SCOPED_TRACE("entry " + std::to_string(r.id) + " content \"" + r.contenuto + "\" style " + r.stile);
        const GenerazioneVoce g = GeneraVoce(Voce(r.id), r.contenuto, OpzioniVoce{r.check, r.hrc, false, r.stile, {}});
        ASSERT_EQ(g.accettato, *r.codice != '\0');
        if (!g.accettato) {
            EXPECT_EQ(g.glifi, "");
            continue;
        }
        EXPECT_EQ(g.codice, r.codice);
        EXPECT_EQ(g.check, r.checkUsato);
        EXPECT_EQ(g.famiglia, r.famiglia);
        EXPECT_EQ(g.parti.principale, r.principale);
        EXPECT_EQ(g.parti.addOn, r.addOn);
        EXPECT_EQ(g.hrc, r.testoHRC);
    }
}

TEST(Voce, TestoHRC) {
    struct Riga {
        int id;
        const char* contenuto;  // as left by validation
        bool checkInHRC;
        const char *testoHRC, *atteso;  // the wizard's text; the text expected
    } const righe[] = {
        {400, "CODE_39", false, "", "*CODE 39*"},
        {400, "Z3", true, "", "*Z3 *"},  // check at place 38 is "_", shown as space
        {402, "A_B", false, "", "A B"},  // Code 93 without check: no asterisks
        {402, "TEST", true, "", "*TEST8M*"},
        {401, "Ab", true, "", "*Ab9*"},  // the check routine still answers
        {401, "ab", true, "", "*ab*"},   // negative remainder: no check characters
        {411, "A123B", false, "", "a123b"},
        {411, "A123B", true, "", "a1239b"},
        {426, "123", true, "", "123-"},
        {424, "ab\\d129", true, "", "ab\\d129"},
        {425, "10ABC", false, "(10)ABC", "(10)ABC"},
        {425, "10ABC", false, "", "10ABC"},
    };
    for (const auto& r : righe) {
        const OpzioniVoce opzioni{r.checkInHRC, true, r.checkInHRC, "Normal", r.testoHRC};
        EXPECT_EQ(TestoHRCVoce(Voce(r.id), r.contenuto, opzioni), r.atteso)
            << "entry " << r.id << " content \"" << r.contenuto << "\" check in HRC " << r.checkInHRC;
    }
    // The check in the text needs the check digit too, not the menu item alone.
    EXPECT_EQ(TestoHRCVoce(Voce(402), "TEST", OpzioniVoce{false, false, true, "Normal", {}}), "TEST");
}

// The reason as the user reads it, in both languages, for a content of a list (UTF-8): an
// add-on's position counts from the start of the whole content; a fault of the engine and a
// character Windows-1252 lacks are told like the other refusals.
TEST(Voce, MotivoDelRifiuto) {
    const struct {
        int id;
        const char* contenuto;
        int offsetLingua;
        const char* testo;
    } righe[] = {
        {424, "ab\\qc", 0, "The content holds an invalid escape sequence or a character that cannot be drawn."},
        {400, "A\xC4\x81", 0, "The character at position 2 has no Windows-1252 code and cannot be encoded."},
        {415, "", 0, "The content is empty."},
        {415, "", 1000, "Il contenuto è vuoto."},
        {415, "12345678901234", 0, "The content is too long: 13 characters at most."},
        {415, "12345678901234", 1000, "Il contenuto è troppo lungo: al massimo 13 caratteri."},
        {416, "40063813339311x", 1000,
         "Il carattere \"x\" in posizione 15 non può essere codificato in questa simbologia."},
        {400, "A\tB", 0, "The character \\t at position 2 cannot be encoded in this symbology."},
        {421, "23456789", 0, "The UPC-E number system (the first digit) must be 0 or 1."},
        {427, "0000030", 1000, "Questo numero non ha un carattere di controllo CIP (il resto pesato è 10)."},
    };
    for (const auto& r : righe) {
        EXPECT_EQ(CodificaElemento(Voce(r.id), r.contenuto, OpzioniVoce{}, r.offsetLingua).motivo, r.testo)
            << "entry " << r.id << " content \"" << r.contenuto << "\"";
    }
}

// What a reader should report for a cycle: format, the data with the check characters the
// engine added, the Code 93 and add-on marks.
TEST(Voce, AttesaDellaScansione) {
    const struct {
        int id;
        const char* contenuto;
        bool check;
        FormatoLettore formato;
        std::string_view testo;
        bool senzaCheck93, addOn;
    } righe[] = {
        {400, "AB_1", false, FormatoLettore::Code39, "AB 1", false, false},
        {401, "Ab", true, FormatoLettore::Code39, "AbJ", false, false},  // the check over "A+B", a native character
        {402, "AB_1", false, FormatoLettore::Code93, "AB 1", true, false},
        {402, "AB_1", true, FormatoLettore::Code93, "AB 1", false, false},
        {424, "\\x81" "01\\x80A", false, FormatoLettore::Code128, std::string_view("01\0A", 4), false, false},
        {425, "10AB\\x8121", false, FormatoLettore::Code128, "10AB\x1D" "21", false, false},
        {411, "t12e", false, FormatoLettore::Codabar, "A12D", false, false},
        {434, "030640615", true, FormatoLettore::EAN13, "9780306406157", false, false},
        {421, "0123456", true, FormatoLettore::UPCE, "01234565", false, false},
        {417, "59012341234552495", true, FormatoLettore::EAN13, "5901234123457 52495", false, true},
        {409, "1234", true, FormatoLettore::Nessuno, "", false, false},
    };
    for (const auto& r : righe) {
        SCOPED_TRACE("entry " + std::to_string(r.id) + " content \"" + r.contenuto + "\"");
        const GenerazioneVoce g = GeneraVoce(Voce(r.id), r.contenuto, OpzioniVoce{r.check, false, false, "Normal", {}});
        ASSERT_TRUE(g.accettato);
        const AttesaScansione a = AttesaPerVoce(Voce(r.id), g);
        EXPECT_EQ(a.formato, r.formato);
        EXPECT_EQ(a.testo, r.testo);
        EXPECT_EQ(a.senzaCheck93, r.senzaCheck93);
        EXPECT_EQ(a.addOn, r.addOn);
    }
}

}  // namespace
}  // namespace krt
