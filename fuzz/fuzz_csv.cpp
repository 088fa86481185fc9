// krt-encode --csv on arbitrary input. The first byte picks the delimiter option and the
// read size; the rest is the file. Beyond crashes it checks the promises of the CSV mode:
// the status is 0, 1 or 2 (3 only when a read failed, which never happens here); when the
// input is CSV, the output reads back as CSV with as many rows as the input, each holding
// the input's fields (padded to the header) and three more.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "cli/programma.h"
#include "text/csv.h"

namespace {

using Record = std::vector<std::string>;

std::vector<Record> Leggi(std::string_view testo, char separatore, std::size_t passo, krt::GuastoCsv& guasto) {
    std::size_t letti = 0;
    krt::LettoreCsv lettore(
        [&](char* dati, std::size_t n) -> std::ptrdiff_t {
            n = std::min({n, passo, testo.size() - letti});
            std::memcpy(dati, testo.data() + letti, n);
            letti += n;
            return static_cast<std::ptrdiff_t>(n);
        },
        separatore);
    std::vector<Record> record;
    std::vector<std::string_view> campi;
    while (lettore.Prossimo(campi)) record.emplace_back(campi.begin(), campi.end());
    guasto = lettore.Guasto();
    return record;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t n) {
    if (n < 1) return 0;
    static const char* const separatori[] = {"--delimiter=auto", "--delimiter=,", "--delimiter=;", "--delimiter=tab"};
    const char* opzione = separatori[dati[0] & 3];
    const std::size_t passo = 1 + (dati[0] >> 2);
    const std::string_view ingresso(reinterpret_cast<const char*>(dati) + 1, n - 1);

    std::size_t letti = 0;
    std::string uscita, errori;
    const char* argomenti[] = {"--csv", opzione, "C128"};
    const int stato = krt::EseguiKrtEncode(
        argomenti,
        [&](char* d, std::size_t k) -> std::ptrdiff_t {
            k = std::min({k, passo, ingresso.size() - letti});
            std::memcpy(d, ingresso.data() + letti, k);
            letti += k;
            return static_cast<std::ptrdiff_t>(k);
        },
        [&](const char* d, std::size_t k) -> std::ptrdiff_t { uscita.append(d, k); return static_cast<std::ptrdiff_t>(k); },
        [&](const char* d, std::size_t k) -> std::ptrdiff_t { errori.append(d, k); return static_cast<std::ptrdiff_t>(k); });
    if (stato < 0 || stato > 2) std::abort();

    krt::GuastoCsv guastoIngresso;
    const char sep = opzione[12] == 'a' ? '\0' : opzione[12] == 't' ? '\t' : opzione[12];
    const std::vector<Record> righe = Leggi(ingresso, sep, passo, guastoIngresso);
    if (guastoIngresso != krt::GuastoCsv::Nessuno || righe.empty()) {
        if (stato != 2) std::abort();
        return 0;
    }
    krt::GuastoCsv guastoUscita;
    std::string_view corpo = uscita;
    if (corpo.starts_with("\xEF\xBB\xBF")) corpo.remove_prefix(3);
    // Read back with the delimiter of the input (detected from its header).
    std::size_t l = 0;
    krt::LettoreCsv rilevatore(
        [&](char* d, std::size_t k) -> std::ptrdiff_t {
            k = std::min(k, ingresso.size() - l);
            std::memcpy(d, ingresso.data() + l, k);
            l += k;
            return static_cast<std::ptrdiff_t>(k);
        },
        sep);
    std::vector<std::string_view> campi;
    rilevatore.Prossimo(campi);
    const std::vector<Record> scritte = Leggi(corpo, rilevatore.Separatore(), 1 << 16, guastoUscita);
    if (guastoUscita != krt::GuastoCsv::Nessuno || scritte.size() != righe.size()) std::abort();
    const std::size_t larghezza = righe[0].size();
    for (std::size_t i = 0; i < righe.size(); ++i) {
        const Record& r = righe[i];
        const Record& w = scritte[i];
        const std::size_t attesi = std::max(r.size(), larghezza) + 3;
        if (w.size() != attesi) std::abort();
        for (std::size_t k = 0; k < r.size(); ++k)
            if (w[k] != r[k]) std::abort();
    }
    return 0;
}
