// Entry-level logic of the generate cycle, shared by the main window and krt-encode.
//
// Given a catalogue entry (a row of the symbology combo) and the options of the window,
// these functions decide what the window draws: which entry a combo text names, how the
// content of an add-on entry is split, which check flag and symbology code are used, the
// glyph string, the font family and the human readable text (HRC). They are pure functions
// of their arguments; the window keeps its state and passes it in.
//
// Strings are Windows-1252 bytes, as everywhere in the engine. Codes that read escapes
// ("C128", "E128", "C39FULL", "C93FULL") may throw the faults of barcodes/errori.h from
// GeneraVoce; callers at the edge catch them.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "barcodes/catalogo.h"
#include "barcodes/rifiuto.h"

namespace krt {

// ---- Finding the entry ----------------------------------------------------------------

// The entry whose display name in the language of offsetLingua (0 English, 1000 Italian)
// equals testo exactly. Entries are compared in the order the symbology combo lists them
// (400-404, 426-433, 405-411, 412-415, 434, 435, 416-425); the first equal one wins.
// nullptr when none matches.
const VoceCatalogo* TrovaVoce(std::string_view testo, int offsetLingua);

// The entry whose English or Italian display name equals nome, ignoring ASCII case
// (for the command line, where the user may type either language). nullptr when none.
const VoceCatalogo* TrovaVocePerNome(std::string_view nome);

// The entry drawn for a symbology code, ignoring ASCII case: the first entry (in display-id
// order) with that code; "C32HRC" gives Code 32, "ADD2" / "ADD5" the first entry carrying
// that add-on. nullptr for a code the engine does not know.
const VoceCatalogo* TrovaVocePerCodice(std::string_view codice);

// The entry with that display id (400-435), nullptr for another id.
const VoceCatalogo* VocePerId(int id);

// ---- The rules of the cycle -------------------------------------------------------------

// Options of the main window that the cycle reads.
struct OpzioniVoce {
    bool checkDigit = false;            // chkDigit
    bool hrc = false;                   // chkHRC
    bool checkDigitInHRC = false;       // mnuIncludiCheckDigit
    std::string_view stile = "Normal";  // cmbStile text, English or Italian
    std::string_view testoHRC;          // HRC text handed back by the GS1-128 wizard
};

// Check flag used for the entry: the check box, except ISBN-10 and ISBN-13 (always on).
bool CheckVoce(const VoceCatalogo& voce, bool checkDigit);

// Symbology code the main part is encoded with: the entry's code, "C32HRC" for Code 32
// when the HRC option is on.
std::string CodiceVoce(const VoceCatalogo& voce, bool hrc);

// "ADD2", "ADD5", or "" for an entry without add-on.
std::string_view CodiceAddOn(const VoceCatalogo& voce);

// Content split of an add-on entry: the main part is the first N characters (N is the
// main code's fixed length for the check flag: 7/8 EAN-8 and UPC-E, 12/13 EAN-13,
// 11/12 UPC-A), the add-on the next 2 or 5; anything beyond is ignored. For an entry
// without add-on the main part is the whole content and the add-on is empty.
struct ParteVoce {
    std::string principale;
    std::string addOn;
};
ParteVoce DividiAddOn(const VoceCatalogo& voce, std::string_view contenuto, bool check);

// Validation of the cycle (the window's check-only mode): empty content is refused; an
// add-on entry needs its main part accepted with the main code and the check flag and its
// add-on accepted with "ADD2"/"ADD5" and the check forced on. On success parti holds the
// normalised parts (zero padded, upper-cased) that encoding and HRC use. A missing add-on
// is all zeros. The refusal's position counts over the whole content as typed.
Rifiuto VerificaVoce(const VoceCatalogo& voce, std::string_view contenuto, bool checkDigit, ParteVoce& parti);
// True when VerificaVoce accepts.
bool ValidaVoce(const VoceCatalogo& voce, std::string_view contenuto, bool checkDigit, ParteVoce& parti);

// CalcolaHRC of the window: the content, completed by the entry's check routine when
// conCheck (CheckDigitInHRC and CheckDigit both on), then framed by entry: Code 39 (and
// Full ASCII) always "*...*" with "_" shown as space; Code 93 (and Full ASCII) the same
// only with the check included, else just the "_" replacement; the other entries of the
// computed-HRC group unchanged; every other entry "". For a Full ASCII entry whose typed
// text the check routine cannot complete (characters outside the native alphabet), the
// HRC is shown without check characters.
std::string CalcolaHRC(const VoceCatalogo& voce, std::string_view contenuto, bool conCheck);

// The HRC text of the preview for the entry (contenuto as normalised by validation):
// CalcolaHRC for the computed group, in lower case for Codabar, the content for Code 128,
// the wizard's text (or else the content) for EAN 128, "" for Code 32, EAN/UPC and ISBN.
std::string TestoHRCVoce(const VoceCatalogo& voce, std::string_view contenuto, const OpzioniVoce& opzioni);

// What the window draws for one cycle.
struct GenerazioneVoce {
    bool accettato = false;  // false: empty or refused content; the rest is empty but rifiuto
    Rifiuto rifiuto;         // why accettato is false
    bool check = false;      // check flag used
    std::string codice;      // code of the main part ("C32HRC" for Code 32 with HRC)
    ParteVoce parti;         // normalised main and add-on parts
    std::string glifi;       // main glyphs immediately followed by the add-on glyphs
    std::string famiglia;    // ScegliFontFamiglia(base, style); "" when the style has no face
    std::string hrc;         // TestoHRCVoce; the preview adds it only with the HRC option
};

// The generate cycle on an entry: validation, glyph string, family and HRC text.
GenerazioneVoce GeneraVoce(const VoceCatalogo& voce, std::string_view contenuto, const OpzioniVoce& opzioni);

}  // namespace krt
