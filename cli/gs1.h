// GS1-128 content composed from Application Identifiers on the command line, with the
// wizard's own rules: "EAN 128" --ai AI=VALUE ..., or --gs1-input lines "(AI)VALUE...".
#pragma once
#include <string>
#include <string_view>

#include "cli/elaborazione.h"
#include "cli/opzioni.h"

namespace krt {

// "" or a usage error: --ai and --gs1-input need the EAN 128 symbology, --ai takes
// AI=VALUE and no CONTENT, and the two do not go together.
std::string ControllaOpzioniGS1(const Simbologia& simbologia, const OpzioniCli& opzioni);

// The content of the --ai lines: checked, composed and encoded as the wizard's OK does.
// json "content" is the escaped content, "hrc" (display name only) the "(AI)value" text.
RisultatoRiga CodificaElementiAI(const Simbologia& simbologia, const OpzioniCli& opzioni);

// One content line: read as "(AI)VALUE..." with --gs1-input, else as CodificaRiga does.
RisultatoRiga CodificaContenuto(const Simbologia& simbologia, const OpzioniCli& opzioni, std::string_view riga);
// The same into risultato, reusing its storage as CodificaRiga does.
void CodificaContenuto(const Simbologia& simbologia, const OpzioniCli& opzioni, std::string_view riga,
                       RisultatoRiga& risultato);

}  // namespace krt
