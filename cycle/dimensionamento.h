// The printed size of a barcode drawn with a font: the point size at which every module
// (the narrowest bar, the X dimension) is a whole number of printer dots, the module and
// symbol widths that follow, and the quiet zones each symbology needs on either side.
// Pure functions, no Qt: export, print and the window's size row share them.
#pragma once
#include <string_view>

namespace krt {

inline constexpr double MmPerPollice = 25.4;
inline constexpr double PuntiPerPollice = 72.0;
// Printer resolutions and module widths the sizing accepts.
inline constexpr int DpiMinimo = 72;
inline constexpr int DpiMassimo = 9600;
inline constexpr double ModuloMinimoMm = 0.05;
inline constexpr double ModuloMassimoMm = 5.0;

// 1 mil = 1/1000 inch.
constexpr double MilsInMm(double mils) { return mils * MmPerPollice / 1000.0; }
constexpr double MmInMils(double mm) { return mm * 1000.0 / MmPerPollice; }

// Blank modules a reader needs before the first bar and after the last.
struct ZoneRispetto {
    int sinistra = 10;
    int destra = 10;
    bool operator==(const ZoneRispetto&) const = default;
};

// By symbology code (as the engine knows them: "EAN13", "UPCA", "C128" ...): EAN-13 and
// ISBN 11 left and 7 right, UPC-A 9 and 9, UPC-E 9 and 7, EAN-8 7 and 7, every other
// code 10 and 10. After an add-on the right zone is 5 modules.
ZoneRispetto ZoneRispettoCodice(std::string_view codice, bool conAddOn);

// A size chosen for a printer.
struct Dimensionamento {
    bool valido = false;       // false: a figure out of range (nothing else is set)
    double punti = 0;          // font size in points
    int puntiPerModulo = 0;    // printer dots across one module
    double moduloMm = 0;       // the module width printed
    double simboloMm = 0;      // the width of the glyph string printed (its own blanks included)
};

// moduliPerEm: how many modules one em of the font spans (measured from the font);
// moduliSimbolo: how many modules the glyph string spans.
// From a wished module width: the whole number of dots nearest to it (at least one).
Dimensionamento DimensionaDaModulo(double moduloMm, int dpi, double moduliPerEm, double moduliSimbolo);
// From a font size: the whole number of dots nearest to the module that size gives.
Dimensionamento DimensionaDaPunti(double punti, int dpi, double moduliPerEm, double moduliSimbolo);

}  // namespace krt
