// Entry lookup, check flag, add-on split, HRC text and the whole cycle on one entry.
#include "cycle/voce.h"

#include <gtest/gtest.h>

#include <string>

#include "barcodes/errori.h"
#include "cycle/attesa_scansione.h"
#include "cycle/motivi.h"

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
        {Inglese, "Codice 39", 0},           {Inglese, "code 39", 0},          {Inglese, "", 0},
        {Nome, "codice 128", 424},           {Nome, "EAN 13 ADD-ON 5", 417},
        {Nome, "codabar/monarch", 411},      {Nome, "code 39 full ascii", 401},
        {Nome, "C39", 0},                    {Nome, "", 0},
        {Nome, "Xode 39", 0},                {Nome, "Code 3", 0},
        {Codice, "c39", 400},                {Codice, "C32HRC", 410},
        {Codice, "add2", 413},               {Codice, "ADD5", 414},
        {Codice, "ISBN13", 435},
        {Codice, "Code 39", 0},              {Codice, "", 0},
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

TEST(Voce, CheckCodiceEFamiglia) {
    struct Riga {
        int id;
        bool check, hrc;
        const char* stile;
        bool checkAtteso;
        const char* codice;
        const char* famiglia;
    } const righe[] = {
        {434, false, false, "Normal", true, "ISBN", "ORBEAN"},
        {435, false, false, "Normal", true, "ISBN13", "ORBEAN"},
        {415, false, true, "Normal", false, "EAN13", "ORBEAN"},
        {410, true, true, "Narrow", true, "C32HRC", "ORB32"},
        {410, false, false, "Corto", false, "C32", "ORB32"},
        {404, true, false, "Narrow", true, "C25", ""},
        {404, true, false, "Short", true, "C25", "ORB25 ITF Short"},
        {427, false, false, "Wide short", false, "CIP", "ORB39 Wide Short"},
        {400, false, true, "Corto", false, "C39", "ORB39 Short"},
    };
    for (const auto& r : righe) {
        const VoceCatalogo& voce = Voce(r.id);
        const OpzioniVoce opzioni{r.check, r.hrc, false, r.stile, {}};
        SCOPED_TRACE("entry " + std::to_string(r.id) + " style " + r.stile);
        EXPECT_EQ(CheckVoce(voce, r.check), r.checkAtteso);
        EXPECT_EQ(CodiceVoce(voce, r.hrc), r.codice);
        EXPECT_EQ(GeneraVoce(voce, "1", opzioni).famiglia, r.famiglia);
    }
}

TEST(Voce, DivisioneEValidazione) {
    struct Riga {
        int id;
        const char* contenuto;
        bool check;
        const char* principale;  // split
        const char* addOn;
        bool accettato;
        const char* principaleValido;  // after validation
        const char* addOnValido;
    } const righe[] = {
        {413, "123456789", true, "1234567", "89", true, "1234567", "89"},
        {413, "123456789", false, "12345678", "9", true, "12345678", "09"},
        {417, "1234567890121234567", true, "123456789012", "12345", true, "123456789012", "12345"},
        {420, "12345", true, "12345", "", true, "00000012345", "00000"},
        {416, "123456789012A1", true, "123456789012", "A1", false, "", ""},
        {422, "2345678", true, "2345678", "", false, "", ""},
        {415, "123", true, "123", "", true, "000000000123", ""},
        {415, "1234567890123", true, "1234567890123", "", false, "", ""},
        {412, "12345678", true, "12345678", "", false, "", ""},
        {415, "", true, "", "", false, "", ""},
        {400, "abc", false, "abc", "", true, "ABC", ""},
        {434, "030640615", false, "030640615", "", true, "030640615", ""},
    };
    for (const auto& r : righe) {
        const VoceCatalogo& voce = Voce(r.id);
        SCOPED_TRACE("entry " + std::to_string(r.id) + " content \"" + r.contenuto + "\"");
        const ParteVoce divise = DividiAddOn(voce, r.contenuto, CheckVoce(voce, r.check));
        EXPECT_EQ(divise.principale, r.principale);
        EXPECT_EQ(divise.addOn, r.addOn);
        ParteVoce parti;
        ASSERT_EQ(ValidaVoce(voce, r.contenuto, r.check, parti), r.accettato);
        if (!r.accettato) continue;
        EXPECT_EQ(parti.principale, r.principaleValido);
        EXPECT_EQ(parti.addOn, r.addOnValido);
    }
}

TEST(Voce, TestoHRC) {
    struct Riga {
        int id;
        const char* contenuto;  // as left by validation
        bool checkInHRC;
        const char* testoHRC;  // wizard text
        const char* atteso;
    } const righe[] = {
        {400, "CODE_39", false, "", "*CODE 39*"},
        {400, "Z3", true, "", "*Z3 *"},  // check at place 38 is "_", shown as space
        {402, "A_B", false, "", "A B"},  // Code 93 without check: no asterisks
        {402, "TEST", true, "", "*TEST8M*"},
        {401, "Ab", true, "", "*Ab9*"},  // the check routine still answers
        {401, "ab", true, "", "*ab*"},   // negative remainder: no check characters
        {403, "xy", true, "", "xy"},
        {411, "A123B", false, "", "a123b"},
        {411, "A123B", true, "", "a1239b"},
        {432, "1234567890123", true, "", "12345678901231"},
        {426, "123", true, "", "123-"},
        {433, "12345", false, "", "12345"},
        {424, "ab\\d129", true, "", "ab\\d129"},
        {425, "10ABC", false, "(10)ABC", "(10)ABC"},
        {425, "10ABC", false, "", "10ABC"},
        {410, "12345678", true, "", ""},
        {434, "030640615", true, "", ""},
    };
    for (const auto& r : righe) {
        const OpzioniVoce opzioni{r.checkInHRC, true, r.checkInHRC, "Normal", r.testoHRC};
        EXPECT_EQ(TestoHRCVoce(Voce(r.id), r.contenuto, opzioni), r.atteso)
            << "entry " << r.id << " content \"" << r.contenuto << "\" check in HRC " << r.checkInHRC;
    }
    // The check in the text needs the check digit too, not the menu item alone.
    EXPECT_EQ(TestoHRCVoce(Voce(402), "TEST", OpzioniVoce{false, false, true, "Normal", {}}), "TEST");
}

TEST(Voce, CicloCompleto) {
    struct Riga {
        int id;
        const char* contenuto;
        bool check, hrc;
        bool accettato;
        std::string glifiAttesi;  // "" = do not compare
        const char* hrc_;
    } const righe[] = {
        {400, "abc", false, false, true, "#ABC#", "*ABC*"},
        {434, "030640615", false, false, true, "", ""},
        {415, "", true, false, false, "", ""},
        {421, "2345678", true, false, false, "", ""},
        {402, "TEST", true, false, true, "*TEST8M#", "TEST"},
    };
    for (const auto& r : righe) {
        const OpzioniVoce opzioni{r.check, r.hrc, false, "Normal", {}};
        const GenerazioneVoce g = GeneraVoce(Voce(r.id), r.contenuto, opzioni);
        SCOPED_TRACE("entry " + std::to_string(r.id) + " content \"" + r.contenuto + "\"");
        EXPECT_EQ(g.accettato, r.accettato);
        if (!r.accettato) {
            EXPECT_EQ(g.glifi, "");
            continue;
        }
        if (!r.glifiAttesi.empty()) {
            EXPECT_EQ(g.glifi, r.glifiAttesi);
        }
        EXPECT_EQ(g.hrc, r.hrc_);
    }
}

TEST(Voce, GuastiDelMotoreArrivanoAlChiamante) {
    try {
        GeneraVoce(Voce(424), "ab\\qc", OpzioniVoce{});
        ADD_FAILURE() << "no fault";
    } catch (const EscapeNonValido& e) {
        EXPECT_EQ(RifiutoDaGuasto(e).motivo, MotivoRifiuto::Escape);
    }
}

// The reason as the user reads it, in both languages; an add-on's position counts from the
// start of the whole content.
TEST(Voce, MotivoDelRifiuto) {
    const struct {
        int id;
        const char* contenuto;
        int offsetLingua;
        const char* testo;
    } righe[] = {
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
        SCOPED_TRACE("entry " + std::to_string(r.id) + " content \"" + r.contenuto + "\"");
        const GenerazioneVoce g = GeneraVoce(Voce(r.id), r.contenuto, OpzioniVoce{});
        EXPECT_EQ(TestoRifiuto(g.rifiuto, Voce(r.id).codice, r.offsetLingua), r.testo);
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
        {402, "AB_1", false, FormatoLettore::Code93, "AB 1", true, false},
        {402, "AB_1", true, FormatoLettore::Code93, "AB 1", false, false},
        {424, "\\x81" "01\\x80A", false, FormatoLettore::Code128, std::string_view("01\0A", 4), false, false},
        {425, "10AB\\x8121", false, FormatoLettore::Code128, "10AB\x1D" "21", false, false},
        {424, "A\\x81B\\x81", false, FormatoLettore::Code128, "A\x1D" "B\x1D", false, false},
        {411, "t12e", false, FormatoLettore::Codabar, "A12D", false, false},
        {434, "030640615", true, FormatoLettore::EAN13, "9780306406157", false, false},
        {421, "0123456", true, FormatoLettore::UPCE, "01234565", false, false},
        {417, "59012341234552495", true, FormatoLettore::EAN13, "5901234123457 52495", false, true},
        {409, "1234", true, FormatoLettore::Nessuno, "", false, false},
    };
    for (const auto& r : righe) {
        SCOPED_TRACE("entry " + std::to_string(r.id) + " content \"" + r.contenuto + "\"");
        OpzioniVoce opzioni;
        opzioni.checkDigit = r.check;
        const GenerazioneVoce g = GeneraVoce(Voce(r.id), r.contenuto, opzioni);
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
