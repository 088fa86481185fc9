// krt-encode as a function, with standard input and the two outputs injected: every rule of
// the program as a row (what goes out, what goes to standard error, the exit status), and
// the faults of the streams.
#include "cli/programma.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <string>
#include <vector>

namespace krt {
namespace {

using namespace std::string_literals;
constexpr std::size_t Illimitato = static_cast<std::size_t>(-1);

// An output that takes `limite` bytes, then fails with `errore` (and counts the tries).
struct Uscita {
    std::size_t limite = Illimitato;
    int errore = ENOSPC;
    std::string scritto;
    int tentativiDopoGuasto = 0;
    FunzioneScrittura Funzione() {
        return [this](const char* dati, std::size_t n) -> std::ptrdiff_t {
            if (scritto.size() >= limite) {
                ++tentativiDopoGuasto;
                errno = errore;
                return -1;
            }
            n = std::min(n, limite - scritto.size());
            scritto.append(dati, n);
            return static_cast<std::ptrdiff_t>(n);
        };
    }
};

struct Caso {
    const char* nome;
    std::vector<const char*> argomenti;
    std::string ingresso;
    int stato;                          // 0 encoded, 1 some refused, 2 usage error, 3 a stream failed
    const char* errori = "";            // part of standard error; "" when it must be empty, "*" unchecked
    std::string uscita = "*";           // the whole standard output, "*" unchecked
    std::vector<std::string> parti{};   // parts of standard output
    bool senzaFine = false;             // the input repeats for ever
    int erroreLettura = 0;              // errno of a read fault after the input; -1: a fault naming none
    std::size_t limiteUscita = Illimitato, limiteErrori = Illimitato;
};

void PrintTo(const Caso& c, std::ostream* os) { *os << c.nome; }

struct Esito {
    int stato;
    std::string uscita, errori;
};

// Runs the program on the row; after a write fault nothing more may be written or read.
Esito Esegui(const Caso& c) {
    Uscita uscita{c.limiteUscita, c.senzaFine ? EPIPE : ENOSPC, {}, 0};
    Uscita errori{c.limiteErrori, ENOSPC, {}, 0};
    std::size_t letti = 0;
    int lettureDopoGuasto = 0;
    auto leggi = [&](char* dati, std::size_t n) -> std::ptrdiff_t {
        lettureDopoGuasto += uscita.tentativiDopoGuasto > 0;
        if (c.senzaFine && letti == c.ingresso.size()) letti = 0;
        if (letti == c.ingresso.size()) {
            // Each answer is out before a read that may wait: a program talking through pipes gets it at once.
            EXPECT_TRUE(c.ingresso.find('\n') == std::string::npos || !uscita.scritto.empty() || c.limiteUscita == 0);
            if (c.erroreLettura > 0) errno = c.erroreLettura;
            return c.erroreLettura != 0 ? -1 : 0;
        }
        n = std::min(n, c.ingresso.size() - letti);
        std::memcpy(dati, c.ingresso.data() + letti, n);
        letti += n;
        return static_cast<std::ptrdiff_t>(n);
    };
    const int stato = EseguiKrtEncode(c.argomenti, leggi, uscita.Funzione(), errori.Funzione());
    EXPECT_LE(uscita.tentativiDopoGuasto, 1);
    EXPECT_EQ(lettureDopoGuasto, 0);
    return {stato, uscita.scritto, errori.scritto};
}

std::string Ripeti(const std::string& s, std::size_t volte) {
    std::string r;
    for (std::size_t i = 0; i < volte; ++i) r += s;
    return r;
}

// 6553 lines of ten bytes, then a line whose CR ends the first 64 KiB read and whose LF
// begins the second, then a line too long that runs into a third read.
const std::string IngressoACavallo = Ripeti("12345678\r\n", 6553) + "ABCDE\r\n" + std::string(70000, 'B') + "\nZ";
// One byte over the longest line worth decoding, no CR: the first 16384 bytes alone would
// decode to a character Windows-1252 lacks rather than to a content too long.
const std::string RigaUnByteOltre = Ripeti("\xF0\x9F\x98\x80", 4096) + "A\nA\n";

const std::string JsonCodice39 =
    R"({"content":"abc","code":"C39","family":"ORB39 Short","glyphs":"#ABC#","codes":[35,65,66,67,35],)"
    R"("hrc":"*ABC*","error":null,"reason":null})" "\n"
    R"({"content":"ā","code":"C39","family":"ORB39 Short","glyphs":"","codes":[],"hrc":"",)"
    R"("error":"character U+0101 has no Windows-1252 code","reason":{"kind":"character","position":1}})" "\n";
const std::string Gs1Esempio = R"("content":"010950123456789010ABC\\x813101000125")";
const std::string Gs1Leggibile = R"("hrc":"(01)09501234567890(10)ABC(3101)000125")";

const Caso Casi[] = {
    // symbology codes in any case: the engine's glyph string
    {"code", {"c39", "abc"}, "", 0, "", "#ABC#\n"},
    {"glyphs_over_127_in_utf8", {"C128", "ABC"}, "", 0, "", "\xE2\x80\xB0" "BCD\"\xE2\x80\xB9\n"},
    // a two-line result: CR LF kept in codes (a TAB in text: below)
    {"two_lines_codes", {"-c", "--output=codes", "C32HRC", "12345678"}, "", 0, "",
     "124 42 69 87 89 85 74 86 35 13 10 65 49 50 51 52 53 54 55 56 56\n"},
    // display names: the main window's rules (ISBN always checked, its text line above the bars)
    {"name", {"--hrc", "-c", "Codice 32", "12345678"}, "", 0, "", "|*EWYUJV#\tA123456788\n"},
    // an add-on entry: the add-on's glyphs after the main ones, its check forced, characters past it ignored
    {"name_with_addon", {"-c", "ean 13 add-on 2", "400638133393129"}, "", 0, "", "4|AaGDib!pppvpn|-+L_M\n"},
    {"name_empty_content", {"Code 39", ""}, "", 1, "The content is empty.", "\n"},
    {"isbn_checked", {"ISBN-10", "030640615"}, "", 0, "", "--$%.(%;.)%;&:.'\t9|HiaDaG!qmsnrt|\n"},
    // batch: one result per line, in order; refusals leave an empty line and go on
    {"batch", {"C39"}, "abc\nx y\n\nab\r\ncd", 1,
     "line 2: The character \" \" at position 2 cannot be encoded in this symbology.\nkrt-encode: line 3: The "
     "content is empty.", "#ABC#\n\n\n#AB#\n#CD#\n"},
    {"dash_dash_ends_the_options", {"C39", "--", "-1"}, "", 0, "", "#-1#\n"},
    {"dash_is_content", {"C39", "-"}, "", 0, "", "#-#\n"},
    {"bom_before_the_first_line_only", {"C39"}, "\xEF\xBB\xBF" "ab\r\n\xEF\xBB\xBF" "c\n", 1, "line 2: ", "#AB#\n\n"},
    // input encodings
    {"utf8_euro", {"--input-encoding=utf-8", "--output=codes", "C128"}, "\xE2\x82\xAC\n", 0, "", "137 134 97 57 139\n"},
    {"cp1252_euro", {"--output", "codes", "--input-encoding", "cp1252", "C128"}, "\x80\n", 0, "",
     "137 134 97 57 139\n"},
    {"not_in_cp1252_and_malformed", {"C128"}, "\xC4\x81\nA\xFF\n", 1,
     "line 1: character U+0101 has no Windows-1252 code\nkrt-encode: line 2: malformed UTF-8", "\n\n"},
    // engine faults are reported like refusals
    {"escape", {"C128"}, "ab\\qc\n1\n", 1, "line 1: The content holds an invalid escape sequence",
     "\n\xE2\x80\xB0" "23\xE2\x80\xB9\n"},
    {"line_too_long", {"C39"}, std::string(20000, 'A') + "\nA\n", 1,
     "line 1: The content is too long: 4096 characters at most.", "\n#A#\n"},
    {"line_one_byte_too_long", {"C39"}, RigaUnByteOltre, 1, "line 1: The content is too long", "\n#A#\n"},
    {"lines_across_reads", {"C39"}, IngressoACavallo, 1, "line 6555: The content is too long: 4096",
     Ripeti("#12345678#\n", 6553) + "#ABCDE#\n\n#Z#\n"},
    // usage errors (the option parser's own messages have their unit test)
    {"unknown_symbology", {"XYZ", "1"}, "", 2, "unknown symbology \"XYZ\"", ""},
    {"unknown_option", {"--bogus", "C39", "A"}, "", 2, "unknown option --bogus", ""},
    {"export_options_alone", {"--size=12", "C39", "A"}, "", 2, "go with --export", ""},
    {"export_not_built_in", {"--export=a.png", "C39", "A"}, "", 2, "built without --export", ""},
    {"list", {"--list"}, "", 0, "", "*", {"\nUPCE ", "ADD5", "EAN 13 Add-on 5", "ORBDELTA DA"}},

    // json: the whole line; then a display name written exactly wins over a code, then codes,
    // then names in any case; the reason's kind, and its position over the content as typed
    {"json", {"--output=json", "--hrc", "--style", "Corto", "Code 39"}, "abc\n\xC4\x81\n", 1, "*", JsonCodice39},
    {"json_two_lines", {"--output=json", "c32hrc", "-c", "12345678"}, "", 0, "", "*",
     {R"("code":"C32HRC")", R"("glyphs":"|*EWYUJV#\r\nA123456788")", R"("hrc":null)"}},
    {"json_name_exact", {"--output=json", "--hrc", "Plessey", "123"}, "", 0, "", "*",
     {R"("code":"PLESSEY","family":"ORBPLESSEY")", R"("hrc":"123")"}},
    {"json_code_before_name", {"--output=json", "--hrc", "PLESSEY", "123"}, "", 0, "", "*", {R"("hrc":null)"}},
    {"json_name_any_case", {"--output=json", "--hrc", "code 39", "a"}, "", 0, "", "*", {R"("hrc":"*A*")"}},
    {"json_empty", {"--output=json", "C39", ""}, "", 1, "*", "*",
     {R"("error":"The content is empty.","reason":{"kind":"empty"})"}},
    {"json_length", {"--output=json", "EAN13", "12345678901234"}, "", 1, "*", "*",
     {R"(at most.","reason":{"kind":"length"})"}},
    {"json_addon_position", {"--output=json", "EAN 13 Add-on 2", "4006381333931x"}, "", 1, "*", "*",
     {R"("reason":{"kind":"character","position":14})"}},
    {"json_structure", {"--output=json", "-c", "UPCE", "2345678"}, "", 1, "*", "*",
     {R"("reason":{"kind":"structure"})"}},
    {"json_escape", {"--output=json", "C128", "ab\\qc"}, "", 1, "*", "*", {R"("reason":{"kind":"escape"})"}},

    // EAN 128 composed from AIs (--ai, --gs1-input) with the wizard's rules, messages and ids
    {"ai", {"--output=json", "EAN 128", "--ai", "01=09501234567890", "--ai", "10=ABC", "--ai", "310=12.5"}, "",
     0, "", "*", {Gs1Esempio, Gs1Leggibile, R"("code":"E128")", R"("error":null)"}},
    {"ai_by_code", {"--output=json", "E128", "--ai", "01=09501234567890", "--ai", "10=ABC", "--ai", "310=12.5"}, "",
     0, "", "*", {Gs1Esempio, R"("hrc":null)"}},
    {"gs1_input", {"--output=json", "EAN 128", "--gs1-input"}, "(01)09501234567890(10)ABC(310)12.5\n",
     0, "", "*", {Gs1Esempio, Gs1Leggibile}},
    {"ai_backslash", {"--output=json", "EAN 128", "--ai", "10=A\\B"}, "", 0, "", "*",
     {R"("content":"10A\\\\B")", R"("hrc":"(10)A\\B")"}},
    {"ai_length", {"--output=json", "EAN 128", "--ai", "01=123"}, "", 1, "*", "*",
     {R"("error":"message 697: Wrong length!")"}},
    {"ai_not_in_cp1252", {"--output=json", "EAN 128", "--ai", "10=A\xC4\x81"}, "", 1, "*", "*",
     {R"("error":"character U+0101 has no Windows-1252 code")"}},
    {"ai_unknown", {"--output=json", "EAN 128", "--ai", "999=1"}, "", 1, "*", "*", {R"("error":"Unknown AI: 999")"}},
    // a NUL then digits would be read back as one octal escape
    {"gs1_input_nul", {"--output=json", "EAN 128", "--gs1-input"}, "(10)A\n(91)\0" "12\n"s, 1, "*", "*",
     {R"("error":"the value of element string 1 holds a NUL)"}},
    {"gs1_input_lines_go_on", {"--output=json", "EAN 128", "--gs1-input"}, "(10)AB\n(999)1\n", 1, "*",
     "*", {R"("content":"10AB")", R"("error":"Unknown AI: 999")"}},
    {"ai_needs_ean128", {"C128", "--ai", "10=AB"}, "", 2, "*", ""},
    {"ai_needs_a_value", {"EAN 128", "--ai", "10"}, "", 2, "*", ""},
    {"ai_and_content", {"EAN 128", "--ai", "10=AB", "10AB"}, "", 2, "*", ""},
    {"ai_and_gs1_input", {"EAN 128", "--ai", "10=AB", "--gs1-input"}, "", 2, "*", ""},

    // --csv: rows come back whole with barcode, hrc and error, in the input's delimiter, line
    // end and encoding; refusals never stop the run; a file that is not CSV stops at its line
    {"csv_semicolons_crlf_quotes", {"--csv", "C39"}, "id;name\r\nAB;\"x;\"\"y\"\"\"\r\nCD;n\xC3\xA0\"me\r\n", 0, "",
     "id;name;barcode;hrc;error\r\nAB;\"x;\"\"y\"\"\";#AB#;;\r\nCD;\"n\xC3\xA0\"\"me\";#CD#;;\r\n"},
    {"csv_refused_and_short_rows_go_on", {"--csv", "--column=2", "C39"}, "n,code\n1,?\n2\n3,AB,x\n4,AB\n",
     1, "line 3: The row has no field 2",
     "n,code,barcode,hrc,error\n1,?,,,\"The character \"\"?\"\" at position 1 cannot be encoded in this "
     "symbology.\"\n2,,,,The row has no field 2 (the content column).\n3,AB,x,,,\"The row has 3 fields, the "
     "header only 2.\"\n4,AB,#AB#,,\n"},
    {"csv_tab_bom_column_by_name_hrc", {"--csv", "--column", "code", "--hrc", "Code 39"},
     "\xEF\xBB\xBFn\tcode\n1\tAB\n", 0, "", "\xEF\xBB\xBFn\tcode\tbarcode\thrc\terror\n1\tAB\t#AB#\t*AB*\t\n"},
    {"csv_two_lines_quoted", {"--csv", "--delimiter=tab", "--hrc", "Code 32"}, "c\n12345678\n", 0, "",
     "c\tbarcode\thrc\terror\n12345678\t\"|*BMZZLP#\tA012345678\"\t\t\n"},
    {"csv_cp1252", {"--csv", "--input-encoding=cp1252", "C39"}, "c;\xE9\nAB;\xE9\n", 0, "",
     "c;\xE9;barcode;hrc;error\nAB;\xE9;#AB#;;\n"},
    {"csv_excel", {"--csv", "--excel", "--input-encoding=cp1252", "--column=2", "C39"}, "\xE9,c\n\xE9,AB\n",
     0, "", "\xEF\xBB\xBF\xC3\xA9,c,barcode,hrc,error\r\n\xC3\xA9,AB,#AB#,,\r\n"},
    {"csv_quote_not_closed", {"--csv", "C39"}, "c\nAB\n\"A\nB\n", 2,
     "line 3: not CSV: a quoted field is not closed", "c,barcode,hrc,error\nAB,#AB#,,\n"},
    {"csv_unknown_column", {"--csv", "--column=price", "C39"}, "c,d\nAB,1\n", 2, "(it has \"c\", \"d\")", ""},
    {"csv_empty", {"--csv", "C39"}, "", 2, "line 1: not CSV: the file holds no header line", ""},
    {"csv_options_alone", {"--excel", "C39"}, "", 2, "need --csv", ""},

    // faults of the streams: help, version and list share one write
    {"help_to_a_full_disk", {"--help"}, "", 3, "cannot write the output: No space", "", {}, false, 0, 0},
    {"version_to_a_full_disk", {"--version"}, "", 3, "cannot write", "krt-e", {}, false, 0, 5},
    {"usage_error_standard_error_full", {"--bogus"}, "", 3, "", "", {}, false, 0, Illimitato, 0},
    {"refusal_standard_error_full", {"C39"}, "a b\n", 3, "", "\n", {}, false, 0, Illimitato, 0},
    {"input_is_a_folder", {"C39"}, "", 3, "cannot read the input: Is a directory", "", {}, false, EISDIR},
    {"read_fault_drops_the_unfinished_line", {"C39"}, "A\nB", 3, "cannot read the input", "#A#\n", {}, false, EIO},
    {"read_fault_naming_no_error", {"C39"}, "A\n", 3, "cannot read the input: Input/output error", "#A#\n", {},
     false, -1},
    {"endless_input_into_a_closed_pipe", {"C39"}, "123\n", 3, "Broken pipe", "*", {}, true, 0, 30},
    {"csv_read_fault_in_a_quoted_field", {"--csv", "C39"}, "c\nAB\n\"A", 3, "cannot read the input",
     "c,barcode,hrc,error\nAB,#AB#,,\n", {}, false, EIO},
    {"csv_endless_rows_into_a_closed_pipe", {"--csv", "C39"}, "AB\n", 3, "Broken pipe", "*", {}, true, 0, 50},
};

class KrtEncode : public ::testing::TestWithParam<Caso> {};

TEST_P(KrtEncode, Esito) {
    const Caso& c = GetParam();
    const Esito e = Esegui(c);
    EXPECT_EQ(e.stato, c.stato) << e.errori;
    if (c.uscita != "*") {
        EXPECT_EQ(e.uscita, c.uscita);
    }
    for (const auto& parte : c.parti) EXPECT_NE(e.uscita.find(parte), std::string::npos) << parte << "\n" << e.uscita;
    if (*c.errori == '\0') {
        EXPECT_EQ(e.errori, "");
    } else if (std::string_view(c.errori) != "*") {
        EXPECT_NE(e.errori.find(c.errori), std::string::npos) << e.errori;
    }
}

INSTANTIATE_TEST_SUITE_P(Casi, KrtEncode, ::testing::ValuesIn(Casi), [](const auto& info) {
    return std::string(info.param.nome);
});

}  // namespace
}  // namespace krt
