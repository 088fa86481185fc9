// krt-encode end to end: the built program run through the shell.
#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

struct Esecuzione {
    std::string uscita;
    std::string errori;
    int stato = -1;
};

std::string Quota(const std::string& s) {
    std::string q = "'";
    for (const char c : s) q += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return q + "'";
}

std::string Leggi(const std::filesystem::path& p) {
    std::ifstream f(p, std::ios::binary);
    return {std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
}

// Runs krt-encode with the arguments and the given standard input.
Esecuzione Esegui(const std::vector<std::string>& argomenti, const std::string& ingresso = "") {
    static int contatore = 0;
    const auto base = std::filesystem::temp_directory_path() /
                      ("krt_encode_test_" + std::to_string(getpid()) + "_" + std::to_string(++contatore));
    const auto fileIngresso = base.string() + ".in";
    const auto fileErrori = base.string() + ".err";
    std::ofstream(fileIngresso, std::ios::binary) << ingresso;

    std::string comando = Quota(KRT_ENCODE);
    for (const auto& a : argomenti) comando += " " + Quota(a);
    comando += " <" + Quota(fileIngresso) + " 2>" + Quota(fileErrori);

    Esecuzione e;
    FILE* tubo = popen(comando.c_str(), "r");
    if (tubo == nullptr) return e;
    char blocco[4096];
    for (std::size_t n; (n = fread(blocco, 1, sizeof blocco, tubo)) > 0;) e.uscita.append(blocco, n);
    const int stato = pclose(tubo);
    e.stato = WIFEXITED(stato) ? WEXITSTATUS(stato) : -1;
    e.errori = Leggi(fileErrori);
    std::filesystem::remove(fileIngresso);
    std::filesystem::remove(fileErrori);
    return e;
}

std::string Ripeti(const std::string& s, std::size_t volte) {
    std::string r;
    for (std::size_t i = 0; i < volte; ++i) r += s;
    return r;
}

// 6553 lines of ten bytes, then a line whose CR ends the first 64 KiB read and whose LF
// begins the second, then a line too long that runs into a third read.
const std::string IngressoACavallo =
    Ripeti("12345678\r\n", 6553) + "ABCDE\r\n" + std::string(70000, 'B') + "\nZ";

std::string Comando(const std::vector<std::string>& argomenti) {
    std::string s;
    for (const auto& a : argomenti) s += " " + Quota(a);
    return s;
}

TEST(KrtEncode, Contratto) {
    struct Riga {
        std::vector<std::string> argomenti;
        std::string ingresso;
        std::string uscita;
        int stato;
        std::string errori;  // part of standard error ("" = must be empty)
    } const righe[] = {
        // symbology codes: the engine's glyph string
        {{"c39", "abc"}, "", "#ABC#\n", 0, ""},
        {{"--output=codes", "C128", "1234"}, "", "138 45 67 115 139\n", 0, ""},
        {{"--output=codes", "E128", "10ABC"}, "", "137 135 50 49 66 67 68 112 139\n", 0, ""},
        {{"C128", "ABC"}, "", "\xE2\x80\xB0" "BCD\"\xE2\x80\xB9\n", 0, ""},  // glyphs 137 and 139 in UTF-8
        // a two-line result: one line with a TAB in text, CR LF kept in codes
        {{"-c", "C32HRC", "12345678"}, "", "|*EWYUJV#\tA123456788\n", 0, ""},
        {{"-c", "--output=codes", "C32HRC", "12345678"}, "",
         "124 42 69 87 89 85 74 86 35 13 10 65 49 50 51 52 53 54 55 56 56\n", 0, ""},
        // display names: the main window's rules
        {{"--hrc", "-c", "Codice 32", "12345678"}, "", "|*EWYUJV#\tA123456788\n", 0, ""},
        {{"Code 39", ""}, "", "\n", 1, "The content is empty."},
        // batch: one result per line, in order; refusals leave an empty line and go on
        {{"C39"}, "abc\nx y\n\nab\r\ncd", "#ABC#\n\n\n#AB#\n#CD#\n", 1,
         "line 2: The character \" \" at position 2 cannot be encoded in this symbology.\nkrt-encode: line 3: The content is empty."},
        {{"--output=codes", "C39"}, "", "", 0, ""},
        // input encodings
        {{"--output=codes", "C128"}, "\xE2\x82\xAC\n", "137 134 97 57 139\n", 0, ""},  // euro sign is NUL
        {{"--output=codes", "--input-encoding=cp1252", "C128"}, "\x80\n", "137 134 97 57 139\n", 0, ""},
        {{"C128"}, "\xC4\x81\nA\xFF\n", "\n\n", 1,
         "line 1: character U+0101 has no Windows-1252 code\nkrt-encode: line 2: malformed UTF-8"},
        // engine faults are reported like refusals
        {{"C128"}, "ab\\qc\n1\n", "\n\xE2\x80\xB0" "23\xE2\x80\xB9\n", 1, "line 1: The content holds an invalid escape sequence"},
        {{"C39"}, std::string(20000, 'A') + "\nA\n", "\n#A#\n", 1, "line 1: The content is too long: 4096 characters at most."},
        {{"C39"}, IngressoACavallo, Ripeti("#12345678#\n", 6553) + "#ABCDE#\n\n#Z#\n", 1,
         "line 6555: The content is too long: 4096"},
        // usage errors (the option parser's own messages have their unit test)
        {{"XYZ", "1"}, "", "", 2, "unknown symbology \"XYZ\""},
        {{"--bogus", "C39", "A"}, "", "", 2, "unknown option --bogus"},
    };
    for (const auto& r : righe) {
        SCOPED_TRACE("krt-encode" + Comando(r.argomenti));
        const Esecuzione e = Esegui(r.argomenti, r.ingresso);
        EXPECT_EQ(e.stato, r.stato);
        EXPECT_EQ(e.uscita, r.uscita);
        if (r.errori.empty())
            EXPECT_EQ(e.errori, "");
        else
            EXPECT_NE(e.errori.find(r.errori), std::string::npos) << e.errori;
    }
}

TEST(KrtEncode, Json) {
    const Esecuzione e = Esegui({"--output=json", "--hrc", "--style=Corto", "Code 39"}, "abc\n\xC4\x81\n");
    EXPECT_EQ(e.stato, 1);
    EXPECT_EQ(e.uscita,
              "{\"content\":\"abc\",\"code\":\"C39\",\"family\":\"ORB39 Short\",\"glyphs\":\"#ABC#\","
              "\"codes\":[35,65,66,67,35],\"hrc\":\"*ABC*\",\"error\":null,\"reason\":null}\n"
              "{\"content\":\"\xC4\x81\",\"code\":\"C39\",\"family\":\"ORB39 Short\",\"glyphs\":\"\","
              "\"codes\":[],\"hrc\":\"\",\"error\":\"character U+0101 has no Windows-1252 code\",\"reason\":"
              "{\"kind\":\"character\",\"position\":1}}\n");

    const Esecuzione codice = Esegui({"--output=json", "c32hrc", "-c", "12345678"});
    EXPECT_EQ(codice.uscita,
              "{\"content\":\"12345678\",\"code\":\"C32HRC\",\"family\":\"ORB32\",\"glyphs\":\"|*EWYUJV#\\r\\n"
              "A123456788\",\"codes\":[124,42,69,87,89,85,74,86,35,13,10,65,49,50,51,52,53,54,55,56,56],"
              "\"hrc\":null,\"error\":null,\"reason\":null}\n");
}

// A display name written exactly wins over a code; then codes, then names, in any case.
// The json reason names the kind of refusal, and the position over the content as typed.
TEST(KrtEncode, SimbologiaEMotivo) {
    const struct {
        std::vector<std::string> argomenti;
        std::string parte;  // part of the json line
    } righe[] = {
        {{"--hrc", "Plessey", "123"}, "\"code\":\"PLESSEY\",\"family\":\"ORBPLESSEY\""},
        {{"--hrc", "Plessey", "123"}, "\"hrc\":\"123\""},
        {{"--hrc", "Postnet", "12345"}, "\"hrc\":\"012345\""},
        {{"--hrc", "PLESSEY", "123"}, "\"hrc\":null"},
        {{"--hrc", "postnet", "12345"}, "\"hrc\":null"},
        {{"--hrc", "code 39", "a"}, "\"hrc\":\"*A*\""},
        {{"C39", ""}, "\"error\":\"The content is empty.\",\"reason\":{\"kind\":\"empty\"}"},
        {{"EAN13", "12345678901234"}, "at most.\",\"reason\":{\"kind\":\"length\"}"},
        {{"EAN 13 Add-on 2", "4006381333931x"}, "\"reason\":{\"kind\":\"character\",\"position\":14}"},
        {{"-c", "UPCE", "2345678"}, "\"reason\":{\"kind\":\"structure\"}"},
        {{"C128", "ab\\qc"}, "\"reason\":{\"kind\":\"escape\"}"},
    };
    for (const auto& r : righe) {
        std::vector<std::string> argomenti{"--output=json"};
        argomenti.insert(argomenti.end(), r.argomenti.begin(), r.argomenti.end());
        SCOPED_TRACE("krt-encode" + Comando(argomenti));
        const Esecuzione e = Esegui(argomenti);
        EXPECT_NE(e.uscita.find(r.parte), std::string::npos) << e.uscita;
    }
}

TEST(KrtEncode, NomeConAddOnEIsbn) {
    // The add-on glyphs follow the main ones; the add-on check is forced, extra characters ignored.
    const Esecuzione voce = Esegui({"-c", "ean 13 add-on 2", "400638133393129"});
    const Esecuzione principale = Esegui({"-c", "EAN13", "400638133393"});
    const Esecuzione addOn = Esegui({"ADD2", "12"});
    ASSERT_EQ(voce.stato, 0) << voce.errori;
    ASSERT_FALSE(addOn.uscita.empty());
    EXPECT_EQ(voce.uscita, principale.uscita.substr(0, principale.uscita.size() - 1) + addOn.uscita);

    // ISBN: the check is on even without -c; the text line stands above the bars.
    const Esecuzione isbn = Esegui({"ISBN-10", "030640615"});
    EXPECT_EQ(isbn.stato, 0);
    EXPECT_EQ(isbn.uscita.substr(0, 17), "--$%.(%;.)%;&:.'\t");
    EXPECT_EQ(std::count(isbn.uscita.begin(), isbn.uscita.end(), '\n'), 1);
}

// Faults of the real streams, run through bash: a full disk, a folder as input, and a
// closed pipe with SIGPIPE ignored on endless input (before, it never ended).
TEST(KrtEncode, FlussiGuasti) {
    const char* const comandi[] = {
        "$K --list >/dev/full",
        "$K C39 </tmp",
        "trap '' PIPE; yes 123 | timeout 10 $K C39 | head -1 >/dev/null; exit ${PIPESTATUS[1]}",
    };
    for (const char* c : comandi) {
        SCOPED_TRACE(c);
        std::string riga = "K=";
        riga.append(Quota(KRT_ENCODE)).append(" bash -c ").append(Quota(c)).append(" 2>/dev/null");
        const int stato = std::system(riga.c_str());
        EXPECT_TRUE(WIFEXITED(stato));
        EXPECT_EQ(WEXITSTATUS(stato), 3);
    }
}

TEST(KrtEncode, AiutoVersioneElenco) {
    EXPECT_EQ(Esegui({"--version"}).uscita.rfind("krt-encode ", 0), 0u);
    EXPECT_NE(Esegui({"--help"}).uscita.find("Usage: krt-encode"), std::string::npos);
    const std::string elenco = Esegui({"--list"}).uscita;
    for (const char* atteso : {"UPCE", "ADD5", "EAN 13 Add-on 5", "Codice 39 Full Ascii", "ORBDELTA DA"})
        EXPECT_NE(elenco.find(atteso), std::string::npos) << atteso;
    EXPECT_EQ(std::count(elenco.begin(), elenco.end(), '\n'), 37);  // header + 36 entries
}

// EAN 128 composed from AIs (--ai, --gs1-input) with the wizard's rules, messages and ids.
TEST(KrtEncode, Gs1ComeLaProcedura) {
    using namespace std::string_literals;
    const std::string esempio = R"("content":"010950123456789010ABC\\x813101000125")";
    const std::string leggibile = R"("hrc":"(01)09501234567890(10)ABC(3101)000125")";
    const struct {
        std::vector<std::string> argomenti;
        std::string ingresso;
        int stato;
        std::vector<std::string> parti;  // of the json output
    } righe[] = {
        {{"EAN 128", "--ai", "01=09501234567890", "--ai", "10=ABC", "--ai", "310=12.5"}, "", 0,
         {esempio, leggibile, R"("code":"E128")", R"("error":null)"}},
        {{"E128", "--ai", "01=09501234567890", "--ai", "10=ABC", "--ai", "310=12.5"}, "", 0, {esempio, R"("hrc":null)"}},
        {{"EAN 128", "--gs1-input"}, "(01)09501234567890(10)ABC(310)12.5\n", 0, {esempio, leggibile}},
        {{"EAN 128", "--ai", "00=12345678901234567"}, "", 0,
         {R"("content":"00123456789012345675")", R"("hrc":"(00)123456789012345675")"}},
        {{"EAN 128", "--ai", "10=A\\B"}, "", 0, {R"("content":"10A\\\\B")", R"("hrc":"(10)A\\B")"}},
        // refusals: the wizard's message and its id; an unknown AI
        {{"EAN 128", "--ai", "01=123"}, "", 1, {R"("error":"message 697: Wrong length!")"}},
        {{"EAN 128", "--ai", "310=abc"}, "", 1, {R"("error":"message 701: The value must be an integer or a float.")"}},
        {{"EAN 128", "--ai", "00=123456789012345670"}, "", 1, {R"("error":"message 93: The value introduced is not allowed")"}},
        {{"EAN 128", "--ai", "10= "}, "", 1, {R"("error":"message 689: The code is empty!")"}},
        {{"EAN 128", "--ai", "999=1"}, "", 1, {R"("error":"Unknown AI: 999")"}},
        // a NUL then digits would be read back as one octal escape
        {{"EAN 128", "--gs1-input"}, "(10)A\n(91)\0" "12\n"s, 1, {R"("error":"the value of element string 1 holds a NUL)"}},
        {{"EAN 128", "--gs1-input"}, "(10)AB\n(999)1\n", 1, {R"("content":"10AB")", R"("error":"Unknown AI: 999")"}},
        {{"C128", "--ai", "10=AB"}, "", 2, {}},
        {{"EAN 128", "--ai", "10"}, "", 2, {}},
        {{"EAN 128", "--ai", "10=AB", "10AB"}, "", 2, {}},
        {{"EAN 128", "--ai", "10=AB", "--gs1-input"}, "", 2, {}},
    };
    for (const auto& r : righe) {
        std::vector<std::string> argomenti{"--output=json"};
        argomenti.insert(argomenti.end(), r.argomenti.begin(), r.argomenti.end());
        SCOPED_TRACE("krt-encode" + Comando(argomenti));
        const Esecuzione e = Esegui(argomenti, r.ingresso);
        EXPECT_EQ(e.stato, r.stato) << e.errori;
        for (const auto& parte : r.parti) EXPECT_NE(e.uscita.find(parte), std::string::npos) << e.uscita;
    }
}

}  // namespace

// --csv end to end: the rows come back whole with barcode, hrc and error, in the input's
// delimiter, line end and encoding; refusals never stop the run; a file that is not CSV
// stops with its line.
TEST(KrtEncode, Csv) {
    struct Riga {
        const char* nome;
        std::vector<std::string> argomenti;
        std::string ingresso, uscita;
        int stato;
        const char* errori;  // part of standard error, "" when it must be empty
    } const righe[] = {
        {"semicolons, CRLF, quoted fields requoted", {"--csv", "C39"}, "id;name\r\nAB;\"x;\"\"y\"\"\"\r\n",
         "id;name;barcode;hrc;error\r\nAB;\"x;\"\"y\"\"\";#AB#;;\r\n", 0, ""},
        {"refused and short rows go on", {"--csv", "--column=2", "C39"}, "n,code\n1,?\n2\n3,AB,x\n4,AB\n",
         "n,code,barcode,hrc,error\n1,?,,,\"The character \"\"?\"\" at position 1 cannot be encoded in this symbology.\"\n"
         "2,,,,The row has no field 2 (the content column).\n3,AB,x,,,\"The row has 3 fields, the header only 2.\"\n"
         "4,AB,#AB#,,\n",
         1, "line 3: The row has no field 2"},
        {"tab, bom kept, column by name, hrc", {"--csv", "--column", "code", "--hrc", "Code 39"},
         "\xEF\xBB\xBFn\tcode\n1\tAB\n", "\xEF\xBB\xBFn\tcode\tbarcode\thrc\terror\n1\tAB\t#AB#\t*AB*\t\n", 0, ""},
        {"two-line result quoted in a TSV", {"--csv", "--delimiter=tab", "--hrc", "Code 32"}, "c\n12345678\n",
         "c\tbarcode\thrc\terror\n12345678\t\"|*BMZZLP#\tA012345678\"\t\t\n", 0, ""},
        {"Windows-1252 in, Windows-1252 out", {"--csv", "--input-encoding=cp1252", "C39"}, "c;\xE9\nAB;\xE9\n",
         "c;\xE9;barcode;hrc;error\nAB;\xE9;#AB#;;\n", 0, ""},
        {"excel: UTF-8 with a BOM and CRLF", {"--csv", "--excel", "--input-encoding=cp1252", "--column=2", "C39"},
         "\xE9,c\n\xE9,AB\n", "\xEF\xBB\xBF\xC3\xA9,c,barcode,hrc,error\r\n\xC3\xA9,AB,#AB#,,\r\n", 0, ""},
        {"quote not closed", {"--csv", "C39"}, "c\nAB\n\"A\nB\n", "c,barcode,hrc,error\nAB,#AB#,,\n", 2,
         "line 3: not CSV: a quoted field is not closed"},
        {"unknown column", {"--csv", "--column=price", "C39"}, "c,d\nAB,1\n", "", 2, "(it has \"c\", \"d\")"},
        {"empty input", {"--csv", "C39"}, "", "", 2, "line 1: not CSV: the file holds no header line"},
        {"csv options without --csv", {"--excel", "C39"}, "", "", 2, "need --csv"},
    };
    for (const auto& r : righe) {
        SCOPED_TRACE(r.nome);
        const Esecuzione e = Esegui(r.argomenti, r.ingresso);
        EXPECT_EQ(e.stato, r.stato);
        EXPECT_EQ(e.uscita, r.uscita);
        if (*r.errori == '\0')
            EXPECT_EQ(e.errori, "");
        else
            EXPECT_NE(e.errori.find(r.errori), std::string::npos) << e.errori;
    }
}
