// krt-encode's command line: the bytes split at NUL into arguments, run with an empty
// standard input. Every run must end with one of the documented statuses (no I/O
// fault can happen here), and a usage error must say so on standard error.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "cli/programma.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t n) {
    std::vector<std::string> parti(1);
    for (std::size_t i = 0; i < n; ++i) {
        if (dati[i] == 0)
            parti.emplace_back();
        else
            parti.back() += static_cast<char>(dati[i]);
    }
    if (parti.size() > 64) return 0;
    std::vector<const char*> argomenti;
    for (const auto& p : parti) argomenti.push_back(p.c_str());

    auto vuoto = [](char*, std::size_t) -> std::ptrdiff_t { return 0; };
    std::size_t uscita = 0;
    std::string errori;
    const int stato = krt::EseguiKrtEncode(
        argomenti, vuoto, [&](const char*, std::size_t k) { uscita += k; return static_cast<std::ptrdiff_t>(k); },
        [&](const char* t, std::size_t k) { errori.append(t, k); return static_cast<std::ptrdiff_t>(k); });
    if (stato < krt::UscitaRiuscita || stato > krt::UscitaUso) std::abort();
    const std::string_view rimando = "\nTry 'krt-encode --help'.\n";
    if (stato == krt::UscitaUso && !std::string_view(errori).ends_with(rimando)) std::abort();
    if ((stato == krt::UscitaRifiuti) == errori.empty() && stato != krt::UscitaUso) std::abort();
    return 0;
}
