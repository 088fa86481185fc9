// Option parsing of krt-encode.
#include "cli/opzioni.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace krt {
namespace {

TEST(Opzioni, Lettura) {
    struct Riga {
        std::vector<const char*> argv;
        const char* errore;      // part of the usage error, "" when none
        const char* argomenti;   // arguments joined by "|"
        bool check, hrc;
        const char* stile;
        FormatoUscita formato;
        CodificaIngresso ingresso;
    } const righe[] = {
        {{"EAN13", "123"}, "", "EAN13|123", false, false, "Normal", FormatoUscita::Testo, CodificaIngresso::Utf8},
        {{"-c", "--hrc", "C39"}, "", "C39", true, true, "Normal", FormatoUscita::Testo, CodificaIngresso::Utf8},
        {{"--style", "Corto", "--output=json", "C39"}, "", "C39", false, false, "Corto", FormatoUscita::Json,
         CodificaIngresso::Utf8},
        {{"C39", "--style=Wide short", "--input-encoding", "cp1252", "--output", "codes"}, "", "C39", false, false,
         "Wide short", FormatoUscita::Codici, CodificaIngresso::Cp1252},
        {{"C11", "--", "-12"}, "", "C11|-12", false, false, "Normal", FormatoUscita::Testo, CodificaIngresso::Utf8},
        {{"C39", "-"}, "", "C39|-", false, false, "Normal", FormatoUscita::Testo, CodificaIngresso::Utf8},
        {{}, "missing SYMBOLOGY", "", false, false, "Normal", FormatoUscita::Testo, CodificaIngresso::Utf8},
        {{"--list"}, "", "", false, false, "Normal", FormatoUscita::Testo, CodificaIngresso::Utf8},
        {{"C39", "a", "b"}, "too many arguments", "", false, false, "", FormatoUscita::Testo, CodificaIngresso::Utf8},
        {{"-x", "C39"}, "unknown option -x", "", false, false, "", FormatoUscita::Testo, CodificaIngresso::Utf8},
        {{"--chek", "C39"}, "unknown option --chek", "", false, false, "", FormatoUscita::Testo,
         CodificaIngresso::Utf8},
        {{"--output=xml", "C39"}, "text, codes or json", "", false, false, "", FormatoUscita::Testo,
         CodificaIngresso::Utf8},
        {{"--input-encoding=latin1", "C39"}, "utf8 or cp1252", "", false, false, "", FormatoUscita::Testo,
         CodificaIngresso::Utf8},
        {{"--style=Bold", "C39"}, "Narrow short, Wide short or the Italian name, not \"Bold\"", "", false, false, "",
         FormatoUscita::Testo, CodificaIngresso::Utf8},
        {{"C39", "--style"}, "needs a value", "", false, false, "", FormatoUscita::Testo, CodificaIngresso::Utf8},
        {{"--check=1", "C39"}, "takes no value", "", false, false, "", FormatoUscita::Testo, CodificaIngresso::Utf8},
    };
    for (const auto& r : righe) {
        std::string comando;
        for (const char* a : r.argv) comando += std::string(a) + " ";
        SCOPED_TRACE("arguments: " + comando);
        OpzioniCli o;
        const std::string errore = LeggiOpzioni(r.argv, o);
        if (*r.errore != '\0') {
            EXPECT_NE(errore.find(r.errore), std::string::npos) << errore;
            continue;
        }
        ASSERT_EQ(errore, "");
        std::string argomenti;
        for (const auto& a : o.argomenti) argomenti += (argomenti.empty() ? "" : "|") + a;
        EXPECT_EQ(argomenti, r.argomenti);
        EXPECT_EQ(o.check, r.check);
        EXPECT_EQ(o.hrc, r.hrc);
        EXPECT_EQ(o.stile, r.stile);
        EXPECT_EQ(o.formato, r.formato);
        EXPECT_EQ(o.ingresso, r.ingresso);
    }
}

}  // namespace
}  // namespace krt
