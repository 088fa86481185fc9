// Code 128 and GS1-128 through the engine's single entry, on typical and long contents.
#include <benchmark/benchmark.h>

#include <string>

#include "barcodes/code128.h"
#include "barcodes/codifica.h"

namespace {

void Codifica(benchmark::State& state, const std::string& contenuto, const char* codice) {
    for (auto _ : state) benchmark::DoNotOptimize(krt::CodificaBarcode(contenuto, codice, false));
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()));
}

void BM_C128_Testo(benchmark::State& s) { Codifica(s, "KRT-2024/Order 123456 ab\\t", "C128"); }
void BM_C128_Cifre(benchmark::State& s) { Codifica(s, "12345678901234567890", "C128"); }
void BM_C128_Misto(benchmark::State& s) { Codifica(s, "AB12345\\x01b6789\\d129" "12a\\201" "3", "C128"); }
void BM_E128_Elementi(benchmark::State& s) { Codifica(s, "0109501234567890" "10ABC123\\x81" "21XYZ", "E128"); }
void BM_E128_Spedizione(benchmark::State& s) { Codifica(s, "00123456789012345678" "4201234" "\\x81" "3103001250", "E128"); }

// A long content that still gives a symbol: "00" pairs weigh 0 in the check sum
// (any set switch late in a long content overflows it).
void BM_C128_Lungo(benchmark::State& state) {
    const std::string contenuto(static_cast<std::size_t>(state.range(0)), '0');
    for (auto _ : state) benchmark::DoNotOptimize(krt::CodificaBarcode(contenuto, "C128", false));
    state.SetComplexityN(state.range(0));
}

// The value string alone of content that switches sets all the time: the set choice
// looks ahead at the rest, and must stay linear.
void BM_C128_ValoriAlterni(benchmark::State& state) {
    std::string contenuto;
    while (contenuto.size() < static_cast<std::size_t>(state.range(0))) contenuto += "1234\x01" "a\x81" "5";
    for (auto _ : state) benchmark::DoNotOptimize(krt::ValoriCode128(contenuto));
    state.SetComplexityN(state.range(0));
}

}  // namespace

BENCHMARK(BM_C128_Testo);
BENCHMARK(BM_C128_Cifre);
BENCHMARK(BM_C128_Misto);
BENCHMARK(BM_E128_Elementi);
BENCHMARK(BM_E128_Spedizione);
BENCHMARK(BM_C128_Lungo)->RangeMultiplier(10)->Range(100, 10000)->Complexity();
BENCHMARK(BM_C128_ValoriAlterni)->RangeMultiplier(10)->Range(100, 10000)->Complexity();
