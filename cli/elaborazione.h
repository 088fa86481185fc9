// One line of krt-encode: from the bytes read to the text written.
#pragma once
#include <string>
#include <string_view>

#include "cli/opzioni.h"
#include "cycle/voce.h"

namespace krt {

// What SYMBOLOGY names, resolved once per run.
struct Simbologia {
    const VoceCatalogo* voce = nullptr;  // the entry (for a code: the entry that draws it)
    std::string codice;                  // upper-case symbology code
    bool perNome = false;                // a display name: the main window's rules apply
    std::string famiglia;                // ScegliFontFamiglia(entry family, style)
};

// An English or Italian display name written exactly (case included), then a symbology
// code in any case, then a display name ignoring case. False when the text names none.
bool RisolviSimbologia(std::string_view testo, std::string_view stile, Simbologia& simbologia);

struct RisultatoRiga {
    std::string contenuto;  // the content as read, in UTF-8 (json only)
    std::string codice;     // code the content was encoded with, when not the symbology's own
    std::string glifi;      // Windows-1252 glyph string, "" when refused
    std::string hrc;        // Windows-1252 HRC text (display names only)
    std::string errore;     // one-line reason, "" when the content was encoded
    Rifiuto rifiuto;        // the kind of refusal (none for an internal error)
    int idMessaggio = 0;    // the GS1 layer's message id of a refused AI line, 0 for none
    std::string testo;      // the content in Windows-1252 as the engine left it (not written)
};

// Encodes one content given in the input encoding. Never throws for any input: refusals,
// bad input text and the engine's faults come back in errore.
RisultatoRiga CodificaRiga(const Simbologia& simbologia, const OpzioniCli& opzioni, std::string_view riga);
// The same into risultato, whose strings keep their storage: a batch that passes the
// same result for every line allocates nothing per line once they have grown.
void CodificaRiga(const Simbologia& simbologia, const OpzioniCli& opzioni, std::string_view riga,
                  RisultatoRiga& risultato);

// Glyphs in text form, on one line: the line break of a two-line result (CR LF) becomes a
// TAB, which no glyph string holds otherwise. In UTF-8, or as the Windows-1252 bytes.
void AccodaGlifiTesto(std::string& uscita, std::string_view glifi, bool utf8 = true);

// Appends the result in the chosen format, ending with a line feed.
void AccodaRisultato(std::string& uscita, const Simbologia& simbologia, const RisultatoRiga& risultato,
                     FormatoUscita formato);

// The --list table.
std::string TestoElenco();

}  // namespace krt
