// krt_encode through the shared library, as a caller of the C interface sees it:
// EAN-13 with the check digit over varied 12-digit contents, one thread.
#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <cstdio>

#include "krt/krt.h"

namespace {

struct Contenuti {
    std::array<std::array<char, 13>, 1024> righe{};
    Contenuti() {
        std::uint32_t x = 20240601;
        for (auto& r : righe) {
            for (int i = 0; i < 12; ++i) {
                x = x * 1664525u + 1013904223u;
                r[static_cast<std::size_t>(i)] = static_cast<char>('0' + (x >> 24) % 10);
            }
        }
    }
};

void BM_KrtEncodeEan13(benchmark::State& stato, unsigned flag) {
    static const Contenuti c;
    char glifi[64];
    std::size_t scritti = 0;
    std::size_t i = 0;
    for (auto _ : stato) {
        const int esito = krt_encode("EAN13", c.righe[i & 1023].data(), 12, flag, glifi, sizeof glifi, &scritti);
        benchmark::DoNotOptimize(esito);
        benchmark::DoNotOptimize(glifi);
        ++i;
    }
    stato.SetItemsProcessed(static_cast<std::int64_t>(stato.iterations()));
}
BENCHMARK_CAPTURE(BM_KrtEncodeEan13, check, KRT_CHECK);
BENCHMARK_CAPTURE(BM_KrtEncodeEan13, check_utf8, KRT_CHECK | KRT_UTF8);

void BM_KrtEncodeCode128(benchmark::State& stato) {
    char glifi[128];
    std::size_t scritti = 0;
    for (auto _ : stato) {
        const int esito = krt_encode("C128", "KRT-2024/abc 0042", KRT_NUL_TERMINATED, 0, glifi, sizeof glifi, &scritti);
        benchmark::DoNotOptimize(esito);
        benchmark::DoNotOptimize(glifi);
    }
    stato.SetItemsProcessed(static_cast<std::int64_t>(stato.iterations()));
}
BENCHMARK(BM_KrtEncodeCode128);

}  // namespace
