// Option parsing of krt-encode: the usage errors (the options that parse are rows of the
// program's own test).
#include "cli/opzioni.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace krt {
namespace {

std::string Comando(const std::vector<const char*>& argv) {
    std::string comando;
    for (const char* a : argv) comando += std::string(a) + " ";
    return comando;
}

TEST(Opzioni, ErroriDUso) {
    const struct {
        std::vector<const char*> argv;
        const char* errore;  // part of the usage error
    } righe[] = {
        {{}, "missing SYMBOLOGY"},                           {{"C39", "a", "b"}, "too many arguments"},
        {{"-x", "C39"}, "unknown option -x"},                {{"--chek", "C39"}, "unknown option --chek"},
        {{"--output=xml", "C39"}, "text, codes or json"},    {{"--input-encoding=latin1", "C39"}, "utf8 or cp1252"},
        {{"--style=Bold", "C39"}, "Narrow short, Wide short or the Italian name, not \"Bold\""},
        {{"C39", "--style"}, "needs a value"},               {{"--check=1", "C39"}, "takes no value"},
        {{"--dpi=300.5", "C39"}, "--dpi takes a whole number"}, {{"--size=0", "C39"}, "--size takes points"},
        {{"--export=a.txt", "C39"}, "--export takes a file ending in .png"},
        {{"--csv", "C39", "A"}, "--csv reads its contents from standard input"},
        {{"--csv", "--output=json", "C39"}, "--output does not apply"},
    };
    for (const auto& r : righe) {
        OpzioniCli o;
        const std::string errore = LeggiOpzioni(r.argv, o);
        EXPECT_NE(errore.find(r.errore), std::string::npos) << Comando(r.argv) << ": " << errore;
    }
}

}  // namespace
}  // namespace krt
