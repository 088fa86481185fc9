// Content hints, style lists and option-box rules of every entry.
#include <gtest/gtest.h>

#include <map>

#include "mainwindow/attributi.h"

namespace {

using namespace krt;

std::string ParolaInglese(int id) {
    static const std::map<int, std::string> parole{
        {IdAttributi::Caratteri, "characters"},
        {IdAttributi::Cifre, "digits"},
        {IdAttributi::Alfabeto, "alphabet"},
        {IdAttributi::Variabile, "variable"},
    };
    return parole.at(id);
}

struct CasoSuggerimento {
    int voce;
    std::string senzaCheck;
    std::string conCheck;
};

TEST(Attributi, SuggerimentoDiOgniVoce) {
    const std::string a39 = "variable, alphabet 0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-._$/+%";
    const std::string ascii = "variable, alphabet ASCII";
    const std::string duediCinque = "variable, max 15 digits";
    const CasoSuggerimento casi[] = {
        {400, a39, a39},
        {401, ascii, ascii},
        {402, a39, a39},
        {403, ascii, ascii},
        {428, "variable, max 15 characters, alphabet 0123456789ABCDEF", "variable, max 15 characters, alphabet 0123456789ABCDEF"},
        {426, "variable, alphabet 0123456789-", "variable, alphabet 0123456789-"},
        {432, "14 digits", "13 digits"},
        {433, "6/10/12 digits", "5/9/11 digits"},
        {427, "7 digits", "6 digits"},
        {429, "variable, max 16 characters, alphabet 0123456789KLMO", "variable, max 15 characters, alphabet 0123456789KLMO"},
        {404, duediCinque, "variable, max 13 digits"},
        {405, duediCinque, "variable, max 13 digits"},
        {406, duediCinque, "variable, max 13 digits"},
        {407, duediCinque, "variable, max 13 digits"},
        {408, duediCinque, "variable, max 13 digits"},
        {430, duediCinque, "variable, max 13 digits"},
        {431, duediCinque, "variable, max 13 digits"},
        {409, duediCinque, "variable, max 13 digits"},
        {410, "9 digits", "8 digits"},
        {411, "variable, a/b/c/d + alphabet: 0123456789+.-$:/ + e/m/t/*", "variable, a/b/c/d + alphabet: 0123456789+.-$:/ + e/m/t/*"},
        {412, "8 digits", "7 digits"},
        {413, "10 digits", "9 digits"},
        {414, "13 digits", "12 digits"},
        {415, "13 digits", "12 digits"},
        {435, "12 digits", "12 digits"},
        {434, "9 digits", "9 digits"},
        {416, "15 digits", "14 digits"},
        {417, "18 digits", "17 digits"},
        {418, "12 digits", "11 digits"},
        {419, "14 digits", "13 digits"},
        {420, "17 digits", "16 digits"},
        {421, "0/1 + 7 digits", "0/1 + 6 digits"},
        {422, "0/1 + 9 digits", "0/1 + 8 digits"},
        {423, "0/1 + 12 digits", "0/1 + 11 digits"},
        {424, ascii, ascii},
        {425, ascii, ascii},
        {0, "variable, digits", "variable, digits"},
        {999, "variable, digits", "variable, digits"},
    };
    for (const auto& c : casi) {
        const RigaAttributi& riga = RigaAttributiPerVoce(c.voce);
        EXPECT_EQ(ComponiSuggerimento(riga, false, ParolaInglese), c.senzaCheck) << "entry " << c.voce;
        EXPECT_EQ(ComponiSuggerimento(riga, true, ParolaInglese), c.conCheck) << "entry " << c.voce << " with check";
    }
}

struct CasoStili {
    int voce;
    std::vector<int> stili;
    bool stileAttivo;
    RegolaOpzioni regola;
};

TEST(Attributi, StiliERegoleDelleOpzioni) {
    const std::vector<int> sei{278, 279, 280, 281, 282, 283};
    const std::vector<int> due{278, 281};
    const CasoStili casi[] = {
        {400, sei, true, RegolaOpzioni::Libera},       {401, sei, true, RegolaOpzioni::Libera},
        {402, sei, true, RegolaOpzioni::Libera},       {403, sei, true, RegolaOpzioni::Libera},
        {404, due, true, RegolaOpzioni::Libera},       {409, due, true, RegolaOpzioni::Libera},
        {410, {278}, false, RegolaOpzioni::Libera},    {411, due, true, RegolaOpzioni::Libera},
        {412, due, true, RegolaOpzioni::HRCBloccato},  {413, due, true, RegolaOpzioni::HRCSpuntato},
        {415, due, true, RegolaOpzioni::HRCSpuntato},  {418, due, true, RegolaOpzioni::HRCSpuntato},
        {421, due, true, RegolaOpzioni::HRCSpuntato},  {423, due, true, RegolaOpzioni::HRCSpuntato},
        {424, due, true, RegolaOpzioni::Libera},       {425, due, true, RegolaOpzioni::Libera},
        {433, {278}, true, RegolaOpzioni::Libera},     {434, due, true, RegolaOpzioni::ISBN},
        {435, due, true, RegolaOpzioni::ISBN},         {0, due, true, RegolaOpzioni::Libera},
    };
    for (const auto& c : casi) {
        const RigaAttributi& riga = RigaAttributiPerVoce(c.voce);
        EXPECT_EQ(StiliOfferti(riga), c.stili) << "entry " << c.voce;
        EXPECT_EQ(riga.stileAttivo, c.stileAttivo) << "entry " << c.voce;
        EXPECT_EQ(riga.regola, c.regola) << "entry " << c.voce;
    }
}

}  // namespace
