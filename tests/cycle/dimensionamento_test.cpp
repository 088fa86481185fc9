// The printed size: whole printer dots per module, the widths that follow, the quiet zones.
#include "cycle/dimensionamento.h"

#include <gtest/gtest.h>

#include <cmath>

namespace krt {
namespace {

// moduliPerEm 1000/60 is the reference Code 128 face (a module of 60 units to the em),
// 1000/90 the EAN face; 95 modules is an EAN-13 without its text glyphs.
TEST(Dimensionamento, PuntiInteriPerModulo) {
    enum Da { Modulo, Punti };
    struct Riga {
        const char* nome;
        Da da;
        double valore;  // mm of the module, or points
        int dpi;
        double moduliPerEm, moduliSimbolo;
        bool valido;
        int puntiPerModulo;
        double moduloMm;
    } const righe[] = {
        {"ean_033mm_600dpi", Modulo, 0.33, 600, 1000.0 / 90, 95, true, 8, 8 * 25.4 / 600},
        {"ean_033mm_300dpi", Modulo, 0.33, 300, 1000.0 / 90, 95, true, 4, 4 * 25.4 / 300},
        {"c128_10mils_203dpi", Modulo, MilsInMm(10), 203, 1000.0 / 60, 68, true, 2, 2 * 25.4 / 203},
        {"below_one_dot_is_one", Modulo, 0.05, 72, 10, 20, true, 1, 25.4 / 72},
        {"points_snap_down", Punti, 30, 600, 1000.0 / 60, 68, true, 15, 15 * 25.4 / 600},
        {"points_snap_up", Punti, 12.5, 300, 10, 20, true, 5, 5 * 25.4 / 300},
        {"tiny_points_one_dot", Punti, 0.1, 300, 10, 20, true, 1, 25.4 / 300},
        {"module_too_wide", Modulo, 6, 600, 10, 20, false, 0, 0}, {"nan", Modulo, NAN, 600, 1, 2, false, 0, 0},
        {"points_too_big", Punti, 5000, 600, 10, 20, false, 0, 0}, {"dpi_too_low", Modulo, 0.33, 50, 1, 2, false, 0, 0},
        {"dpi_too_high", Punti, 10, 20000, 10, 20, false, 0, 0}, {"no_modules", Modulo, 0.33, 600, 0, 20, false, 0, 0},
        {"zero_points", Punti, 0, 600, 10, 20, false, 0, 0},
    };
    for (const auto& r : righe) {
        SCOPED_TRACE(r.nome);
        const Dimensionamento d = r.da == Modulo ? DimensionaDaModulo(r.valore, r.dpi, r.moduliPerEm, r.moduliSimbolo)
                                                 : DimensionaDaPunti(r.valore, r.dpi, r.moduliPerEm, r.moduliSimbolo);
        ASSERT_EQ(d.valido, r.valido);
        if (!r.valido) continue;
        EXPECT_EQ(d.puntiPerModulo, r.puntiPerModulo);
        EXPECT_NEAR(d.moduloMm, r.moduloMm, 1e-9);
        EXPECT_NEAR(d.simboloMm, r.moduloMm * r.moduliSimbolo, 1e-9);
        // The size gives back exactly the module: dots per module at the printer are whole.
        const double punti = d.punti / 72 / r.moduliPerEm * r.dpi;
        EXPECT_NEAR(punti, r.puntiPerModulo, 1e-9);
        // Asking again with the size found gives the same size.
        EXPECT_NEAR(DimensionaDaPunti(d.punti, r.dpi, r.moduliPerEm, r.moduliSimbolo).punti, d.punti, 1e-9);
    }
}

TEST(Dimensionamento, ZoneRispetto) {
    struct Riga {
        const char* codice;
        bool addOn;
        ZoneRispetto zone;
    } const righe[] = {
        {"EAN13", false, {11, 7}}, {"ISBN13", false, {11, 7}}, {"UPCA", false, {9, 9}}, {"UPCE", false, {9, 7}},
        {"EAN8", false, {7, 7}},   {"C128", false, {10, 10}},  {"C39", false, {10, 10}}, {"ITF", false, {10, 10}},
        {"CBAR", false, {10, 10}}, {"EAN13", true, {11, 5}},   {"UPCA", true, {9, 5}},   {"ean13", false, {10, 10}},
    };
    for (const auto& r : righe) {
        SCOPED_TRACE(std::string(r.codice) + (r.addOn ? "+addon" : ""));
        EXPECT_EQ(ZoneRispettoCodice(r.codice, r.addOn), r.zone);
    }
}

}  // namespace
}  // namespace krt
