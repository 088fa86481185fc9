// krt-encode as a function, with standard input and the two outputs injected: faults of
// the streams, the exit statuses, and one output line per input line.
#include "cli/programma.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <string>
#include <vector>

namespace krt {
namespace {

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
    bool senzaFine;          // the input repeats for ever
    int erroreLettura;       // errno of a read fault after the input, 0 for a clean end
    std::size_t limiteUscita, limiteErrori;
    int stato;
    std::string uscita;      // "*" when not checked
    const char* errori;      // part of standard error, "" when it must be empty
};

const Caso Casi[] = {
    // help, version and list share one write: nothing written, then a part written
    {"help to a full disk", {"--help"}, "", false, 0, 0, Illimitato, UscitaIO, "", "cannot write the output: No space"},
    {"version to a full disk", {"--version"}, "", false, 0, 5, Illimitato, UscitaIO, "krt-e", "cannot write"},
    {"usage error, standard error full", {"--bogus"}, "", false, 0, Illimitato, 0, UscitaIO, "", ""},
    {"refusal, standard error full", {"C39"}, "a b\n", false, 0, Illimitato, 0, UscitaIO, "\n", ""},
    {"input is a folder", {"C39"}, "", false, EISDIR, Illimitato, Illimitato, UscitaIO, "",
     "cannot read the input: Is a directory"},
    {"read fault after a line: the unfinished one is dropped", {"C39"}, "A\nB", false, EIO, Illimitato, Illimitato,
     UscitaIO, "#A#\n", "cannot read the input"},
    {"byte-order mark before the first line only", {"C39"}, "\xEF\xBB\xBF" "ab\r\n\xEF\xBB\xBF" "c\n", false, 0,
     Illimitato, Illimitato, UscitaRifiuti, "#AB#\n\n", "line 2: "},
    {"endless input into a closed pipe", {"C39"}, "123\n", true, 0, 30, Illimitato, UscitaIO, "*", "Broken pipe"},
    {"csv: read fault inside a quoted field", {"--csv", "C39"}, "c\nAB\n\"A", false, EIO, Illimitato, Illimitato,
     UscitaIO, "c,barcode,hrc,error\nAB,#AB#,,\n", "cannot read the input"},
    {"csv: endless rows into a closed pipe", {"--csv", "C39"}, "AB\n", true, 0, 50, Illimitato, UscitaIO, "*",
     "Broken pipe"},
};

class KrtEncodeFlussi : public ::testing::TestWithParam<Caso> {};

TEST_P(KrtEncodeFlussi, Esito) {
    const Caso& c = GetParam();
    Uscita uscita{c.limiteUscita, c.senzaFine ? EPIPE : ENOSPC, {}, 0};
    Uscita errori{c.limiteErrori, ENOSPC, {}, 0};
    std::size_t letti = 0;
    int lettureDopoGuasto = 0;
    auto leggi = [&](char* dati, std::size_t n) -> std::ptrdiff_t {
        lettureDopoGuasto += uscita.tentativiDopoGuasto > 0;
        if (c.senzaFine && letti == c.ingresso.size()) letti = 0;
        if (letti == c.ingresso.size()) {
            errno = c.erroreLettura;
            return c.erroreLettura != 0 ? -1 : 0;
        }
        n = std::min(n, c.ingresso.size() - letti);
        std::memcpy(dati, c.ingresso.data() + letti, n);
        letti += n;
        return static_cast<std::ptrdiff_t>(n);
    };
    const int stato = EseguiKrtEncode(c.argomenti, leggi, uscita.Funzione(), errori.Funzione());
    EXPECT_EQ(stato, c.stato);
    if (c.uscita != "*") {
        EXPECT_EQ(uscita.scritto, c.uscita);
    }
    if (*c.errori == '\0') {
        EXPECT_EQ(errori.scritto, "");
    } else {
        EXPECT_NE(errori.scritto.find(c.errori), std::string::npos) << errori.scritto;
    }
    // After a write fault nothing more is tried, and nothing more read.
    EXPECT_LE(uscita.tentativiDopoGuasto, 1);
    EXPECT_EQ(lettureDopoGuasto, 0);
}

INSTANTIATE_TEST_SUITE_P(Casi, KrtEncodeFlussi, ::testing::ValuesIn(Casi), [](const auto& info) {
    std::string nome;
    for (const char* p = info.param.nome; *p; ++p) nome += std::isalnum(static_cast<unsigned char>(*p)) ? *p : '_';
    return nome;
});

}  // namespace
}  // namespace krt
