// The symbology catalogue and the font family of each base family and style.
#include "barcodes/catalogo.h"

#include <algorithm>

namespace krt {

using S = TipoSimbologia;

constexpr std::array<VoceCatalogo, 36> Catalogo = {{
    {400, "Code 39", "Codice 39", S::Code39, 0, "ORB39"},
    {401, "Code 39 Full Ascii", "Codice 39 Full Ascii", S::Code39Full, 0, "ORB39"},
    {402, "Code 93", "Codice 93", S::Code93, 0, "ORB93"},
    {403, "Code 93 Full Ascii", "Codice 93 Full Ascii", S::Code93Full, 0, "ORB93"},
    {404, "Interleaved 2 of 5", "Interleaved 2 di 5", S::Interleaved25, 0, "ORB25 ITF"},
    {405, "Industrial 2 of 5", "Industrial 2 di 5", S::Industrial25, 0, "ORBIND25"},
    {406, "5 Bars 2 of 5", "5 Barre 2 di 5", S::Barre5, 0, "ORB5BARS"},
    {407, "3 Bars Matrix 2 of 5", "3 Barre Matrix 2 di 5", S::Barre3, 0, "ORB3BARS"},
    {408, "BCD Matrix 2 of 5", "BCD Matrix 2 di 5", S::Bcd, 0, "ORBBCD"},
    {409, "MSI", "MSI", S::Msi, 0, "ORBMSI"},
    {410, "Code 32", "Codice 32", S::Code32, 0, "ORB32"},
    {411, "Codabar/Monarch", "Codabar/Monarch", S::Codabar, 0, "ORBCODABAR"},
    {412, "EAN 8", "EAN 8", S::Ean8, 0, "ORBEAN"},
    {413, "EAN 8 Add-on 2", "EAN 8 Add-on 2", S::Ean8, 2, "ORBEAN"},
    {414, "EAN 8 Add-on 5", "EAN 8 Add-on 5", S::Ean8, 5, "ORBEAN"},
    {415, "EAN 13", "EAN 13", S::Ean13, 0, "ORBEAN"},
    {416, "EAN 13 Add-on 2", "EAN 13 Add-on 2", S::Ean13, 2, "ORBEAN"},
    {417, "EAN 13 Add-on 5", "EAN 13 Add-on 5", S::Ean13, 5, "ORBEAN"},
    {418, "UPC-A", "UPC-A", S::UpcA, 0, "ORBEAN"},
    {419, "UPC-A Add-on 2", "UPC-A Add-on 2", S::UpcA, 2, "ORBEAN"},
    {420, "UPC-A Add-on 5", "UPC-A Add-on 5", S::UpcA, 5, "ORBEAN"},
    {421, "UPC-E", "UPC-E", S::UpcE, 0, "ORBEAN"},
    {422, "UPC-E Add-on 2", "UPC-E Add-on 2", S::UpcE, 2, "ORBEAN"},
    {423, "UPC-E Add-on 5", "UPC-E Add-on 5", S::UpcE, 5, "ORBEAN"},
    {424, "Code 128", "Codice 128", S::Code128, 0, "ORB128"},
    {425, "EAN 128", "EAN 128", S::Ean128, 0, "ORB128"},
    {426, "Code 11", "Codice 11", S::Code11, 0, "ORB11"},
    {427, "Code CIP", "Codice CIP", S::Cip, 0, "ORB39"},
    {428, "Plessey", "Plessey", S::Plessey, 0, "ORBPLESSEY"},
    {429, "Delta-Distance A", "Delta-Distance A", S::Delta, 0, "ORBDELTA DA"},
    {430, "2 of 5 Inverted", "2 di 5 Invertito", S::Invertito25, 0, "ORB25 INV"},
    {431, "2 of 5 Compressed", "2 di 5 Compresso", S::Compresso25, 0, "ORB25 COMP"},
    {432, "UCC-ITF 14", "UCC-ITF 14", S::Itf14, 0, "ORBITF14"},
    {433, "Postnet", "Postnet", S::Postnet, 0, "ORBPOSTNET"},
    {434, "ISBN-10", "ISBN-10", S::Isbn10, 0, "ORBEAN"},
    {435, "ISBN-13", "ISBN-13", S::Isbn13, 0, "ORBEAN"},
}};

namespace {

struct Stile {
    std::string_view inglese;
    std::string_view italiano;
    std::string_view suffisso;  // appended to the base family
    bool ancheDueStili;         // offered by the families with only Normal and Short faces
};

constexpr std::array<Stile, 6> Stili = {{
    {"Normal", "Normale", "", true},
    {"Narrow", "Stretto", " Narrow", false},
    {"Wide", "Largo", " Wide", false},
    {"Short", "Corto", " Short", true},
    {"Narrow short", "Stretto e corto", " Narrow Short", false},
    {"Wide short", "Largo e corto", " Wide Short", false},
}};

enum class Facce { Tutte, DueStili, Unica };

struct Famiglia {
    std::string_view base;
    Facce facce;
};

constexpr std::array<Famiglia, 19> Famiglie = {{
    {"ORB39", Facce::Tutte},         {"ORB93", Facce::Tutte},
    {"ORB25 ITF", Facce::DueStili},  {"ORBITF14", Facce::DueStili},
    {"ORBIND25", Facce::DueStili},   {"ORB5BARS", Facce::DueStili},
    {"ORB3BARS", Facce::DueStili},   {"ORBBCD", Facce::DueStili},
    {"ORBMSI", Facce::DueStili},     {"ORBCODABAR", Facce::DueStili},
    {"ORB128", Facce::DueStili},     {"ORB11", Facce::DueStili},
    {"ORBPLESSEY", Facce::DueStili}, {"ORBDELTA DA", Facce::DueStili},
    {"ORB25 INV", Facce::DueStili},  {"ORB25 COMP", Facce::DueStili},
    {"ORB32", Facce::Unica},         {"ORBEAN", Facce::Unica},
    {"ORBPOSTNET", Facce::Unica},
}};

}  // namespace

std::string ScegliFontFamiglia(std::string_view famigliaBase, std::string_view stile) {
    const auto famiglia = std::find_if(Famiglie.begin(), Famiglie.end(),
                                       [&](const Famiglia& f) { return f.base == famigliaBase; });
    if (famiglia == Famiglie.end()) return {};
    // The single-face families ignore the style, even a style text nobody knows.
    if (famiglia->facce == Facce::Unica) return std::string(famigliaBase);

    const auto s = std::find_if(Stili.begin(), Stili.end(), [&](const Stile& st) {
        return st.inglese == stile || st.italiano == stile;
    });
    if (s == Stili.end()) return {};
    if (famiglia->facce == Facce::DueStili && !s->ancheDueStili) return {};
    std::string risultato(famigliaBase);
    risultato += s->suffisso;
    return risultato;
}

}  // namespace krt
