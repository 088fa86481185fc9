// Shared by the units of the main window: names of files in the data folder,
// string ids, the window's fixed sizes and small conversions.
#pragma once
#include <cstdint>

#include <QString>

#include "cycle/configurazione_record.h"

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

// String ids of the notices about the preview and the content.
inline constexpr int IdAnteprimaSuperata = 500;     // %1 = why the preview does not match
inline constexpr int IdRifiutoGenerico = 501;       // %1 = entry name
inline constexpr int IdContenutoCambiato = 502;
inline constexpr int IdAppuntiVuoti = 503;
inline constexpr int IdAppuntiSuperati = 504;
inline constexpr int IdLarghezzaMm = 505;           // %1 = millimetres
inline constexpr int IdTroppoLargo = 506;           // %1 = millimetres of the column
inline constexpr int IdDimensioneMassima = 507;     // %1 = points
inline constexpr int IdCheckDovrebbe = 508;         // %1 = digit
inline constexpr int IdCifreInPiu = 509;            // %1 typed, %2 to type
inline constexpr int IdCifreInPiuISBN = 510;        // %1 typed, %2 to type
inline constexpr int IdPrefissoISBN = 512;
inline constexpr int IdNessunFont = 513;
inline constexpr int IdScegliSimbologia = 515;
inline constexpr int IdPassiIniziali = 516;
inline constexpr int IdGuidaNonAperta = 517;        // %1 = path of the guide
inline constexpr int IdStileNonInstallato = 518;    // %1 = font family
inline constexpr int IdElenco = 708;                // File > List...

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
