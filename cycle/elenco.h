// Lists: one content of a column through the generate cycle of an entry, as the list
// window shows and saves it.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

#include "cycle/voce.h"

namespace krt {

// Longer contents are refused without encoding: no barcode holds them.
constexpr std::size_t LunghezzaMassimaElemento = 4096;

struct EsitoElemento {
    bool accettato = false;
    std::string glifi;     // Windows-1252 glyph string ("\r\n" between the lines of a two-line result)
    std::string hrc;       // Windows-1252 HRC text (empty without the HRC option)
    std::string famiglia;  // font family for the style, "" when the style has no face
    std::string motivo;    // UTF-8 reason in the language of offsetLingua, "" when accepted
};

// The content (UTF-8) with the entry and the options: never throws for any content; the
// engine's faults come back as refusals with their reason.
EsitoElemento CodificaElemento(const VoceCatalogo& voce, std::string_view contenuto, const OpzioniVoce& opzioni,
                               int offsetLingua);

}  // namespace krt
