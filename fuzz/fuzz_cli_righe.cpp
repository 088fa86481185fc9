// krt-encode's batch mode on arbitrary standard input. The first three bytes pick the
// symbology, the options and how the input arrives (read sizes, a read fault at the
// end, an output that fails after some bytes); the rest is the input. Beyond crashes
// it checks the promises of the batch mode: one output line per input line in every
// format, status 3 exactly when a read or a write failed, nothing read after a write
// fault.
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "barcodes/catalogo.h"
#include "cli/programma.h"

namespace {

std::vector<std::string> Simbologie() {
    std::vector<std::string> nomi;
    for (const auto& v : krt::Catalogo) {
        nomi.emplace_back(v.codice);
        nomi.emplace_back(v.inglese);
    }
    nomi.emplace_back("C32HRC");
    return nomi;
}

std::size_t ContaRighe(std::string_view testo) {
    std::size_t n = 0;
    for (const char c : testo) n += c == '\n';
    return n + (!testo.empty() && testo.back() != '\n');
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t n) {
    static const std::vector<std::string> simbologie = Simbologie();
    if (n < 3) return 0;
    const std::string& simbologia = simbologie[dati[0] % simbologie.size()];
    const std::uint8_t opzioni = dati[1];
    const std::uint8_t flusso = dati[2];
    const std::string_view ingresso(reinterpret_cast<const char*>(dati + 3), n - 3);

    std::vector<const char*> argomenti;
    if (opzioni & 1) argomenti.push_back("-c");
    if (opzioni & 2) argomenti.push_back("--hrc");
    if (opzioni & 4) argomenti.push_back("--check-in-hrc");
    const char* const formati[] = {"--output=text", "--output=codes", "--output=json", "--output=text"};
    argomenti.push_back(formati[(opzioni >> 3) & 3]);
    if (opzioni & 32) argomenti.push_back("--input-encoding=cp1252");
    if (opzioni & 64) argomenti.push_back("--gs1-input");
    argomenti.push_back(simbologia.c_str());

    // Reads of 1 to 16 bytes in a pattern set by the low bits, or whole.
    const bool aPezzi = (flusso & 1) != 0;
    const bool guastoLettura = (flusso & 2) != 0;
    const std::size_t limiteUscita = (flusso & 4) ? static_cast<std::size_t>(flusso >> 3) * 7 : SIZE_MAX;
    std::size_t letti = 0;
    unsigned passo = flusso;
    bool guastoScrittura = false;
    bool letturaFallita = false;
    bool lettoDopoGuasto = false;
    auto leggi = [&](char* buffer, std::size_t spazio) -> std::ptrdiff_t {
        if (guastoScrittura) lettoDopoGuasto = true;
        if (letti == ingresso.size()) {
            if (!guastoLettura) return 0;
            letturaFallita = true;
            errno = EIO;
            return -1;
        }
        passo = passo * 1103515245u + 12345u;
        std::size_t quanti = aPezzi ? 1 + (passo >> 16) % 16 : spazio;
        quanti = std::min({quanti, spazio, ingresso.size() - letti});
        std::memcpy(buffer, ingresso.data() + letti, quanti);
        letti += quanti;
        return static_cast<std::ptrdiff_t>(quanti);
    };
    std::string uscita;
    auto scrivi = [&](const char* testo, std::size_t quanti) -> std::ptrdiff_t {
        if (uscita.size() + quanti > limiteUscita) {
            guastoScrittura = true;
            errno = EPIPE;
            return -1;
        }
        uscita.append(testo, quanti);
        return static_cast<std::ptrdiff_t>(quanti);
    };
    auto errori = [](const char*, std::size_t quanti) { return static_cast<std::ptrdiff_t>(quanti); };

    const int stato = krt::EseguiKrtEncode(argomenti, leggi, scrivi, errori);
    const bool gs1FuoriPosto = (opzioni & 64) && stato == krt::UscitaUso;
    if (gs1FuoriPosto) return 0;
    if (lettoDopoGuasto) std::abort();
    if ((stato == krt::UscitaIO) != (letturaFallita || guastoScrittura)) std::abort();
    if (stato != krt::UscitaIO && stato != krt::UscitaRiuscita && stato != krt::UscitaRifiuti) std::abort();
    if (stato != krt::UscitaIO && ContaRighe(uscita) != ContaRighe(ingresso)) std::abort();
    if (stato == krt::UscitaIO && ContaRighe(uscita) > ContaRighe(ingresso)) std::abort();
    return 0;
}
