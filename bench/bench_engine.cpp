// Throughput of CodificaBarcode per symbology family on contents like the ones users type.
#include <benchmark/benchmark.h>

#include <array>
#include <string>
#include <vector>

#include "barcodes/codifica.h"

namespace {

// Cycles through a handful of contents so that no single input is measured.
void Codifica(benchmark::State& stato, const char* codice, bool check, std::vector<std::string> contenuti) {
    const std::string simbologia = codice;
    std::size_t i = 0;
    for (auto _ : stato) {
        benchmark::DoNotOptimize(krt::CodificaBarcode(contenuti[i], simbologia, check));
        if (++i == contenuti.size()) i = 0;
    }
    stato.SetItemsProcessed(stato.iterations());
}

const std::vector<std::string> Dodici = {"400638133393", "978030640615", "590123412345",
                                         "871125300120", "501234567890", "003600029145"};

BENCHMARK_CAPTURE(Codifica, EAN13_check, "EAN13", true, Dodici);
BENCHMARK_CAPTURE(Codifica, EAN13_full, "EAN13", false,
                  {"4006381333931", "9780306406157", "5901234123457", "8711253001202"});
BENCHMARK_CAPTURE(Codifica, EAN8_check, "EAN8", true, {"9638507", "5512345", "4001234"});
BENCHMARK_CAPTURE(Codifica, UPCA_check, "UPCA", true, {"03600029145", "01234567890", "72527273070"});
BENCHMARK_CAPTURE(Codifica, UPCE_check, "UPCE", true, {"0123456", "0654321", "1234505"});
BENCHMARK_CAPTURE(Codifica, ADD5, "ADD5", true, {"52495", "00123", "90000"});
BENCHMARK_CAPTURE(Codifica, C39_check, "C39", true, {"ABC-1234", "PART.NO/42", "krt 2024"});
BENCHMARK_CAPTURE(Codifica, C93_check, "C93", true, {"TEST93", "SERIAL-0042", "X$Y/Z+%"});
BENCHMARK_CAPTURE(Codifica, C25_check, "C25", true, {"1234567", "0012345678", "98765432109"});
BENCHMARK_CAPTURE(Codifica, ITF_check, "ITF", true, {"1540014128876", "0001234567890"});
BENCHMARK_CAPTURE(Codifica, CIND25_check, "CIND25", true, {"123456", "98765432"});
BENCHMARK_CAPTURE(Codifica, C11_check, "C11", true, {"123-4552", "12345678901"});
BENCHMARK_CAPTURE(Codifica, CMSI_check, "CMSI", true, {"1234", "80523", "1234567890123"});
BENCHMARK_CAPTURE(Codifica, CIP_check, "CIP", true, {"123456", "340093"});
BENCHMARK_CAPTURE(Codifica, PLESSEY_check, "PLESSEY", true, {"01234", "A1B2C3D4E5F6"});
BENCHMARK_CAPTURE(Codifica, DELTA_check, "DELTA", true, {"12O", "KLMO0123"});
BENCHMARK_CAPTURE(Codifica, POSTNET_check, "POSTNET", true, {"12345", "123456789", "12345678901"});
BENCHMARK_CAPTURE(Codifica, C32HRC_check, "C32HRC", true, {"12345678", "03126025"});
BENCHMARK_CAPTURE(Codifica, CBAR_check, "CBAR", true, {"A123456B", "C40156D", "a-$:/.+t"});
BENCHMARK_CAPTURE(Codifica, C39FULL_check, "C39FULL", true, {"Ab-1", "Hello, World!", "lot 12/b"});
BENCHMARK_CAPTURE(Codifica, C93FULL_check, "C93FULL", true, {"Ab-1", "Hello, World!", "lot 12/b"});
BENCHMARK_CAPTURE(Codifica, ISBN, "ISBN", true, {"030640615", "884271710", "960425059"});
BENCHMARK_CAPTURE(Codifica, ISBN13, "ISBN13", true, {"978030640615", "978884271710"});

}  // namespace
