// krt-encode end to end: the built program run through the shell, for what the function
// cannot show: the real descriptors, the arguments of main, the exit status.
#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

// Runs a bash command with $K the program: its standard output, and the exit status.
int Esegui(const char* comando, std::string& uscita) {
    setenv("K", KRT_ENCODE, 1);
    setenv("COMANDO", comando, 1);
    FILE* tubo = popen("exec bash -c \"$COMANDO\"", "r");
    if (tubo == nullptr) return -1;
    char blocco[4096];
    for (std::size_t n; (n = fread(blocco, 1, sizeof blocco, tubo)) > 0;) uscita.append(blocco, n);
    const int stato = pclose(tubo);
    return WIFEXITED(stato) ? WEXITSTATUS(stato) : -1;
}

TEST(KrtEncode, FinoAlProgramma) {
    const struct {
        const char* comando;
        int stato;
        const char* uscita;
    } righe[] = {
        // standard output and standard error apart; lines from standard input
        {"printf 'abc\\nx y\\n' | $K C39 2>/dev/null", 1, "#ABC#\n\n"},
        {"$K C39 'a b' 2>&1 >/dev/null", 1,
         "krt-encode: The character \" \" at position 2 cannot be encoded in this symbology.\n"},
        {"$K --bogus 2>&1", 2, "krt-encode: unknown option --bogus\nTry 'krt-encode --help'.\n"},
        // faults of the real streams: a full disk, a folder as input, and a closed pipe with
        // SIGPIPE ignored on endless input (before, it never ended)
        {"$K --list >/dev/full 2>/dev/null", 3, ""},
        {"$K C39 </tmp 2>/dev/null", 3, ""},
        {"trap '' PIPE; yes 2>/dev/null | timeout 10 $K C39 2>/dev/null | head -1 >/dev/null; exit ${PIPESTATUS[1]}",
         3, ""},
    };
    for (const auto& r : righe) {
        SCOPED_TRACE(r.comando);
        std::string uscita;
        EXPECT_EQ(Esegui(r.comando, uscita), r.stato);
        EXPECT_EQ(uscita, r.uscita);
    }
}

}  // namespace
