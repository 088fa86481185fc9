// The symbology catalogue: display entries, symbology codes, add-ons and font families.
#pragma once
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "barcodes/simbologie.h"

namespace krt {

struct VoceCatalogo {
    std::int16_t id;          // string-table id of the display name (Italian at id + 1000)
    std::string_view inglese; // English display name
    std::string_view italiano;// Italian display name
    TipoSimbologia simbologia;    // its row of the symbology table
    std::string_view codice;  // its code ("C32" turns into "C32HRC" with the HRC option)
    int addOn;                // 0, 2 or 5
    std::string_view famiglia;// base font family

    constexpr VoceCatalogo(std::int16_t i, std::string_view en, std::string_view it, TipoSimbologia s, int a,
                           std::string_view f)
        : id(i), inglese(en), italiano(it), simbologia(s), codice(CodiceDi(s)), addOn(a), famiglia(f) {}
};

// The 36 entries in display-id order (400 ... 435).
extern const std::array<VoceCatalogo, 36> Catalogo;

// Font family for a base family and a style text (English or Italian name);
// "" when the family has no face in that style or the base is unknown.
std::string ScegliFontFamiglia(std::string_view famigliaBase, std::string_view stile);

}  // namespace krt
