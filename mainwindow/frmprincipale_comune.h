// Shared by the units of the main window: names of files in the data folder,
// string ids, the window's fixed sizes and small conversions.
#pragma once
#include <cstdint>

#include <QString>

#include "mainwindow/configurazione_record.h"

namespace krt::finestra {

inline constexpr char kMarcatoreItaliano[] = "ITALIANO.LNG";
inline constexpr char kGuidaInglese[] = "KRTGuide.pdf";
inline constexpr char kGuidaItaliana[] = "KRTGuide_ita.pdf";

// String ids of the window.
inline constexpr int IdTitoloErrore = 92;
inline constexpr int IdValoreNonAmmesso = 93;
inline constexpr int IdEan128 = 425;
inline constexpr int IdPrimaVoce = 400;
inline constexpr int NumeroVoci = 36;
inline constexpr int DimensionePredefinita = 100;

// 10080 x 8685 twips at 15 twips a pixel.
inline constexpr int LarghezzaMinima = 672;
inline constexpr int AltezzaMinima = 579;

// Numeric value of a text as the size box reads it: the leading digits, 0 for none.
inline double ValoreNumerico(const QString& testo) {
    double valore = 0;
    for (QChar c : testo.trimmed()) {
        if (!c.isDigit() || c.unicode() > '9') break;
        valore = valore * 10 + (c.unicode() - '0');
    }
    return valore;
}

inline std::int16_t Booleano16(bool valore) { return valore ? kVero : kFalso; }

}  // namespace krt::finestra
