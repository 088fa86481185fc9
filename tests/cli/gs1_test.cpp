// krt-encode composing EAN 128 content from AIs: the built program through the shell.
#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdio>
#include <string>

namespace {

struct Risposta {
    std::string uscita; // standard output and standard error, in that order per line
    int stato = -1;
};

// Runs "krt-encode <argomenti>" (already quoted for the shell), stdin from ingresso.
Risposta Esegui(const std::string& argomenti, const std::string& ingresso = "") {
    const std::string comando =
        "printf '%b' '" + ingresso + "' | '" KRT_ENCODE "' " + argomenti + " --output=json 2>/dev/null";
    Risposta r;
    FILE* tubo = popen(comando.c_str(), "r");
    if (tubo == nullptr) return r;
    char blocco[4096];
    for (std::size_t n; (n = fread(blocco, 1, sizeof blocco, tubo)) > 0;) r.uscita.append(blocco, n);
    const int stato = pclose(tubo);
    r.stato = WIFEXITED(stato) ? WEXITSTATUS(stato) : -1;
    return r;
}

bool Contiene(const std::string& testo, const std::string& parte) { return testo.find(parte) != std::string::npos; }

TEST(KrtEncodeGS1, ComposesLikeTheWizard) {
    struct Caso {
        const char* argomenti;
        std::string ingresso;
        int stato;
        std::vector<std::string> attesi; // fragments of the json output
    };
    const std::string esempio = R"("content":"010950123456789010ABC\\x813101000125")";
    const std::string leggibile = R"("hrc":"(01)09501234567890(10)ABC(3101)000125")";
    const Caso casi[] = {
        {"'EAN 128' --ai 01=09501234567890 --ai 10=ABC --ai 310=12.5", "", 0,
         {esempio, leggibile, R"("code":"E128")", R"("error":null)"}},
        {"E128 --ai 01=09501234567890 --ai 10=ABC --ai 310=12.5", "", 0, {esempio, R"("hrc":null)"}},
        {"'EAN 128' --gs1-input", "(01)09501234567890(10)ABC(310)12.5\\n", 0, {esempio, leggibile}},
        {"'EAN 128' --ai 00=12345678901234567", "", 0,
         {R"("content":"00123456789012345675")", R"("hrc":"(00)123456789012345675")"}},
        {"'EAN 128' --ai '10=A\\B'", "", 0, {R"("content":"10A\\\\B")", R"("hrc":"(10)A\\B")"}},
        // Refusals: the wizard's message and its id; an unknown AI.
        {"'EAN 128' --ai 01=123", "", 1, {R"("error":"message 697: Wrong length!")"}},
        {"'EAN 128' --ai 310=abc", "", 1, {R"("error":"message 701: The value must be an integer or a float.")"}},
        {"'EAN 128' --ai 00=123456789012345670", "", 1,
         {R"("error":"message 93: The value introduced is not allowed")"}},
        {"'EAN 128' --ai '10= '", "", 1, {R"("error":"message 689: The code is empty!")"}},
        {"'EAN 128' --ai 999=1", "", 1, {R"("error":"Unknown AI: 999")"}},
        // A NUL then digits would be read back as one octal escape (here a line feed).
        {"'EAN 128' --gs1-input", "(10)A\\n(91)\\000012\\n", 1, {R"("error":"the value of element string 1 holds a NUL)"}},
        {"'EAN 128' --gs1-input", "(10)AB\\n(999)1\\n", 1,
         {R"("content":"10AB")", R"("error":"Unknown AI: 999")"}},
        // Usage errors.
        {"C128 --ai 10=AB", "", 2, {}},
        {"'EAN 128' --ai 10", "", 2, {}},
        {"'EAN 128' --ai 10=AB 10AB", "", 2, {}},
        {"'EAN 128' --ai 10=AB --gs1-input", "", 2, {}},
    };
    for (const auto& c : casi) {
        const auto r = Esegui(c.argomenti, c.ingresso);
        EXPECT_EQ(r.stato, c.stato) << c.argomenti << "\n" << r.uscita;
        for (const auto& atteso : c.attesi) EXPECT_TRUE(Contiene(r.uscita, atteso)) << c.argomenti << "\n" << r.uscita;
    }
}

}  // namespace
