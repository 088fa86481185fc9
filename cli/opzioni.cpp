// Command line of krt-encode (see opzioni.h).
#include "cli/opzioni.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "barcodes/catalogo.h"
#include "cli/esportazione.h"
#include "cycle/dimensionamento.h"

namespace krt {

namespace {

std::string Check(OpzioniCli& o, std::string_view) { o.check = true; return {}; }
std::string Hrc(OpzioniCli& o, std::string_view) { o.hrc = true; return {}; }
std::string CheckInHRC(OpzioniCli& o, std::string_view) { o.checkInHRC = true; return {}; }
// The styles in English; each has an Italian name too. The 39 family has every face.
constexpr std::string_view NomiStili[] = {"Normal", "Narrow", "Wide", "Short", "Narrow short", "Wide short"};

std::string Stile(OpzioniCli& o, std::string_view v) {
    if (ScegliFontFamiglia("ORB39", v).empty()) {
        std::string errore = "--style takes ";
        for (const auto nome : NomiStili) errore += std::string(nome) + ", ";
        errore.resize(errore.size() - 2);
        return errore + " or the Italian name, not \"" + std::string(v) + "\"";
    }
    o.stile = v;
    return {};
}
std::string Aiuto(OpzioniCli& o, std::string_view) { o.aiuto = true; return {}; }
std::string Versione(OpzioniCli& o, std::string_view) { o.versione = true; return {}; }
std::string Elenco(OpzioniCli& o, std::string_view) { o.elenco = true; return {}; }
std::string AI(OpzioniCli& o, std::string_view v) { o.ai.emplace_back(v); return {}; }
std::string IngressoGS1(OpzioniCli& o, std::string_view) { o.gs1Ingresso = true; return {}; }

std::string Csv(OpzioniCli& o, std::string_view) { o.csv = true; return {}; }
std::string Excel(OpzioniCli& o, std::string_view) { o.excel = true; return {}; }
std::string Colonna(OpzioniCli& o, std::string_view v) {
    if (v.empty()) return "--column takes a header name or a column number";
    o.colonna = v;
    return {};
}
std::string Separatore(OpzioniCli& o, std::string_view v) {
    if (v == "auto") o.separatore = '\0';
    else if (v == "," || v == ";") o.separatore = v[0];
    else if (v == "tab" || v == "\t") o.separatore = '\t';
    else return "--delimiter takes auto, ',', ';' or tab, not \"" + std::string(v) + "\"";
    return {};
}

std::string Uscita(OpzioniCli& o, std::string_view v) {
    if (v == "text") o.formato = FormatoUscita::Testo;
    else if (v == "codes") o.formato = FormatoUscita::Codici;
    else if (v == "json") o.formato = FormatoUscita::Json;
    else return "--output takes text, codes or json, not \"" + std::string(v) + "\"";
    return {};
}

std::string Ingresso(OpzioniCli& o, std::string_view v) {
    if (v == "utf8" || v == "utf-8") o.ingresso = CodificaIngresso::Utf8;
    else if (v == "cp1252") o.ingresso = CodificaIngresso::Cp1252;
    else return "--input-encoding takes utf8 or cp1252, not \"" + std::string(v) + "\"";
    return {};
}

// A decimal number with a point, the whole text; false otherwise.
bool Numero(std::string_view v, double& valore) {
    const auto [fine, errore] = std::from_chars(v.data(), v.data() + v.size(), valore, std::chars_format::fixed);
    return errore == std::errc() && fine == v.data() + v.size() && std::isfinite(valore);
}

std::string Esporta(OpzioniCli& o, std::string_view v) {
    if (!EstensioneEsportabile(v)) return "--export takes a file ending in .png, .svg or .pdf, not \"" + std::string(v) + "\"";
    o.esporta = v;
    return {};
}
std::string CartellaFont(OpzioniCli& o, std::string_view v) { o.cartellaFont = v; return {}; }

std::string Dpi(OpzioniCli& o, std::string_view v) {
    double dpi = 0;
    if (!Numero(v, dpi) || dpi != std::floor(dpi) || dpi < DpiMinimo || dpi > DpiMassimo)
        return "--dpi takes a whole number from " + std::to_string(DpiMinimo) + " to " + std::to_string(DpiMassimo) +
               ", not \"" + std::string(v) + "\"";
    o.dpi = static_cast<int>(dpi);
    return {};
}

std::string LarghezzaModulo(OpzioniCli& o, std::string_view v) {
    if (!Numero(v, o.moduloMm) || o.moduloMm < ModuloMinimoMm || o.moduloMm > ModuloMassimoMm)
        return "--module-width takes millimetres from 0.05 to 5, not \"" + std::string(v) + "\"";
    return {};
}

std::string Dimensione(OpzioniCli& o, std::string_view v) {
    if (!Numero(v, o.punti) || o.punti <= 0 || o.punti > 10000)
        return "--size takes points above 0 and up to 10000, not \"" + std::string(v) + "\"";
    return {};
}

// Add a row here (and its field in OpzioniCli) for a new option.
constexpr DefinizioneOpzione Opzioni[] = {
    {'c', "check", "", "add the check character(s) (the check digit option)", Check},
    {'\0', "hrc", "", "the HRC option: Code 32 with its text line; HRC text in json", Hrc},
    {'\0', "check-in-hrc", "", "with --check, show the check character(s) in the HRC text", CheckInHRC},
    {'\0', "style", "STYLE", "font style for the family: Normal (default), Narrow, Wide, Short,\n"
                             "                             Narrow short, Wide short, or the Italian name",
     Stile},
    {'\0', "output", "FORMAT", "text (default): glyphs as UTF-8, one line per input line\n"
                               "                             (a two-line result has a TAB for its line break);\n"
                               "                             codes: glyph bytes as decimal numbers;\n"
                               "                             json: one object per line",
     Uscita},
    {'\0', "input-encoding", "ENC", "utf8 (default) or cp1252 (raw Windows-1252 bytes)", Ingresso},
    {'\0', "ai", "AI=VALUE", "EAN 128: one element string, composed as the GS1-128 wizard does;\n"
                              "                             repeat for more, in order; no CONTENT",
     AI},
    {'\0', "gs1-input", "", "EAN 128: each content line is \"(AI)VALUE(AI)VALUE...\", composed\n"
                             "                             as by --ai",
     IngressoGS1},
    {'\0', "csv", "", "read CSV with a header line: every row is written back with the\n"
                       "                             fields barcode, hrc and error appended",
     Csv},
    {'\0', "column", "COLUMN", "--csv: the content column, by header name or 1-based number\n"
                                "                             (default: the first)",
     Colonna},
    {'\0', "delimiter", "DELIM", "--csv: auto (default: from the header line), ',', ';' or tab", Separatore},
    {'\0', "excel", "", "--csv: write a UTF-8 byte-order mark and CRLF line ends", Excel},
    {'\0', "export", "FILE", "draw the symbol of CONTENT into FILE (.png, .svg or .pdf, by its\n"
                              "                             extension) as outlines: no font needed to view or print it",
     Esporta},
    {'\0', "font-dir", "DIR", "with --export: use the fonts in DIR too (not installed)", CartellaFont},
    {'\0', "dpi", "N", "with --export: printer resolution (default 600); every module\n"
                        "                             is a whole number of dots at N dpi",
     Dpi},
    {'\0', "module-width", "MM", "with --export: module (narrowest bar) width in mm, brought to\n"
                                  "                             whole dots (default 0.33)",
     LarghezzaModulo},
    {'\0', "size", "PT", "with --export and no --module-width: font size in points,\n"
                          "                             brought to whole dots per module",
     Dimensione},
    {'\0', "list", "", "list the symbologies: code, add-on, English and Italian name, family", Elenco},
    {'h', "help", "", "show this help", Aiuto},
    {'\0', "version", "", "show the version", Versione},
};

const DefinizioneOpzione* TrovaLunga(std::string_view nome) {
    for (const auto& d : Opzioni)
        if (!d.lunga.empty() && d.lunga == nome) return &d;
    return nullptr;
}

const DefinizioneOpzione* TrovaBreve(char c) {
    for (const auto& d : Opzioni)
        if (d.breve != '\0' && d.breve == c) return &d;
    return nullptr;
}

}  // namespace

std::span<const DefinizioneOpzione> TabellaOpzioni() { return Opzioni; }

std::string LeggiOpzioni(std::span<const char* const> argomenti, OpzioniCli& opzioni) {
    bool soloArgomenti = false;
    for (std::size_t i = 0; i < argomenti.size(); ++i) {
        const std::string_view a = argomenti[i];
        if (soloArgomenti || a.size() < 2 || a[0] != '-') {
            opzioni.argomenti.emplace_back(a);
            continue;
        }
        if (a == "--") {
            soloArgomenti = true;
            continue;
        }
        const DefinizioneOpzione* d = nullptr;
        std::string_view valore;
        bool valoreDato = false;
        if (a[1] == '-') {
            std::string_view nome = a.substr(2);
            if (const auto uguale = nome.find('='); uguale != std::string_view::npos) {
                valore = nome.substr(uguale + 1);
                nome = nome.substr(0, uguale);
                valoreDato = true;
            }
            d = TrovaLunga(nome);
        } else if (a.size() == 2) {
            d = TrovaBreve(a[1]);
        }
        if (d == nullptr) return "unknown option " + std::string(a);
        if (d->valore.empty()) {
            if (valoreDato) return "--" + std::string(d->lunga) + " takes no value";
        } else if (!valoreDato) {
            if (i + 1 >= argomenti.size()) return "--" + std::string(d->lunga) + " needs a value";
            valore = argomenti[++i];
        }
        if (std::string errore = d->applica(opzioni, valore); !errore.empty()) return errore;
    }
    if (opzioni.aiuto || opzioni.versione || opzioni.elenco) return {};
    if (opzioni.argomenti.empty()) return "missing SYMBOLOGY";
    if (opzioni.argomenti.size() > 2) return "too many arguments (quote a CONTENT that holds blanks)";
    if (!opzioni.csv) {
        if (!opzioni.colonna.empty() || opzioni.separatore != '\0' || opzioni.excel)
            return "--column, --delimiter and --excel need --csv";
    } else {
        if (opzioni.argomenti.size() > 1 || !opzioni.ai.empty()) return "--csv reads its contents from standard input";
        if (opzioni.formato != FormatoUscita::Testo) return "--csv writes CSV; --output does not apply";
    }
    return {};
}

std::string TestoAiuto() {
    std::string t =
        "Usage: krt-encode [options] SYMBOLOGY [CONTENT]\n"
        "\n"
        "Turns CONTENT into the glyph string that the barcode font draws for SYMBOLOGY.\n"
        "Without CONTENT every line of standard input is encoded, one result per line.\n"
        "\n"
        "SYMBOLOGY is either a symbology code (C39, EAN13, UPCE, ADD5, C32HRC ...; see --list),\n"
        "which gives exactly the engine's glyph string, or a display name in English or\n"
        "Italian (\"EAN 13 Add-on 5\", \"Codice 39\"), which gives what the main window draws\n"
        "for that entry: add-on split, ISBN check always on, Code 32 text line with --hrc.\n"
        "A SYMBOLOGY equal to a display name, case included, is that entry (\"Plessey\",\n"
        "\"Postnet\"); otherwise a code, in any case; otherwise a display name ignoring case.\n"
        "\n"
        "Options:\n";
    for (const auto& d : TabellaOpzioni()) {
        std::string colonna = "  ";
        colonna += d.breve != '\0' ? std::string{'-', d.breve} + ", " : "    ";
        colonna += "--";
        colonna += d.lunga;
        if (!d.valore.empty()) {
            colonna += '=';
            colonna += d.valore;
        }
        colonna.resize(std::max<std::size_t>(colonna.size() + 1, 29), ' ');
        t += colonna;
        t += d.descrizione;
        t += '\n';
    }
    t += "\n"
         "Input lines end at LF (a CR before it is dropped); a UTF-8 byte-order mark at the\n"
         "start of the input is dropped. Content longer than\n";
    t += std::to_string(LunghezzaMassimaContenuto);
    t += " characters is refused.\n"
         "A refused content gives an empty result and \"line N: reason\" on standard error;\n"
         "the remaining lines are still encoded. Empty content is refused.\n"
         "json keys: content, code, family, glyphs, codes, hrc (display names only; the text\n"
         "of the HRC line, empty without --hrc), error (the reason), reason (null, or\n"
         "{\"kind\": empty|length|character|structure|range|escape|overflow, \"position\": N}\n"
         "with the 1-based position of a refused character; \"message\": the GS1 message id).\n"
         "\n"
         "With --csv standard input is CSV (RFC 4180; a UTF-8 byte-order mark is skipped)\n"
         "whose first row is the header. Every row is written with its fields unchanged\n"
         "(a short row padded with empty fields to the header's width) and three more:\n"
         "barcode (the glyphs as text writes them), hrc (with --hrc), error (the reason,\n"
         "empty when accepted), with the input's delimiter and line end, fields quoted where\n"
         "needed. A row without the content column, or with more fields than the header,\n"
         "is refused. With --input-encoding=cp1252 the output is Windows-1252 too, except\n"
         "with --excel (UTF-8). A file that is not CSV (a quote not closed, text after a\n"
         "closing quote) stops with \"line N: not CSV: ...\" and status 2.\n"
         "\n"
         "Exit status: 0 every content encoded, 1 some content refused, 2 usage error,\n"
         "3 standard input could not be read or an output could not be written (krt-encode\n"
         "stops at the first such fault); with --export also: the barcode family is not\n"
         "installed (nor in --font-dir), or FILE could not be written. A refused content\n"
         "writes no file.\n";
    return t;
}

}  // namespace krt
